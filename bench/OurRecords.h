#pragma once

#include <cstdint>

#include "leveltree/CECadClsLvl.h"
#include "model/CVEKA_Manager.h"

namespace bench {

/// The checksum of `Records.h` over the records of a model. A text counts as it is in the texts of the other
/// readers.
std::uint64_t ChecksumOf(const CVEKA_Manager& model);

/// How much of the names and values of a file goes into these records, in percent of their bytes.
double CoveredPercent(const CECadClsLvlArray& levels);

}  // namespace bench
