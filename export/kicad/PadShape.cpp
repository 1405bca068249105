#include "export/kicad/PadShape.h"

#include <algorithm>
#include <cmath>

namespace kicad {

namespace {

using drawing::Box;
using drawing::Place;
using drawing::Point;
using drawing::Vertex;
using Outline = std::vector<Vertex>;

// A tenth of a nanometre.
constexpr double kEqual = 1e-7;

bool Same(double a, double b) {
    return std::fabs(a - b) <= kEqual;
}
bool Same(Point a, Point b) {
    return Same(a.x, b.x) && Same(a.y, b.y);
}

double Cross(Point a, Point b) {
    return a.x * b.y - a.y * b.x;
}

/// Twice the area of the corners, above 0 counter-clockwise.
double Area(std::span<const Vertex> outline) {
    double area = 0;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Vertex& vertex = outline[i];
        const Point next = outline[(i + 1) % outline.size()].point;
        const double chord = drawing::Distance(vertex.point, next);
        // An arc adds about the area between itself and its chord; only the sign matters.
        area +=
            Cross(vertex.point - outline[0].point, next - outline[0].point) + vertex.bulge * chord * chord;
    }
    return area;
}

/// The outline counter-clockwise, without corners that are none.
Outline Cleaned(std::span<const Vertex> outline) {
    Outline result;
    const std::size_t count = outline.size();
    const bool turned = Area(outline) < 0;
    for (std::size_t k = 0; k < count; ++k) {
        const std::size_t i = turned ? count - 1 - k : k;
        // Backwards the bulge of a way belongs to its other end.
        const double bulge = turned ? -outline[(i + count - 1) % count].bulge : outline[i].bulge;
        const Point point = outline[i].point;
        const Point next = outline[turned ? (i + count - 1) % count : (i + 1) % count].point;
        if (bulge == 0 && Same(point, next)) continue;
        result.push_back({point, bulge});
    }
    for (bool again = true; again && result.size() > 2;) {
        again = false;
        for (std::size_t i = 0; i < result.size(); ++i) {
            const Vertex& before = result[(i + result.size() - 1) % result.size()];
            const Point next = result[(i + 1) % result.size()].point;
            const Point in = result[i].point - before.point, out = next - result[i].point;
            const double length = std::hypot(in.x, in.y) * std::hypot(out.x, out.y);
            const bool straight = before.bulge == 0 && result[i].bulge == 0 &&
                                  std::fabs(Cross(in, out)) <= 1e-9 * length &&
                                  in.x * out.x + in.y * out.y > 0;
            if (!straight) continue;
            result.erase(result.begin() + static_cast<std::ptrdiff_t>(i));
            again = true;
            break;
        }
    }
    return result;
}

bool SameOutline(const Outline& a, const Outline& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t shift = 0; shift < a.size(); ++shift) {
        bool same = true;
        for (std::size_t i = 0; same && i < a.size(); ++i) {
            const Vertex& other = b[(i + shift) % b.size()];
            same = Same(a[i].point, other.point) && std::fabs(a[i].bulge - other.bulge) < 1e-6;
        }
        if (same) return true;
    }
    return false;
}

/// An angle of a direction that can be turned by quarters, above -45 and at most 45.
double WithinQuarter(double degrees) {
    double turn = std::fmod(degrees, 90);
    if (turn <= -45) turn += 90;
    if (turn > 45) turn -= 90;
    return std::fabs(turn) < 1e-9 ? 0 : turn;
}

Outline Moved(const Outline& outline, const Place& place) {
    Outline moved;
    for (const Vertex& vertex : outline) moved.push_back(place.Moved(vertex));
    return moved;
}

std::optional<PadShape> CircleOf(const Outline& outline) {
    if (outline.empty() ||
        std::any_of(outline.begin(), outline.end(), [](const Vertex& v) { return v.bulge == 0; }))
        return std::nullopt;
    const drawing::Arc2 first = drawing::ArcOf(outline[0], outline[1 % outline.size()].point);
    for (std::size_t i = 1; i < outline.size(); ++i) {
        const drawing::Arc2 arc = drawing::ArcOf(outline[i], outline[(i + 1) % outline.size()].point);
        if (!Same(arc.center, first.center) || !Same(arc.radius, first.radius)) return std::nullopt;
    }
    return PadShape{PadShape::Kind::Circle, first.center, 2 * first.radius, 2 * first.radius};
}

