#pragma once

#include <optional>
#include <span>
#include <vector>

#include "drawing/Scene.h"

namespace kicad {

/// How far in millimetres a polygon may depart from an arc that it stands for.
inline constexpr double kArcError = 0.001;

/// The corners of an outline whose arcs are replaced by straight ways.
std::vector<drawing::Point> Straightened(std::span<const drawing::Vertex> outline);

/// The line that an area of one or two corners is where it has a pen, since KiCad's polygons have three
/// corners or more. None for another area.
std::optional<drawing::Line> LineOf(const std::vector<drawing::Point>& outline, double width);

/// Outlines without holes that cover what a polygon covers by the even-odd rule: a hole is joined to the
/// outline around it by a cut without a width, since KiCad's polygons have one outline each. Outlines may
/// touch but not cross each other. Very many holes raise `drawing::TooLarge`.
std::vector<std::vector<drawing::Point>> WithoutHoles(std::vector<std::vector<drawing::Point>> outlines);

/// How far a point is inside of an outline; 0 outside.
double DepthOf(drawing::Point point, std::span<const drawing::Point> outline);

/// A point about as far inside of an outline as there is one. Its depth is 0 where the outline has no area.
struct Inside {
    drawing::Point point;
    double depth = 0;
};
Inside PointInside(std::span<const drawing::Point> outline);

}  // namespace kicad
