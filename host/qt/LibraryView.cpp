#include "host/qt/LibraryView.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QDateTime>
#include <QDesktopServices>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTreeWidget>
#include <QUrl>

#include "files/Paths.h"
#include "host/Failure.h"
#include "host/qt/Pickers.h"
#include "qt/Text.h"
#include "window/SBUtility.h"

namespace host {

namespace {

constexpr int kPause = 120;  // ms without a key before a search

/// A column of the list.
struct Column {
    const char* title;
    SortBy sortBy;
};

constexpr Column kColumns[] = {{"Number", SortBy::Number},           {"Manufacturer", SortBy::Manufacturer},
                               {"Package", SortBy::PackageType},     {"Pins", SortBy::Pins},
                               {"Description", SortBy::Description}, {"Stored", SortBy::Stored}};

QString Text(const std::string& text) {
    return veka::ToQString(CString(text));
}

}  // namespace

LibraryModel::LibraryModel(QObject* parent) : QAbstractTableModel(parent) {}

void LibraryModel::SetIndex(LibraryIndex* index) {
    m_index = index;
    Renew();
}

void LibraryModel::SetText(const QString& text) {
    m_query.text = text.toStdString();
    Renew();
}

void LibraryModel::Renew() {
    beginResetModel();
    m_parts.clear();
    m_found.clear();
    if (m_index) m_found = m_index->Find(m_query);
    endResetModel();
}

const ListedPart* LibraryModel::PartAt(int row) const {
    if (!m_index || row < 0 || static_cast<std::size_t>(row) >= m_found.size()) return nullptr;
    const std::int64_t id = m_found[static_cast<std::size_t>(row)];
    if (const ListedPart* const known = m_parts.object(id)) return known;
    std::optional<ListedPart> part = m_index->Part(id);
    if (!part) return nullptr;
    auto* const read = new ListedPart(std::move(*part));
    return m_parts.insert(id, read) ? read : nullptr;
}

int LibraryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_found.size());
}

int LibraryModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(std::size(kColumns));
}

QVariant LibraryModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid()) return {};
    const ListedPart* const part = PartAt(index.row());
    if (!part) return {};
    switch (kColumns[index.column()].sortBy) {
        case SortBy::Number:
            return Text(part->facts.number);
        case SortBy::Manufacturer:
            return Text(part->facts.manufacturer);
        case SortBy::PackageType:
            return Text(part->facts.packageType);
        case SortBy::Pins:
            return part->facts.pins;
        case SortBy::Stored:
            return QDateTime::fromSecsSinceEpoch(part->stored).toString("yyyy-MM-dd HH:mm");
        case SortBy::Description:
        case SortBy::Size:
            break;
    }
    return Text(part->facts.description);
}

QVariant LibraryModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return QString(kColumns[section].title);
}

void LibraryModel::sort(int column, Qt::SortOrder order) {
    m_query.sortBy.reset();
    if (column >= 0 && column < columnCount()) m_query.sortBy = kColumns[column].sortBy;
    m_query.descending = order == Qt::DescendingOrder;
    Renew();
}

