#pragma once

#include <string>

#include "drawing/Sheet.h"
#include "host/CommandLine.h"
#include "host/ImportedPart.h"

namespace host {

/// The scenes of a part that a picture shows. Raises `drawing::DrawingError` where there is nothing to show.
drawing::Sheet MakePicture(const CVEKA_Manager& part, PictureOf of, drawing::Side side);

/// Writes a sheet as an SVG file. The file has at most ten times the bytes of the part's file, and more only
/// if it is small. Raises `drawing::DrawingError` and `OutputError`.
void WriteSvgFile(const drawing::Sheet& sheet, const ImportedPart& part, const std::string& path);

/// True if the name of a file ends in ".png".
bool IsPngName(const std::string& path);

}  // namespace host
