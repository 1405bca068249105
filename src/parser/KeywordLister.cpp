#include "parser/KeywordLister.h"

#include <cstdlib>
#include <memory>

#if __has_include(<cxxabi.h>)
#include <cxxabi.h>
#endif

namespace veka {

std::vector<KeywordRow> KeywordLister::AllKeywords() {
    KeywordLister lister;
    ListSections(lister);
    ListKinds(lister);
    return lister.m_rows;
}

std::string KeywordLister::ClassName(const std::type_info& type) {
#if __has_include(<cxxabi.h>)
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(abi::__cxa_demangle(type.name(), nullptr, nullptr, &status),
                                                           &std::free);
    if (name) return name.get();
#endif
    return type.name();
}

/// The name of a field, of the innermost record first; empty for what is no field.
std::string KeywordLister::NameAt(const void* address) const {
    for (auto target = m_targets.rbegin(); target != m_targets.rend(); ++target)
        if (target->address == address) return target->name;
    return {};
}

}  // namespace veka
