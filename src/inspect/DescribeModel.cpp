#include "inspect/Descriptions.h"
#include "model/CVEKA_Manager.h"

namespace veka {

void Descriptions::DescribeModel() {
    Of<CVEKA_Manager>();
    Of<CVEKA_DeviceModels>();  // in no field
}

}  // namespace veka
