#include "drawing/Plane.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace drawing {

namespace {

constexpr double kDegree = std::numbers::pi / 180;

}  // namespace

double Distance(Point a, Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

void Box::Add(Point point, double margin) {
    left = std::min(left, point.x - margin);
    right = std::max(right, point.x + margin);
    bottom = std::min(bottom, point.y - margin);
    top = std::max(top, point.y + margin);
}

void Box::Add(const Box& other) {
    if (other.IsEmpty()) return;
    Add(Point{other.left, other.bottom});
    Add(Point{other.right, other.top});
}

Box Box::Grown(double margin) const {
    if (IsEmpty()) return {};
    return {left - margin, bottom - margin, right + margin, top + margin};
}

Point Direction(double degrees) {
    const double turn = std::fmod(degrees, 360);
    if (turn == 0) return {1, 0};
    if (turn == 90 || turn == -270) return {0, 1};
    if (turn == 180 || turn == -180) return {-1, 0};
    if (turn == 270 || turn == -90) return {0, -1};
    return {std::cos(turn * kDegree), std::sin(turn * kDegree)};
}

double AngleOf(Point direction) {
    const double angle = std::atan2(direction.y, direction.x) / kDegree;
    return angle < 0 ? angle + 360 : angle;
}

Place::Place(Point origin, double degrees) : m_origin(origin), m_turn(Direction(degrees)) {}

Place Place::Scaled(double factor) {
    Place place;
    place.m_turn = {factor, 0};
    return place;
}

Place Place::Mirrored() {
    Place place;
    place.m_turn = {-1, 0};
    place.m_mirrored = true;
    return place;
}

Point Place::Turned(Point point) const {
    if (m_mirrored) point.y = -point.y;
    return {m_turn.x * point.x - m_turn.y * point.y, m_turn.x * point.y + m_turn.y * point.x};
}

Point Place::operator()(Point point) const {
    return m_origin + Turned(point);
}

Place Place::operator*(const Place& inner) const {
    Place place;
    place.m_origin = (*this)(inner.m_origin);
    place.m_turn = Turned(inner.m_turn);
    place.m_mirrored = m_mirrored != inner.m_mirrored;
    return place;
}

double Place::Scale() const {
    return std::hypot(m_turn.x, m_turn.y);
}

double Place::Angle() const {
    return AngleOf(m_turn);
}

ArcAngles ArcBetween(Point start, Point end, Point center, bool counterClockwise) {
    const double from = AngleOf(start - center), to = AngleOf(end - center);
    double sweep = counterClockwise ? to - from : from - to;
    // Points that rounding has moved a little apart are meant as one point.
    if (sweep < 1e-9) sweep += 360;
    if (sweep > 360 - 1e-9) sweep = 360;
    return {from, counterClockwise ? sweep : -sweep};
}

void AppendArc(std::vector<Vertex>& outline, Point center, double radius, const ArcAngles& arc) {
    // A whole circle has no bulge, and a large one is not exact.
    const int pieces = std::fabs(arc.sweep) > 180 ? 2 : 1;
    const double sweep = arc.sweep / pieces;
    for (int i = 0; i < pieces; ++i)
        outline.push_back(
            {center + Direction(arc.start + i * sweep) * radius, std::tan(sweep / 4 * kDegree)});
}

Arc2 ArcOf(const Vertex& from, Point to) {
    const Point chord = to - from.point;
    // The centre lies on the perpendicular through the middle of the chord.
    const double along = (1 - from.bulge * from.bulge) / (4 * from.bulge);
    Arc2 arc;
    arc.center = {from.point.x + chord.x / 2 - along * chord.y, from.point.y + chord.y / 2 + along * chord.x};
    arc.radius = Distance(from.point, arc.center);
    arc.angles = {AngleOf(from.point - arc.center), 4 * std::atan(from.bulge) / kDegree};
    return arc;
}

void AddWay(Box& box, const Vertex& from, Point to) {
    box.Add(from.point);
    if (from.bulge == 0) return;
    const Arc2 arc = ArcOf(from, to);
    for (int quarter = 0; quarter < 4; ++quarter) {
        const double turn =
            arc.angles.sweep > 0 ? quarter * 90 - arc.angles.start : arc.angles.start - quarter * 90;
        if (turn - std::floor(turn / 360) * 360 < std::fabs(arc.angles.sweep))
            box.Add(arc.center + Direction(quarter * 90) * arc.radius);
    }
}

std::vector<Vertex> RectangleOutline(double width, double height) {
    const double x = width / 2, y = height / 2;
    return {{{-x, -y}}, {{x, -y}}, {{x, y}}, {{-x, y}}};
}

std::vector<Vertex> ChamferedOutline(double width, double height, double cut) {
    const double x = width / 2, y = height / 2, c = std::clamp(cut, 0.0, std::min(x, y));
    if (c == 0) return RectangleOutline(width, height);
    return {{{-x + c, -y}}, {{x - c, -y}}, {{x, -y + c}}, {{x, y - c}},
            {{x - c, y}},   {{-x + c, y}}, {{-x, y - c}}, {{-x, -y + c}}};
}

std::vector<Vertex> RoundedOutline(double width, double height, double radius) {
    const double x = width / 2, y = height / 2, r = std::clamp(radius, 0.0, std::min(x, y));
    if (r == 0) return RectangleOutline(width, height);
    std::vector<Vertex> outline;
    const double quarter = std::tan(std::numbers::pi / 8);
    const auto corner = [&](double fromX, double fromY, double toX, double toY) {
        outline.push_back({{fromX, fromY}, quarter});
        // An edge without a length is none.
        outline.push_back({{toX, toY}, 0});
    };
    corner(x - r, -y, x, -y + r);
    corner(x, y - r, x - r, y);
    corner(-x + r, y, -x, y - r);
    corner(-x, -y + r, -x + r, -y);
    std::vector<Vertex> merged;
    for (std::size_t i = 0; i < outline.size(); ++i)
        if (outline[i].bulge != 0 || !(outline[i].point == outline[(i + 1) % outline.size()].point))
            merged.push_back(outline[i]);
    return merged;
}

std::vector<Vertex> CircleOutline(double radius) {
    return {{{-radius, 0}, 1}, {{radius, 0}, 1}};
}

}  // namespace drawing
