#pragma once

#include <string_view>

#include "platform/CString.h"

namespace fuzz {

/// Imports a file and ends the process where something is not as it must be: another model or another message
/// than the reference import gives, or a clone, a copy or a moved model that is not the same.
void CheckImport(const CString& path);

/// Imports a text from memory, with limits that the text itself chooses, and ends the process where something
/// is not as it must be: another model than without limits, a limit that is not kept, or an import that ended
/// and changed the model.
void CheckLimits(std::string_view text);

}  // namespace fuzz
