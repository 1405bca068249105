#pragma once

#include <limits>
#include <vector>

namespace drawing {

/// A point of a drawing in millimetres. X points to the right, Y points up.
struct Point {
    double x = 0, y = 0;

    bool operator==(const Point&) const = default;
};

inline Point operator+(Point a, Point b) {
    return {a.x + b.x, a.y + b.y};
}
inline Point operator-(Point a, Point b) {
    return {a.x - b.x, a.y - b.y};
}
inline Point operator*(Point a, double factor) {
    return {a.x * factor, a.y * factor};
}
double Distance(Point a, Point b);

/// The smallest upright rectangle around points.
struct Box {
    double left = std::numeric_limits<double>::infinity(), bottom = left, right = -left, top = -left;

    /// True if no point was added.
    bool IsEmpty() const { return !(left <= right && bottom <= top); }
    double Width() const { return IsEmpty() ? 0 : right - left; }
    double Height() const { return IsEmpty() ? 0 : top - bottom; }
    Point Center() const { return {(left + right) / 2, (bottom + top) / 2}; }
    bool Contains(Point point) const {
        return left <= point.x && point.x <= right && bottom <= point.y && point.y <= top;
    }
    /// Grows the box around a point and what is closer to the point than `margin`.
    void Add(Point point, double margin = 0);
    void Add(const Box& other);
    /// The box with a margin on each side; an empty one stays empty.
    Box Grown(double margin) const;
};

/// A corner of an outline, and the way to the next corner.
struct Vertex {
    Point point;
    /// 0 for a straight way. For an arc the tangent of a quarter of its angle, above 0 counter-clockwise.
    double bulge = 0;
};

/// Moves, turns, mirrors and scales a drawing. Lengths keep their proportions.
class Place {
public:
    Place() = default;
    /// Turns counter-clockwise by degrees, and then moves to a point.
    explicit Place(Point origin, double degrees = 0);
    /// Scales by a factor.
    static Place Scaled(double factor);
    /// Exchanges left and right.
    static Place Mirrored();

    Point operator()(Point point) const;
    Vertex Moved(const Vertex& vertex) const {
        return {(*this)(vertex.point), m_mirrored ? -vertex.bulge : vertex.bulge};
    }
    /// The place of something that stands at `inner` inside of what stands at this place.
    Place operator*(const Place& inner) const;
    /// The factor for lengths.
    double Scale() const;
    /// The angle in degrees by which the direction of the X axis is turned.
    double Angle() const;
    bool IsMirrored() const { return m_mirrored; }

private:
    Point Turned(Point point) const;

    // A point is mirrored on the X axis, multiplied by `m_turn` as complex numbers are, and moved.
    Point m_origin, m_turn{1, 0};
    bool m_mirrored = false;
};

/// Cosine and sine of an angle in degrees, exact for right angles.
Point Direction(double degrees);
/// The angle of a direction in degrees, from 0 up to 360.
double AngleOf(Point direction);

/// An arc about a centre. It turns by `sweep` degrees, above 0 counter-clockwise; 360 is a whole circle.
struct ArcAngles {
    double start = 0, sweep = 0;
};
/// The arc from one point to another about a centre. Equal points give a whole circle.
ArcAngles ArcBetween(Point start, Point end, Point center, bool counterClockwise);
/// The way of an arc from a point on it, as one corner or more; the end of the arc is not among them.
void AppendArc(std::vector<Vertex>& outline, Point center, double radius, const ArcAngles& arc);
/// The box of a way from a corner to the next one.
void AddWay(Box& box, const Vertex& from, Point to);
/// Centre, radius and angles of the way from a corner to the next one, whose bulge is not 0.
struct Arc2 {
    Point center;
    double radius = 0;
    ArcAngles angles;
};
Arc2 ArcOf(const Vertex& from, Point to);

// Outlines about the origin.
std::vector<Vertex> RectangleOutline(double width, double height);
/// A rectangle whose corners are cut by `cut` along both edges.
std::vector<Vertex> ChamferedOutline(double width, double height, double cut);
/// A rectangle with round corners; with the largest possible radius it is an oblong.
std::vector<Vertex> RoundedOutline(double width, double height, double radius);
std::vector<Vertex> CircleOutline(double radius);

}  // namespace drawing
