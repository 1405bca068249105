#include "qt/QtUserInterface.h"

#include <QApplication>
#include <QMessageBox>
#include <clocale>
#include <stdexcept>
#include <string>

#include "qt/PathPicker.h"
#include "qt/QtDialogWindow.h"
#include "qt/Text.h"

#ifdef __unix__
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace veka {

namespace {

/// The widget that was given, or else the window that the user is in.
QWidget* ParentOr(void* parent) {
    if (parent) return static_cast<QWidget*>(parent);
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return QApplication::activeWindow();
}

QMessageBox::StandardButton ShowMessageBox(QMessageBox::Icon icon, const CString& text,
                                           QMessageBox::StandardButtons buttons) {
    QMessageBox box(icon, QApplication::applicationDisplayName(), ToQString(text), buttons,
                    ParentOr(nullptr));
    box.setTextFormat(Qt::PlainText);  // a path may look like rich text
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

#ifdef __unix__
/// Makes an application and gives it up again; does not return where Qt finds no display.
[[noreturn]] void TryApplication() {
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
    int count = 1;
    char name[] = "veka";
    char* arguments[] = {name, nullptr};
    const QApplication application(count, arguments);
    _exit(0);
}
#endif

}  // namespace

class QtUserInterface::OwnApplication {
public:
    // Making an application sets the locale of the process. A host that knows nothing of Qt keeps its own,
    // but for the character set, which the keyboard's input needs.
    OwnApplication() : m_formerLocale(std::setlocale(LC_ALL, nullptr)), m_application(m_count, m_arguments) {
        const std::string characterSet = std::setlocale(LC_CTYPE, nullptr);
        std::setlocale(LC_ALL, m_formerLocale.c_str());
        std::setlocale(LC_CTYPE, characterSet.c_str());
    }

private:
    std::string m_formerLocale;
    int m_count = 1;
    char m_name[5] = "veka";
    char* m_arguments[2] = {m_name, nullptr};
    QApplication m_application;
};

QtUserInterface::QtUserInterface() {
    if (!QCoreApplication::instance()) {
        m_application = std::make_unique<OwnApplication>();
    } else if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        throw std::logic_error("The Qt application of this process has no windows.");
    }
}

QtUserInterface::~QtUserInterface() = default;

void QtUserInterface::ShowMessage(const CString& text) {
    ShowMessageBox(QMessageBox::Warning, text, QMessageBox::Ok);
}

bool QtUserInterface::AskYesNo(const CString& text) {
    return ShowMessageBox(QMessageBox::Question, text, QMessageBox::Yes | QMessageBox::No) ==
           QMessageBox::Yes;
}

CString QtUserInterface::PickFile(const CString& description, const CString& extension,
                                  const CString& current, void* parent) {
    return PickPath(PathPicker::File(ToQString(description), extension), current, ParentOr(parent));
}

CString QtUserInterface::PickDirectory(const CString& title, const CString& current, void* owner) {
    return PickPath(PathPicker::Directory(ToQString(title)), current, ParentOr(owner));
}

std::unique_ptr<DialogWindow> QtUserInterface::MakeDialogWindow(const DialogTemplate& dialog,
                                                                DialogEvents& events, void* parent) {
    return std::make_unique<QtDialogWindow>(dialog, events, MeasureDialogUnits(DialogFont(dialog)),
                                            static_cast<QWidget*>(parent));
}

bool HasDisplay() {
    if (QCoreApplication::instance()) return qobject_cast<QApplication*>(QCoreApplication::instance());
#ifdef __unix__
    const bool named = qEnvironmentVariableIsSet("QT_QPA_PLATFORM") ||
                       !qEnvironmentVariableIsEmpty("DISPLAY") ||
                       !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (!named) return false;
    const pid_t child = fork();
    if (child == 0) TryApplication();
    int status = 1;
    return child > 0 && waitpid(child, &status, 0) == child && status == 0;
#else
    return true;
#endif
}

}  // namespace veka
