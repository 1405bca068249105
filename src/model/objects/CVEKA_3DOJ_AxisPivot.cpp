#include "model/objects/CVEKA_3DOJ_AxisPivot.h"

#include <cmath>
#include <cstdint>

namespace {

/// Radians from 0 up to, not including, a whole turn, through a binary angle of 32 bits. An angle that has no
/// such form, an infinite one for example, counts as 0.
double Reduced(double degrees) {
    const double turns = degrees / 180.0 * 2147483648.0;
    if (!(std::fabs(turns) < 0x1p63)) return 0.0;
    const auto binary = static_cast<std::uint32_t>(static_cast<std::int64_t>(turns));
    return binary * 4.656612873077393e-10 * 3.141592653589793;
}

}  // namespace

void CVEKA_3DOJ_AxisPivot::SetRotation(const CVEKA_Coordinate* degrees, bool directions) {
    if (!degrees) AfxThrowInvalidArgException();
    *Rotate = *degrees;
    if (!directions) return;
    const double a = Reduced(Rotate->GetX()), b = Reduced(Rotate->GetY()), c = Reduced(Rotate->GetZ());
    const double sa = std::sin(a), sb = std::sin(b), sc = std::sin(c);
    const double ca = std::cos(a), cb = std::cos(b), cc = std::cos(c);
    Front->SetX(cc * cb);
    Front->SetY(cc * sb * sa - ca * sc);
    Front->SetZ(cc * sb * ca + sc * sa);
    Up->SetX(-sb);
    Up->SetY(cb * sa);
    Up->SetZ(cb * ca);
}
