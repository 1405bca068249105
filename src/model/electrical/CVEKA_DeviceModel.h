#pragma once

#include "model/Record.h"

/// A simulation model file.
class VEKA_API CVEKA_DeviceModel {
    VEKA_RECORD(CVEKA_DeviceModel)
    VEKA_TEXT(ModelType, "kind of the model")
    VEKA_TEXT(FilePath, "path of the model's file")
};

/// The simulation models of a part.
VEKA_ARRAY(CVEKA_DeviceModelArray, CVEKA_DeviceModel)

/// Simulation models in a record of their own. No parser method makes one; it is for the model's users.
class VEKA_API CVEKA_DeviceModels {
    VEKA_RECORD(CVEKA_DeviceModels)
    VEKA_OWNED_VARIABLE(CVEKA_DeviceModelArray, ModelArr, "the simulation models")
};
