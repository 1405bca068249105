#pragma once

#include "model/Record.h"

/// Thermal resistances from the junction.
class VEKA_API CVEKA_Simple {
    VEKA_RECORD(CVEKA_Simple)
    VEKA_NUMBER(double, JC, 0, "thermal resistance from the junction to the case")
    VEKA_NUMBER(double, JB, 0, "thermal resistance from the junction to the board")
};

/// A resistor between two nodes of a thermal network.
class VEKA_API CVEKA_Node {
    VEKA_RECORD(CVEKA_Node)
    VEKA_TEXT(FirstNodeName, "name of the node at one end")
    VEKA_TEXT(SecondNodeName, "name of the node at the other end")
    VEKA_NUMBER(double, ThermalResistance, 0, "thermal resistance between the nodes")
};

/// The resistors of a thermal network.
VEKA_ARRAY(CVEKA_NodeArray, CVEKA_Node)

/// A DELPHI compact thermal model.
class VEKA_API CVEKA_Delphi {
    VEKA_RECORD(CVEKA_Delphi)
    VEKA_OWNED(CVEKA_NodeArray, Nodes, "resistors of the network")
};

/// Both thermal models side by side; nothing chooses between them.
class VEKA_API CVEKA_ThermalModel {
    VEKA_RECORD(CVEKA_ThermalModel)
    VEKA_OWNED(CVEKA_Simple, Simple, "model of two resistances")
    VEKA_OWNED(CVEKA_Delphi, Delphi, "model of a network of resistances")
};
