#include "export/kicad/SymbolGraphics.h"

#include <cmath>
#include <numeric>

#include "export/kicad/Exported.h"
#include "export/kicad/Outlines.h"
#include "export/kicad/PadShape.h"
#include "export/kicad/TextLook.h"

namespace kicad {

namespace {

using drawing::Point;

class Writer {
public:
    Writer(Sexpr& out, const drawing::Part& part, const drawing::Scene& scene,
           const std::vector<std::size_t>& indices)
        : m_out(out), m_part(part), m_scene(scene), m_indices(indices) {}

    void Write() {
        for (std::size_t i = 0; i < m_indices.size(); ++i) {
            const drawing::Shape& shape = At(i);
            const drawing::Box box = m_scene.Bounds(shape);
            if (!Holds(Point{box.left, box.bottom}) || !Holds(Point{box.right, box.top})) continue;
            if (std::holds_alternative<drawing::Line>(shape.form))
                i = WriteLines(i);
            else if (std::holds_alternative<drawing::Text>(shape.form))
                WriteText(shape);
            else
                std::visit([this](const auto& form) { WriteForm(form); }, shape.form);
            RequireRoom(m_out.Size());
        }
    }

private:
    const drawing::Shape& At(std::size_t i) const { return m_scene.Shapes()[m_indices[i]]; }

    /// Lines of a record from one on that follow each other; returns the last of them.
    std::size_t WriteLines(std::size_t first) {
        const auto& line = std::get<drawing::Line>(At(first).form);
        std::vector<Point> points{line.start, line.end};
        std::size_t last = first;
        for (std::size_t i = first + 1; i < m_indices.size(); ++i) {
            const auto* next = std::get_if<drawing::Line>(&At(i).form);
            if (!next || !(At(i).source == At(first).source) || !(next->start == points.back()) ||
                next->width != line.width || !Holds(next->end))
                break;
            points.push_back(next->end);
            last = i;
        }
        WritePolyline(points, line.width, "none");
        return last;
    }
    void WriteForm(const drawing::Text&) {}
    void WriteForm(const drawing::Line&) {}
    void WriteForm(const drawing::Arc& arc) {
        // KiCad's own arcs of symbols are counter-clockwise and not more than half a circle.
        const double first = arc.sweep < 0 ? arc.start + arc.sweep : arc.start;
        const int pieces = std::fabs(arc.sweep) > 180 + 1e-6 ? 2 : 1;
        const double sweep = std::fabs(arc.sweep) / pieces;
        for (int i = 0; i < pieces; ++i) {
            const double start = first + sweep * i;
            const auto at = [&](const char* name, double angle) {
                m_out.Open(name).Up(arc.center + drawing::Direction(angle) * arc.radius).Close();
            };
            m_out.Line("arc");
            at("start", start);
            at("mid", start + sweep / 2);
            at("end", start + sweep);
            End(arc.width, "none");
        }
    }
    void WriteForm(const drawing::Circle& circle) {
        m_out.Line("circle").Open("center").Up(circle.center).Close();
        m_out.Open("radius").Length(circle.radius).Close();
        End(circle.width, circle.filled ? "outline" : "none");
    }
    void WriteForm(const drawing::Polygon& polygon) {
        std::vector<std::vector<Point>> outlines;
        for (const drawing::Contour& contour : m_scene.Contours(polygon)) {
            const std::optional<PadShape> shape = ShapeOf(m_scene.Vertices(contour));
            if (polygon.count == 1 && shape && shape->kind == PadShape::Kind::Rectangle &&
                shape->angle == 0) {
                const Point half{shape->width / 2, shape->height / 2};
                m_out.Line("rectangle").Open("start").Up(shape->center - half).Close();
                m_out.Open("end").Up(shape->center + half).Close();
                return End(polygon.width, polygon.filled ? "outline" : "none");
            }
            outlines.push_back(Straightened(m_scene.Vertices(contour)));
            if (const auto line = LineOf(outlines.back(), polygon.width); line && polygon.filled)
                WritePolyline({line->start, line->end}, line->width, "none");
        }
        if (polygon.filled) outlines = WithoutHoles(std::move(outlines));
        for (std::vector<Point>& outline : outlines) {
            if (outline.empty()) continue;
            outline.push_back(outline[0]);
            WritePolyline(outline, polygon.width, polygon.filled ? "outline" : "none");
        }
    }
    void WriteText(const drawing::Shape& shape) {
        const auto& text = std::get<drawing::Text>(shape.form);
        const TextLook look = LookOfText(m_part, m_scene, shape);
        m_out.Line("text").Text(look.bytes).Open("at").Up(text.at);
        // In tenths of a degree.
        m_out.Word(Decimal(std::round(std::fmod(text.rotation, 360) * 10), 0)).Close();
        WriteEffects(m_out, text.height, look.width, text.align, text.lift, text.mirrored, false);
        m_out.Close();
    }

    void WritePolyline(const std::vector<Point>& points, double width, const char* fill) {
        m_out.Line("polyline").Line("pts");
        for (const Point point : points) m_out.Line("xy").Up(point).Close();
        m_out.Close();
        End(width, fill);
    }
    void End(double width, const char* fill) {
        m_out.Line("stroke").Open("width").Length(width).Close().Open("type").Word("default").Close();
        m_out.Open("color").Word("0").Word("0").Word("0").Word("0").Close().Close();
        m_out.Line("fill").Open("type").Word(fill).Close().Close();
        m_out.Close();
    }

    Sexpr& m_out;
    const drawing::Part& m_part;
    const drawing::Scene& m_scene;
    const std::vector<std::size_t>& m_indices;
};

}  // namespace

void WriteSymbolGraphics(Sexpr& out, const drawing::Part& part, const drawing::Scene& scene) {
    std::vector<std::size_t> all(scene.Shapes().size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    WriteSymbolGraphics(out, part, scene, all);
}

void WriteSymbolGraphics(Sexpr& out, const drawing::Part& part, const drawing::Scene& scene,
                         const std::vector<std::size_t>& shapes) {
    Writer(out, part, scene, shapes).Write();
}

void WriteEffects(Sexpr& out, double height, double width, drawing::Align align, drawing::Lift lift,
                  bool mirrored, bool hidden) {
    out.Line("effects").Open("font").Open("size").Length(height).Length(width).Close().Close();
    const bool middle = align == drawing::Align::Middle && lift == drawing::Lift::Middle;
    if (!middle || mirrored) {
        out.Open("justify");
        if (align != drawing::Align::Middle) out.Word(align == drawing::Align::Left ? "left" : "right");
        if (lift != drawing::Lift::Middle) out.Word(lift == drawing::Lift::Top ? "top" : "bottom");
        if (mirrored) out.Word("mirror");
        out.Close();
    }
    if (hidden) out.Word("hide");
    out.Close();
}

}  // namespace kicad
