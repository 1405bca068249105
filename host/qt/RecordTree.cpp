#include "host/qt/RecordTree.h"

#include <QHeaderView>
#include <algorithm>

#include "host/qt/Elided.h"
#include "qt/Text.h"

namespace host {

namespace {

using veka::TreeNode;

constexpr int kNodeRole = Qt::UserRole;

QTreeWidgetItem* MakeItem(const TreeNode& node) {
    auto* item = new QTreeWidgetItem({Elided(CString(node.name)), Elided(CString(node.value))});
    item->setData(0, kNodeRole, QVariant::fromValue<const void*>(&node));
    if (!node.children.empty()) item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    return item;
}

const TreeNode& NodeOf(const QTreeWidgetItem* item) {
    return *static_cast<const TreeNode*>(item->data(0, kNodeRole).value<const void*>());
}

/// Makes the items below one, the first time that it is opened.
void Populate(QTreeWidgetItem* item) {
    if (item->childCount() > 0) return;
    for (const TreeNode& child : NodeOf(item).children) item->addChild(MakeItem(child));
}

}  // namespace

RecordTree::RecordTree() {
    setObjectName("records");
    setHeaderLabels({"Field", "Value"});
    setAlternatingRowColors(true);
    header()->resizeSection(0, 300);
    connect(this, &QTreeWidget::itemExpanded, this, Populate);
}

void RecordTree::ShowPart(const CVEKA_Manager& part, bool all, bool keep) {
    std::set<Names> open;
    Names current;
    if (keep) {
        CollectOpen(invisibleRootItem(), open);
        current = NamesOf(currentItem());
    }
    clear();  // its items refer to the nodes
    m_root = veka::Tree(all).Make("", part);
    for (const TreeNode& node : m_root.children) addTopLevelItem(MakeItem(node));
    if (keep) {
        Open(invisibleRootItem(), open);
        SelectNamed(current);
        return;
    }
    for (int i = 0; i < topLevelItemCount(); ++i) {
        topLevelItem(i)->setExpanded(true);
        for (int k = 0; k < topLevelItem(i)->childCount(); ++k) topLevelItem(i)->child(k)->setExpanded(true);
    }
    scrollToTop();
}

/// The names on the way to an item. Names below one item may repeat, so the number of earlier ones goes with
/// them.
RecordTree::Names RecordTree::NamesOf(const QTreeWidgetItem* item) {
    Names names;
    for (; item && item->parent(); item = item->parent()) {
        int earlier = 0;
        for (int i = 0; item->parent()->child(i) != item; ++i)
            earlier += item->parent()->child(i)->text(0) == item->text(0);
        names.push_back(item->text(0).toStdString() + '\n' + std::to_string(earlier));
    }
    if (item) names.push_back(item->text(0).toStdString());
    std::reverse(names.begin(), names.end());
    return names;
}

void RecordTree::CollectOpen(const QTreeWidgetItem* item, std::set<Names>& open) const {
    for (int i = 0; i < item->childCount(); ++i)
        if (item->child(i)->isExpanded()) {
            open.insert(NamesOf(item->child(i)));
            CollectOpen(item->child(i), open);
        }
}

void RecordTree::Open(QTreeWidgetItem* item, const std::set<Names>& open) {
    for (int i = 0; i < item->childCount(); ++i)
        if (open.count(NamesOf(item->child(i)))) {
            item->child(i)->setExpanded(true);
            Open(item->child(i), open);
        }
}

/// Selects the item of these names, or the last one on the way to it that is shown.
void RecordTree::SelectNamed(const Names& names) {
    QTreeWidgetItem* item = invisibleRootItem();
    for (size_t length = 1; length <= names.size(); ++length) {
        const Names front(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(length));
        QTreeWidgetItem* next = nullptr;
        for (int i = 0; i < item->childCount() && !next; ++i)
            if (NamesOf(item->child(i)) == front) next = item->child(i);
        if (!next) break;
        item = next;
    }
    if (item != invisibleRootItem()) setCurrentItem(item);
}

QTreeWidgetItem* RecordTree::ItemAt(const Path& path) {
    QTreeWidgetItem* item = invisibleRootItem();
    for (const int number : path) {
        if (item != invisibleRootItem()) Populate(item);
        item = item->child(number);
    }
    return item;
}

bool RecordTree::FindNext(const QString& text, bool backward) {
    if (text.isEmpty()) return false;
    Path start;
    for (QTreeWidgetItem* item = currentItem(); item; item = item->parent())
        start.insert(start.begin(),
                     item->parent() ? item->parent()->indexOfChild(item) : indexOfTopLevelItem(item));
    // Of all hits, in order: the first and the last one, and those next to the current item.
    Path first, before, after, last, path;
    const auto visit = [&](const auto& self, const TreeNode& node) -> void {
        for (size_t i = 0; i < node.children.size(); ++i) {
            const TreeNode& child = node.children[i];
            path.push_back(static_cast<int>(i));
            if (veka::ToQString(CString(child.name)).contains(text, Qt::CaseInsensitive) ||
                veka::ToQString(CString(child.value)).contains(text, Qt::CaseInsensitive)) {
                if (first.empty()) first = path;
                if (path < start) before = path;
                if (start < path && after.empty()) after = path;
                last = path;
            }
            self(self, child);
            path.pop_back();
        }
    };
    visit(visit, m_root);
    if (first.empty()) return false;
    const Path& hit = backward ? (before.empty() ? last : before) : (after.empty() ? first : after);
    QTreeWidgetItem* item = ItemAt(hit);
    setCurrentItem(item);
    scrollToItem(item);
    return true;
}

bool RecordTree::SelectRecord(const void* record) {
    Path path;
    const auto find = [&](const auto& self, const TreeNode& node) -> bool {
        for (size_t i = 0; i < node.children.size(); ++i) {
            path.push_back(static_cast<int>(i));
            if (node.children[i].record.record == record || self(self, node.children[i])) return true;
            path.pop_back();
        }
        return false;
    };
    if (!record || !find(find, m_root)) return false;
    QTreeWidgetItem* item = ItemAt(path);
    setCurrentItem(item);
    scrollToItem(item);
    return true;
}

std::unordered_map<const void*, int> RecordTree::CurrentRecords() const {
    std::unordered_map<const void*, int> records;
    const auto addAll = [&](const auto& self, const TreeNode& node) -> void {
        if (node.record.record) records.emplace(node.record.record, 0);
        for (const TreeNode& child : node.children) self(self, child);
    };
    const QTreeWidgetItem* item = currentItem();
    while (item && !NodeOf(item).record.record) item = item->parent();
    if (!item) return records;
    addAll(addAll, NodeOf(item));
    int rank = 0;
    for (item = item->parent(); item; item = item->parent())
        if (!NodeOf(item).record.description->IsArray()) records.emplace(NodeOf(item).record.record, ++rank);
    return records;
}

}  // namespace host
