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

/// Writes bodies with their names and colours as a STEP file. Returns a sentence for each body that has no
/// shape and is left out. Throws `std::runtime_error` where there is no shape at all or the file cannot be
/// written.
std::vector<std::string> WriteStep(const std::string& path, const std::vector<NamedSolid>& solids);

/// As above, as a binary glTF file.
std::vector<std::string> WriteGltf(const std::string& path, const std::vector<NamedSolid>& solids);

}  // namespace geometry
