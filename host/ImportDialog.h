#pragma once

#include <optional>

#include "host/ImportedPart.h"

class CWnd;

namespace host {

/// What the user chose in the import dialog.
struct DialogChoice {
    ImportedPart part;
    CString library;    ///< directory that the part is to be stored in
    Existing existing;  ///< `Replace` if the user was asked and said Yes
};

/// Runs the import dialog, opened with a file and a library; nothing where the user cancels.
///
/// The host looks at the file before the dialog does: for a file that cannot be read or holds no part it says
/// so, and the dialog stays open. It offers to make a library that is missing, and asks before a faulty file
/// replaces a part.
std::optional<DialogChoice> RunImportDialog(const CString& file, const CString& library,
                                            const Reading& reading = {}, CWnd* parent = nullptr);

}  // namespace host
