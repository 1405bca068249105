#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <vector>

#include "host/BatchImport.h"
#include "platform/CString.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace host {

/// The files that the window opens or imports, each with what became of it. While files are imported there is
/// a bar that shows how far that has come, and a button that ends it.
class QueueView : public QWidget {
public:
    QueueView();

    /// Shows files that wait, in the place of all that was shown.
    void Begin(const std::vector<std::string>& files);
    /// Shows what became of the next files.
    void Add(const std::vector<BatchResult>& results);
    /// Shows that no more files are imported, and what became of all of them.
    void End(const CString& total);
    /// Shows what became of one file, in the row of the file or in a new one.
    void List(const CString& file, const CString& state);

    /// Called for a file that the user chooses in the list.
    std::function<void(const CString& file)> onOpen;
    /// Called when the user ends the import.
    std::function<void()> onCancel;

private:
    void AddRow(const CString& file, const CString& state);

    QProgressBar* m_bar;
    QLabel* m_count;
    QPushButton* m_cancel;
    QTreeWidget* m_files;
    std::map<QTreeWidgetItem*, CString> m_paths;
    int m_done = 0, m_problems = 0;
};

}  // namespace host
