#include "host/qt/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QDockWidget>
#include <QDropEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressDialog>
#include <QPushButton>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>
#include <QUrl>
#include <QWindow>

#include "files/Paths.h"
#include "host/CheckFiles.h"
#include "host/Failure.h"
#include "host/PartFiles.h"
#include "host/qt/Elided.h"
#include "host/qt/ExportMenu.h"
#include "host/qt/FindBar.h"
#include "host/qt/FindingsView.h"
#include "host/qt/ImportQueue.h"
#include "host/qt/LibraryView.h"
#include "host/qt/PartPictures.h"
#include "host/qt/Pickers.h"
#include "host/qt/PinView.h"
#include "host/qt/QueueView.h"
#include "host/qt/RecordTree.h"
#include "host/qt/SolidView.h"
#include "qt/QtUserInterface.h"
#include "qt/Text.h"
#include "window/AfxMessageBox.h"
#include "window/SBUtility.h"

namespace host {

namespace {

constexpr const char* kLastFile = "lastFile";
constexpr const char* kLastLibrary = "lastLibrary";
constexpr const char* kRecentFiles = "recentFiles";
constexpr const char* kRecentLibraries = "recentLibraries";
constexpr qsizetype kMostRecent = 10;

bool Exists(const CString& path) {
    return SBUtility::GetInstance().DoesFileOrDirExist(path, __FILE__, __LINE__);
}

/// A file that was dropped, byte for byte, if it is a part data file.
std::optional<CString> PartDataFile(const QUrl& url) {
    if (!url.isLocalFile()) return std::nullopt;
    const QByteArray path = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    if (IsDirectoryOfFiles(path.toStdString())) return CString(path.toStdString());
    if (!path.toLower().endsWith(".veka")) return std::nullopt;
    return CString(path.toStdString());
}

std::vector<CString> PartDataFiles(const QMimeData* data) {
    std::vector<CString> files;
    for (const QUrl& url : data->urls())
        if (std::optional<CString> file = PartDataFile(url)) files.push_back(std::move(*file));
    return files;
}

/// Takes a drag of part data files as a copy: a source that moved them would remove them.
bool AcceptAsCopy(QDropEvent* event) {
    if (!event->possibleActions().testFlag(Qt::CopyAction) || PartDataFiles(event->mimeData()).empty())
        return false;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    return true;
}

QByteArray Bytes(const CString& text) {
    return {text.GetString(), text.GetLength()};
}

QLabel* MakeLabel(const char* name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    label->setWordWrap(true);
    return label;
}

}  // namespace

MainWindow::MainWindow(QSettings& settings) : m_settings(settings) {
    setWindowTitle("veka-host");
    setAcceptDrops(true);
    resize(1240, 780);
    MakeContent();
    MakeActions();
}

MainWindow::~MainWindow() = default;

void MainWindow::MakeContent() {
    m_number = MakeLabel("number");
    m_number->setText("No part");
    QFont large = m_number->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    m_number->setFont(large);
    m_identity = MakeLabel("identity");
    m_identity->setText("Open a part data file, or drop one here.");
    m_pinCount = MakeLabel("pinCount");
    m_file = MakeLabel("file");
    m_faults = MakeLabel("faults");
    m_faults->hide();
    m_state = MakeLabel("state");
    QFont bold = m_state->font();
    bold.setBold(true);
    m_state->setFont(bold);
    m_faults->setFont(bold);

    m_records = new RecordTree;
    m_pins = new PinView;
    m_tabs = new QTabWidget;
    m_tabs->setObjectName("tabs");
    m_tabs->addTab(m_records, "&Records");
    m_tabs->addTab(m_pins, "&Pins");
    m_find = new FindBar([this](const QString& text, bool backward) {
        return m_tabs->currentWidget() == m_pins ? m_pins->FindNext(text, backward)
                                                 : m_records->FindNext(text, backward);
    });

    m_storeButton = new QPushButton("&Store in Library");
    m_storeButton->setObjectName("storeButton");
    m_storeButton->hide();
    connect(m_storeButton, &QPushButton::clicked, this, [this] { StorePart(); });
    MakePictures();
    MakeReport();

    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    for (QLabel* label : {m_number, m_identity, m_pinCount, m_file, m_faults}) layout->addWidget(label);
    auto* state = new QHBoxLayout;
    state->addWidget(m_state, 1);
    state->addWidget(m_storeButton);
    layout->addLayout(state);
    auto* left = new QWidget;
    auto* leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->addWidget(m_tabs, 1);
    leftLayout->addWidget(m_find);
    auto* splitter = new QSplitter;
    splitter->addWidget(left);
    splitter->addWidget(m_pictures);
    splitter->setSizes({480, 740});
    splitter->setStretchFactor(1, 1);
    layout->addWidget(splitter, 1);
    setCentralWidget(content);

    auto* dock = new QDockWidget("Files");
    dock->setObjectName("filesDock");
    m_files = new QueueView;
    m_files->onOpen = [this](const CString& path) { Open({path}); };
    dock->setWidget(m_files);
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    dock->hide();
    m_filesDock = dock;
    auto* libraryDock = new QDockWidget("Library");
    libraryDock->setObjectName("libraryDock");
    m_libraryView = new LibraryView([this](const CString& file) {
        Open({file});
        ShowState("Part of the library " + m_libraryView->Library());
    });
    libraryDock->setWidget(m_libraryView);
    addDockWidget(Qt::LeftDockWidgetArea, libraryDock);
    libraryDock->hide();
    m_libraryDock = libraryDock;
}

/// What is selected in the records or the pins is highlighted in the pictures, and the other way round.
void MainWindow::MakePictures() {
    m_pictures = new PartPictures;
    m_solids = new SolidView;
    m_pictures->addTab(m_solids, "&3D");
    auto* place = new QLabel;
    place->setObjectName("place");
    statusBar()->addPermanentWidget(place);
    m_pictures->onPointer = [place](const QString& text) { place->setText(text); };
    m_pictures->onPick = [this](const void* record) { Select(record); };
    connect(m_records, &QTreeWidget::currentItemChanged, this,
            [this] { m_pictures->Highlight(m_records->CurrentRecords()); });
    connect(m_pins, &QTableWidget::currentCellChanged, this, [this](int row, int, int former, int) {
        if (row != former) m_pictures->HighlightPin(m_pins->CurrentPin());
    });
}

/// The report is a tab beside the pictures, with the number of errors and warnings in its title.
void MainWindow::MakeReport() {
    m_findings = new FindingsView;
    m_pictures->addTab(m_findings, "");
    ShowCount("");
    m_findings->onReport = [this] { ShowCount(CountOfFindings(m_findings->Report())); };
    m_findings->onSelect = [this](veka::Place place) { SelectAt(place); };
}

void MainWindow::ShowCount(const std::string& count) {
    const int tab = m_pictures->indexOf(m_findings);
    std::size_t number = 0;
    if (!count.empty())
        number = m_findings->Report().Count(veka::Severity::Error) +
                 m_findings->Report().Count(veka::Severity::Warning);
    m_pictures->setTabText(tab, number ? "Repor&t (" + QString::number(number) + ')' : "Repor&t");
    m_pictures->setTabToolTip(tab, QString::fromStdString(count));
}

void MainWindow::SelectAt(veka::Place place) {
    if (!m_part) return;
    if (!m_places) m_places = std::make_unique<veka::RecordPlaces>(m_part->content.bytes, m_part->Model());
    m_records->SelectRecord(m_places->At(place).record);
}

CString MainWindow::FindingsSentence() {
    const std::string count = CountOfFindings(m_findings->Report());
    return count.empty() ? CString() : CString("A check of the file finds " + count + '.');
}

bool MainWindow::MayStore() {
    const CString findings = FindingsSentence();
    if (findings.IsEmpty() || std::exchange(m_toldFindings, true)) return true;
    return AfxMessageBox(findings + " Store the part?", MB_YESNO) == IDYES;
}

void MainWindow::Select(const void* record) {
    if (!record || !m_records->SelectRecord(record)) {
        const QSignalBlocker blocker(m_records);
        m_records->setCurrentItem(nullptr);
    }
    const QSignalBlocker blocker(m_pins);
    m_pins->SelectPin(m_pictures->PinOf(record));
    // The record may have been the current one all the time, or not be in the tree at all.
    Ranks records = m_records->CurrentRecords();
    if (record && records.empty()) records.emplace(record, 0);
    m_pictures->Highlight(std::move(records));
}

void MainWindow::MakeActions() {
    const auto add = [this](QMenu* menu, const char* text, const QKeySequence& keys, const char* name,
                            auto deed) {
        QAction* action = menu->addAction(text, this, deed);
        action->setShortcut(keys);
        action->setObjectName(name);
        return action;
    };
    QMenu* file = menuBar()->addMenu("&File");
    QAction* open = add(file, "&Open...", QKeySequence::Open, "open", [this] {
        const std::vector<CString> files = PickPartFiles(Remembered(kLastFile), this);
        if (!files.empty()) Open(files);
    });
    QMenu* recentFiles = file->addMenu("Open &Recent");
    recentFiles->setObjectName("recentFiles");
    connect(recentFiles, &QMenu::aboutToShow, this, [this, recentFiles] {
        FillRecent(recentFiles, kRecentFiles, [this](const CString& path) { Open({path}); });
    });
    file->addSeparator();
    QAction* import = add(file, "&Import...", QKeySequence("Ctrl+I"), "import", [this] { Import(); });
    add(file, "Import &Folder...", QKeySequence(), "importFolder", [this] {
        const CString folder =
            SBUtility::GetInstance().GetDirectoryFromUser("Folder of Part Data Files", "", this);
        if (!folder.IsEmpty()) ImportFolders({folder});
    });
    m_store = add(file, "&Store in Library", QKeySequence::Save, "store", [this] { StorePart(); });
    m_store->setEnabled(false);
    QMenu* libraries = file->addMenu("Store in Recent &Library");
    libraries->setObjectName("recentLibraries");
    connect(libraries, &QMenu::aboutToShow, this, [this, libraries] {
        FillRecent(libraries, kRecentLibraries, [this](const CString& path) {
            if (m_part) StoreIn(path, Existing::Keep);
        });
    });
    add(file, "Restore Re&placed Part", QKeySequence(), "undo", [this] { Undo(); });
    file->addSeparator();
    file->addMenu(MakeExportMenu());
    file->addSeparator();
    add(file, "&Quit", QKeySequence::Quit, "quit", [this] { close(); });

    QMenu* view = menuBar()->addMenu("&View");
    add(view, "&Find...", QKeySequence::Find, "find", [this] { m_find->Open(); });
    add(view, "Find &Next", QKeySequence::FindNext, "findNext", [this] { m_find->FindNext(false); });
    add(view, "Find &Previous", QKeySequence::FindPrevious, "findPrevious",
        [this] { m_find->FindNext(true); });
    add(view, "&Library", QKeySequence("Ctrl+L"), "showLibrary", [this] { ShowLibrary(); });
    view->addSeparator();
    m_showAll = add(view, "&Empty Fields", QKeySequence(), "showAll", [this] { ShowPart(true); });
    m_showAll->setCheckable(true);

    QToolBar* bar = addToolBar("Import");
    bar->setMovable(false);
    bar->addActions({open, import, m_store, m_showAll});
}

QMenu* MainWindow::MakeExportMenu() {
    return new ExportMenu(
        // While files are imported, their questions show other parts behind the file picker.
        {[this] { return m_part && !m_queue ? &*m_part : nullptr; }, [this] { return LibraryOrAsk(); },
         [this](const CString& file) { return ReadingBox(file); },
         [this](const CString& library) { return WaitingBox(library); },
         [this](const CString& state) { ShowState(state); },
         [this](const CString& file, const std::function<void()>& deed) { Guarded(file, deed); }},
        this);
}

void MainWindow::Suggest(const CString& file, const CString& library) {
    if (!file.IsEmpty()) Remember(kLastFile, file);
    if (!library.IsEmpty()) Remember(kLastLibrary, library);
}

void MainWindow::WhenShown(std::function<void()> call) {
    m_whenShown = std::move(call);
    if (windowHandle()) windowHandle()->installEventFilter(this);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!m_queue) return QMainWindow::closeEvent(event);
    // The parts in hand are stored first.
    m_queue->Cancel();
    m_closes = true;
    event->ignore();
}

