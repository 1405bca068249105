#pragma once

#include "model/objects/CVEKA_3DObjectArray.h"

/// A named part of a package that is no pin of the circuit.
class VEKA_API CVEKA_MechanicalPin {
    VEKA_RECORD(CVEKA_MechanicalPin)
    VEKA_TEXT(Name, GetName, SetName)
    VEKA_OWNED(CVEKA_Coordinate, Point, GetPoint, SetPoint)
    VEKA_NUMBER(double, Rotation, 0, GetRotation, SetRotation)
    VEKA_TEXT(StepFileName, GetStepFileName, SetStepFileName)
    VEKA_OWNED(CVEKA_3DObjectArray, Lead, GetLead, SetLead)
};

/// The mechanical pins of a package.
VEKA_ARRAY(CVEKA_MechanicalPinArray, CVEKA_MechanicalPin)
