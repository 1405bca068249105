#pragma once

#include "drawing/SceneBuilder.h"
#include "drawing/Sheet.h"

namespace drawing {

/// Writes a sheet as an SVG file: valid XML in UTF-8, one millimetre for one millimetre. Each layer that is
/// seen is a group with the layer's name as its title; texts are texts. A byte that is no UTF-8 counts as a
/// character of Windows-1252. Raises `TooLarge` where the file would have more than `mostBytes` bytes.
std::string WriteSvg(const Sheet& sheet, std::size_t mostBytes = 1'000'000'000);
/// The same for one scene.
std::string WriteSvg(Scene scene, Side from = Side::Both, Theme theme = Theme::Dark);

/// Some bytes as the content of an XML element or attribute. What XML cannot hold becomes U+FFFD.
std::string XmlText(std::string_view bytes);

}  // namespace drawing
