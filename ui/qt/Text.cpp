#include "qt/Text.h"

#include <QStringView>

#include "platform/Utf16.h"

namespace veka {

QString ToQString(const CString& text) {
    return QStringView(ToUtf16(text.View())).toString();
}

CString FromQString(const QString& text) {
    const QStringView view(text);
    return FromUtf16({view.utf16(), static_cast<size_t>(view.size())});
}

}  // namespace veka
