#pragma once

#include "model/CVEKA_USGKey.h"
#include "model/logic/CVEKA_Partition.h"

/// One pin of a part, as its symbols see it.
class VEKA_API CVEKA_LogicPin {
    VEKA_RECORD(CVEKA_LogicPin)
    VEKA_NUMBER(int, LogicPinNo, 0, "number of the logic pin")
    VEKA_TEXT(LogicPinName, "name of the logic pin")
    VEKA_FLAG(UsedPin, "1 if the pin is used")
};

/// The logic pins of a part.
VEKA_ARRAY(CVEKA_LogicPinArray, CVEKA_LogicPin)

/// A symbol of a part.
class VEKA_API CVEKA_Symbol {
    VEKA_RECORD(CVEKA_Symbol)
    VEKA_TEXT(SymbolName, "name of the symbol")
    VEKA_OWNED(CVEKA_USGKeyArray, USGKeys, "search keys of the symbol")
    VEKA_OWNED(CVEKA_PartitionArray, Partitions, "partitions that make up the symbol")
    VEKA_OWNED(CVEKA_CommentArray, CommentArr, "comments on the symbol")
};

/// The symbols of a part.
VEKA_ARRAY(CVEKA_SymbolArray, CVEKA_Symbol)

/// The schematic view of a part.
class VEKA_API CVEKA_LogicSymbols {
    VEKA_RECORD(CVEKA_LogicSymbols)
    VEKA_TEXT(DefaultSymbolName, "name of the symbol to use by default")
    VEKA_OWNED(CVEKA_LogicPinArray, LogicPinLibs, "logic pins of the part")
    VEKA_OWNED(CVEKA_SymbolArray, Symbol, "symbols of the part")
};
