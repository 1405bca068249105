#include "inspect/Tree.h"

namespace host {

void Tree::AddField(const char* name, std::string value, bool holdsSomething, TreeNode& record) const {
    if (m_all || holdsSomething) record.children.push_back({name, std::move(value), {}});
}

void Tree::AddGroup(TreeNode node, TreeNode& parent) const {
    if (m_all || !node.children.empty()) parent.children.push_back(std::move(node));
}

}  // namespace host
