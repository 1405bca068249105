#include "inspect/Descriptions.h"
#include "model/objects/Objects.h"

namespace veka {

void Descriptions::DescribeObjects() {
#define VEKA_DESCRIBE_KIND(Level, Method, Class) Of<Class>();
    VEKA_OBJECT_KINDS(VEKA_DESCRIBE_KIND)
#undef VEKA_DESCRIBE_KIND
    Of<CVEKA_3DOJ_METAKMASKSHAPE>();  // named by no level
}

}  // namespace veka