bool MainWindow::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Expose && m_whenShown && windowHandle()->isExposed())
        QTimer::singleShot(0, this, std::exchange(m_whenShown, nullptr));
    return QMainWindow::eventFilter(object, event);
}

void MainWindow::Import() {
    RunDialog(Remembered(kLastFile), Remembered(kLastLibrary));
}

void MainWindow::Open(const std::vector<CString>& files) {
    for (const CString& file : files)
        Guarded(file, [&] {
            ImportedPart part = ReadPart(file, ReadingBox(file));
            RequireSections(part);
            Remember(kLastFile, file);
            AddRecent(kRecentFiles, file);
            Show(std::move(part));
            ShowNotStored();
            if (files.size() > 1) List(file, "opened");
        });
}

void MainWindow::ImportFiles(const std::vector<CString>& files) {
    if (files.empty()) return;
    const bool oneFile = files.size() == 1 && !IsDirectoryOfFiles(std::string(files[0].View()));
    oneFile ? Open(files) : ImportFolders(files);
}

void MainWindow::ImportFolders(const std::vector<CString>& folders) {
    Guarded("", [&] {
        if (m_queue) throw SourceError("files are imported already; nothing else was begun");
        Batch batch;
        for (const CString& folder : folders) batch.files.emplace_back(folder.View());
        batch.files = ExpandDirectories(batch.files);
        const CString library = LibraryOrAsk();
        if (library.IsEmpty()) return;
        batch.library = library.View();
        batch.limits = m_limits;
        batch.mayReplace = [this, forAll = std::map<bool, bool>()](const CheckedFile& file) mutable {
            return MayReplaceInQueue(file, forAll);
        };
        m_filesDock->show();
        ShowState("Importing " + CString(std::to_string(batch.files.size())) + " files");
        Remember(kLastLibrary, library);
        AddRecent(kRecentLibraries, library);
        ImportQueue queue(*m_files, std::move(batch), [this, library] { return WaitingBox(library); });
        m_queue = &queue;
        BatchTotals totals;
        try {
            totals = queue.Run();
        } catch (...) {
            m_queue = nullptr;
            m_closes = false;
            m_files->End("The import ended early");
            throw;
        }
        m_queue = nullptr;
        const std::string& failure = queue.IndexFailure();
        EndQueue(queue.LastFile(), CString(TotalsSentence(totals) + (failure.empty() ? "" : "; " + failure)));
    });
}

