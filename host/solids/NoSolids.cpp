#include "host/Solids.h"

namespace host {

void WriteSolids(const CVEKA_Manager&, const std::string&, const std::string&, std::ostream&) {
    throw SolidsError("this program was built without OpenCASCADE and cannot make solids");
}

}  // namespace host
