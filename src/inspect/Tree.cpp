#include "inspect/Tree.h"

#include "inspect/Outline.h"
#include "inspect/Shortest.h"

namespace veka {

namespace {

/// The name that a record gives itself: its first text that is called a name. Empty where there is none.
std::string OwnName(const RecordView& record) {
    for (const FieldDescription& field : record.description->fields)
        if (field.kind == FieldKind::Text && std::string_view(field.name).ends_with("Name"))
            return Printable(field.Text(record.record).View());
    return "";
}

}  // namespace

TreeNode Tree::Make(const char* name, const RecordView& record) const {
    TreeNode node{name, "", {}, record};
    for (const FieldDescription& field : record.description->fields) AddField(field, record.record, node);
    return node;
}

void Tree::AddField(const FieldDescription& field, const void* record, TreeNode& node) const {
    switch (field.kind) {
        case FieldKind::Whole:
        case FieldKind::Flag: {
            const long long value = field.Whole(record);
            AddValue(field.name, Shortest(value), value != 0, node);
            break;
        }
        case FieldKind::Real: {
            const double value = field.Real(record);
            AddValue(field.name, Shortest(value), value != 0, node);
            break;
        }
        case FieldKind::Text: {
            const CString& text = field.Text(record);
            AddValue(field.name, Printable(text.View()), !text.IsEmpty(), node);
            break;
        }
        case FieldKind::TextList:
        case FieldKind::DistinctNames: {
            const CStringArray& texts = field.Texts(record);
            AddValue(field.name, Printable(texts), !texts.IsEmpty(), node);
            break;
        }
        case FieldKind::Record:
            AddGroup(Make(field.name, field.Content(record)), node);
            break;
        case FieldKind::Array:
            AddGroup(MakeArray(field.name, field.Content(record)), node);
            break;
    }
}

TreeNode Tree::MakeArray(const char* name, const RecordView& array) const {
    const INT_PTR size = array.description->size(array.record);
    TreeNode node{name, std::to_string(size), {}, array};
    for (INT_PTR i = 0; i < size; ++i) {
        const RecordView element = array.description->at(array.record, i);
        if (!element.record) continue;
        const char* kind = element.description->kind;
        const std::string number = '[' + std::to_string(node.children.size()) + ']';
        node.children.push_back(Make(kind ? kind : number.c_str(), element));
        const std::string own = kind ? "" : OwnName(element);
        if (!own.empty()) node.children.back().name += ' ' + own;
    }
    return node;
}

void Tree::AddValue(const char* name, std::string value, bool holdsSomething, TreeNode& record) const {
    if (m_all || holdsSomething) record.children.push_back({name, std::move(value), {}, {}});
}

void Tree::AddGroup(TreeNode group, TreeNode& record) const {
    if (m_all || !group.children.empty()) record.children.push_back(std::move(group));
}

}  // namespace veka
