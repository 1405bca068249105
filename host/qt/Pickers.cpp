#include "host/qt/Pickers.h"

#include <QFileDialog>
#include <QLineEdit>

#include "qt/PathPicker.h"
#include "qt/Text.h"

namespace host {

std::vector<CString> PickPartFiles(const CString& current, QWidget* parent) {
    QFileDialog dialog(parent, "Open", veka::ToQString(current),
                       "Part data files (*.veka *.VEKA);;All files (*)");
    // Qt makes the widgets of a picker of its own only where the system offers none.
    if (dialog.findChild<QLineEdit*>()) {
        const CString chosen = veka::PickPath(veka::PathPicker::File("VEKA File", "veka"), current, parent);
        return chosen.IsEmpty() ? std::vector<CString>() : std::vector<CString>{chosen};
    }
    dialog.setFileMode(QFileDialog::ExistingFiles);
    std::vector<CString> files;
    if (dialog.exec() == QDialog::Accepted)
        for (const QString& file : dialog.selectedFiles()) files.push_back(veka::FromQString(file));
    return files;
}

}  // namespace host
