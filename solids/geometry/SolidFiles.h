#pragma once

#include <memory>
#include <string>
#include <vector>

#include "geometry/SolidShapesLib.h"

namespace geometry {

/// A body under the name that it bears in a file.
struct NamedSolid {
    std::string name;
    std::shared_ptr<object> solid;
};

/// Writes bodies with their names and colours as a STEP file in millimetres. Returns a sentence for each body
/// that has no shape and is left out. Throws `std::runtime_error` where there is no shape at all or the file
/// cannot be written; what was there then stays, since the file takes its place once it is whole.
std::vector<std::string> WriteStep(const std::string& path, const std::vector<NamedSolid>& solids);

/// As above, as a binary glTF file, in metres with Y up, as the format has it. A body that cannot be made of
/// triangles is left out, too.
std::vector<std::string> WriteGltf(const std::string& path, const std::vector<NamedSolid>& solids);

}  // namespace geometry
