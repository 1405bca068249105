#include "host/qt/ExportMenu.h"

#include <QBoxLayout>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <sstream>

#include "files/Paths.h"
#include "host/Failure.h"
#include "host/KiCadLibrary.h"
#include "host/OutputFile.h"
#include "host/Picture.h"
#include "host/SolidOutput.h"
#include "host/qt/QtDesktop.h"
#include "inspect/Json.h"
#include "qt/Text.h"

namespace host {

namespace {

constexpr const char* kSymbols = "kicad_sym";
constexpr const char* kSymbolLibraries = "Symbol libraries of KiCad (*.kicad_sym)";

/// The place DIR/NAME of the libraries whose symbols are in a file.
std::string PlaceOf(const std::string& symbolFile) {
    const std::string end = std::string(".") + kSymbols;
    return symbolFile.ends_with(end) ? symbolFile.substr(0, symbolFile.size() - end.size()) : symbolFile;
}

CString Counted(std::size_t count, const char* what) {
    return CString(std::to_string(count) + ' ' + what + (count == 1 ? "" : "s"));
}

}  // namespace

ExportMenu::ExportMenu(Host host, QWidget* parent) : QMenu("&Export", parent), m_host(std::move(host)) {
    setObjectName("export");
    Add(
        "To &KiCad...", "exportKiCad", [this] { WriteToKiCad(); }, true);
    Add(
        "Library to KiCad...", "exportLibraryKiCad", [this] { WriteLibraryToKiCad(); }, false);
    addSeparator();
    QAction* step = Add(
        "Solids as &STEP...", "exportStep",
        [this] {
            WriteSolids("Export Solids", "STEP files (*.step *.stp)", "step", SolidFile::Format::Step);
        },
        true);
    QAction* gltf = Add(
        "Solids as &glTF...", "exportGltf",
        [this] { WriteSolids("Export Solids", "Binary glTF files (*.glb)", "glb", SolidFile::Format::Gltf); },
        true);
    for (QAction* action : {step, gltf}) action->setVisible(CanWriteSolids());
    Add(
        "&Picture...", "exportPicture", [this] { WritePicture(); }, true);
    Add(
        "&JSON...", "exportJson", [this] { WriteJson(); }, true);
    connect(this, &QMenu::aboutToShow, this, [this] { EnableActions(); });
}

QAction* ExportMenu::Add(const char* text, const char* name, std::function<void()> deed, bool needsPart) {
    QAction* action = addAction(text, this, std::move(deed));
    action->setObjectName(name);
    if (needsPart) m_ofPart.push_back(action);
    return action;
}

void ExportMenu::EnableActions() {
    for (QAction* action : m_ofPart) action->setEnabled(m_host.part() != nullptr);
}

std::string ExportMenu::AskForFile(const char* title, const char* filter, const char* suffix,
                                   const CString& proposal, bool addsTo) {
    QFileDialog dialog(parentWidget(), title, veka::ToQString(proposal), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(suffix);
    // An export to a library leaves what the library has.
    dialog.setOption(QFileDialog::DontConfirmOverwrite, addsTo);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return "";
    return std::string(veka::FromQString(dialog.selectedFiles().front()).View());
}

void ExportMenu::Write(
    const char* title, const char* filter, const char* suffix,
    const std::function<std::vector<std::string>(const ImportedPart&, const std::string&)>& write) {
    const ImportedPart* part = m_host.part();
    if (!part) return;
    const std::filesystem::path beside =
        veka::ToPath(part->file).replace_extension(veka::ToPath(CString(suffix)));
    const std::string path = AskForFile(title, filter, suffix, veka::FromPath(beside), false);
    if (path.empty()) return;
    m_host.guarded(part->file, [&] {
        RequireOutsideOf(path, std::string(part->file.View()), "", "");
        const std::vector<std::string> remarks = write(*part, path);
        ShowResult("Exported to " + CString(path), remarks);
    });
}

void ExportMenu::WriteSolids(const char* title, const char* filter, const char* suffix,
                             SolidFile::Format format) {
    Write(title, filter, suffix, [format](const ImportedPart& part, const std::string& path) {
        return WriteSolidOutput(part.Model(), std::string(part.file.View()), {}, format, path);
    });
}

void ExportMenu::WritePicture() {
    Write("Export Picture", "SVG pictures (*.svg);;PNG pictures (*.png)", "svg",
          [](const ImportedPart& part, const std::string& path) {
              const drawing::Sheet sheet = MakePicture(part.Model(), PictureOf::All, drawing::Side::Top);
              OutputFile file(path);
              if (IsPngName(path))
                  QtDesktop().WritePng(sheet, file.TemporaryPath());
              else
                  WriteSvgFile(sheet, part, file.TemporaryPath());
              file.Commit();
              std::vector<std::string> remarks;
              for (const drawing::View& view : sheet.Views())
                  for (const std::string& remark : view.scene.Remarks())
                      remarks.push_back(view.scene.Title() + ": " + remark);
              return remarks;
          });
}

void ExportMenu::WriteJson() {
    Write("Export JSON", "JSON files (*.json)", "json",
          [](const ImportedPart& part, const std::string& path) {
              std::ostringstream out;
              veka::Json(out).Write(part.Model());
              WriteOutput(path, out.str());
              return std::vector<std::string>();
          });
}

void ExportMenu::WriteToKiCad() {
    const ImportedPart* part = m_host.part();
    if (!part) return;
    const std::string path = AskForFile("Export to KiCad", kSymbolLibraries, kSymbols, "", true);
    if (path.empty()) return;
    m_host.guarded(part->file, [&] {
        KiCadLibrary library(PlaceOf(path), true, m_host.waiting(CString(path)));
        const std::vector<std::string> remarks = library.Add(*part, {});
        library.Finish();
        ShowResult("Exported to " + CString(library.SymbolFile()), remarks);
    });
}

void ExportMenu::WriteLibraryToKiCad() {
    const CString from = m_host.library();
    if (from.IsEmpty()) return;
    const std::string path = AskForFile("Export Library to KiCad", kSymbolLibraries, kSymbols, "", true);
    if (path.empty()) return;
    m_host.guarded(from, [&] {
        const std::vector<std::string> files = PartFilesOf(std::string(from.View()));
        KiCadLibrary library(PlaceOf(path), true, m_host.waiting(CString(path)));
        std::vector<std::string> remarks;
        QProgressDialog progress("", "Cancel", 0, static_cast<int>(files.size()), parentWidget());
        progress.setWindowModality(Qt::WindowModal);
        progress.setMinimumDuration(500);
        std::size_t done = 0;
        for (const std::string& file : files) {
            progress.setLabelText(veka::ToQString("Exporting " + CString(file)));
            progress.setValue(static_cast<int>(done));
            if (progress.wasCanceled()) break;
            try {
                for (const std::string& remark :
                     library.Add(ReadPart(CString(file), m_host.reading(CString(file))), {}))
                    remarks.push_back(remark);
            } catch (...) {
                remarks.push_back(CurrentFailure(file).sentence);
            }
            ++done;
        }
        progress.reset();
        library.Finish();
        CString sentence =
            "Exported " + Counted(library.Parts(), "part") + " to " + CString(library.SymbolFile());
        if (library.Parts() < files.size())
            sentence += ", not " + Counted(files.size() - library.Parts(), "part");
        ShowResult(sentence, remarks);
    });
}

void ExportMenu::ShowResult(const CString& sentence, const std::vector<std::string>& remarks) {
    m_host.show(sentence + (remarks.empty() ? CString() : "; " + Counted(remarks.size(), "remark")));
    if (remarks.empty()) return;
    QDialog dialog(parentWidget());
    dialog.setWindowTitle("Export");
    dialog.resize(640, 360);
    auto* title = new QLabel(veka::ToQString(sentence + ". " + Counted(remarks.size(), "remark") + ":"));
    title->setTextFormat(Qt::PlainText);
    title->setWordWrap(true);
    auto* list = new QPlainTextEdit;
    list->setObjectName("remarks");
    list->setReadOnly(true);
    constexpr std::size_t kMost = 5000;
    QStringList lines;
    for (std::size_t i = 0; i < remarks.size() && i < kMost; ++i)
        lines += veka::ToQString(CString(remarks[i]));
    if (remarks.size() > kMost) lines += "...";
    list->setPlainText(lines.join('\n'));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(title);
    layout->addWidget(list, 1);
    layout->addWidget(buttons);
    dialog.exec();
}

}  // namespace host
