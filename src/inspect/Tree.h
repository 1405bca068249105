#pragma once

#include <string>
#include <vector>

#include "inspect/Description.h"

namespace veka {

/// A record, an array or a field in a tree that shows a model.
struct TreeNode {
    std::string name;   ///< of an element of an array its number, followed by its own name
    std::string value;  ///< of an array the number of elements, of a record empty
    std::vector<TreeNode> children;
    RecordView record;  ///< the record or the array; null for a field that holds a value
};

/// Makes nodes of records.
class VEKA_API Tree {
public:
    /// Without `all`, empty texts, empty lists and zeros are left out, and records in which nothing is left.
    explicit Tree(bool all = false) : m_all(all) {}

    /// A record with its fields as children.
    TreeNode Make(const char* name, const RecordView& record) const;
    template <class T>
    TreeNode Make(const char* name, const T& record) const {
        return Make(name, View(record));
    }

private:
    void AddField(const FieldDescription& field, const void* record, TreeNode& node) const;
    TreeNode MakeArray(const char* name, const RecordView& array) const;
    void AddValue(const char* name, std::string value, bool holdsSomething, TreeNode& record) const;
    void AddGroup(TreeNode group, TreeNode& record) const;

    bool m_all;
};

}  // namespace veka
