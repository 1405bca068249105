#pragma once

#include <optional>
#include <span>
#include <vector>

#include "drawing/Scene.h"

namespace kicad {

/// A shape that KiCad has for pads. Lengths are in millimetres, angles in degrees; Y points up.
struct PadShape {
    enum class Kind { Circle, Rectangle, RoundedRectangle, Oval, ChamferedRectangle, Trapezoid };
    /// The corners that are cut.
    enum Corner : unsigned { TopLeft = 1, TopRight = 2, BottomLeft = 4, BottomRight = 8 };

    Kind kind = Kind::Circle;
    drawing::Point center;
    double width = 0, height = 0;
    double angle = 0;      ///< of the width's direction, above -45 and at most 45
    double corner = 0;     ///< radius of the corners, or what is cut off along each edge
    unsigned corners = 0;  ///< the corners that are cut
    /// Of a trapezoid: how much longer its left edge is than its right one, and its lower edge than its upper
    /// one.
    double deltaX = 0, deltaY = 0;

    bool operator==(const PadShape&) const = default;
};

/// The shape that a filled shape of a scene is. None for what KiCad can only draw as a polygon. With
/// `outlines` an outline counts as the area inside of it.
std::optional<PadShape> ShapeOf(const drawing::Scene& scene, const drawing::Shape& shape,
                                bool outlines = false);
/// The shape that one closed outline is.
std::optional<PadShape> ShapeOf(std::span<const drawing::Vertex> outline);

/// The shape, turned by a quarter as often as it takes for its angle to be closest to another one's.
PadShape TurnedLike(PadShape shape, double angle);

}  // namespace kicad
