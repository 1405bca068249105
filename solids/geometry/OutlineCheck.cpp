#include "geometry/OutlineCheck.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>

namespace geometry {

namespace {

struct Segment {
    CPointD a, b;
    std::uint32_t loop, next;  ///< the index of the segment that follows in its loop
};

/// Above 0 if c is to the left of the line from a to b.
double Side(const CPointD& a, const CPointD& b, const CPointD& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool Overlap(double a, double b, double c, double d) {
    return std::max(a, b) >= std::min(c, d) && std::max(c, d) >= std::min(a, b);
}

/// True if two segments have a point in common.
bool Meet(const Segment& s, const Segment& t) {
    if (!Overlap(s.a.x, s.b.x, t.a.x, t.b.x) || !Overlap(s.a.y, s.b.y, t.a.y, t.b.y)) return false;
    const double a = Side(s.a, s.b, t.a), b = Side(s.a, s.b, t.b), c = Side(t.a, t.b, s.a),
                 d = Side(t.a, t.b, s.b);
    return !((a > 0 && b > 0) || (a < 0 && b < 0) || (c > 0 && d > 0) || (c < 0 && d < 0));
}

/// True if a segment turns back onto the one before it.
bool TurnsBack(const Segment& s, const Segment& next) {
    return Side(s.a, s.b, next.b) == 0 &&
           (s.b.x - s.a.x) * (next.b.x - next.a.x) + (s.b.y - s.a.y) * (next.b.y - next.a.y) < 0;
}

/// Segments by the cells of a grid that they pass through.
class Grid {
public:
    explicit Grid(const std::vector<Segment>& segments) : m_segments(segments) {
        for (const Segment& s : segments)
            for (const CPointD& p : {s.a, s.b}) {
                m_low.x = std::min(m_low.x, p.x);
                m_low.y = std::min(m_low.y, p.y);
                m_high.x = std::max(m_high.x, p.x);
                m_high.y = std::max(m_high.y, p.y);
            }
        m_size = std::clamp(static_cast<int>(std::sqrt(static_cast<double>(segments.size()))), 1, 256);
        m_cells.resize(static_cast<std::size_t>(m_size) * static_cast<std::size_t>(m_size));
        for (std::uint32_t i = 0; i < segments.size(); ++i) Add(i);
    }

    const std::vector<std::vector<std::uint32_t>>& Cells() const { return m_cells; }
    /// The cells of the row of a point, from the point to the right.
    template <class Function>
    void ForEachCellToTheRight(const CPointD& point, Function function) const {
        for (int column = Column(point.x); column < m_size; ++column) function(Cell(column, Row(point.y)));
    }

private:
    int Column(double x) const { return Index(x, m_low.x, m_high.x); }
    int Row(double y) const { return Index(y, m_low.y, m_high.y); }
    int Index(double value, double low, double high) const {
        const double part = high > low ? (value - low) / (high - low) : 0;
        return std::clamp(static_cast<int>(part * m_size), 0, m_size - 1);
    }
    const std::vector<std::uint32_t>& Cell(int column, int row) const {
        return m_cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(m_size) +
                       static_cast<std::size_t>(column)];
    }
    /// Puts a segment into every cell that it passes, row by row.
    void Add(std::uint32_t index) {
        const Segment& s = m_segments[index];
        const CPointD& below = s.a.y <= s.b.y ? s.a : s.b;
        const CPointD& above = s.a.y <= s.b.y ? s.b : s.a;
        const double height = (m_high.y - m_low.y) / m_size, rise = above.y - below.y;
        for (int row = Row(below.y), last = Row(above.y); row <= last; ++row) {
            // A little more than the row, since rounding may put a point into either of two rows.
            const auto at = [&](double y) {
                const double part = rise > 0 ? std::clamp((y - below.y) / rise, 0.0, 1.0) : 0;
                return below.x + part * (above.x - below.x);
            };
            const double x1 = rise > 0 ? at(m_low.y + (row - 0.01) * height) : below.x;
            const double x2 = rise > 0 ? at(m_low.y + (row + 1.01) * height) : above.x;
            for (int column = Column(std::min(x1, x2)), end = Column(std::max(x1, x2)); column <= end;
                 ++column)
                m_cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(m_size) +
                        static_cast<std::size_t>(column)]
                    .push_back(index);
        }
    }

    static constexpr double kFar = std::numeric_limits<double>::infinity();

