#pragma once

#include "model/CVEKA_Comment.h"
#include "model/CVEKA_RLC.h"

/// One pin of a part, as the electrical view sees it. Its words are stored and select nothing.
class VEKA_API CVEKA_ElectricalPin {
    VEKA_RECORD(CVEKA_ElectricalPin)
    VEKA_TEXT(Name, "name of the pin")
    VEKA_TEXT(SignalName, "signal at the pin")
    VEKA_TEXT(Type, "word for the electrical type of the pin")
    VEKA_TEXT(SignalPU, "pull-up signal")
    VEKA_TEXT(SignalPD, "pull-down signal")
    VEKA_TEXT(InverterPinName, "name of the pin that carries the inverse signal")
    VEKA_TEXT(DeviceModelType, "kind of the device model")
    VEKA_TEXT(DName, "name of the device model")
    VEKA_LIST(DriverModelName, "names of the driver models")
    VEKA_TEXT(ReceiverModelName, "name of the receiver model; no keyword fills it")
    VEKA_TEXT(PKGPinModelType, "kind of the model of the package pin")
    VEKA_TEXT(PName, "name of the model of the package pin")
    VEKA_TEXT(RCModelName, "name of the RC model")
    VEKA_OWNED(CVEKA_RLC, RLC, "resistance, inductance and capacitance of the pin")
    VEKA_TEXT(STUPName, "name that the STUP level gives")
    VEKA_TEXT(INPort, "input port")
    VEKA_TEXT(OUTPort, "output port")
    VEKA_OWNED(CVEKA_CommentArray, CommentArr, "comments; no keyword fills them")
};

/// The electrical pins of a part.
VEKA_ARRAY(CVEKA_ElectricalPinArray, CVEKA_ElectricalPin)