LibraryView::LibraryView(ShowFile show) : m_show(std::move(show)) {
    m_model = new LibraryModel(this);
    m_filter = new QLineEdit;
    m_filter->setObjectName("libraryFilter");
    m_filter->setPlaceholderText("Words or part of a number");
    m_filter->setClearButtonEnabled(true);
    m_table = new QTableView;
    m_table->setObjectName("libraryParts");
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    constexpr int kAround = 6;  // pixels above and below the text of a row, together
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + kAround);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setSortIndicatorClearable(true);
    m_table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    m_table->setSortingEnabled(true);
    m_state = new QLabel;
    m_state->setObjectName("libraryState");
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_filter);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_state);

    m_pause.setSingleShot(true);
    m_pause.setInterval(kPause);
    connect(m_filter, &QLineEdit::textEdited, this, [this] { m_pause.start(); });
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (text.isEmpty()) m_pause.start();
    });
    connect(&m_pause, &QTimer::timeout, this, [this] {
        Guarded([this] {
            m_model->SetText(m_filter->text());
            ShowCount();
        });
    });
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) {
                if (current.isValid()) ShowCurrent();
            });
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto add = [this](const char* text, const char* name, auto deed) {
        auto* const action = new QAction(text, m_table);
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, deed);
        m_table->addAction(action);
        return action;
    };
    add("&Show Part", "libraryShow", [this] { ShowCurrent(); });
    add("Show &Folder", "libraryFolder", [this] { ShowFolder(); });
    add("&Import Again", "libraryImportAgain", [this] { ImportAgain(); });
    add("&Remove Part", "libraryRemove", [this] { Remove(); });
    m_restore = add("Res&tore Removed Part", "libraryRestore", [this] { Restore(); });
    m_restore->setEnabled(false);
    add("&Trash...", "libraryTrash", [this] { ShowTrash(); });
}

LibraryView::~LibraryView() {
    // The index goes before the model, which is a child.
    m_model->SetIndex(nullptr);
}

void LibraryView::Open(const CString& library) {
    m_model->SetIndex(nullptr);
    m_index.reset();
    m_library = library;
    m_removed.clear();
    m_restore->setEnabled(false);
    m_state->clear();
    if (library.IsEmpty()) return;
    Guarded([this] {
        m_index = OpenIndex(veka::ToPath(m_library));
        m_index->Refresh();
        m_model->SetIndex(m_index.get());
        ShowCount();
    });
}

void LibraryView::Refresh() {
    if (!m_index) return;
    Guarded([this] {
        m_index->Refresh();
        m_model->Renew();
        ShowCount();
    });
}

CString LibraryView::FileOf(const ListedPart& part) const {
    const SBUtility& utility = SBUtility::GetInstance();
    const CString folder = utility.SBPathCombine(m_library, CString(part.facts.name), __FILE__, __LINE__);
    return utility.SBPathCombine(folder, CString(part.facts.fileName), __FILE__, __LINE__);
}

const ListedPart* LibraryView::Current() const {
    return m_model->PartAt(m_table->currentIndex().row());
}

void LibraryView::ShowCurrent() {
    if (const ListedPart* const part = Current()) m_show(FileOf(*part));
}

void LibraryView::ShowFolder() {
    if (const ListedPart* const part = Current())
        QDesktopServices::openUrl(QUrl::fromLocalFile(veka::ToQString(SBUtility::GetInstance().SBPathCombine(
            m_library, CString(part->facts.name), __FILE__, __LINE__))));
}

void LibraryView::Remove() {
    const ListedPart* const part = Current();
    if (!part) return;
    const std::string name = part->facts.name;
    Guarded([&] {
        PartLibrary(veka::ToPath(m_library)).Remove(name);
        m_removed = name;
        m_restore->setEnabled(true);
        Renew("\"" + name + "\" is in the trash of the library and can be restored");
    });
}

void LibraryView::Restore() {
    Guarded([this] {
        PartLibrary(veka::ToPath(m_library)).Undo(m_removed);
        m_restore->setEnabled(false);
        Renew("Restored \"" + std::exchange(m_removed, "") + "\"");
    });
}

void LibraryView::Renew(const std::string& sentence) {
    m_index->Refresh();
    m_model->Renew();
    m_state->setText(Text(sentence));
}

