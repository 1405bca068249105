#pragma once

#include "platform/CString.h"
#include "platform/Export.h"

// The numbers of the toolkit. If the toolkit's header was included before, they are macros.
#ifndef IDOK
enum { IDOK = 1, IDCANCEL = 2, IDYES = 6, IDNO = 7 };
#endif
#ifndef MB_OK
enum : unsigned { MB_OK = 0, MB_YESNO = 4 };
#endif

/// Shows a text with an OK button, or with Yes and No for `MB_YESNO`, and returns the button pressed.
/// If no user interface is installed, the text goes to standard error, and the answer to a question is No.
VEKA_API int AfxMessageBox(const CString& text, unsigned type = MB_OK);
