#include "files/LineSource.h"

namespace veka {

LineSource::~LineSource() = default;

}  // namespace veka
