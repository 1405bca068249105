#pragma once

#include "model/objects/CVEKA_3DObjectArray.h"

/// A named part of a package that is no pin of the circuit.
class VEKA_API CVEKA_MechanicalPin {
    VEKA_RECORD(CVEKA_MechanicalPin)
    VEKA_TEXT(Name, "name of the pin")
    VEKA_OWNED(CVEKA_Coordinate, Point, "place of the pin")
    VEKA_NUMBER(double, Rotation, 0, "rotation of the pin in degrees")
    VEKA_TEXT(StepFileName, "file of the pin's solid model")
    VEKA_OWNED(CVEKA_3DObjectArray, Lead, "objects that draw the lead")
};

/// The mechanical pins of a package.
VEKA_ARRAY(CVEKA_MechanicalPinArray, CVEKA_MechanicalPin)
