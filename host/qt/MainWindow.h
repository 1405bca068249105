#pragma once

#include <QMainWindow>
#include <optional>

#include "host/ImportedPart.h"
#include "inspect/Tree.h"

class QAction;
class QLabel;
class QSettings;
class QTreeWidget;
class QTreeWidgetItem;

namespace host {

/// The application's window: imports parts one after another, by the dialog or as files dropped on it, and
/// shows the last one, its identity on top and its records as a tree.
class MainWindow : public QMainWindow {
public:
    /// `settings` keep the last file and directory, and outlive the window.
    explicit MainWindow(QSettings& settings);
    ~MainWindow() override;

    /// What the dialog opens with next; an empty text leaves what was there the last time.
    void Suggest(const CString& file, const CString& library);
    /// Opens the dialog; imports, shows and stores the part that the user chooses.
    void Import();
    /// Imports a file into the last library without asking for more; without one the dialog opens.
    void ImportFile(const CString& file);

    bool HasPart() const { return m_part.has_value(); }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakeActions();
    void Run(const CString& file, const CString& library);
    void Remember(const char* key, const CString& path);
    CString Remembered(const char* key) const;
    void ShowPart();

    QSettings& m_settings;
    std::optional<ImportedPart> m_part;
    veka::TreeNode m_root;  // what the tree shows
    QLabel* m_number;
    QLabel* m_identity;
    QLabel* m_file;
    QTreeWidget* m_tree;
    QAction* m_showAll;
};

}  // namespace host
