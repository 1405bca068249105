#include "export/kicad/PinGraphic.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "export/kicad/Words.h"

namespace kicad {

namespace {

using drawing::Point;

// Files round coordinates to a micrometre at worst.
constexpr double kEqual = 2e-3;

bool Same(double a, double b) {
    return std::fabs(a - b) <= kEqual;
}

/// The shapes of a pin, seen along its line.
class Reader {
public:
    explicit Reader(const drawing::Scene& scene) : m_scene(scene), m_used(scene.Shapes().size()) {}

    PinGraphic Read() {
        ReadLine();
        const bool inverted = ReadBubble();
        const bool clock = ReadClock();
        const bool low = TakeLines({{{-1, 0}, {-1, 1}}, {{-1, 1}, {0, 0}}});
        if (inverted)
            m_pin.style = clock ? "inverted_clock" : "inverted";
        else if (clock)
            m_pin.style = low ? "clock_low" : "clock";
        else if (low)
            m_pin.style = "input_low";
        else if (TakeLines({{{-1, 0}, {0, 1}}}))
            m_pin.style = "output_low";
        else if (TakeLines({{{-1, -1}, {1, 1}}, {{-1, 1}, {1, -1}}}))
            m_pin.style = "non_logic";
        for (std::size_t i = 0; i < m_used.size(); ++i)
            if (!m_used[i]) m_pin.rest.push_back(i);
        return std::move(m_pin);
    }

private:
    const drawing::Line* Line(std::size_t i) const {
        return m_used[i] ? nullptr : std::get_if<drawing::Line>(&m_scene.Shapes()[i].form);
    }
    /// A point of the shape, seen from the end of the pin along its direction.
    Point Seen(Point point) const { return {(m_pin.backwards ? -point.x : point.x) - m_pin.length, point.y}; }

    void ReadLine() {
        for (std::size_t i = 0; i < m_used.size(); ++i) {
            const drawing::Line* line = Line(i);
            if (!line || !Same(line->start.y, 0) || !Same(line->end.y, 0)) continue;
            if (!Same(line->start.x, 0) && !Same(line->end.x, 0)) continue;
            const double far = Same(line->start.x, 0) ? line->end.x : line->start.x;
            m_pin.length = std::fabs(far);
            m_pin.backwards = far < 0;
            m_used[i] = true;
            return;
        }
    }
    /// A circle at the end of the line makes the pin longer.
    bool ReadBubble() {
        for (std::size_t i = 0; i < m_used.size(); ++i) {
            const auto* circle = std::get_if<drawing::Circle>(&m_scene.Shapes()[i].form);
            if (!circle || circle->filled) continue;
            const Point center = Seen(circle->center);
            if (!Same(center.y, 0) || !Same(center.x, circle->radius)) continue;
            m_pin.length += 2 * circle->radius;
            m_pin.bubble = circle->radius;
            m_used[i] = true;
            return true;
        }
        return false;
    }
    /// Two lines from the end of the pin to a point inside of the body.
    bool ReadClock() {
        for (std::size_t i = 0; i < m_used.size(); ++i) {
            const drawing::Line* line = Line(i);
            if (!line) continue;
            const Point start = Seen(line->start), end = Seen(line->end);
            const bool forward = Same(start.x, 0);
            const Point corner = forward ? start : end, tip = forward ? end : start;
            if (!Same(corner.x, 0) || !Same(tip.y, 0) || !(tip.x > kEqual) || Same(corner.y, 0)) continue;
            for (std::size_t k = i + 1; k < m_used.size(); ++k) {
                if (!Line(k) || !IsLine(*Line(k), tip, {0, -corner.y})) continue;
                m_used[i] = m_used[k] = true;
                return true;
            }
        }
        return false;
    }
    bool IsLine(const drawing::Line& line, Point a, Point b) const {
        const Point start = Seen(line.start), end = Seen(line.end);
        const auto same = [](Point p, Point q) { return Same(p.x, q.x) && Same(p.y, q.y); };
        return (same(start, a) && same(end, b)) || (same(start, b) && same(end, a));
    }
    /// Takes lines of a mark, whose points are multiples of one size, seen from the end of the pin.
    bool TakeLines(const std::vector<std::pair<Point, Point>>& mark) {
        for (std::size_t i = 0; i < m_used.size(); ++i) {
            const drawing::Line* line = Line(i);
            if (!line) continue;
            const double size = std::max(std::fabs(Seen(line->start).x), std::fabs(Seen(line->end).x));
            if (!(size > kEqual)) continue;
            std::vector<std::size_t> taken;
            for (const auto& [a, b] : mark)
                for (std::size_t k = 0; k < m_used.size(); ++k)
                    if (Line(k) && IsLine(*Line(k), a * size, b * size)) {
                        taken.push_back(k);
                        break;
                    }
            if (taken.size() != mark.size()) continue;
            for (const std::size_t k : taken) m_used[k] = true;
            return true;
        }
        return false;
    }

    const drawing::Scene& m_scene;
    std::vector<bool> m_used;
    PinGraphic m_pin;
};

}  // namespace

PinGraphic ReadPinGraphic(const drawing::Scene& shape) {
    // A mark has few lines, and each is compared with each.
    constexpr std::size_t kMostShapes = 200;
    if (shape.Shapes().size() <= kMostShapes) return Reader(shape).Read();
    PinGraphic drawn;
    for (std::size_t i = 0; i < shape.Shapes().size(); ++i) drawn.rest.push_back(i);
    return drawn;
}

std::string_view ElectricalType(std::string_view word) {
    static constexpr std::pair<std::string_view, std::string_view> words[] = {
        {"INPUT", "input"},
        {"IN", "input"},
        {"I", "input"},
        {"OUTPUT", "output"},
        {"OUT", "output"},
        {"O", "output"},
        {"BIDIRECTIONAL", "bidirectional"},
        {"BIDIR", "bidirectional"},
        {"BI", "bidirectional"},
        {"INOUT", "bidirectional"},
        {"IO", "bidirectional"},
        {"I/O", "bidirectional"},
        {"TRISTATE", "tri_state"},
        {"TRI_STATE", "tri_state"},
        {"TRI-STATE", "tri_state"},
        {"3STATE", "tri_state"},
        {"PASSIVE", "passive"},
        {"ANALOG", "passive"},
        {"TERMINAL", "passive"},
        {"POWER", "power_in"},
        {"POWERIN", "power_in"},
        {"POWER_IN", "power_in"},
        {"PWR", "power_in"},
        {"SUPPLY", "power_in"},
        {"GROUND", "power_in"},
        {"GND", "power_in"},
        {"POWEROUT", "power_out"},
        {"POWER_OUT", "power_out"},
        {"OPENCOLLECTOR", "open_collector"},
        {"OPEN_COLLECTOR", "open_collector"},
        {"OPENDRAIN", "open_collector"},
        {"OPEN_DRAIN", "open_collector"},
        {"OC", "open_collector"},
        {"OPENEMITTER", "open_emitter"},
        {"OPEN_EMITTER", "open_emitter"},
        {"OE", "open_emitter"},
        {"NC", "no_connect"},
        {"NOCONNECT", "no_connect"},
        {"NO_CONNECT", "no_connect"},
        {"UNCONNECTED", "no_connect"},
        {"FREE", "free"},
        {"UNSPECIFIED", "unspecified"}};
    const std::string upper = Upper(word);
    for (const auto& [name, type] : words)
        if (upper == name) return type;
    return {};
}

}  // namespace kicad
