#pragma once

#include <vector>

#include "platform/CString.h"

class QWidget;

namespace host {

/// Lets the user choose part data files: by the system's own picker where Qt has it, which takes several
/// files, and otherwise by the picker of the import dialog. Empty if the user cancels.
std::vector<CString> PickPartFiles(const CString& current, QWidget* parent);

}  // namespace host
