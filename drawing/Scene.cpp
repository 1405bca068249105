#include "drawing/Scene.h"

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

// An average letter is as wide as this share of a capital letter's height.
constexpr double kLetterWidth = 0.8;

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

double DistanceToLine(Point point, Point start, Point end) {
    const Point way = end - start, from = point - start;
    const double length2 = way.x * way.x + way.y * way.y;
    const double share = length2 > 0 ? std::clamp((from.x * way.x + from.y * way.y) / length2, 0.0, 1.0) : 0;
    return Distance(point, start + way * share);
}

double DistanceToArc(Point point, Point center, double radius, const ArcAngles& angles) {
    const Point from = point - center;
    const double angle = AngleOf(from);
    double turn = angles.sweep > 0 ? angle - angles.start : angles.start - angle;
    turn -= std::floor(turn / 360) * 360;
    if (turn <= std::fabs(angles.sweep)) return std::fabs(std::hypot(from.x, from.y) - radius);
    return std::min(Distance(point, center + Direction(angles.start) * radius),
                    Distance(point, center + Direction(angles.start + angles.sweep) * radius));
}

double DistanceToWay(Point point, const Vertex& from, Point to) {
    if (from.bulge == 0) return DistanceToLine(point, from.point, to);
    const Arc2 arc = ArcOf(from, to);
    return DistanceToArc(point, arc.center, arc.radius, arc.angles);
}

/// How often a ray from a point to the right crosses the way from a corner to the next one.
int Crossings(Point point, const Vertex& from, Point to) {
    const auto crosses = [&](Point a, Point b) {
        if ((a.y > point.y) == (b.y > point.y)) return 0;
        return a.x + (point.y - a.y) / (b.y - a.y) * (b.x - a.x) > point.x ? 1 : 0;
    };
    if (from.bulge == 0) return crosses(from.point, to);
    // The chord, and once more if the point lies between the chord and the arc.
    const Arc2 arc = ArcOf(from, to);
    const Point chord = to - from.point, seen = point - from.point;
    const double side = chord.x * seen.y - chord.y * seen.x;
    // A point on the chord is on one side of a way, and on the other side of the way back.
    const bool right = side != 0 ? side < 0 : chord.x != 0 ? chord.x > 0 : chord.y > 0;
    const bool between = Distance(point, arc.center) < arc.radius && right == (from.bulge > 0);
    return crosses(from.point, to) + (between ? 1 : 0);
}

size_t CountLetters(std::string_view text) {
    return static_cast<size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace

std::vector<std::string_view> LinesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    for (;;) {
        const size_t end = text.find('\n');
        lines.push_back(text.substr(0, end));
        if (!lines.back().empty() && lines.back().back() == '\r') lines.back().remove_suffix(1);
        if (end == std::string_view::npos) return lines;
        text.remove_prefix(end + 1);
    }
}

TextBox MeasureText(const Text& text, const std::string& bytes) {
    const std::vector<std::string_view> lines = LinesOf(bytes);
    size_t longest = 0;
    for (const std::string_view line : lines) longest = std::max(longest, CountLetters(line));
    TextBox box;
    box.width = static_cast<double>(longest) * kLetterWidth * text.height;
    box.height = (1 + static_cast<double>(lines.size() - 1) * kLineStep) * text.height;
    box.corner.x = text.align == Align::Left ? 0 : text.align == Align::Middle ? -box.width / 2 : -box.width;
    box.corner.y = text.lift == Lift::Bottom ? 0 : text.lift == Lift::Middle ? -box.height / 2 : -box.height;
    return box;
}

