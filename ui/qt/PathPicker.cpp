#include "qt/PathPicker.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFormLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <algorithm>
#include <vector>

#include "files/Paths.h"
#include "qt/Text.h"

namespace fs = std::filesystem;

namespace veka {

namespace {

QString ToQString(const fs::path& path) {
    return veka::ToQString(FromPath(path));
}

fs::path ToPath(const QString& text) {
    return veka::ToPath(FromQString(text));
}

QPushButton* MakeButton(const char* text, const char* name) {
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setAutoDefault(false);  // Enter chooses, wherever the focus is
    return button;
}

}  // namespace

PathPicker::Wanted PathPicker::File(const QString& description, const CString& extension) {
    return {description, extension};
}

PathPicker::PathPicker(Wanted wanted, const CString& current, QWidget* parent)
    : QDialog(parent), m_wanted(std::move(wanted)) {
    LayOut();
    std::error_code error;
    fs::path start = fs::absolute(veka::ToPath(current), error);
    if (current.IsEmpty() || error) start = fs::current_path(error);
    const fs::path wholeStart = start;
    while (!IsDirectory(start) && start.has_relative_path()) start = start.parent_path();
    Enter(start);
    if (WantsFile() && !IsDirectory(wholeStart)) m_nameField->setText(ToQString(wholeStart.filename()));
    m_nameField->setFocus();
    m_nameField->selectAll();
}

void PathPicker::LayOut() {
    setWindowTitle(m_wanted.title);
    resize(520, 380);

    m_directoryField = new QLineEdit;
    m_directoryField->setObjectName("directory");
    QPushButton* up = MakeButton("&Up", "up");
    up->setIcon(style()->standardIcon(QStyle::SP_FileDialogToParent));
    QPushButton* home = MakeButton("&Home", "home");
    home->setIcon(style()->standardIcon(QStyle::SP_DirHomeIcon));
    auto* top = new QHBoxLayout;
    top->addWidget(m_directoryField);
    top->addWidget(up);
    top->addWidget(home);

    m_entries = new QListWidget;
    m_entries->setObjectName("entries");
    m_nameField = new QLineEdit;
    m_nameField->setObjectName("name");
    m_types = new QComboBox;
    m_types->setObjectName("type");
    auto* fields = new QFormLayout;
    fields->addRow(WantsFile() ? "&Name:" : "&Directory:", m_nameField);
    if (WantsFile()) {
        m_types->addItem(m_wanted.title + " (*." + veka::ToQString(*m_wanted.extension) + ")");
        m_types->addItem("All Files (*)");
        fields->addRow("&Type:", m_types);
    } else {
        m_types->setParent(this);
        m_types->hide();
    }

    auto* buttons = new QDialogButtonBox;
    QPushButton* choose = MakeButton(WantsFile() ? "&Open" : "&Choose", "choose");
    choose->setDefault(true);
    QPushButton* cancel = MakeButton("Cancel", "cancel");
    buttons->addButton(choose, QDialogButtonBox::AcceptRole);
    buttons->addButton(cancel, QDialogButtonBox::RejectRole);
    if (!WantsFile()) {
        QPushButton* make = MakeButton("&Make Directory", "make");
        buttons->addButton(make, QDialogButtonBox::ActionRole);
        connect(make, &QPushButton::clicked, this, [this] { MakeDirectory(); });
    }

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_entries);
    layout->addLayout(fields);
    layout->addWidget(buttons);

