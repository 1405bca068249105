#pragma once

#include "drawing/Scene.h"
#include "export/kicad/Sexpr.h"

namespace kicad {

/// Writes shapes of a scene as graphics of a footprint ("fp_line") or of a pad ("gr_line"). Texts are left
/// out.
class BoardGraphics {
public:
    /// Graphics of a footprint on a layer.
    BoardGraphics(Sexpr& out, const drawing::Scene& scene, std::string layer)
        : m_out(out), m_scene(scene), m_prefix("fp_"), m_layer(std::move(layer)) {}
    /// Graphics of a pad whose middle is a point of the scene. With `outlines` an outline is filled.
    BoardGraphics(Sexpr& out, const drawing::Scene& scene, drawing::Point middle, bool outlines)
        : m_out(out), m_scene(scene), m_prefix("gr_"), m_middle(middle), m_outlines(outlines) {}

    /// Raises `drawing::TooLarge`.
    void Write(const drawing::Shape& shape);

private:
    void Write(const drawing::Line& line);
    void Write(const drawing::Arc& arc);
    void Write(const drawing::Circle& circle);
    void Write(const drawing::Polygon& polygon);
    void Write(const drawing::Text&) {}

    /// An outline whose lines and arcs are drawn with a pen.
    void WriteWays(std::span<const drawing::Vertex> outline, double width);
    void WriteArea(const std::vector<drawing::Point>& outline, double width, bool filled);
    Sexpr& Begin(const char* kind);
    void End(double width, bool filled, bool closed);
    Sexpr& At(const char* name, drawing::Point point);

    Sexpr& m_out;
    const drawing::Scene& m_scene;
    const std::string m_prefix;
    const std::string m_layer;  // empty for a graphic of a pad
    const drawing::Point m_middle;
    const bool m_outlines = false;
};

}  // namespace kicad
