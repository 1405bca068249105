#include "qt/Text.h"

#include "platform/Utf8.h"

namespace veka {

QString ToQString(const CString& text) {
    QString result;
    std::string_view bytes = text.View();
    while (!bytes.empty()) {
        const size_t length = Utf8Length(bytes);
        if (length == 0) {
            result += QChar(0xDC00 + static_cast<unsigned char>(bytes[0]));
            bytes.remove_prefix(1);
        } else {
            result += QString::fromUtf8(bytes.data(), static_cast<qsizetype>(length));
            bytes.remove_prefix(length);
        }
    }
    return result;
}

CString FromQString(const QString& text) {
    std::string bytes;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (!pair && unit >= 0xDC80 && unit <= 0xDCFF) {
            bytes += static_cast<char>(unit - 0xDC00);
            continue;
        }
        bytes += QStringView(text).mid(i, pair ? 2 : 1).toUtf8().toStdString();
        if (pair) ++i;
    }
    return CString(bytes);
}

}  // namespace veka
