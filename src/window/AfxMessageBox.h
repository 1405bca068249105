#pragma once

#include "platform/CString.h"
#include "platform/Export.h"

// The toolkit's own numbers; where its header came first, they are macros already.
#ifndef IDOK
enum { IDOK = 1, IDCANCEL = 2, IDYES = 6, IDNO = 7 };
#endif
#ifndef MB_OK
enum : unsigned { MB_OK = 0, MB_YESNO = 4 };
#endif

/// Shows a text with an OK button, or with Yes and No for `MB_YESNO`, and returns the button pressed.
/// With no user interface installed the text goes to standard error, and a question is answered No.
VEKA_API int AfxMessageBox(const CString& text, unsigned type = MB_OK);