void MainWindow::EndQueue(const std::string& last, const CString& total) {
    m_files->End(total);
    m_libraryView->Refresh();
    if (!last.empty()) {
        const CString file(last);
        Guarded(file, [&] { Show(ReadPart(file, ReadingBox(file))); });
        AddRecent(kRecentFiles, file);
    }
    ShowState(total);
    if (std::exchange(m_closes, false)) close();
}

bool MainWindow::MayReplaceInQueue(const CheckedFile& file, std::map<bool, bool>& forAll) {
    // An answer for all sound files is none for a faulty one.
    const bool faulty = !file.faults.empty();
    const auto answered = forAll.find(faulty);
    if (answered != forAll.end()) return answered->second;
    Show(ReadPart(CString(file.file), file.content, {m_limits, nullptr, false}));
    QString text =
        veka::ToQString("\"" + CString(file.facts.name) + "\" is in the library already. Replace it by \"" +
                        CString(file.file) + "\"?");
    if (faulty)
        text += "\n\n" + veka::ToQString("The file is faulty: " + CString(FaultSentence(file.faults)));
    QMessageBox box(QMessageBox::Question, QApplication::applicationDisplayName(), text,
                    QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::YesToAll | QMessageBox::No | QMessageBox::NoToAll |
                           QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::No);
    const int answer = box.exec();
    if (answer == QMessageBox::Cancel) m_queue->Cancel();
    const bool yes = answer == QMessageBox::Yes || answer == QMessageBox::YesToAll;
    if (answer == QMessageBox::YesToAll || answer == QMessageBox::NoToAll) forAll.emplace(faulty, yes);
    return yes;
}

