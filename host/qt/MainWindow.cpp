#include "host/qt/MainWindow.h"

#include <QAction>
#include <QBoxLayout>
#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>
#include <QUrl>

#include "host/Failure.h"
#include "host/Installed.h"
#include "host/PressedWindow.h"
#include "qt/QtUserInterface.h"
#include "qt/Text.h"
#include "window/AfxMessageBox.h"
#include "window/SBUtility.h"

namespace host {

namespace {

constexpr const char* kLastFile = "lastFile";
constexpr const char* kLastLibrary = "lastLibrary";
constexpr int kNodeRole = Qt::UserRole;

/// The user interface that is installed, but for the dialog: that is not shown, OK is pressed in it.
class PressOk : public veka::UserInterface {
public:
    void ShowMessage(const CString& text) override { m_other.ShowMessage(text); }
    bool AskYesNo(const CString& text) override { return m_other.AskYesNo(text); }
    CString PickFile(const CString& description, const CString& extension, const CString& current,
                     void* parent) override {
        return m_other.PickFile(description, extension, current, parent);
    }
    CString PickDirectory(const CString& title, const CString& current, void* owner) override {
        return m_other.PickDirectory(title, current, owner);
    }
    std::unique_ptr<veka::DialogWindow> MakeDialogWindow(const veka::DialogTemplate&,
                                                         veka::DialogEvents& events, void*) override {
        return MakePressedWindow(events);
    }

private:
    veka::UserInterface& m_other = *veka::InstalledUserInterface();
    Installed m_installed{*this};
};

/// A file that was dropped, byte for byte, if it is a part data file.
std::optional<CString> PartDataFile(const QUrl& url) {
    if (!url.isLocalFile()) return std::nullopt;
    const QByteArray path = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    if (!path.toLower().endsWith(".veka")) return std::nullopt;
    return CString(path.toStdString());
}

std::vector<CString> PartDataFiles(const QMimeData* data) {
    std::vector<CString> files;
    for (const QUrl& url : data->urls())
        if (std::optional<CString> file = PartDataFile(url)) files.push_back(std::move(*file));
    return files;
}

QTreeWidgetItem* MakeItem(const veka::TreeNode& node) {
    auto* item =
        new QTreeWidgetItem({veka::ToQString(CString(node.name)), veka::ToQString(CString(node.value))});
    item->setData(0, kNodeRole, QVariant::fromValue<const void*>(&node));
    if (!node.children.empty()) item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    return item;
}

/// Makes the items below one, the first time that it is opened.
void Populate(QTreeWidgetItem* item) {
    if (item->childCount() > 0) return;
    const auto* node = static_cast<const veka::TreeNode*>(item->data(0, kNodeRole).value<const void*>());
    for (const veka::TreeNode& child : node->children) item->addChild(MakeItem(child));
}

}  // namespace

MainWindow::MainWindow(QSettings& settings) : m_settings(settings) {
    setWindowTitle("veka-host");
    setAcceptDrops(true);
    resize(760, 560);

    m_number = new QLabel("No part");
    m_number->setObjectName("number");
    QFont large = m_number->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    m_number->setFont(large);
    m_identity = new QLabel("Import a part data file, or drop one here.");
    m_identity->setObjectName("identity");
    m_file = new QLabel;
    m_file->setObjectName("file");
    for (QLabel* label : {m_number, m_identity, m_file}) {
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }

    m_tree = new QTreeWidget;
    m_tree->setObjectName("records");
    m_tree->setHeaderLabels({"Field", "Value"});
    m_tree->setAlternatingRowColors(true);
    m_tree->header()->resizeSection(0, 300);
    connect(m_tree, &QTreeWidget::itemExpanded, this, Populate);

    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->addWidget(m_number);
    layout->addWidget(m_identity);
    layout->addWidget(m_file);
    layout->addWidget(m_tree);
    setCentralWidget(content);
    MakeActions();
    statusBar();
}

MainWindow::~MainWindow() = default;

void MainWindow::MakeActions() {
    QMenu* file = menuBar()->addMenu("&File");
    QAction* import = file->addAction("&Import...", QKeySequence::Open, this, [this] { Import(); });
    import->setObjectName("import");
    file->addSeparator();
    file->addAction("&Quit", QKeySequence::Quit, this, [this] { close(); });
    QMenu* view = menuBar()->addMenu("&View");
    m_showAll = view->addAction("&Empty Fields", this, [this] { ShowPart(); });
    m_showAll->setObjectName("showAll");
    m_showAll->setCheckable(true);
    QToolBar* bar = addToolBar("Import");
    bar->setMovable(false);
    bar->addAction(import);
    bar->addAction(m_showAll);
}

void MainWindow::Suggest(const CString& file, const CString& library) {
    if (!file.IsEmpty()) Remember(kLastFile, file);
    if (!library.IsEmpty()) Remember(kLastLibrary, library);
}

void MainWindow::Import() {
    Run(Remembered(kLastFile), Remembered(kLastLibrary));
}

void MainWindow::ImportFile(const CString& file) {
    const CString library = Remembered(kLastLibrary);
    if (!SBUtility::GetInstance().DoesFileOrDirExist(library, __FILE__, __LINE__)) return Run(file, library);
    const PressOk pressed;
    Run(file, library);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!PartDataFiles(event->mimeData()).empty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    // Where the files come from waits until this is over, and the import may ask the user.
    QTimer::singleShot(0, this, [this, files = PartDataFiles(event->mimeData())] {
        for (const CString& file : files) ImportFile(file);
    });
}

void MainWindow::Run(const CString& file, const CString& library) {
    statusBar()->clearMessage();
    CString known = file;
    try {
        veka::QtWnd parent(this);
        std::optional<ImportedPart> part = RunImportDialog(file, library, &parent);
        if (!part) return;
        m_part = std::move(part);
        known = m_part->file;
        Remember(kLastFile, m_part->file);
        Remember(kLastLibrary, m_part->library);
        ShowPart();
        const CString name = Store(*m_part);
        statusBar()->showMessage(veka::ToQString("Stored as " + name + " in " + m_part->library));
    } catch (...) {
        // An exception must not reach the event loop.
        AfxMessageBox(CString(CurrentFailure(std::string(known.View())).sentence));
    }
}

void MainWindow::Remember(const char* key, const CString& path) {
    m_settings.setValue(key, QByteArray(path.GetString(), path.GetLength()));
    m_settings.sync();
}

CString MainWindow::Remembered(const char* key) const {
    return CString(m_settings.value(key).toByteArray().toStdString());
}

void MainWindow::ShowPart() {
    if (!m_part) return;
    const CVEKA_PartGeneral& general = *m_part->Model().GetVEK()->GetPartGeneral();
    const QString number = veka::ToQString(general.GetMPN());
    QStringList identity;
    for (const CString& text : {general.GetManufacturer(), general.GetPartDescription()})
        if (!text.IsEmpty()) identity += veka::ToQString(text);
    identity += QString::number(general.GetNumberOfPins()) + " pins";
    m_number->setText(number.isEmpty() ? "No part number" : number);
    m_identity->setText(identity.join(", "));
    m_file->setText(veka::ToQString(m_part->file));

    m_tree->clear();  // its items refer to the root
    m_root = veka::Tree(m_showAll->isChecked()).Make("", m_part->Model());
    for (const veka::TreeNode& node : m_root.children) {
        QTreeWidgetItem* item = MakeItem(node);
        m_tree->addTopLevelItem(item);
        item->setExpanded(true);
        for (int i = 0; i < item->childCount(); ++i) item->child(i)->setExpanded(true);
    }
}

}  // namespace host
