#include "inspect/Descriptions.h"

#include <algorithm>
#include <string_view>

namespace veka {

const Descriptions& Descriptions::Instance() {
    static const Descriptions instance;
    return instance;
}

Descriptions::Descriptions() {
    DescribeModel();
    DescribeObjects();
    for (const auto& [type, description] : m_all) m_sorted.push_back(&description);
    std::sort(m_sorted.begin(), m_sorted.end(),
              [](const auto* a, const auto* b) { return std::string_view(a->name) < b->name; });
}

}  // namespace veka
