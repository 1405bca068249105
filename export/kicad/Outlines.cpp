#include "export/kicad/Outlines.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drawing/SceneBuilder.h"

namespace kicad {

namespace {

using drawing::Box;
using drawing::Point;
using Outline = std::vector<Point>;

// Each hole is compared with each outline and each edge.
constexpr double kMostWork = 4e8;

double Cross(Point a, Point b) {
    return a.x * b.y - a.y * b.x;
}

double Area(const Outline& outline) {
    double area = 0;
    for (std::size_t i = 0; i < outline.size(); ++i)
        area += Cross(outline[i] - outline[0], outline[(i + 1) % outline.size()] - outline[0]);
    return area / 2;
}

bool IsInside(Point point, std::span<const Point> outline) {
    bool inside = false;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point a = outline[i], b = outline[(i + 1) % outline.size()];
        if ((a.y > point.y) == (b.y > point.y)) continue;
        if (a.x + (point.y - a.y) / (b.y - a.y) * (b.x - a.x) > point.x) inside = !inside;
    }
    return inside;
}

double DistanceToEdge(Point point, Point a, Point b) {
    const Point way = b - a, from = point - a;
    const double length2 = way.x * way.x + way.y * way.y;
    const double share = length2 > 0 ? std::clamp((from.x * way.x + from.y * way.y) / length2, 0.0, 1.0) : 0;
    return drawing::Distance(point, a + way * share);
}

/// Joins a hole to an outline by a cut from the hole's right end to the right.
void Join(Outline& outline, const Outline& hole) {
    const auto right = std::max_element(hole.begin(), hole.end(), [](Point a, Point b) { return a.x < b.x; });
    const Point from = *right;
    // The closest edge that a ray to the right meets.
    double reach = std::numeric_limits<double>::infinity();
    std::optional<std::size_t> edge;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point a = outline[i], b = outline[(i + 1) % outline.size()];
        if ((a.y > from.y) == (b.y > from.y)) continue;
        const double x = a.x + (from.y - a.y) / (b.y - a.y) * (b.x - a.x);
        if (x < from.x || x >= reach) continue;
        reach = x;
        edge = i;
    }
    if (!edge) return;  // it touches the outline on the outside of rounding
    Outline cut{{reach, from.y}};
    cut.insert(cut.end(), right, hole.end());
    cut.insert(cut.end(), hole.begin(), right + 1);
    cut.push_back({reach, from.y});
    outline.insert(outline.begin() + static_cast<std::ptrdiff_t>(*edge) + 1, cut.begin(), cut.end());
}

}  // namespace

std::vector<Point> Straightened(std::span<const drawing::Vertex> outline) {
    Outline points;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const drawing::Vertex& vertex = outline[i];
        points.push_back(vertex.point);
        if (vertex.bulge == 0) continue;
        const drawing::Arc2 arc = drawing::ArcOf(vertex, outline[(i + 1) % outline.size()].point);
        if (!std::isfinite(arc.radius) || !(arc.radius > 0)) continue;
        const double share = std::clamp(1 - kArcError / arc.radius, -1.0, 1.0);
        const double step = std::max(2 * std::acos(share) * 180 / std::numbers::pi, 1.0);
        const int pieces = static_cast<int>(std::ceil(std::fabs(arc.angles.sweep) / std::min(step, 45.0)));
        for (int k = 1; k < pieces; ++k)
            points.push_back(arc.center +
                             drawing::Direction(arc.angles.start + arc.angles.sweep * k / pieces) *
                                 arc.radius);
    }
    return points;
}

std::optional<drawing::Line> LineOf(const std::vector<Point>& outline, double width) {
    if (outline.empty() || outline.size() > 2 || !(width > 0)) return std::nullopt;
    return drawing::Line{outline.front(), outline.back(), width};
}

std::vector<std::vector<Point>> WithoutHoles(std::vector<std::vector<Point>> outlines) {
    std::erase_if(outlines, [](const Outline& outline) { return outline.size() < 3; });
    if (outlines.size() < 2) return outlines;
    double corners = 0;
    for (const Outline& outline : outlines) corners += static_cast<double>(outline.size());
    if (corners * static_cast<double>(outlines.size()) > kMostWork)
        throw drawing::TooLarge("a polygon has too many holes");
    // The larger ones first, so that what is around an outline comes before it.
    std::stable_sort(outlines.begin(), outlines.end(), [](const Outline& a, const Outline& b) {
        return std::fabs(Area(a)) > std::fabs(Area(b));
    });
    std::vector<Outline> result;
    std::vector<std::vector<std::size_t>> holes;
    std::vector<std::size_t> depth(outlines.size()), place(outlines.size());
    for (std::size_t i = 0; i < outlines.size(); ++i) {
        std::optional<std::size_t> around;
        for (std::size_t j = i; j > 0 && !around; --j)
            if (IsInside(outlines[i][0], outlines[j - 1])) around = j - 1;
        depth[i] = around ? depth[*around] + 1 : 0;
        if (depth[i] % 2 == 0) {
            place[i] = result.size();
            result.push_back(outlines[i]);
            holes.emplace_back();
        } else {
            place[i] = place[*around];
            holes[place[i]].push_back(i);
        }
    }
    for (std::size_t i = 0; i < result.size(); ++i) {
        const bool left = Area(result[i]) > 0;
        // From the right to the left: a cut then meets the outline or a hole that is joined already.
        std::stable_sort(holes[i].begin(), holes[i].end(), [&](std::size_t a, std::size_t b) {
            const auto end = [](const Outline& outline) {
                double x = outline[0].x;
                for (const Point point : outline) x = std::max(x, point.x);
                return x;
            };
            return end(outlines[a]) > end(outlines[b]);
        });
        for (const std::size_t hole : holes[i]) {
            // A hole runs the other way round.
            if ((Area(outlines[hole]) > 0) == left)
                std::reverse(outlines[hole].begin(), outlines[hole].end());
            Join(result[i], outlines[hole]);
        }
    }
    return result;
}

double DepthOf(Point point, std::span<const Point> outline) {
    if (!IsInside(point, outline)) return 0;
    double depth = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < outline.size(); ++i)
        depth = std::min(depth, DistanceToEdge(point, outline[i], outline[(i + 1) % outline.size()]));
    return depth;
}

Inside PointInside(std::span<const Point> outline) {
    Box box;
    for (const Point point : outline) box.Add(point);
    Inside best;
    if (box.IsEmpty()) return best;
    best.point = box.Center();
    constexpr int kSteps = 16;
    // First on a coarse grid, and then twice around the best point.
    Box area = box;
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i <= kSteps; ++i)
            for (int k = 0; k <= kSteps; ++k) {
                const Point point{area.left + area.Width() * i / kSteps,
                                  area.bottom + area.Height() * k / kSteps};
                const double depth = DepthOf(point, outline);
                if (depth > best.depth) best = {point, depth};
            }
        const double x = area.Width() / kSteps, y = area.Height() / kSteps;
        area = {best.point.x - x, best.point.y - y, best.point.x + x, best.point.y + y};
    }
    return best;
}

}  // namespace kicad