void LibraryView::ImportAgain() {
    const ListedPart* const part = Current();
    if (!part) return;
    const std::string name = part->facts.name;
    CString file(part->origin);
    if (file.IsEmpty() || !SBUtility::GetInstance().DoesFileOrDirExist(file, __FILE__, __LINE__)) {
        const std::vector<CString> files = PickPartFiles(file, this);
        if (files.empty()) return;
        file = files[0];
    }
    Guarded([&] {
        CheckedFile checked = CheckFile(std::string(file.View()), {});
        if (checked.failure) throw SourceError(checked.failure->sentence);
        if (checked.facts.name != name)
            throw SourceError('"' + checked.file + "\" holds the part \"" + checked.facts.name +
                              "\", and not \"" + name + '"');
        const GroupOutcome outcome =
            PartLibrary(veka::ToPath(m_library))
                .StoreGroup({{name, checked.facts.fileName, std::move(checked.content), Existing::Replace}})
                .at(0);
        if (!outcome.failure.empty()) throw StoreError(outcome.failure);
        checked.facts.fileName = outcome.stamp.fileName;
        try {
            m_index->Put({{std::move(checked.facts), outcome.stamp, checked.file}});
        } catch (const IndexError&) {
            // In memory the index does not remember where parts came from.
        }
        std::string sentence = '"' + checked.file + "\" holds what is stored";
        if (outcome.outcome != Outcome::Unchanged)
            sentence = "Stored \"" + name + "\" from \"" + checked.file +
                       "\"; the part that was there is in the trash of the library";
        if (!checked.faults.empty()) sentence += ". The file is faulty: " + FaultSentence(checked.faults);
        Renew(sentence);
        m_show(veka::FromPath(veka::ToPath(m_library) / veka::ToPath(CString(name)) /
                              veka::ToPath(CString(outcome.stamp.fileName))));
    });
}

void LibraryView::ShowTrash() {
    if (!m_index) return;
    QDialog dialog(this);
    dialog.setWindowTitle("Trash of the Library");
    dialog.resize(560, 360);
    auto* const list = new QTreeWidget;
    list->setObjectName("trash");
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setHeaderLabels({"Part", "If it is restored it"});
    list->header()->resizeSection(0, 240);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton* const restore = buttons->addButton("&Restore", QDialogButtonBox::ActionRole);
    restore->setObjectName("trashRestore");
    restore->setEnabled(false);
    auto* const layout = new QVBoxLayout(&dialog);
    layout->addWidget(list);
    layout->addWidget(buttons);
    std::vector<std::string> names;
    const auto fill = [&] {
        list->clear();
        names = PartLibrary(veka::ToPath(m_library)).Trash();
        QList<QTreeWidgetItem*> items;
        for (const std::string& name : names)
            items.append(new QTreeWidgetItem(
                QStringList{Text(name), HasPart(m_library, name) ? "changes places with the stored part"
                                                                 : "comes back"}));
        list->addTopLevelItems(items);
    };
    const auto restoreCurrent = [&] {
        const int row = list->indexOfTopLevelItem(list->currentItem());
        if (row < 0) return;
        Guarded([&] {
            const std::string name =
                PartLibrary(veka::ToPath(m_library)).Undo(names[static_cast<size_t>(row)]);
            if (m_removed == name) m_restore->setEnabled(false);
            Renew("Restored \"" + name + "\"");
            fill();
        });
    };
    connect(list, &QTreeWidget::currentItemChanged, &dialog,
            [restore](const QTreeWidgetItem* item) { restore->setEnabled(item != nullptr); });
    connect(list, &QTreeWidget::itemActivated, &dialog, restoreCurrent);
    connect(restore, &QPushButton::clicked, &dialog, restoreCurrent);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    Guarded([&] {
        fill();
        dialog.exec();
    });
}

void LibraryView::Guarded(const std::function<void()>& deed) {
    try {
        deed();
    } catch (const StoreError& error) {
        m_state->setText(Text(error.what()));
    } catch (...) {
        m_state->setText(Text(CurrentFailure("").sentence));
    }
}

void LibraryView::ShowCount() {
    QString text = QString("%1 of %2 parts").arg(m_model->rowCount()).arg(m_index->Size());
    for (const std::string& remark : m_index->Remarks()) text += ". " + Text(remark);
    m_state->setText(text);
}

}  // namespace host
