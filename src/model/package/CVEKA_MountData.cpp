#include "model/package/CVEKA_MountData.h"

CVEKA_MountPin& CVEKA_MountPin::operator=(const CVEKA_MountPin& other) {
    if (this != &other) Init();
    return *this;
}

void CVEKA_MountPin::Init() {
    No = Direction = Skip = 0;
    PinName.Empty();
    LeadType.Empty();
}