void MainWindow::ShowLibrary() {
    const CString library = LibraryOrAsk();
    if (library.IsEmpty()) return;
    m_libraryDock->show();
    m_libraryView->Open(library);
}

void MainWindow::StorePart() {
    if (!m_part) return;
    const CString library = LibraryOrAsk();
    if (!library.IsEmpty()) StoreIn(library, Existing::Keep);
}

CString MainWindow::LibraryOrAsk() {
    CString library = Remembered(kLastLibrary);
    if (Exists(library)) return library;
    return SBUtility::GetInstance().GetDirectoryFromUser("Part Library Directory", library, this);
}

void MainWindow::Undo() {
    const CString library = LibraryOrAsk();
    if (library.IsEmpty()) return;
    Guarded("", [&] {
        CString name;
        try {
            name = CString(PartLibrary(veka::ToPath(library), WaitingBox(library)).Undo());
        } catch (const StoreError& error) {
            throw SourceError(std::string("no part was restored: ") + error.what());
        }
        const std::filesystem::path restored =
            veka::ToPath(SBUtility::GetInstance().SBPathCombine(library, name, "", 0));
        for (const auto& entry : std::filesystem::directory_iterator(restored))
            if (entry.is_regular_file()) Open({veka::FromPath(entry.path())});
        ShowState("Restored " + name + " in " + library);
    });
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    AcceptAsCopy(event);
}

