#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "leveltree/CECadCls.h"

namespace fuzz {

/// Makes files of the right shape out of a fuzzer's bytes: each level is one that a model file has at that
/// place, left out, repeated, or with other values.
class Grammar {
public:
    /// Takes the shapes from files that together have every level.
    explicit Grammar(const std::vector<CString>& files);

    /// A file, of some hundred kilobytes at the most.
    std::string Make(std::string_view choices) const;

private:
    CECadCls m_shapes;
    std::vector<const CECadClsLvl*> m_all;
};

}  // namespace fuzz
