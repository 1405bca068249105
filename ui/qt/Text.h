#pragma once

#include <QString>

#include "platform/CString.h"

namespace veka {

/// A byte string as Qt's text. What is UTF-8 becomes its characters; any other byte becomes the lone
/// surrogate U+DC00 plus the byte, which no UTF-8 text holds, so that `FromQString` gives every byte back.
QString ToQString(const CString& text);
/// The bytes of a text: UTF-8, and for the lone surrogates made by `ToQString` their bytes.
CString FromQString(const QString& text);

}  // namespace veka
