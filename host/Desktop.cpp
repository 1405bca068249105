#include "host/Desktop.h"

namespace host {

const char* const kNoPng =
    "this program was built without Qt, which PNG pictures need; SVG pictures need nothing";

void Desktop::WritePng(const drawing::Sheet&, const std::string&) {
    throw NoWindows(kNoPng);
}

}  // namespace host
