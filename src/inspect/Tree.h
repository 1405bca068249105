#pragma once

#include <string>
#include <vector>

#include "inspect/Outline.h"
#include "inspect/Shortest.h"
#include "inspect/VisitValue.h"

namespace host {

/// A record, an array or a field, to be shown.
struct TreeNode {
    std::string name;
    std::string value;  ///< as text; of a record the first text in it, of an array its size
    std::vector<TreeNode> children;
};

/// Makes nodes of records, from the records' own rows.
class VEKA_API Tree {
public:
    /// Without `all`, fields that hold nothing are left out, and records of such fields alone.
    explicit Tree(bool all = false) : m_all(all) {}

    /// A record with its fields as children.
    template <class T>
    TreeNode Make(const char* name, const T& record) const {
        TreeNode node{name, "", {}};
        veka::ForEachField(record, [&](const auto& description, const auto& field) {
            VisitValue(*this, field, description.name, node);
        });
        return node;
    }

    template <class T>
    void Number(T value, const char* name, TreeNode& record) const {
        AddField(name, Shortest(value), value != T{}, record);
    }
    void Text(const CString& value, const char* name, TreeNode& record) const {
        if (record.value.empty()) record.value = Printable(value.View());
        AddField(name, Printable(value.View()), !value.IsEmpty(), record);
    }
    void Texts(const CStringArray& values, const char* name, TreeNode& record) const {
        AddField(name, Printable(values), !values.IsEmpty(), record);
    }
    template <class T>
    void Record(const T& value, const char* name, TreeNode& parent) const {
        AddGroup(Make(name, value), parent);
    }
    template <class T>
    void Array(const T& array, const char* name, TreeNode& record) const {
        TreeNode node{name, std::to_string(array.GetSize()), {}};
        for (const auto* element : array)
            if (element)
                VisitElement(*element, [&](const auto& one, const char* kind) {
                    node.children.push_back(Make(kind ? kind : "", one));
                    if (!kind)
                        node.children.back().name = '[' + std::to_string(node.children.size() - 1) + ']';
                });
        AddGroup(std::move(node), record);
    }

private:
    void AddField(const char* name, std::string value, bool holdsSomething, TreeNode& record) const;
    void AddGroup(TreeNode node, TreeNode& parent) const;

    bool m_all;
};

}  // namespace host
