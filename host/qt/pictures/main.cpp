#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPixmap>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include "host/BatchImport.h"
#include "host/PartFiles.h"
#include "host/qt/MainWindow.h"
#include "qt/QtUserInterface.h"
#include "window/AfxMessageBox.h"
#include "window/ScopedUserInterface.h"

namespace {

constexpr int kDrawn = 300;  // ms until a window is drawn whole

/// Once the dialog is drawn, saves its picture and presses a button in it.
void PhotographAndPress(const QString& picture, int button) {
    QTimer::singleShot(kDrawn, qApp, [picture, button] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!picture.isEmpty()) dialog->grab().save(picture);
        QMetaObject::invokeMethod(dialog->findChild<QObject*>(QString::number(button)), "click");
    });
}

/// Imports all examples but the one that the dialog imports, so that the library has something to list.
void FillLibrary(const QString& examples) {
    host::Batch batch;
    batch.library = "library";
    for (const std::string& file : host::PartFilesBelow(examples.toStdString()))
        if (!file.ends_with("op-amp.veka")) batch.files.push_back(file);
    host::ImportBatch(batch);
}

}  // namespace

/// Takes the pictures of the windows for the documents: PROGRAM FILE DIRECTORY, with a part data file and
/// where the pictures go.
int main(int argc, char** argv) {
    if (argc != 3) return 2;
    veka::QtUserInterface user;
    const QString folder = QDir(argv[2]).absolutePath(),
                  example = QDir(argv[1]).absoluteFilePath("op-amp.veka");
    const veka::ScopedUserInterface installed(user);
    const QTemporaryDir scratch;
    QDir::setCurrent(scratch.path());
    QDir().mkdir("library");
    QFile::copy(example, "op-amp.veka");
    FillLibrary(QFileInfo(example).path());
    QSettings settings(scratch.filePath("settings.ini"), QSettings::IniFormat);
    host::MainWindow window(settings);
    window.show();

    window.Suggest("op-amp.veka", "library");
    PhotographAndPress(folder + "/import-dialog.png", IDCANCEL);
    window.Import();
    PhotographAndPress("", IDOK);
    window.Import();
    window.ShowLibrary();
    QTimer::singleShot(kDrawn, &window, [&] {
        window.grab().save(folder + "/host-window.png");
        QApplication::quit();
    });
    QApplication::exec();
    return 0;
}
