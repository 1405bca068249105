#include "host/qt/Elided.h"

#include "qt/Text.h"

namespace host {

namespace {

constexpr qsizetype kMost = 500;

}  // namespace

QString Elided(const QString& text) {
    return text.size() <= kMost ? text : text.left(kMost) + QChar(0x2026);
}

QString Elided(const CString& text) {
    // A letter has at most four bytes.
    constexpr int kMostBytes = 4 * static_cast<int>(kMost) + 4;
    return Elided(veka::ToQString(text.GetLength() > kMostBytes ? text.Left(kMostBytes) : text));
}

}  // namespace host
