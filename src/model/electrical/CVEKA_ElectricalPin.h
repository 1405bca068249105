#pragma once

#include "model/CVEKA_Comment.h"
#include "model/CVEKA_RLC.h"

/// One pin of a part, as the electrical view sees it. Its words are stored and select nothing.
class VEKA_API CVEKA_ElectricalPin {
    VEKA_RECORD(CVEKA_ElectricalPin)
    VEKA_TEXT(Name, GetName, SetName)
    VEKA_TEXT(SignalName, GetSignalName, SetSignalName)
    VEKA_TEXT(Type, GetType, SetType)
    VEKA_TEXT(SignalPU, GetSignalPU, SetSignalPU)  /// pull-up signal
    VEKA_TEXT(SignalPD, GetSignalPD, SetSignalPD)  /// pull-down signal
    VEKA_TEXT(InverterPinName, GetInverterPinName, SetInverterPinName)
    VEKA_TEXT(DeviceModelType, GetDeviceModelType, SetDeviceModelType)
    VEKA_TEXT(DName, GetDName, SetDName)
    VEKA_LIST(DriverModelName, GetDriverModelName, SetDriverModelName)
    VEKA_TEXT(ReceiverModelName, GetReceiverModelName, SetReceiverModelName)  /// filled by no keyword
    VEKA_TEXT(PKGPinModelType, GetPKGPinModelType, SetPKGPinModelType)
    VEKA_TEXT(PName, GetPName, SetPName)
    VEKA_TEXT(RCModelName, GetRCModelName, SetRCModelName)
    VEKA_OWNED(CVEKA_RLC, RLC, GetRLC, SetRLC)
    VEKA_TEXT(STUPName, GetSTUPName, SetSTUPName)
    VEKA_TEXT(INPort, GetINPort, SetINPort)
    VEKA_TEXT(OUTPort, GetOUTPort, SetOUTPort)
    VEKA_OWNED(CVEKA_CommentArray, CommentArr, GetCommentArr, SetCommentArr)  /// filled by no keyword
};

/// The electrical pins of a part.
VEKA_ARRAY(CVEKA_ElectricalPinArray, CVEKA_ElectricalPin)
