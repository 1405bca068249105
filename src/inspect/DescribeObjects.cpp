#include "inspect/Descriptions.h"
#include "model/objects/Objects.h"

namespace veka {

void Descriptions::DescribeObjects() {
#define VEKA_DESCRIBE_KIND(Level, Number, Class, Method) Of<Class>();
    VEKA_ALL_OBJECT_KINDS(VEKA_DESCRIBE_KIND)
#undef VEKA_DESCRIBE_KIND
}

}  // namespace veka