/// The direction of the longest straight edge, or that of a chord of an arc, which lies across a corner.
double AngleOfEdges(const Outline& outline) {
    double longest = 0, angle = 0;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point way = outline[(i + 1) % outline.size()].point - outline[i].point;
        const double length = std::hypot(way.x, way.y);
        if (outline[i].bulge == 0 && length > longest) {
            longest = length;
            angle = drawing::AngleOf(way);
        }
    }
    if (longest == 0 && outline.size() > 1)
        angle = drawing::AngleOf(outline[1].point - outline[0].point) + 45;
    return WithinQuarter(angle);
}

/// A rectangle whose corners are whole, round or cut. The outline is upright and has its middle at the
/// origin.
bool Fit(const Outline& outline, PadShape& shape) {
    const double half = std::min(shape.width, shape.height) / 2;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        if (outline[i].bulge == 0) continue;
        const double radius = drawing::ArcOf(outline[i], outline[(i + 1) % outline.size()].point).radius;
        shape.corner = std::min(radius, half);
        shape.kind = radius >= half - kEqual ? PadShape::Kind::Oval : PadShape::Kind::RoundedRectangle;
        if (shape.kind == PadShape::Kind::Oval) shape.corner = half;
        return SameOutline(outline,
                           Cleaned(drawing::RoundedOutline(shape.width, shape.height, shape.corner)));
    }
    if (SameOutline(outline, drawing::RectangleOutline(shape.width, shape.height))) {
        shape.kind = PadShape::Kind::Rectangle;
        return true;
    }
    shape.kind = PadShape::Kind::ChamferedRectangle;
    const double x = shape.width / 2, y = shape.height / 2;
    const auto has = [&](Point point) {
        return std::any_of(outline.begin(), outline.end(),
                           [&](const Vertex& v) { return Same(v.point, point); });
    };
    // The corners counter-clockwise, each with the ways to it and from it.
    struct Way {
        unsigned corner;
        Point at, back, on;
    };
    const Way ways[] = {{PadShape::BottomLeft, {-x, -y}, {0, 1}, {1, 0}},
                        {PadShape::BottomRight, {x, -y}, {-1, 0}, {0, 1}},
                        {PadShape::TopRight, {x, y}, {0, -1}, {-1, 0}},
                        {PadShape::TopLeft, {-x, y}, {1, 0}, {0, -1}}};
    for (const Way& way : ways) {
        if (has(way.at)) continue;
        shape.corners |= way.corner;
        if (shape.corner > 0) continue;
        // What is cut is the distance of the closest corner on the way back.
        double cut = half + kEqual;
        for (const Vertex& v : outline) {
            const Point from = v.point - way.at;
            if (std::fabs(Cross(from, way.back)) <= kEqual)
                cut = std::min(cut, from.x * way.back.x + from.y * way.back.y);
        }
        shape.corner = cut;
    }
    if (!(shape.corner > kEqual) || shape.corner > half) return false;
    Outline cut;
    for (const Way& way : ways) {
        if (shape.corners & way.corner) {
            cut.push_back({way.at + way.back * shape.corner});
            cut.push_back({way.at + way.on * shape.corner});
        } else {
            cut.push_back({way.at});
        }
    }
    return SameOutline(outline, Cleaned(cut));
}

