#pragma once

#include "parser/CVEK_AsciiParser.h"

namespace test {

/// The import's procedure as it is laid down: the whole tree first, then its levels in two passes.
void ImportByReference(const CString& path, CVEK_AsciiParser& parser);

}  // namespace test
