#pragma once

#include "platform/CString.h"

namespace fuzz {

/// Imports a file and ends the process where something is not as it must be: another model or another message
/// than the plain procedure gives, or a clone, a copy or a moved model that is not the same.
void CheckImport(const CString& path);

}  // namespace fuzz