/// A trapezoid whose parallel edges are of different length, symmetric about the line between their middles.
std::optional<PadShape> TrapezoidOf(const Outline& outline) {
    const auto isArc = [](const Vertex& vertex) { return vertex.bulge != 0; };
    if (outline.size() != 4 || std::any_of(outline.begin(), outline.end(), isArc)) return std::nullopt;
    for (std::size_t i = 0; i < 2; ++i) {
        const Point a = outline[i].point, b = outline[i + 1].point, c = outline[i + 2].point,
                    d = outline[(i + 3) % 4].point;
        const Point first = b - a, second = c - d;
        const double firstLength = std::hypot(first.x, first.y),
                     secondLength = std::hypot(second.x, second.y);
        const Point along = (a + b) * 0.5, across = (c + d) * 0.5 - along;
        const double distance = std::hypot(across.x, across.y);
        if (!(firstLength > 0 && secondLength > 0 && distance > 0)) continue;
        if (std::fabs(Cross(first, second)) > kEqual * firstLength) continue;
        if (std::fabs(first.x * across.x + first.y * across.y) > kEqual * firstLength) continue;
        PadShape shape;
        shape.kind = PadShape::Kind::Trapezoid;
        shape.center = (a + b + c + d) * 0.25;
        const double middle = (firstLength + secondLength) / 2, more = firstLength - secondLength;
        // The first edge is the lower one when the shape is turned by this angle.
        const double turn = drawing::AngleOf(first);
        shape.angle = WithinQuarter(turn);
        const int quarters = static_cast<int>(std::lround((turn - shape.angle) / 90)) & 3;
        if (quarters % 2 == 0) {
            shape.width = middle;
            shape.height = distance;
            shape.deltaY = quarters == 0 ? more : -more;
        } else {
            shape.width = distance;
            shape.height = middle;
            shape.deltaX = quarters == 3 ? more : -more;
        }
        return shape;
    }
    return std::nullopt;
}

}  // namespace

std::optional<PadShape> ShapeOf(std::span<const Vertex> vertices) {
    // A shape with more corners is none that KiCad has.
    if (vertices.size() < 2 || vertices.size() > 64) return std::nullopt;
    const Outline outline = Cleaned(vertices);
    if (outline.size() < 2) return std::nullopt;
    if (const std::optional<PadShape> circle = CircleOf(outline)) return circle;
    PadShape shape;
    shape.angle = AngleOfEdges(outline);
    const Outline upright = Moved(outline, Place({}, -shape.angle));
    Box box;
    for (std::size_t i = 0; i < upright.size(); ++i)
        drawing::AddWay(box, upright[i], upright[(i + 1) % upright.size()].point);
    shape.width = box.Width();
    shape.height = box.Height();
    shape.center = Place({}, shape.angle)(box.Center());
    if (!(shape.width > 0 && shape.height > 0)) return std::nullopt;
    if (Fit(Moved(upright, Place(box.Center() * -1)), shape)) return shape;
    return TrapezoidOf(outline);
}

std::optional<PadShape> ShapeOf(const drawing::Scene& scene, const drawing::Shape& shape, bool outlines) {
    if (const auto* circle = std::get_if<drawing::Circle>(&shape.form)) {
        if (!circle->filled && !outlines) return std::nullopt;
        const double size = 2 * circle->radius + (circle->filled ? circle->width : 0);
        return PadShape{PadShape::Kind::Circle, circle->center, size, size};
    }
    const auto* polygon = std::get_if<drawing::Polygon>(&shape.form);
    if (!polygon || polygon->count != 1) return std::nullopt;
    if (!polygon->filled && !outlines) return std::nullopt;
    // A line around the area makes it larger, and its corners round.
    if (polygon->filled && polygon->width > 0) return std::nullopt;
    return ShapeOf(scene.Vertices(scene.Contours(*polygon)[0]));
}

PadShape TurnedLike(PadShape shape, double angle) {
    const int quarters = static_cast<int>(std::lround((angle - shape.angle) / 90)) & 3;
    for (int i = 0; i < quarters; ++i) {
        // What was on the right is on the lower side, seen from a frame that is turned to the left.
        shape.angle += 90;
        std::swap(shape.width, shape.height);
        const double x = shape.deltaX;
        shape.deltaX = shape.deltaY;
        shape.deltaY = -x;
        unsigned turned = 0;
        if (shape.corners & PadShape::TopRight) turned |= PadShape::BottomRight;
        if (shape.corners & PadShape::BottomRight) turned |= PadShape::BottomLeft;
        if (shape.corners & PadShape::BottomLeft) turned |= PadShape::TopLeft;
        if (shape.corners & PadShape::TopLeft) turned |= PadShape::TopRight;
        shape.corners = turned;
    }
    return shape;
}

}  // namespace kicad
