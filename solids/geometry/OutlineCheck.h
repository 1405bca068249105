#pragma once

#include <string>
#include <vector>

#include "geometry/PlaneShapesLib.h"

namespace geometry {

/// The corners of a closed outline. An arc is a line through points at most 5 degrees apart.
std::vector<CPointD> CornersOf(const CPCDrawObjArray& outline);

/// Why outlines do not bound one face with holes: the first is its border, the others its holes. Empty if
/// they do: none crosses or touches itself or another, and each hole lies inside of the border and of no
/// other hole. The time is proportional to the number of corners; where too many of them lie too close
/// together, that is the reason.
std::string WhyNoFace(const std::vector<std::vector<CPointD>>& outlines);

}  // namespace geometry
