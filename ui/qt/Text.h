#pragma once

#include <QString>

#include "platform/CString.h"

namespace veka {

/// A byte string as Qt's text, by the rule of `ToUtf16`: `FromQString` gives every byte back.
QString ToQString(const CString& text);
/// The bytes of a text, by the rule of `FromUtf16`.
CString FromQString(const QString& text);

}  // namespace veka
