#pragma once

#include <bit>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The records of the larger sections of a part, as a developer writes them who reads parts without this
/// library: pads, padstacks, footprints, packages and partitions, with their objects. Each lists its fields
/// once, with the keyword of each, for `ReadRecords.h` and for the checksum.
namespace bench {

/// A checksum over values in their order.
class Checksum {
public:
    void Add(std::uint64_t value) { m_sum = std::rotl((m_sum ^ value) * 0x9E3779B97F4A7C15, 29); }
    void Add(int value) { Add(static_cast<std::uint64_t>(static_cast<std::int64_t>(value))); }
    void Add(double value) { Add(std::bit_cast<std::uint64_t>(value)); }
    void Add(std::string_view text) {
        Add(text.size());
        for (const char c : text) Add(std::uint64_t{static_cast<unsigned char>(c)});
    }
    std::uint64_t Sum() const { return m_sum; }

private:
    std::uint64_t m_sum = 1;
};

struct Point {
    double x = 0, y = 0, z = 0;
};
struct Color {
    int red = 0, green = 0, blue = 0;
};

// Types of fields that are not read as their type alone says.

/// A point that is read from the child at one place.
template <int kAt>
struct PlacedPoint : Point {
    static constexpr int kPlace = kAt;
};
/// Degrees that also give the directions of a solid.
struct Rotation : Point {};
/// 1 for the word "TRUE".
struct WordFlag {
    int value = 0;
};
/// 1 for the number 1.
struct NumberFlag {
    int value = 0;
};
/// 0 for the word "FALSE".
struct ClearedFlag {
    int value = 1;
};

struct Object;
using Objects = std::vector<std::unique_ptr<Object>>;
/// Objects that are children of the object itself.
struct OtherChildren {
    Objects objects;
};
/// Objects that are children of a child of any name.
struct ChildrenOfChildren {
    Objects objects;
};

/// Anything that is drawn.
struct Object {
    int type = -1;
    Color color;
    Point point;
    virtual ~Object() = default;
    virtual void AddTo(Checksum& sum) const = 0;
    template <class Self, class Field>
    static void BaseFields(Self&, Field&&) {}
    template <class Self, class AddTo>
    static void AddBase(Self&, AddTo&&) {}
};
struct Solid : Object {
    Point front, up, pivot;
    Rotation rotate;
    template <class Self, class Field>
    static void BaseFields(Self& self, Field&& field) {
        field("ROTATE", self.rotate), field("FRONT", self.front), field("UP", self.up);
        field("COLOR", self.color), field("PIVOT", self.pivot), field("PT", self.point);
    }
    template <class Self, class AddTo>
    static void AddBase(Self& self, AddTo&& add) {
        add(self.front), add(self.up), add(self.pivot), add(self.rotate);
    }
};
struct Lead : Object {
    Point rotation;
    std::string mirror;
    template <class Self, class Field>
    static void BaseFields(Self& self, Field&& field) {
        field("ROTATION", self.rotation), field("MIRROR", self.mirror);
        field("COLOR", self.color), field("PT", self.point);
    }
    template <class Self, class AddTo>
    static void AddBase(Self& self, AddTo&& add) {
        add(self.rotation), add(self.mirror);
    }
};

template <class T>
void AddFields(Checksum& sum, const T& record);

inline void AddTo(Checksum& sum, int value) {
    sum.Add(value);
}
inline void AddTo(Checksum& sum, double value) {
    sum.Add(value);
}
inline void AddTo(Checksum& sum, const std::string& text) {
    sum.Add(std::string_view(text));
}
inline void AddTo(Checksum& sum, const Point& point) {
    sum.Add(point.x), sum.Add(point.y), sum.Add(point.z);
}
inline void AddTo(Checksum& sum, const Color& color) {
    sum.Add(color.red), sum.Add(color.green), sum.Add(color.blue);
}
inline void AddTo(Checksum& sum, WordFlag flag) {
    sum.Add(flag.value);
}
inline void AddTo(Checksum& sum, NumberFlag flag) {
    sum.Add(flag.value);
}
inline void AddTo(Checksum& sum, ClearedFlag flag) {
    sum.Add(flag.value);
}
inline void AddTo(Checksum& sum, const Objects& objects) {
    sum.Add(objects.size());
    for (const auto& object : objects) object->AddTo(sum);
}
inline void AddTo(Checksum& sum, const OtherChildren& field) {
    AddTo(sum, field.objects);
}
inline void AddTo(Checksum& sum, const ChildrenOfChildren& field) {
    AddTo(sum, field.objects);
}
inline void AddTo(Checksum& sum, const std::vector<std::string>& texts) {
    sum.Add(texts.size());
    for (const std::string& text : texts) AddTo(sum, text);
}
template <class T>
void AddTo(Checksum& sum, const std::vector<T>& records) {
    sum.Add(records.size());
    for (const T& record : records) AddFields(sum, record);
}
template <class T>
requires requires {
    T::kFields;
}
void AddTo(Checksum& sum, const T& record) {
    AddFields(sum, record);
}
template <class T>
void AddFields(Checksum& sum, const T& record) {
    T::Fields(record, [&](std::string_view, const auto& field) { AddTo(sum, field); });
}

/// What all kinds of objects have alike.
template <class Kind, class Base, int kNumber>
struct KindOf : Base {
    using Bases = Base;
    KindOf() { this->type = kNumber; }
    void AddTo(Checksum& sum) const override {
        const auto add = [&](const auto& field) { bench::AddTo(sum, field); };
        add(this->type), add(this->color), add(this->point);
        const auto& self = static_cast<const Kind&>(*this);
        Base::AddBase(self, add);
        Kind::Fields(self, [&](std::string_view, const auto& field) { add(field); });
    }
};

// A kind of an object: its class, its base, its number, its members and its fields.
#define KIND(Kind, Base, Number, Members, ...)          \
    struct Kind : KindOf<Kind, Base, Number> {          \
        Members template <class Self, class Field>      \
        static void Fields(Self& self, Field&& field) { \
            (void)self, (void)field;                    \
            __VA_ARGS__;                                \
        }                                               \
    };
// A member whose name is its keyword.
#define IS(Name) field(#Name, self.Name)

// clang-format off
KIND(Cuboid, Solid, 0, double WIDTH = 0; double HEIGHT = 0; double THICKNESS = 0;, IS(WIDTH), IS(HEIGHT), IS(THICKNESS))
KIND(Cylinder, Solid, 2, double RADIUS = 0; double THICKNESS = 0;, IS(RADIUS), IS(THICKNESS))
KIND(HoleCuboid, Solid, 1, double WIDTH = 0; double HEIGHT = 0; double THICKNESS = 0; double HOLEWIDTH = 0; double HOLEHEIGHT = 0;, IS(WIDTH), IS(HEIGHT), IS(THICKNESS), IS(HOLEWIDTH), IS(HOLEHEIGHT))
KIND(Donut, Solid, 3, double OUTERDIAM = 0; double INNERDIAM = 0; double THICKNESS = 0;, IS(OUTERDIAM), IS(INNERDIAM), IS(THICKNESS))
KIND(Shape3D, Lead, 0, Point OFFSET; double W = 0; double W1 = 0; double W2 = 0; double L = 0; double L1 = 0; double L2 = 0; double T = 0; double T1 = 0; double T2 = 0;
     double R = 0; double R1 = 0; double R2 = 0; double CW = 0; double CL = 0;, IS(OFFSET), IS(W), IS(W1), IS(W2), IS(L), IS(L1), IS(L2), IS(T), IS(T1), IS(T2),
     IS(R), IS(R1), IS(R2), IS(CW), IS(CL))
KIND(Pyramid, Solid, 4, double TOPWIDTH = 0; double TOPHEIGHT = 0; double BOTWIDTH = 0; double BOTHEIGHT = 0; double THICKNESS = 0;,
     IS(TOPWIDTH), IS(TOPHEIGHT), IS(BOTWIDTH), IS(BOTHEIGHT), IS(THICKNESS))
KIND(Sphere, Solid, 5, double RADIUS = 0;, IS(RADIUS))
KIND(Ellipse, Solid, 6, double WIDTH = 0; double HEIGHT = 0; double THICKNESS = 0;, IS(WIDTH), IS(HEIGHT), IS(THICKNESS))
KIND(Pillar, Solid, 36, double THICKNESS = 0; Objects BOUNDARY; Objects VOIDS;, IS(THICKNESS), IS(BOUNDARY), IS(VOIDS))
KIND(Step, Solid, 54, std::string PATH;, IS(PATH))

KIND(Line3D, Lead, 8, PlacedPoint<0> start; PlacedPoint<1> end; double LW = 0;, field("PT", self.start), field("PT", self.end), IS(LW))
KIND(Arc3D, Lead, 9, PlacedPoint<0> start; PlacedPoint<1> end; PlacedPoint<2> center; double R = 0; double LW = 0; std::string DIR;,
     field("PT", self.start), field("PT", self.end), field("PT", self.center), IS(R), IS(LW), IS(DIR))
KIND(Oblong3D, Lead, 13, double W = 0; double H = 0; double ROTATION = 0; Point PT;, IS(W), IS(H), IS(ROTATION), IS(PT))
KIND(Circle3D, Lead, 10, double D = 0; double LW = 0; Point PT;, IS(D), IS(LW), IS(PT))
KIND(FillCircle3D, Lead, 11, double D = 0; Point PT;, IS(D), IS(PT))
KIND(FillRect3D, Lead, 12, double W = 0; double H = 0; Point PT; double ROTATION = 0; Point OFFSET;,
     IS(W), IS(H), IS(PT), IS(ROTATION), IS(OFFSET))
KIND(Polygon3D, Object, 14, Objects BOUNDARY;, IS(BOUNDARY))
KIND(Ball, Lead, 16, double H = 0;, IS(H))
KIND(Bar, Lead, 17, double Z = 0; double H = 0; double T = 0; NumberFlag CLINCH; double CLINCHLENGTH = 0; double CLINCHROTATE = 0;,
     IS(Z), IS(H), IS(T), IS(CLINCH), IS(CLINCHLENGTH), IS(CLINCHROTATE))
KIND(CBend, Lead, 19, double H = 0; double L = 0; double W = 0; double Z = 0;, IS(H), IS(L), IS(W), IS(Z))
KIND(Dip, Lead, 20, double H1 = 0; double H2 = 0; double T = 0; double W1 = 0; double W2 = 0; double Z = 0;,
     IS(H1), IS(H2), IS(T), IS(W1), IS(W2), IS(Z))
KIND(Flat, Lead, 23, double L = 0; double W = 0; double T = 0;, IS(L), IS(W), IS(T))
KIND(GullWing, Lead, 24, double H = 0; double B = 0; double W = 0; double M = 0; double BL = 0; double T = 0;,
     IS(H), IS(B), IS(W), IS(M), IS(BL), IS(T))
KIND(GullWingA, Lead, 25, double H = 0; double B = 0; double W = 0; double BL = 0; double T = 0;, IS(H), IS(B), IS(W), IS(BL), IS(T))
KIND(JInverted, Lead, 27, double H1 = 0; double H2 = 0; double D = 0; double T = 0; double W1 = 0; double W2 = 0; double BL = 0;,
     IS(H1), IS(H2), IS(D), IS(T), IS(W1), IS(W2), IS(BL))
KIND(ReverseButt, Lead, 28, double H = 0; double T = 0; double W = 0; double B = 0;, IS(H), IS(T), IS(W), IS(B))
KIND(RoundBar, Lead, 29, double Z = 0; double BL = 0; double H = 0; double T = 0; NumberFlag CLINCH; double CLINCHLENGTH = 0; double CLINCHROTATE = 0;,
     IS(Z), IS(BL), IS(H), IS(T), IS(CLINCH), IS(CLINCHLENGTH), IS(CLINCHROTATE))
KIND(RoundBarA, Lead, 30, double H1 = 0; double H2 = 0; double Z = 0; double L = 0; double T = 0; NumberFlag CLINCH; double CLINCHLENGTH = 0;
     double CLINCHROTATE = 0;, IS(H1), IS(H2), IS(Z), IS(L), IS(T), IS(CLINCH), IS(CLINCHLENGTH), IS(CLINCHROTATE))
KIND(KinkDip, Lead, 57, double H = 0; double D = 0; double Z = 0; double T = 0; NumberFlag CLINCH; double CLINCHLENGTH = 0; double CLINCHROTATE = 0;,
     IS(H), IS(D), IS(Z), IS(T), IS(CLINCH), IS(CLINCHLENGTH), IS(CLINCHROTATE))
KIND(RoundDip, Lead, 32, double H1 = 0; double H2 = 0; double T = 0; double W1 = 0; double W2 = 0; double BL = 0; double Z = 0;,
     IS(H1), IS(H2), IS(T), IS(W1), IS(W2), IS(BL), IS(Z))
KIND(Butt, Lead, 18, double H = 0; double T = 0; double W = 0; double Z = 0; double BL = 0;, IS(H), IS(T), IS(W), IS(Z), IS(BL))
KIND(DipA, Lead, 21, double H1 = 0; double H2 = 0; double T1 = 0; double T2 = 0; double Z = 0; NumberFlag CLINCH; double CLINCHLENGTH = 0; double CLINCHROTATE = 0;, IS(H1), IS(H2), IS(T1), IS(T2), IS(Z), IS(CLINCH), IS(CLINCHLENGTH), IS(CLINCHROTATE))
KIND(DipB, Lead, 22, double H1 = 0; double H2 = 0; double W1 = 0; double W2 = 0; double S = 0; double T = 0; double Z = 0;, IS(H1), IS(H2), IS(W1), IS(W2), IS(S), IS(T), IS(Z))
KIND(JBend, Lead, 26, double H1 = 0; double H2 = 0; double D = 0; double W1 = 0; double W2 = 0; double BL = 0; double T = 0;, IS(H1), IS(H2), IS(D), IS(W1), IS(W2), IS(BL), IS(T))
KIND(RoundBarB, Lead, 31, double H1 = 0; double H2 = 0; double L1 = 0; double L2 = 0; double L3 = 0; double T = 0; double Z = 0; NumberFlag CLINCH; double CLINCHLENGTH = 0; double CLINCHROTATE = 0;, IS(H1), IS(H2), IS(L1), IS(L2), IS(L3), IS(T), IS(Z), IS(CLINCH), IS(CLINCHLENGTH), IS(CLINCHROTATE))
KIND(RoundBarC, Lead, 56, double H1 = 0; double H2 = 0; double H = 0; double Z = 0; double L = 0; double T = 0; NumberFlag CLINCH; double CLINCHLENGTH = 0; double CLINCHROTATE = 0;, IS(H1), IS(H2), IS(H), IS(Z), IS(L), IS(T), IS(CLINCH), IS(CLINCHLENGTH), IS(CLINCHROTATE))
KIND(KinkDipA, Lead, 58, double H = 0; double H1 = 0; double D = 0; double Z = 0; double T = 0; NumberFlag CLINCH; double CLINCHLENGTH = 0; double CLINCHROTATE = 0;, IS(H), IS(H1), IS(D), IS(Z), IS(T), IS(CLINCH), IS(CLINCHLENGTH), IS(CLINCHROTATE))
KIND(RoundDipA, Lead, 59, double H = 0; double H1 = 0; double H2 = 0; double H3 = 0; double L1 = 0; double L2 = 0; double T = 0; double W1 = 0; double W2 = 0; double W3 = 0; double Z = 0;, IS(H), IS(H1), IS(H2), IS(H3), IS(L1), IS(L2), IS(T), IS(W1), IS(W2), IS(W3), IS(Z))
KIND(WrapAround, Lead, 33, double H = 0; double L = 0; double W = 0; double T = 0;, IS(H), IS(L), IS(W), IS(T))
KIND(Wire, Lead, 34, double T = 0; double L = 0;, IS(T), IS(L))
// Its lists are inside of other levels; see `ReadRecords.h`. Two numbers are reserved.
KIND(UserDefined, Object, 35, Objects mainShape; Objects lead; Objects masks;,
     field("", 0), field("", 0), field("", self.mainShape), field("", self.lead), field("", self.masks))
KIND(MetalMask, Object, 55, std::string LAYER = "TOP"; double WIDTH = 0; double LENGTH = 0; double ROTATION = 0; Point PT; double THICKNESS = 0;
     WordFlag HIGHLIGHT; OtherChildren shapes;,
     IS(LAYER), IS(WIDTH), IS(LENGTH), IS(ROTATION), IS(PT), IS(THICKNESS), IS(HIGHLIGHT), field("", self.shapes))

KIND(Line, Object, 37, PlacedPoint<0> start; PlacedPoint<1> end; double LW = 0;, field("PT", self.start), field("PT", self.end), IS(LW))
KIND(Arc, Object, 38, PlacedPoint<0> start; PlacedPoint<1> end; PlacedPoint<2> center; double R = 0; double LW = 0; std::string DIR;,
     field("PT", self.start), field("PT", self.end), field("PT", self.center), IS(R), IS(LW), IS(DIR))
KIND(Circle, Object, 39, double D = 0; double LW = 0; Point PT;, IS(D), IS(LW), IS(PT))
KIND(FillCircle, Object, 40, double D = 0; Point PT; Point OFFSET;, IS(D), IS(PT), IS(OFFSET))
KIND(Rectangle, Object, 41, double W = 0; double H = 0; double LW = 0; Point PT; double ROTATION = 0;, IS(W), IS(H), IS(LW), IS(PT), IS(ROTATION))
KIND(ChamferedRect, Object, 42, Point PT; double W = 0; double H = 0; double CHAMPEREDVALUE = 0; double ROTATION = 0; Point OFFSET;,
     IS(PT), IS(W), IS(H), IS(CHAMPEREDVALUE), IS(ROTATION), IS(OFFSET))
KIND(FillRect, Object, 43, double W = 0; double H = 0; Point PT; double ROTATION = 0; Point OFFSET;, IS(W), IS(H), IS(PT), IS(ROTATION), IS(OFFSET))
KIND(RoundedRect, Object, 44, double W = 0; double H = 0; double ROTATION = 0; double R = 0; Point PT; Point OFFSET;,
     IS(W), IS(H), IS(ROTATION), IS(R), IS(PT), IS(OFFSET))
KIND(Composite, Object, 45, std::string NAME; Point PT; double ROTATION = 0; OtherChildren elements;,
     IS(NAME), IS(PT), IS(ROTATION), field("", self.elements))
KIND(Contour, Object, 46, ChildrenOfChildren elements;, field("", self.elements))
KIND(Oblong, Object, 47, double W = 0; double H = 0; double ROTATION = 0; Point PT;, IS(W), IS(H), IS(ROTATION), IS(PT))
KIND(Polygon, Object, 48, Objects BOUNDARY; Objects VOIDS;, IS(BOUNDARY), field("VOID", self.VOIDS))
KIND(Polyline, Object, 49, OtherChildren elements;, field("", self.elements))
KIND(Void, Object, 50, OtherChildren elements;, field("", self.elements))
KIND(Tapered, Object, 51, double SWIDTH = 0; PlacedPoint<1> start; double EWIDTH = 0; PlacedPoint<3> end; std::string DIRECTION;,
     IS(SWIDTH), field("PT", self.start), IS(EWIDTH), field("PT", self.end), IS(DIRECTION))
KIND(Thermal, Object, 52, std::string TYPE; double OUTER = 0; double INNER = 0; double SPOKEWIDTH = 0; double ROTATION = 0; double NOOFSPOKES = 0;,
     IS(TYPE), IS(OUTER), IS(INNER), IS(SPOKEWIDTH), IS(ROTATION), IS(NOOFSPOKES))
KIND(Text, Object, 53, int FID = 0; int JUSTIFY = 0; double ROTATION = 0; std::string MIRROR; Point PT; std::string VALUE;,
     IS(FID), IS(JUSTIFY), IS(ROTATION), IS(MIRROR), IS(PT), IS(VALUE))
KIND(PropertyText, Object, 60, int FID = 0; int JUSTIFY = 0; double ROTATION = 0; std::string MIRROR; Point PT; std::string VALUE; std::string NAME;
     ClearedFlag VISIBLE;, IS(FID), IS(JUSTIFY), IS(ROTATION), IS(MIRROR), IS(PT), IS(VALUE), IS(NAME), IS(VISIBLE))
KIND(PinPoint, Object, 61, int TYPE = 0; double D = 0; Point PT;, IS(TYPE), IS(D), IS(PT))
#undef KIND

// A record: its class, its members and its fields.
#define RECORD(Record, Members, ...)                    \
    struct Record {                                     \
        static constexpr bool kFields = true;           \
        Members template <class Self, class Field>      \
        static void Fields(Self& self, Field&& field) { \
            __VA_ARGS__;                                \
        }                                               \
    };

RECORD(SearchKey, std::string USGTYPE; std::vector<std::string> USGVALUE;, IS(USGTYPE), IS(USGVALUE))
RECORD(Comment, int index = 0; std::string property; std::string comment;,
       field("", self.index), field("", self.property), field("", self.comment))
RECORD(PropertyLabel, std::string PROPERTY; Point PT; WordFlag VISIBLE; double ROTATION = 0; int FID = 0; int JUSTIFY = 0; std::string MIRROR;,
       IS(PROPERTY), IS(PT), IS(VISIBLE), IS(ROTATION), IS(FID), IS(JUSTIFY), IS(MIRROR))

RECORD(Pad, std::string PADNAME; Objects objects; double offsetX = 0; double offsetY = 0;,
       IS(PADNAME), field("", self.objects), field("", self.offsetX), field("", self.offsetY))
RECORD(PadLayer, std::string CON; std::string UNCON; std::string ANTI; std::string THERM; WordFlag TD; std::string SOLD; std::string METL;,
       IS(CON), IS(UNCON), IS(ANTI), IS(THERM), IS(TD), IS(SOLD), IS(METL))
RECORD(PadStack, std::string PADSTACKNAME; std::string TYPE; std::string drillShape; WordFlag plating; double plateThickness = 0;
       PadLayer TOP; PadLayer INNERSIGNAL; PadLayer INNERPLANE; PadLayer BOTTOM;,
       IS(PADSTACKNAME), IS(TYPE), field("", self.drillShape), field("", self.plating), field("", self.plateThickness),
       IS(TOP), IS(INNERSIGNAL), IS(INNERPLANE), IS(BOTTOM))

RECORD(FootprintPin, int number = 0; std::string name; std::string LIBPADSTACK; Point PT; double ROTATION = 0;,
       field("", self.number), field("", self.name), IS(LIBPADSTACK), IS(PT), IS(ROTATION))
RECORD(FootprintLayer, int ANO = 0; std::string LNAME; Objects objects;, IS(ANO), IS(LNAME), field("", self.objects))
RECORD(Footprint, std::string FOOTPRINTNAME; double MOUNTHEIGHT = 0; Point OFFSET; double ROTATIONOFFSET = 0; std::vector<SearchKey> keys;
       std::vector<FootprintPin> FPINS; std::vector<FootprintLayer> CAMLAYERS; std::vector<Comment> comments;,
       IS(FOOTPRINTNAME), IS(MOUNTHEIGHT), IS(OFFSET), IS(ROTATIONOFFSET), field("", self.keys), IS(FPINS), IS(CAMLAYERS),
       field("", self.comments))

RECORD(PackagePin, std::string name; Point PT; double ROTATION = 0; std::string STEP; Objects LEAD;,
       field("", self.name), IS(PT), IS(ROTATION), field("", self.STEP), IS(LEAD))
RECORD(FootprintName, std::string name;, field("", self.name))
RECORD(Body, std::string STEP; Objects BODYSHAPE;, IS(STEP), IS(BODYSHAPE))
RECORD(Marking, WordFlag VISIBLE; Objects objects;, IS(VISIBLE), field("", self.objects))
RECORD(Package, std::string NAME; std::string DEFAULTFOOTPRINT; std::string STEP; std::vector<SearchKey> keys; Body BODYGEOMETRY;
       Marking MARKINGGEOMETRIES; std::vector<PackagePin> PKGPINS; std::vector<PackagePin> MECHANICALPINS; std::vector<FootprintName> FOOTPRINTS;,
       IS(NAME), IS(DEFAULTFOOTPRINT), IS(STEP), field("USGKEYS", self.keys), IS(BODYGEOMETRY), IS(MARKINGGEOMETRIES), IS(PKGPINS),
       IS(MECHANICALPINS), IS(FOOTPRINTS))

RECORD(PartitionPin, std::string LIBPIN; Point PT; int number = 0; std::string name; Objects objects; std::vector<PropertyLabel> PROPERTYLABELS;
       std::vector<Comment> COMMENT; double ROTATION = 0;,
       IS(LIBPIN), IS(PT), field("", self.number), field("", self.name), field("", self.objects), IS(PROPERTYLABELS), IS(COMMENT), IS(ROTATION))
RECORD(Partition, std::string PARTITION; std::vector<PartitionPin> PARTITIONPINS; Objects BODYSHAPE; std::vector<Comment> COMMENT;,
       IS(PARTITION), IS(PARTITIONPINS), IS(BODYSHAPE), IS(COMMENT))

/// The sections of a part that are read. A later section of a file replaces an earlier one.
RECORD(Part, std::vector<Pad> PADS; std::vector<PadStack> PADSTACKS; std::vector<Footprint> FOOTPRINTS; std::vector<Package> packages;
       std::vector<Partition> PARTITIONS;,
       IS(PADS), IS(PADSTACKS), IS(FOOTPRINTS), field("", self.packages), IS(PARTITIONS))
#undef RECORD
#undef IS
// clang-format on

inline std::uint64_t ChecksumOf(const Part& part) {
    Checksum sum;
    AddFields(sum, part);
    return sum.Sum();
}

}  // namespace bench