void MainWindow::dropEvent(QDropEvent* event) {
    if (!AcceptAsCopy(event)) return;
    // The program that the files come from waits until the drop is over, and the import may ask the user.
    QTimer::singleShot(0, this, [this, files = PartDataFiles(event->mimeData())] { ImportFiles(files); });
}

void MainWindow::RunDialog(const CString& file, const CString& library) {
    Guarded(file, [&] {
        veka::QtWnd parent(this);
        std::optional<DialogChoice> choice = RunImportDialog(file, library, {m_limits}, &parent);
        if (!choice) return;
        Remember(kLastFile, choice->part.file);
        AddRecent(kRecentFiles, choice->part.file);
        Show(std::move(choice->part));
        StoreIn(choice->library, choice->existing, false);
    });
}

void MainWindow::Guarded(const CString& file, const std::function<void()>& deed) {
    try {
        deed();
    } catch (...) {
        // An exception must not reach the event loop.
        const CString sentence(CurrentFailure(std::string(file.View())).sentence);
        ShowState(sentence);
        AfxMessageBox(sentence);
    }
}

void MainWindow::StoreIn(const CString& library, Existing existing, bool ask) {
    ShowNotStored();
    Guarded(m_part->file, [&] {
        if (ask && existing == Existing::Keep && !host::HasPart(library, m_part->Name()) && !MayStore())
            return;
        Outcome outcome = Store(*m_part, library, existing, WaitingBox(library));
        if (outcome == Outcome::Kept && MayReplace(*m_part))
            outcome = Store(*m_part, library, Existing::Replace, WaitingBox(library));
        if (outcome == Outcome::Kept) return ShowState("Not stored: the library has the part already");
        m_storeButton->hide();
        Remember(kLastLibrary, library);
        AddRecent(kRecentLibraries, library);
        ShowState("Stored as " + CString(m_part->Name()) + " in " + library +
                  (outcome == Outcome::Replaced ? "; the part that was there can be restored" : "") +
                  (m_toldFindings || FindingsSentence().IsEmpty() ? CString() : ". " + FindingsSentence()));
    });
}

bool MainWindow::MayReplace(const ImportedPart& part) {
    CString text = "\"" + CString(part.Name()) + "\" is in the library already. Replace it?";
    if (!part.faults.empty()) text += "\n\nThe file is faulty: " + CString(FaultSentence(part.faults));
    const CString findings = FindingsSentence();
    if (!findings.IsEmpty() && !std::exchange(m_toldFindings, true)) text += "\n\n" + findings;
    return AfxMessageBox(text, MB_YESNO) == IDYES;
}

/// Shows a box with a button to give up, after a second.
Waiting MainWindow::WaitingBox(const CString& library) {
    const auto box = std::make_shared<std::unique_ptr<QProgressDialog>>();
    return [this, library, box](std::chrono::milliseconds waited, const std::string& holder) {
        if (waited < std::chrono::seconds(1)) return true;
        if (!*box) {
            *box = std::make_unique<QProgressDialog>(
                veka::ToQString("Waiting for the library \"" + library + "\", which " +
                                CString(holder.empty() ? "another program" : holder) + " writes"),
                "Give Up", 0, 0, this);
            (*box)->setWindowModality(Qt::WindowModal);
            (*box)->show();
        }
        QCoreApplication::processEvents();
        return !(*box)->wasCanceled();
    };
}

