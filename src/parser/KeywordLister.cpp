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

/// Adds one more field of the same row. A value that no field keeps has no name. The context of several fields is named
/// once.
void KeywordLister::Join(Target& all, const Target& one) {
    if (one.name.empty()) return;
    all.name += (all.name.empty() ? "" : ", ") + one.name;
    all.meaning += all.meaning.empty() ? "" : "; ";
    if (!one.context.empty() && all.context != one.context) all.meaning += one.context + ": ";
    all.meaning += one.meaning;
    all.context = one.context;
    all.base = one.base;
}

/// The field at an address, of the innermost record first; empty for what is no field.
KeywordLister::Target KeywordLister::TargetAt(const void* address) const {
    for (auto target = m_targets.rbegin(); target != m_targets.rend(); ++target)
        if (target->address == address) return *target;
    return {};
}

}  // namespace veka
