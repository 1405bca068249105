#pragma once

#include <QString>

#include "platform/CString.h"

namespace host {

/// A text from a file as widgets can show it: a long one is cut, since a line of a million letters would take
/// a widget seconds.
QString Elided(const QString& text);
QString Elided(const CString& text);

}  // namespace host
