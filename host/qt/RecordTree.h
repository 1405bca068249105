#pragma once

#include <QTreeWidget>
#include <set>
#include <unordered_map>
#include <vector>

#include "inspect/Tree.h"
#include "model/CVEKA_Manager.h"

namespace host {

/// Shows the records of a part as a tree.
class RecordTree : public QTreeWidget {
public:
    RecordTree();

    /// Shows a part; with `all`, fields that hold nothing, too. `keep` keeps open what was open before.
    void ShowPart(const CVEKA_Manager& part, bool all, bool keep);
    /// Selects the next field, in the order of the tree, whose name or value contains a text in any case.
    /// After the last one comes the first one. False if there is none.
    bool FindNext(const QString& text, bool backward);
    /// Selects a record by its address. False if the tree does not have it.
    bool SelectRecord(const void* record);
    /// The records of the current field, by their addresses: rank 0 has the record that it is, or whose field
    /// it is, and all records below, rank 1 the record around it, and so on.
    std::unordered_map<const void*, int> CurrentRecords() const;

private:
    /// The way to an item: its number among the children of the item above, for each step.
    using Path = std::vector<int>;
    using Names = std::vector<std::string>;

    QTreeWidgetItem* ItemAt(const Path& path);
    static Names NamesOf(const QTreeWidgetItem* item);
    void CollectOpen(const QTreeWidgetItem* item, std::set<Names>& open) const;
    void SelectNamed(const Names& names);
    void Open(QTreeWidgetItem* item, const std::set<Names>& open);

    veka::TreeNode m_root;
};

}  // namespace host
