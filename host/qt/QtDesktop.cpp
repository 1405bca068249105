#include "host/qt/QtDesktop.h"

#include <QApplication>
#include <QIcon>
#include <QSettings>

#include "host/ExitCode.h"
#include "host/OutputFile.h"
#include "host/qt/MainWindow.h"
#include "host/qt/ScenePainter.h"
#include "qt/QtUserInterface.h"
#include "qt/Text.h"

namespace host {

bool QtDesktop::HasDisplay() {
    return veka::HasDisplay();
}

std::unique_ptr<veka::UserInterface> QtDesktop::MakeUserInterface() {
    auto userInterface = std::make_unique<veka::QtUserInterface>();
    QApplication::setApplicationName("veka-host");
    // The names of the entry and of the icon that are installed.
    QApplication::setDesktopFileName("veka-host");
    QApplication::setWindowIcon(QIcon::fromTheme("veka-host"));
    return userInterface;
}

int QtDesktop::RunApplication(const CommandLine& line) {
    QSettings settings(QSettings::IniFormat, QSettings::UserScope, "veka-host", "veka-host");
    MainWindow window(settings);
    window.SetLimits(line.limits);
    const std::vector<CString> files(line.files.begin(), line.files.end());
    window.Suggest(files.empty() ? CString() : files[0], CString(line.library));
    window.show();
    // A window is centred on this one, so this one must be on the screen first.
    window.WhenShown([&] {
        if (line.open)
            window.Open(files);
        else if (files.size() > 1)
            window.ImportFiles(files);
        else
            window.Import();
    });
    QApplication::exec();
    return window.HasPart() || line.open ? kImported : kRefused;
}

void QtDesktop::WritePng(const drawing::Sheet& sheet, const std::string& path) {
    // Texts need an application; without a display they are painted by the one that shows nothing.
    std::unique_ptr<QGuiApplication> application;
    int count = 1;
    char name[] = "veka-host";
    char* arguments[] = {name, nullptr};
    if (!QCoreApplication::instance()) {
        if (!HasDisplay()) qputenv("QT_QPA_PLATFORM", "offscreen");
        application = std::make_unique<QGuiApplication>(count, arguments);
    }
    constexpr int kLongest = 2000;
    if (!ImageOf(sheet, kLongest).save(veka::ToQString(CString(path)), "PNG"))
        throw OutputError("cannot write \"" + path + '"');
}

}  // namespace host
