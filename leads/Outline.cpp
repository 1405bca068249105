// The lines of a lead: its middle line, its outline in its own plane, and what it covers in a view.

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "leads/Lead.h"

namespace veka {

namespace {

constexpr double kNoLength = 1e-9;
constexpr double kStep = 15 * std::numbers::pi / 180;  // of an arc that becomes a polygon
constexpr int kRound = 24;                             // corners of a whole circle

LeadPoint operator+(LeadPoint a, LeadPoint b) {
    return {a.along + b.along, a.up + b.up};
}
LeadPoint operator-(LeadPoint a, LeadPoint b) {
    return {a.along - b.along, a.up - b.up};
}
LeadPoint operator*(LeadPoint a, double factor) {
    return {a.along * factor, a.up * factor};
}
double Length(LeadPoint a) {
    return std::hypot(a.along, a.up);
}
double Cross(LeadPoint a, LeadPoint b) {
    return a.along * b.up - a.up * b.along;
}
double Dot(LeadPoint a, LeadPoint b) {
    return a.along * b.along + a.up * b.up;
}
LeadPoint Left(LeadPoint direction) {
    return {-direction.up, direction.along};
}
LeadPoint Direction(LeadPoint from, LeadPoint to) {
    const LeadPoint way = to - from;
    return way * (1 / Length(way));
}

/// The corners of a path without those that repeat the one before.
std::vector<LeadPoint> Corners(const LeadSweep& sweep) {
    std::vector<LeadPoint> corners;
    for (const LeadPoint& point : sweep.path)
        if (corners.empty() || Length(point - corners.back()) > kNoLength) corners.push_back(point);
    return corners;
}

/// The direction of a piece at its start or its end.
LeadPoint Tangent(const LeadPiece& piece, bool atEnd) {
    if (piece.radius == 0) return Direction(piece.start, piece.end);
    const LeadPoint left = Left(Direction(piece.center, atEnd ? piece.end : piece.start));
    return piece.clockwise ? left * -1 : left;
}

/// The pieces of a line beside the middle line, to the left of it by a distance; to the right where that is
/// negative.
std::vector<LeadPiece> Beside(const std::vector<LeadPiece>& middle, double distance) {
    std::vector<LeadPiece> line;
    for (size_t i = 0; i < middle.size(); ++i) {
        const LeadPiece& piece = middle[i];
        // At a sharp corner both lines meet on the line that halves the angle.
        const auto moved = [&](bool atEnd) {
            LeadPoint normal = Left(Tangent(piece, atEnd));
            const bool hasNeighbour = atEnd ? i + 1 < middle.size() : i > 0;
            if (hasNeighbour) {
                const LeadPoint other = Left(Tangent(middle[atEnd ? i + 1 : i - 1], !atEnd));
                const double along = 1 + Dot(normal, other);
                if (along > 1e-6) normal = (normal + other) * (1 / along);
            }
            return (atEnd ? piece.end : piece.start) + normal * distance;
        };
        LeadPiece copy = piece;
        copy.start = moved(false);
        copy.end = moved(true);
        if (piece.radius > 0) {
            copy.radius = piece.radius + (piece.clockwise ? distance : -distance);
            if (copy.radius < kNoLength) continue;  // the inner side of a bend is a point
        }
        line.push_back(copy);
    }
    return line;
}

LeadPiece Reversed(const LeadPiece& piece) {
    return {piece.end, piece.start, piece.center, piece.radius, !piece.clockwise};
}

/// How far an arc turns, in radians.
double Sweep(const LeadPiece& arc) {
    const LeadPoint a = arc.start - arc.center, b = arc.end - arc.center;
    const double turn = std::atan2(Cross(a, b), Dot(a, b)) * (arc.clockwise ? -1 : 1);
    return turn > 0 ? turn : turn + 2 * std::numbers::pi;
}

/// The points of a piece but for its end.
void AppendPoints(const LeadPiece& piece, std::vector<LeadPoint>& points) {
    points.push_back(piece.start);
    if (piece.radius == 0) return;
    const double turn = Sweep(piece) * (piece.clockwise ? -1 : 1);
    const LeadPoint arm = piece.start - piece.center;
    const int steps = static_cast<int>(std::ceil(std::fabs(turn) / kStep));
    for (int i = 1; i < steps; ++i) {
        const double angle = turn * i / steps, c = std::cos(angle), s = std::sin(angle);
        points.push_back(piece.center + LeadPoint{c * arm.along - s * arm.up, s * arm.along + c * arm.up});
    }
}

/// A plane through a lead that stands at its place, seen in a view.
class Projection {
public:
    Projection(const LeadSweep& sweep, const Placement& place, LeadView view) : m_place(place), m_view(view) {
        const double angle = sweep.direction / 180 * std::numbers::pi;
        m_along = {std::cos(angle), std::sin(angle), 0};
        m_across = {-std::sin(angle), std::cos(angle), 0};
    }

