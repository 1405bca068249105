#include "model/objects/CVEKA_3DObject.h"

#include <array>

#include "model/objects/ObjectKinds.h"

namespace {

// Q25: the kinds 54 and 55 have no name, and no kind has the number 7 or 15. Hosts store these numbers.
constexpr std::array kNames = {
    "CUBOID",      "HOLECUBOID",   "CYLINDER",      "DONUT",       "PYRAMID",
    "SPHERE",      "ELLIPSE",      "3DSHAPE",       "3DLINE",      "3DARC",
    "3DCIRCLE",    "3DFILLCIRCLE", "3DFILLRECT",    "3DOBLONG",    "3DPOLYGON",
    "3DTEXT",      "BALL",         "BAR",           "BUTT",        "CBEND",
    "DIP",         "DIPA",         "DIPB",          "FLAT",        "GULLWING",
    "GULLWINGA",   "JBEND",        "JINVERTED",     "REVERSEBUTT", "ROUNDBAR",
    "ROUNDBARA",   "ROUNDBARB",    "ROUNDDIP",      "WRAPAROUND",  "WIRE",
    "USERDEFINED", "PILLAR",       "LINE",          "ARC",         "CIRCLE",
    "FILLCIRCLE",  "RECTANGLE",    "CHAMPEREDRECT", "FILLRECT",    "ROUNDEDRECTANGLE",
    "COMPOSITE",   "CONTOUR",      "OBLONG",        "POLYGON",     "POLYLINE",
    "VOID",        "TAPERED",      "THERMAL",       "TEXT",        "NONE",
    "NONE",        "ROUNDBARC",    "KINKDIP",       "KINKDIPA",    "ROUNDDIPA",
    "PROPTEXT",    "PINPOINT"};

}  // namespace

CVEKA_3DObject::CVEKA_3DObject(const CVEKA_3DObject& other)
    : Type(other.GetType()), m_removeNulls(other.m_removeNulls), Color(other.Color), Point(other.Point) {}

CVEKA_3DObject::~CVEKA_3DObject() = default;

CVEKA_3DObject& CVEKA_3DObject::operator=(const CVEKA_3DObject& other) {
    if (this == &other) return *this;
    CVEKA_3DObject::Init();
    Type = other.GetType();
    Color = other.Color;
    Point = other.Point;
    return *this;
}

CVEKA_3DObject* CVEKA_3DObject::Clone() const {
    return new CVEKA_3DObject(*this);
}

int CVEKA_3DObject::GetType() const {
    return Type;
}

void CVEKA_3DObject::SetType(int type) {
    Type = type;
}

CString CVEKA_3DObject::GetType(int type) const {
    return type >= 0 && static_cast<size_t>(type) < kNames.size() ? kNames[static_cast<size_t>(type)]
                                                                  : "NONE";
}

void CVEKA_3DObject::Init() {
    SetType(veka::kKindNumber<CVEKA_3DObject>);
    Color = {};
    Point = {};
}
