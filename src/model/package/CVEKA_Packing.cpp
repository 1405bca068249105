#include "model/package/CVEKA_Packing.h"

CVEKA_Packing_ReelInfo& CVEKA_Packing_ReelInfo::operator=(const CVEKA_Packing_ReelInfo& other) {
    if (this == &other) return *this;
    TapeType = other.TapeType;
    NoofPartsCount = other.NoofPartsCount;
    P = other.P;
    A = other.A;
    B = other.B;
    W = other.W;
    T1 = other.T2;
    T2 = other.T2;
    return *this;
}

void CVEKA_Packing_ReelInfo::Init() {
    *this = CVEKA_Packing_ReelInfo();
}
