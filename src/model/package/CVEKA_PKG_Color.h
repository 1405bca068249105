#pragma once

#include "model/CVEKA_Color.h"

/// Display colours of a package.
class VEKA_API CVEKA_PKG_Color {
    VEKA_RECORD(CVEKA_PKG_Color)
    VEKA_OWNED(CVEKA_Color, BodyColor, "colour of the body")
    VEKA_OWNED(CVEKA_Color, LeadColor, "colour of the leads")
    VEKA_OWNED(CVEKA_Color, FlagPinColor, "colour of the flag pin")
    VEKA_OWNED(CVEKA_Color, MechanicalPinColor, "colour of the mechanical pins")
};
