#include "leads/Placement.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <utility>

#include "model/objects/CVEKA_3DOJ_AxisPivot.h"

namespace veka {

namespace {

Placement FromAngles(double x, double y, double z) {
    // A quarter turn is exact: most turns of pins are.
    const auto sine = [](double degrees) {
        const double turn = std::fmod(degrees, 360.0);
        if (std::fmod(turn, 180.0) == 0) return 0.0;
        if (turn == 90 || turn == -270) return 1.0;
        if (turn == 270 || turn == -90) return -1.0;
        return std::sin(turn / 180 * std::numbers::pi);
    };
    const auto cosine = [&](double degrees) { return sine(std::fmod(degrees, 360.0) + 90); };
    const double sa = sine(x), ca = cosine(x), sb = sine(y), cb = cosine(y), sc = sine(z), cc = cosine(z);
    return {{{{cc * cb, cc * sb * sa - ca * sc, cc * sb * ca + sc * sa, 0},
              {sc * cb, sc * sb * sa + ca * cc, sc * sb * ca - cc * sa, 0},
              {-sb, cb * sa, cb * ca, 0}}}};
}

Placement FromPoint(const CVEKA_Coordinate& point) {
    Placement move;
    move.rows[0][3] = point.GetX();
    move.rows[1][3] = point.GetY();
    move.rows[2][3] = point.GetZ();
    return move;
}

std::string Upper(const CString& text) {
    std::string upper(text.View());
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

/// The turn about Z that an object has of its own, in degrees.
double OwnTurn(const CVEKA_3DObject& object) {
    if (const auto* turned = dynamic_cast<const CVEKA_3DOJ_RotMirror*>(&object))
        return turned->GetRotation()->GetZ();
    if (const auto* solid = dynamic_cast<const CVEKA_3DOJ_AxisPivot*>(&object))
        return solid->GetRotate()->GetZ();
    return 0;
}

}  // namespace

Position Placement::operator()(const Position& position) const {
    const Position turned = Turned(position);
    return {turned.x + rows[0][3], turned.y + rows[1][3], turned.z + rows[2][3]};
}

Position Placement::Turned(const Position& p) const {
    const auto row = [&](size_t i) { return rows[i][0] * p.x + rows[i][1] * p.y + rows[i][2] * p.z; };
    return {row(0), row(1), row(2)};
}

Placement Placement::After(const Placement& first) const {
    Placement both;
    for (size_t row = 0; row < 3; ++row)
        for (size_t column = 0; column < 4; ++column) {
            double sum = column == 3 ? rows[row][3] : 0;
            for (size_t i = 0; i < 3; ++i) sum += rows[row][i] * first.rows[i][column];
            both.rows[row][column] = sum;
        }
    return both;
}

bool Placement::IsFinite() const {
    return std::all_of(rows.begin(), rows.end(), [](const auto& row) {
        return std::all_of(row.begin(), row.end(), [](double value) { return std::isfinite(value); });
    });
}

Placement PlaceOfPin(const CVEKA_Coordinate& point, double rotation) {
    return FromPoint(point).After(FromAngles(0, 0, rotation));
}

Placement PlaceOfObject(const CVEKA_3DOJ_RotMirror& object) {
    const CVEKA_Coordinate& angles = *object.GetRotation();
    Placement mirror;
    if (IsMirrored(object.GetMirror())) mirror.rows[0][0] = -1;
    return FromPoint(*object.GetPoint())
        .After(FromAngles(angles.GetX(), angles.GetY(), angles.GetZ()))
        .After(mirror);
}

Placement PlaceOnPin(const CVEKA_3DObject& object, const CVEKA_Coordinate& pinPoint, double pinRotation) {
    const double own = std::fmod(OwnTurn(object), 360.0);
    const bool writtenTwice = own != 0 && std::fmod(own - pinRotation, 360.0) == 0;
    return PlaceOfPin(pinPoint, writtenTwice ? 0 : pinRotation);
}

bool IsMirrored(const CString& word) {
    const std::string upper = Upper(word);
    return upper == "Y" || upper == "YES" || upper == "TRUE" || upper == "1";
}

double MillimetersOfUnit(const CString& unit) {
    static const std::pair<const char*, double> units[] = {
        {"MM", 1},          {"MILLIMETER", 1}, {"MILLIMETRE", 1},  {"CM", 10},       {"M", 1000},
        {"UM", 0.001},      {"MICRON", 0.001}, {"MICRONS", 0.001}, {"NM", 1e-6},     {"INCH", 25.4},
        {"INCHES", 25.4},   {"IN", 25.4},      {"MIL", 0.0254},    {"MILS", 0.0254}, {"THOU", 0.0254},
        {"MILLIMETERS", 1}, {"MILLIMETRES", 1}};
    const std::string upper = Upper(unit);
    for (const auto& [name, millimeters] : units)
        if (upper == name) return millimeters;
    return 0;
}

}  // namespace veka
