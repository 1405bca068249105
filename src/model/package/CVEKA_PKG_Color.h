#pragma once

#include "model/CVEKA_Color.h"

/// Display colours of a package.
class VEKA_API CVEKA_PKG_Color {
    VEKA_RECORD(CVEKA_PKG_Color)
    VEKA_OWNED(CVEKA_Color, BodyColor, GetBodyColor, SetBodyColor)
    VEKA_OWNED(CVEKA_Color, LeadColor, GetLeadColor, SetLeadColor)
    VEKA_OWNED(CVEKA_Color, FlagPinColor, GetFlagPinColor, SetFlagPinColor)
    VEKA_OWNED(CVEKA_Color, MechanicalPinColor, GetMechanicalPinColor, SetMechanicalPinColor)
};