    ViewPoint At(LeadPoint point, double across) const {
        return See(m_place({point.along * m_along.x + across * m_across.x,
                            point.along * m_along.y + across * m_across.y, point.up}),
                   m_view);
    }
    static ViewPoint See(const Position& p, LeadView view) {
        if (view == LeadView::Top) return {p.x, p.y};
        if (view == LeadView::Front) return {p.x, p.z};
        return {p.y, p.z};
    }
    /// How much of the way across the plane goes towards the eye: 1 if the plane is seen in its true shape, 0
    /// if it is seen from its edge.
    double Openness() const {
        const Position across = m_place.Turned(m_across);
        return std::fabs(m_view == LeadView::Top     ? across.z
                         : m_view == LeadView::Front ? across.y
                                                     : across.x);
    }

private:
    const Placement& m_place;
    LeadView m_view;
    Position m_along, m_across;
};

/// The convex polygon around points.
LeadPolygon Hull(LeadPolygon points) {
    const auto less = [](const ViewPoint& a, const ViewPoint& b) {
        return a.x != b.x ? a.x < b.x : a.y < b.y;
    };
    std::sort(points.begin(), points.end(), less);
    LeadPolygon hull;
    const auto append = [&](const ViewPoint& p, size_t begin) {
        while (hull.size() >= begin + 2) {
            const ViewPoint& a = hull[hull.size() - 2];
            const ViewPoint& b = hull.back();
            if ((b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x) > 0) break;
            hull.pop_back();
        }
        hull.push_back(p);
    };
    for (const ViewPoint& p : points) append(p, 0);
    const size_t lower = hull.size() - 1;
    for (size_t i = points.size() - 1; i-- > 0;) append(points[i], lower);
    hull.pop_back();
    return hull;
}

/// Adds the corners of the section at a point of the middle line.
void AppendSection(const LeadSweep& sweep, const Projection& projection, LeadPoint point, LeadPoint direction,
                   LeadPolygon& points) {
    const LeadPoint normal = Left(direction) * (sweep.thickness / 2);
    const double width = sweep.width / 2;
    if (sweep.round) {
        for (int i = 0; i < kRound; ++i) {
            const double angle = 2 * std::numbers::pi * i / kRound;
            points.push_back(projection.At(point + normal * std::cos(angle), width * std::sin(angle)));
        }
        return;
    }
    for (const double up : {-1.0, 1.0})
        for (const double across : {-width, width})
            points.push_back(projection.At(point + normal * up, across));
}

void AppendOutlines(const LeadSweep& sweep, const Placement& place, LeadView view,
                    std::vector<LeadPolygon>& polygons) {
    const Projection projection(sweep, place, view);
    const double openness = projection.Openness();
    std::vector<LeadPoint> outline;
    for (const LeadPiece& piece : SideOutline(sweep)) AppendPoints(piece, outline);
    if (openness > 1 - 1e-9) {
        LeadPolygon polygon;
        for (const LeadPoint& point : outline) polygon.push_back(projection.At(point, 0));
        polygons.push_back(std::move(polygon));
        return;
    }
    if (!sweep.round && openness < 1e-9) {
        LeadPolygon points;
        for (const LeadPoint& point : outline)
            for (const double across : {-sweep.width / 2, sweep.width / 2})
                points.push_back(projection.At(point, across));
        polygons.push_back(Hull(std::move(points)));
        return;
    }
    // Seen at an angle: one polygon for each piece, and for each step of a bend.
    std::vector<LeadPolygon> parts;
    for (const LeadPiece& piece : MiddleLine(sweep)) {
        std::vector<LeadPoint> line;
        AppendPoints(piece, line);
        line.push_back(piece.end);
        for (size_t i = 0; i + 1 < line.size(); ++i) {
            const LeadPoint direction = Direction(line[i], line[i + 1]);
            LeadPolygon points;
            AppendSection(sweep, projection, line[i], direction, points);
            AppendSection(sweep, projection, line[i + 1], direction, points);
            parts.push_back(std::move(points));
        }
    }
    if (openness >= 1e-9) {
        for (LeadPolygon& part : parts) polygons.push_back(Hull(std::move(part)));
        return;
    }
    LeadPolygon all;
    for (const LeadPolygon& part : parts) all.insert(all.end(), part.begin(), part.end());
    if (!all.empty()) polygons.push_back(Hull(std::move(all)));
}

}  // namespace

std::vector<LeadPiece> MiddleLine(const LeadSweep& sweep) {
    const std::vector<LeadPoint> corners = Corners(sweep);
    std::vector<LeadPiece> line;
    if (corners.size() < 2) return line;
    LeadPoint from = corners[0];
    const auto addLine = [&](LeadPoint to) {
        if (Length(to - from) > kNoLength) line.push_back({from, to, {}, 0, false});
        from = to;
    };
    for (size_t i = 1; i + 1 < corners.size(); ++i) {
        const LeadPoint in = Direction(corners[i - 1], corners[i]),
                        out = Direction(corners[i], corners[i + 1]);
        const double side = Cross(in, out), half = std::atan2(std::fabs(side), Dot(in, out)) / 2;
        // A piece between two bends is shared by them.
        const double before = Length(corners[i] - corners[i - 1]) * (i == 1 ? 1 : 0.5);
        const double after = Length(corners[i + 1] - corners[i]) * (i + 2 == corners.size() ? 1 : 0.5);
        const double tangent = std::min({sweep.bend * std::tan(half), before, after});
        const double radius = half > 1e-6 ? tangent / std::tan(half) : 0;
        if (radius < sweep.thickness / 2 * (1 + 1e-6)) {
            addLine(corners[i]);
            continue;
        }
        addLine(corners[i] - in * tangent);
        const LeadPoint center = from + Left(in) * (side > 0 ? radius : -radius);
        const LeadPoint end = corners[i] + out * tangent;
        line.push_back({from, end, center, radius, side < 0});
        from = end;
    }
    addLine(corners.back());
    return line;
}

std::vector<LeadPiece> SideOutline(const LeadSweep& sweep) {
    const std::vector<LeadPiece> middle = MiddleLine(sweep);
    if (middle.empty()) return {};
    std::vector<LeadPiece> outline = Beside(middle, -sweep.thickness / 2);
    const std::vector<LeadPiece> left = Beside(middle, sweep.thickness / 2);
    outline.push_back({outline.back().end, left.back().end, {}, 0, false});
    for (size_t i = left.size(); i-- > 0;) outline.push_back(Reversed(left[i]));
    outline.push_back({outline.back().end, outline.front().start, {}, 0, false});
    return outline;
}

std::vector<LeadPolygon> Outlines(const Lead& lead, const Placement& place, LeadView view) {
    std::vector<LeadPolygon> polygons;
    if (!lead.failure.empty() || !place.IsFinite()) return polygons;
    for (const LeadSweep& sweep : lead.sweeps) AppendOutlines(sweep, place, view, polygons);
    for (const LeadBall& ball : lead.balls) {
        const ViewPoint center = Projection::See(place({0, 0, ball.up}), view);
        LeadPolygon circle;
        for (int i = 0; i < kRound; ++i) {
            const double angle = 2 * std::numbers::pi * i / kRound;
            circle.push_back(
                {center.x + ball.radius * std::cos(angle), center.y + ball.radius * std::sin(angle)});
        }
        polygons.push_back(std::move(circle));
    }
    return polygons;
}

}  // namespace veka