    const std::vector<Segment>& m_segments;
    CPointD m_low{kFar, kFar}, m_high{-kFar, -kFar};
    int m_size = 1;
    std::vector<std::vector<std::uint32_t>> m_cells;
};

}  // namespace

std::vector<CPointD> CornersOf(const CPCDrawObjArray& outline) {
    std::vector<CPointD> corners;
    for (std::size_t i = 0; i < outline.GetSize(); ++i) {
        corners.push_back(outline[i].GetStartPt());
        const auto* arc = dynamic_cast<const CPCArc*>(&outline[i]);
        if (!arc) continue;
        const double sweep = arc->GetSweep();
        if (!(sweep <= 360)) continue;
        const int steps = static_cast<int>(std::ceil(sweep / 5));
        for (int step = 1; step < steps; ++step) {
            const double degrees = arc->GetStartAngle() + (arc->IsCW() ? -sweep : sweep) * step / steps;
            const double angle = degrees / 180 * std::numbers::pi;
            corners.push_back({arc->GetCenterPt().x + arc->GetRadius() * std::cos(angle),
                               arc->GetCenterPt().y + arc->GetRadius() * std::sin(angle)});
        }
    }
    return corners;
}

std::string WhyNoFace(const std::vector<std::vector<CPointD>>& outlines) {
    std::vector<Segment> segments;
    std::vector<CPointD> firsts;
    for (std::uint32_t loop = 0; loop < outlines.size(); ++loop) {
        std::vector<CPointD> corners;
        for (const CPointD& corner : outlines[loop]) {
            if (!std::isfinite(corner.x) || !std::isfinite(corner.y)) return "a corner is no number";
            if (corners.empty() || !(corner == corners.back())) corners.push_back(corner);
        }
        while (corners.size() > 1 && corners.back() == corners.front()) corners.pop_back();
        if (corners.size() < 3) return "an outline has fewer than three corners";
        const auto begin = static_cast<std::uint32_t>(segments.size());
        const auto count = static_cast<std::uint32_t>(corners.size());
        for (std::uint32_t i = 0; i < count; ++i)
            segments.push_back({corners[i], corners[(i + 1) % count], loop, begin + (i + 1) % count});
        firsts.push_back(corners[0]);
    }
    if (segments.empty()) return "there is no outline";
    for (const Segment& s : segments)
        if (TurnsBack(s, segments[s.next])) return "the outline crosses itself";
    // What a sane outline needs is far below: each cell holds a few segments.
    std::size_t left = 200 * segments.size() + 100'000;
    const char* const tooClose = "too many pieces of the outline lie close together";
    const Grid grid(segments);
    for (const std::vector<std::uint32_t>& cell : grid.Cells()) {
        if (cell.size() * cell.size() / 2 > left) return tooClose;
        left -= cell.size() * cell.size() / 2;
        for (std::size_t i = 0; i < cell.size(); ++i)
            for (std::size_t j = i + 1; j < cell.size(); ++j) {
                const Segment &s = segments[cell[i]], &t = segments[cell[j]];
                if (s.next == cell[j] || t.next == cell[i] || !Meet(s, t)) continue;
                return s.loop == t.loop ? "the outline crosses itself" : "two outlines cross";
            }
    }
    for (std::uint32_t loop = 1; loop < outlines.size(); ++loop) {
        // From a corner to the right, the border is met an odd number of times, and all other holes an even
        // number.
        const CPointD& point = firsts[loop];
        std::vector<std::uint32_t> met;
        grid.ForEachCellToTheRight(point, [&](const std::vector<std::uint32_t>& cell) {
            met.insert(met.end(), cell.begin(), cell.end());
        });
        if (met.size() > left) return tooClose;
        left -= met.size();
        std::sort(met.begin(), met.end());
        met.erase(std::unique(met.begin(), met.end()), met.end());
        std::size_t border = 0, holes = 0;
        for (const std::uint32_t index : met) {
            const Segment& s = segments[index];
            if (s.loop == loop || (s.a.y > point.y) == (s.b.y > point.y)) continue;
            const double x = s.a.x + (point.y - s.a.y) / (s.b.y - s.a.y) * (s.b.x - s.a.x);
            if (x > point.x) ++(s.loop == 0 ? border : holes);
        }
        if (border % 2 == 0) return "a void lies outside of the outline";
        if (holes % 2 == 1) return "a void lies inside of another";
    }
    return "";
}

}  // namespace geometry