    connect(up, &QPushButton::clicked, this, [this] { Enter(m_directory.parent_path()); });
    connect(home, &QPushButton::clicked, this, [this] { Enter(ToPath(QDir::homePath())); });
    connect(m_types, &QComboBox::currentIndexChanged, this, [this] { Fill(); });
    connect(m_entries, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item) m_nameField->setText(item->text());
    });
    connect(m_entries, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        const fs::path path = m_directory / ToPath(item->text());
        IsDirectory(path) ? Enter(path) : Choose(path);
    });
    connect(choose, &QPushButton::clicked, this,
            [this] { m_directoryField->hasFocus() ? EnterDirectoryField() : ChooseName(); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void PathPicker::Enter(const fs::path& directory) {
    m_directory = directory.lexically_normal();
    m_directoryField->setText(ToQString(m_directory));
    m_nameField->clear();
    Fill();
}

void PathPicker::Fill() {
    struct Entry {
        bool file;
        QString name;
    };
    std::vector<Entry> entries;
    std::error_code error;
    for (fs::directory_iterator entry(m_directory, error), end; !error && entry != end;
         entry.increment(error))
        if (IsShown(*entry)) entries.push_back({!IsDirectory(*entry), ToQString(entry->path().filename())});
    std::ranges::sort(entries, [](const Entry& one, const Entry& other) {
        if (one.file != other.file) return other.file;
        const int order = QString::compare(one.name, other.name, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : one.name < other.name;
    });

    const QSignalBlocker quiet(m_entries);  // filling the list must not change the name
    m_entries->clear();
    const QIcon directories = style()->standardIcon(QStyle::SP_DirIcon);
    const QIcon files = style()->standardIcon(QStyle::SP_FileIcon);
    for (const Entry& entry : entries)
        m_entries->addItem(new QListWidgetItem(entry.file ? files : directories, entry.name));
    m_entries->setCurrentRow(-1);
}

bool PathPicker::IsShown(const fs::directory_entry& entry) const {
    const CString name = FromPath(entry.path().filename());
    if (name.Left(1) == ".") return false;  // hidden; the user can type it
    if (IsDirectory(entry)) return true;
    if (!WantsFile()) return false;
    const bool allTypes = m_types->currentIndex() == 1;
    CString ending = name.Right(m_wanted.extension->GetLength() + 1), wanted = "." + *m_wanted.extension;
    return allTypes || ending.MakeLower() == wanted.MakeLower();
}

/// The path that the name field names, seen from the directory.
fs::path PathPicker::Named() const {
    return (m_directory / ToPath(m_nameField->text())).lexically_normal();
}

void PathPicker::EnterDirectoryField() {
    const fs::path directory = m_directory / ToPath(m_directoryField->text());
    if (!IsDirectory(directory))
        return ShowWarning("There is no directory \"" + m_directoryField->text() + "\".");
    Enter(directory);
}

void PathPicker::ChooseName() {
    fs::path path = Named();
    if (!WantsFile()) {
        if (!IsDirectory(path)) return ShowWarning("There is no directory \"" + m_nameField->text() + "\".");
        // The directory itself has an empty name, and would end in a separator.
        return Choose(m_nameField->text().isEmpty() ? m_directory : path);
    }
    if (m_nameField->text().isEmpty()) return;
    if (IsDirectory(path)) return Enter(path);
    std::error_code error;
    if (!fs::exists(path, error)) {
        fs::path extended = path;
        extended += veka::ToPath("." + *m_wanted.extension);
        if (!fs::exists(extended, error))
            return ShowWarning("There is no file \"" + m_nameField->text() + "\".");
        path = extended;
    }
    Choose(path);
}

void PathPicker::MakeDirectory() {
    std::error_code error;
    const fs::path directory = Named();
    fs::create_directory(directory, error);
    if (error)
        return ShowWarning("The directory \"" + m_nameField->text() +
                           "\" cannot be made: " + QString::fromStdString(error.message()) + ".");
    Enter(directory);
}

void PathPicker::Choose(const fs::path& path) {
    m_chosen = FromPath(path);
    accept();
}

void PathPicker::ShowWarning(const QString& sentence) {
    QMessageBox box(QMessageBox::Warning, windowTitle(), sentence, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

CString PickPath(PathPicker::Wanted wanted, const CString& current, QWidget* parent) {
    // The parent may die while the picker is open.
    const QPointer<PathPicker> picker = new PathPicker(std::move(wanted), current, parent);
    picker->exec();
    CString chosen = picker ? picker->Chosen() : CString();
    delete picker;
    return chosen;
}

}  // namespace veka
