#include "host/SolidViewer.h"
#include "host/Solids.h"

namespace host {

namespace {

constexpr const char* kWithout = "this program was built without OpenCASCADE and cannot make solids";

}  // namespace

bool CanWriteSolids() {
    return false;
}

std::vector<std::string> WriteSolids(const CVEKA_Manager&, const std::string&,
                                     const std::vector<std::string>&, std::vector<SolidFile>&,
                                     const CVEKA_Package*) {
    throw SolidsError(kWithout);
}

std::unique_ptr<ViewedSolids> MakeViewedSolids(const CVEKA_Manager&, const std::string&,
                                               const SolidProgress&) {
    throw SolidsError(kWithout);
}

std::unique_ptr<SolidViewer> MakeSolidViewer(std::uintptr_t) {
    throw SolidsError(kWithout);
}

}  // namespace host
