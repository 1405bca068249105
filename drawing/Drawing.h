#pragma once

/// All of the drawings: from the records of a part to scenes, and from scenes to SVG.

#include "drawing/FootprintScene.h"
#include "drawing/LeadScene.h"
#include "drawing/PackageScene.h"
#include "drawing/Part.h"
#include "drawing/Scene.h"
#include "drawing/Sheet.h"
#include "drawing/Svg.h"
#include "drawing/SymbolScene.h"
