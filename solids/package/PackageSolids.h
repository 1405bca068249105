#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "geometry/SolidFiles.h"
#include "geometry/StepFiles.h"
#include "model/CVEKA_Manager.h"

namespace veka {

/// The solids of packages, in millimetres, each at its place.
struct PackageSolids {
    std::vector<geometry::NamedSolid> solids;  ///< each has a shape
    /// A sentence for each kind of thing that was left out, and for what had to be assumed.
    std::vector<std::string> remarks;
};

/// How solids are made.
struct PackageSolidsOptions {
    CString unit;  ///< of the part; a unit that is not known counts as millimetres, and a remark says so
    /// Where and how STEP files are read that records name; null for none.
    std::shared_ptr<const geometry::step_files> stepFiles;
    /// Called after each object with the number of objects done and of all; false ends the work early with
    /// what is done. May be empty.
    std::function<bool(std::size_t done, std::size_t all)> progress;
};

/// Makes the solids of a package: its body, its marking, its pins and its mechanical pins. A pin's objects
/// are put at the pin's point and turned by its rotation; leads are read as `leads/Lead.h` says. Never
/// throws for what a record holds.
PackageSolids MakePackageSolids(const CVEKA_Package& package, const PackageSolidsOptions& options);

/// The solids of all packages of a part, in the unit of the part.
PackageSolids MakePackageSolids(const CVEKA_Manager& part,
                                std::shared_ptr<const geometry::step_files> stepFiles = nullptr);

}  // namespace veka