Box Scene::Bounds(const Shape& shape) const {
    Box box;
    std::visit(Overloaded{
                   [&](const Line& line) {
                       box.Add(line.start, line.width / 2);
                       box.Add(line.end, line.width / 2);
                   },
                   [&](const Arc& arc) {
                       std::vector<Vertex> way;
                       AppendArc(way, arc.center, arc.radius, {arc.start, arc.sweep});
                       way.push_back({arc.center + Direction(arc.start + arc.sweep) * arc.radius, 0});
                       for (size_t i = 0; i + 1 < way.size(); ++i) AddWay(box, way[i], way[i + 1].point);
                       box.Add(way.back().point);
                       box = box.Grown(arc.width / 2);
                   },
                   [&](const Circle& circle) { box.Add(circle.center, circle.radius + circle.width / 2); },
                   [&](const Polygon& polygon) {
                       for (const Contour& contour : Contours(polygon)) {
                           const std::span<const Vertex> vertices = Vertices(contour);
                           for (size_t i = 0; i < vertices.size(); ++i)
                               AddWay(box, vertices[i], vertices[(i + 1) % vertices.size()].point);
                       }
                       box = box.Grown(polygon.width / 2);
                   },
                   [&](const Text& text) {
                       const TextBox size = MeasureText(text, String(text));
                       const Place place =
                           Place(text.at, text.rotation) * (text.mirrored ? Place::Mirrored() : Place());
                       const Point corner = size.corner;
                       for (const Point point :
                            {corner, corner + Point{size.width, 0}, corner + Point{0, size.height},
                             corner + Point{size.width, size.height}})
                           box.Add(place(point));
                   },
               },
               shape.form);
    return box;
}

Box Scene::Bounds(Side from, bool hiddenToo) const {
    Box box;
    for (const Shape& shape : m_shapes) {
        const Layer& layer = m_layers[shape.layer];
        if (layer.SeenFrom(from) && (layer.shown || hiddenToo)) box.Add(Bounds(shape));
    }
    return box;
}

double Scene::Distance(const Shape& shape, Point point) const {
    using drawing::Distance;
    const auto beyond = [](double distance, double width) { return std::max(0.0, distance - width / 2); };
    return std::visit(
        Overloaded{
            [&](const Line& line) { return beyond(DistanceToLine(point, line.start, line.end), line.width); },
            [&](const Arc& arc) {
                return beyond(DistanceToArc(point, arc.center, arc.radius, {arc.start, arc.sweep}),
                              arc.width);
            },
            [&](const Circle& circle) {
                const double distance = Distance(point, circle.center) - circle.radius;
                return beyond(circle.filled ? std::max(0.0, distance) : std::fabs(distance), circle.width);
            },
            [&](const Polygon& polygon) {
                double distance = std::numeric_limits<double>::infinity();
                int crossings = 0;
                for (const Contour& contour : Contours(polygon)) {
                    const std::span<const Vertex> vertices = Vertices(contour);
                    for (size_t i = 0; i < vertices.size(); ++i) {
                        const Point next = vertices[(i + 1) % vertices.size()].point;
                        distance = std::min(distance, DistanceToWay(point, vertices[i], next));
                        crossings += Crossings(point, vertices[i], next);
                    }
                }
                if (polygon.filled && crossings % 2 != 0) return 0.0;
                return beyond(distance, polygon.width);
            },
            [&](const Text& text) {
                const TextBox size = MeasureText(text, String(text));
                Point seen = Place({}, -text.rotation)(point - text.at);
                if (text.mirrored) seen.x = -seen.x;
                const double x = std::max({size.corner.x - seen.x, 0.0, seen.x - size.corner.x - size.width});
                const double y =
                    std::max({size.corner.y - seen.y, 0.0, seen.y - size.corner.y - size.height});
                return std::hypot(x, y);
            },
        },
        shape.form);
}

std::optional<std::size_t> Scene::ShapeAt(Point point, double within,
                                          const std::function<bool(const Layer&)>& counts) const {
    std::vector<bool> counted(m_layers.size());
    for (size_t i = 0; i < m_layers.size(); ++i) counted[i] = counts(m_layers[i]);
    for (size_t i = m_shapes.size(); i > 0; --i) {
        const Shape& shape = m_shapes[i - 1];
        if (counted[shape.layer] && Bounds(shape).Grown(within).Contains(point) &&
            Distance(shape, point) <= within)
            return i - 1;
    }
    return std::nullopt;
}

std::vector<std::size_t> Scene::ShapesOf(const Source& record) const {
    std::vector<std::size_t> found;
    for (size_t i = 0; i < m_shapes.size(); ++i)
        if (m_shapes[i].source == record || m_shapes[i].definition == record) found.push_back(i);
    return found;
}

}  // namespace drawing
