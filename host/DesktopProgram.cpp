#include "host/DesktopProgram.h"

#include "host/Picture.h"

namespace host {

bool NeedsDesktop(const CommandLine& line) {
    if (line.help || line.version) return false;
    const bool windows = line.Attended() && line.windows != Windows::Console;
    const bool solids = !line.step.empty() || !line.gltf.empty() || (!line.kicad.empty() && line.models);
    return windows || solids || IsPngName(line.picture);
}

}  // namespace host
