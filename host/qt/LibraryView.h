#pragma once

#include <QAbstractTableModel>
#include <QCache>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "host/LibraryIndex.h"
#include "platform/CString.h"

class QAction;
class QLabel;
class QLineEdit;
class QTableView;

namespace host {

/// The parts that a query found. Only the rows that are seen are read from the index.
class LibraryModel : public QAbstractTableModel {
public:
    explicit LibraryModel(QObject* parent);

    /// Shows the parts of an index, or none for null. The index outlives that.
    void SetIndex(LibraryIndex* index);
    /// Shows the parts that a text finds; any text is valid.
    void SetText(const QString& text);
    /// Asks the index again.
    void Renew();
    /// The part of a row; empty where it is gone.
    const ListedPart* PartAt(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

private:
    LibraryIndex* m_index = nullptr;
    PartQuery m_query;
    std::vector<std::int64_t> m_found;
    mutable QCache<std::int64_t, ListedPart> m_parts{2000};
};

/// The parts of a library as a list that is filtered as one types. A part that is chosen is shown; it can be
/// imported again, moved to the library's trash, and restored.
class LibraryView : public QWidget {
public:
    /// Shows a file of the library.
    using ShowFile = std::function<void(const CString& file)>;

    explicit LibraryView(ShowFile show);
    ~LibraryView() override;

    /// Shows the parts of a library; an empty path shows none. What fails is a sentence in the view.
    void Open(const CString& library);
    /// Looks again for what was stored, replaced or removed.
    void Refresh();
    /// The library that is shown.
    const CString& Library() const { return m_library; }

private:
    CString FileOf(const ListedPart& part) const;
    const ListedPart* Current() const;
    void ShowCurrent();
    void ShowFolder();
    void Remove();
    void Restore();
    void ImportAgain();
    void ShowTrash();
    /// Shows what the library holds now, and a sentence about what was done.
    void Renew(const std::string& sentence);
    /// Does something with the library; a failure is a sentence in the view.
    void Guarded(const std::function<void()>& deed);
    void ShowCount();

    ShowFile m_show;
    CString m_library;
    std::unique_ptr<LibraryIndex> m_index;
    LibraryModel* m_model;
    QTableView* m_table;
    QLineEdit* m_filter;
    QLabel* m_state;
    QAction* m_restore;
    QTimer m_pause;         // between a key and the search
    std::string m_removed;  // the part that was removed last
};

}  // namespace host
