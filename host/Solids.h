#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>

#include "model/CVEKA_Manager.h"

namespace host {

/// Solids that cannot be made or written.
struct SolidsError : std::runtime_error {
    using runtime_error::runtime_error;
};

/// Writes the solids of all packages of a part, bodies and leads, as a STEP and as a glTF file; an empty path
/// writes none. What has no shape is told on `err`. Raises `SolidsError` where there is nothing to write or
/// it cannot be written, and in a program that was built without solids.
void WriteSolids(const CVEKA_Manager& part, const std::string& stepPath, const std::string& gltfPath,
                 std::ostream& err);

}  // namespace host
