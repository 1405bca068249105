#include "host/qt/QtDesktop.h"

#include <QApplication>
#include <QSettings>
#include <QTimer>

#include "host/ExitCode.h"
#include "host/qt/MainWindow.h"
#include "qt/QtUserInterface.h"

namespace host {

bool QtDesktop::HasDisplay() {
    return veka::HasDisplay();
}

std::unique_ptr<veka::UserInterface> QtDesktop::MakeUserInterface() {
    auto userInterface = std::make_unique<veka::QtUserInterface>();
    QApplication::setApplicationName("veka-host");
    return userInterface;
}

int QtDesktop::RunApplication(const CommandLine& line) {
    QSettings settings(QSettings::IniFormat, QSettings::UserScope, "veka-host", "veka-host");
    MainWindow window(settings);
    window.Suggest(CString(line.file), CString(line.library));
    window.show();
    QTimer::singleShot(0, &window, [&window] { window.Import(); });
    QApplication::exec();
    return window.HasPart() ? kImported : kRefused;
}

}  // namespace host
