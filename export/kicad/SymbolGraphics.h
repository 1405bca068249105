#pragma once

#include "drawing/Part.h"
#include "export/kicad/Sexpr.h"

namespace kicad {

/// Writes the shapes of a scene as graphics of a symbol. Lines of one record that follow each other are one
/// line. Raises `drawing::TooLarge`.
void WriteSymbolGraphics(Sexpr& out, const drawing::Part& part, const drawing::Scene& scene);
/// The same for some of the shapes, by their indices.
void WriteSymbolGraphics(Sexpr& out, const drawing::Part& part, const drawing::Scene& scene,
                         const std::vector<std::size_t>& shapes);

/// The effects of a text: its size, where its point is, and whether it is hidden.
void WriteEffects(Sexpr& out, double height, double width, drawing::Align align, drawing::Lift lift,
                  bool mirrored, bool hidden);

}  // namespace kicad