/// Shows how far an import has come, with a button to cancel, after half a second.
Reading MainWindow::ReadingBox(const CString& file) {
    const auto box = std::make_shared<std::unique_ptr<QProgressDialog>>();
    const auto begin = std::chrono::steady_clock::now();
    const auto goOn = [this, file, box, begin](const veka::ImportProgress& progress) {
        if (std::chrono::steady_clock::now() - begin < std::chrono::milliseconds(500)) return true;
        constexpr int kSteps = 1000;
        if (!*box) {
            *box = std::make_unique<QProgressDialog>(veka::ToQString("Importing " + file), "Cancel", 0,
                                                     kSteps, this);
            (*box)->setWindowModality(Qt::WindowModal);
            (*box)->setAutoReset(false);
            (*box)->show();
        }
        if (progress.bytesTotal > 0)
            (*box)->setValue(static_cast<int>(progress.bytesRead * kSteps / progress.bytesTotal));
        QCoreApplication::processEvents();
        return !(*box)->wasCanceled();
    };
    return {m_limits, goOn, false};
}

void MainWindow::Show(ImportedPart part) {
    // The former part lives until nothing refers to it.
    std::optional<ImportedPart> shown(std::move(part));
    m_part.swap(shown);
    m_storeButton->hide();
    ShowPart(false);
}

void MainWindow::ShowPart(bool keep) {
    if (!m_part) return;
    const CVEKA_PartGeneral& general = *m_part->Model().GetVEK()->GetPartGeneral();
    const QString number = Elided(general.GetMPN());
    QStringList identity;
    for (const CString& text : {general.GetManufacturer(), general.GetPartDescription()})
        if (!text.IsEmpty()) identity += Elided(text);
    m_number->setText(number.isEmpty() ? "No part number" : number);
    m_identity->setText(identity.join(", "));
    m_identity->setVisible(!identity.isEmpty());
    m_pinCount->setText(QString::number(general.GetNumberOfPins()) + " pins");
    m_file->setText(veka::ToQString(m_part->file));
    m_faults->setText(Elided("Faulty: " + CString(FaultSentence(m_part->faults))));
    m_faults->setVisible(!m_part->faults.empty());
    m_store->setEnabled(true);
    if (!keep) {
        m_pictures->ShowPart(m_part->Model());
        m_solids->ShowPart(m_part->model, std::string(m_part->file.View()));
        m_places.reset();
        m_toldFindings = false;
        ShowCount("");
        m_findings->ShowFile(std::string(m_part->file.View()), m_part->content.bytes);
    }
    m_records->ShowPart(m_part->Model(), m_showAll->isChecked(), keep);
    m_pins->ShowPart(m_part->Model());
}

void MainWindow::ShowState(const CString& state) {
    m_state->setText(Elided(state));
}

void MainWindow::ShowNotStored() {
    ShowState("Not stored");
    m_storeButton->show();
}

void MainWindow::List(const CString& file, const CString& state) {
    m_files->List(file, state);
    m_filesDock->show();
}

void MainWindow::Remember(const char* key, const CString& path) {
    m_settings.setValue(key, Bytes(path));
    m_settings.sync();
}

CString MainWindow::Remembered(const char* key) const {
    return CString(m_settings.value(key).toByteArray().toStdString());
}

void MainWindow::AddRecent(const char* key, const CString& path) {
    QVariantList recent = m_settings.value(key).toList();
    recent.removeAll(Bytes(path));
    recent.prepend(Bytes(path));
    while (recent.size() > kMostRecent) recent.removeLast();
    m_settings.setValue(key, recent);
}

std::vector<CString> MainWindow::Recent(const char* key) const {
    std::vector<CString> paths;
    for (const QVariant& path : m_settings.value(key).toList())
        paths.emplace_back(path.toByteArray().toStdString());
    return paths;
}

void MainWindow::FillRecent(QMenu* menu, const char* key, const std::function<void(const CString&)>& choose) {
    menu->clear();
    for (const CString& path : Recent(key)) {
        // An "&" would mark a letter.
        QString text = veka::ToQString(path);
        menu->addAction(text.replace('&', "&&"), this, [choose, path] { choose(path); });
    }
    if (menu->isEmpty()) menu->addAction("None")->setEnabled(false);
}

}  // namespace host
