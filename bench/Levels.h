#pragma once

#include <cstdint>

#include "leveltree/CECadClsLvl.h"

namespace bench {

/// Number of levels in a tree.
inline std::int64_t CountLevels(const CECadClsLvlArray& levels) {
    std::int64_t count = 0;
    for (const CECadClsLvl* level : levels) count += 1 + CountLevels(*level->m_pChildren);
    return count;
}

}  // namespace bench
