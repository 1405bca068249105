#include "host/Solids.h"

namespace host {

std::vector<std::string> WriteSolids(const CVEKA_Manager&, const std::string&,
                                     const std::vector<std::string>&, std::vector<SolidFile>&) {
    throw SolidsError("this program was built without OpenCASCADE and cannot make solids");
}

}  // namespace host
