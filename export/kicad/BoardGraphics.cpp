#include "export/kicad/BoardGraphics.h"

#include "export/kicad/Exported.h"
#include "export/kicad/Outlines.h"
#include "export/kicad/PadShape.h"

namespace kicad {

using drawing::Point;

void BoardGraphics::Write(const drawing::Shape& shape) {
    std::visit([this](const auto& form) { Write(form); }, shape.form);
    RequireRoom(m_out.Size());
}

void BoardGraphics::Write(const drawing::Line& line) {
    Begin("line");
    At("start", line.start);
    At("end", line.end);
    End(line.width, false, false);
}

void BoardGraphics::Write(const drawing::Arc& arc) {
    // KiCad 6 takes an arc that is written counter-clockwise for the rest of its circle.
    if (arc.sweep > 0)
        return Write(drawing::Arc{arc.center, arc.radius, arc.start + arc.sweep, -arc.sweep, arc.width});
    Begin("arc");
    At("start", arc.center + drawing::Direction(arc.start) * arc.radius);
    At("mid", arc.center + drawing::Direction(arc.start + arc.sweep / 2) * arc.radius);
    At("end", arc.center + drawing::Direction(arc.start + arc.sweep) * arc.radius);
    End(arc.width, false, false);
}

void BoardGraphics::Write(const drawing::Circle& circle) {
    Begin("circle");
    At("center", circle.center);
    At("end", circle.center + Point{circle.radius, 0});
    End(circle.width, circle.filled || m_outlines, true);
}

void BoardGraphics::Write(const drawing::Polygon& polygon) {
    const std::span<const drawing::Contour> contours = m_scene.Contours(polygon);
    if (!polygon.filled && !m_outlines) {
        for (const drawing::Contour& contour : contours) {
            const std::optional<PadShape> shape = ShapeOf(m_scene.Vertices(contour));
            if (m_layer.empty() || !shape || shape->kind != PadShape::Kind::Rectangle || shape->angle != 0) {
                WriteWays(m_scene.Vertices(contour), polygon.width);
                continue;
            }
            const Point half{shape->width / 2, shape->height / 2};
            Begin("rect");
            At("start", shape->center - half);
            At("end", shape->center + half);
            End(polygon.width, false, true);
        }
        return;
    }
    std::vector<std::vector<Point>> outlines;
    for (const drawing::Contour& contour : contours) {
        outlines.push_back(Straightened(m_scene.Vertices(contour)));
        if (const auto line = LineOf(outlines.back(), polygon.width)) Write(*line);
    }
    // A pen would draw the cut to a hole, too, so that outlines are drawn by themselves.
    const bool holes = outlines.size() > 1 && polygon.width > 0;
    for (const std::vector<Point>& outline : WithoutHoles(std::move(outlines)))
        WriteArea(outline, holes ? 0 : polygon.width, true);
    if (holes)
        for (const drawing::Contour& contour : contours) WriteWays(m_scene.Vertices(contour), polygon.width);
}

void BoardGraphics::WriteWays(std::span<const drawing::Vertex> outline, double width) {
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point next = outline[(i + 1) % outline.size()].point;
        if (outline[i].bulge == 0) {
            Write(drawing::Line{outline[i].point, next, width});
        } else {
            const drawing::Arc2 arc = drawing::ArcOf(outline[i], next);
            Write(drawing::Arc{arc.center, arc.radius, arc.angles.start, arc.angles.sweep, width});
        }
        RequireRoom(m_out.Size());
    }
}

void BoardGraphics::WriteArea(const std::vector<Point>& outline, double width, bool filled) {
    Begin("poly").Open("pts");
    // Some points a line: KiCad reads no line of a million bytes.
    constexpr std::size_t kPointsOfLine = 8;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        if (i % kPointsOfLine == 0 && i > 0)
            m_out.Line("xy");
        else
            m_out.Open("xy");
        m_out.Down(outline[i] - m_middle).Close();
    }
    m_out.Close();
    End(width, filled, true);
}

Sexpr& BoardGraphics::Begin(const char* kind) {
    return m_out.Line(m_prefix + kind);
}

void BoardGraphics::End(double width, bool filled, bool closed) {
    if (!m_layer.empty()) m_out.Open("layer").Text(m_layer).Close();
    m_out.Open("width").Length(width).Close();
    if (closed) m_out.Open("fill").Word(!filled ? "none" : m_layer.empty() ? "yes" : "solid").Close();
    m_out.Close();
}

Sexpr& BoardGraphics::At(const char* name, Point point) {
    return m_out.Open(name).Down(point - m_middle).Close();
}

}  // namespace kicad
