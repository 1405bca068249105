#pragma once

#include "model/CVEKA_USGKey.h"
#include "model/logic/CVEKA_Partition.h"

/// One pin of a part, as its symbols see it.
class VEKA_API CVEKA_LogicPin {
    VEKA_RECORD(CVEKA_LogicPin)
    VEKA_NUMBER(int, LogicPinNo, 0, GetLogicPinNo, SetLogicPinNo)
    VEKA_TEXT(LogicPinName, GetLogicPinName, SetLogicPinName)
    VEKA_FLAG(UsedPin, GetUsedPin, SetUsedPin)
};

/// The logic pins of a part.
VEKA_ARRAY(CVEKA_LogicPinArray, CVEKA_LogicPin)

/// A symbol of a part.
class VEKA_API CVEKA_Symbol {
    VEKA_RECORD(CVEKA_Symbol)
    VEKA_TEXT(SymbolName, GetSymbolName, SetSymbolName)
    VEKA_OWNED(CVEKA_USGKeyArray, USGKeys, GetUSGKeys, SetUSGKeys)
    VEKA_OWNED(CVEKA_PartitionArray, Partitions, GetPartitions, SetPartitions)
    VEKA_OWNED(CVEKA_CommentArray, CommentArr, GetCommentArr, SetCommentArr)
};

/// The symbols of a part.
VEKA_ARRAY(CVEKA_SymbolArray, CVEKA_Symbol)

/// The schematic view of a part.
class VEKA_API CVEKA_LogicSymbols {
    VEKA_RECORD(CVEKA_LogicSymbols)
    VEKA_TEXT(DefaultSymbolName, GetDefaultSymbolName, SetDefaultSymbolName)
    VEKA_OWNED(CVEKA_LogicPinArray, LogicPinLibs, GetLogicPinLibs, SetLogicPinLibs)
    VEKA_OWNED(CVEKA_SymbolArray, Symbol, GetSymbol, SetSymbol)
};
