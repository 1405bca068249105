// Objects: the method of each kind, and the choice of the kind by the name of a level.

#include <array>
#include <string_view>

#include "model/objects/Objects.h"
#include "parser/Rows.h"

using namespace veka;

namespace {

/// The element that an object becomes in an array: the object itself.
CVEKA_3DObject* AsElement(CVEKA_3DObject* object) {
    return object;
}
/// Q23: a wrap-around end becomes a flat lead. Its height becomes the thickness, and its own thickness is lost.
CVEKA_3DObject* AsElement(CVEKA_3DOJ_WRAPAROUND* object) {
    const std::unique_ptr<CVEKA_3DOJ_WRAPAROUND> end(object);
    auto flat = std::make_unique<CVEKA_3DOJ_FLAT>();
    flat->W = end->W;
    flat->L = end->L;
    flat->T = end->H;
    flat->SetRotation(end->GetRotation());
    flat->SetMirror(end->GetMirror());
    flat->SetColor(end->GetColor());
    flat->SetPoint(end->GetPoint());
    return flat.release();
}

using KindMethod = CVEKA_3DObject* (*)(CVEK_AsciiParser& parser, CECadClsLvl* level);

struct KindEntry {
    std::string_view name;
    KindMethod method = nullptr;
};

constexpr std::array kKinds{
#define VEKA_ENTRY(Level, Number, Class, Method) \
    KindEntry{Level, [](CVEK_AsciiParser& parser, CECadClsLvl* level) -> CVEKA_3DObject* { return AsElement(parser.Method(level)); }},
    VEKA_OBJECT_KINDS(VEKA_ENTRY)
#undef VEKA_ENTRY
};

constexpr size_t kSlots = 256;

constexpr size_t LongestName() {
    size_t longest = 0;
    for (const KindEntry& kind : kKinds) longest = kind.name.size() > longest ? kind.name.size() : longest;
    return longest;
}

/// The first slot to look for a name in, by the first eight bytes of the name and its length.
constexpr size_t Slot(std::uint64_t firstBytes, size_t length) {
    return ((firstBytes + length) * UINT64_C(0x9E3779B97F4A7C15)) >> 56;
}
static_assert(kSlots == 256);

/// `CString::FirstBytes` of a name.
constexpr std::uint64_t FirstBytes(std::string_view name) {
    std::uint64_t bytes = 0;
    for (size_t i = 0; i < name.size() && i < 8; ++i) bytes |= std::uint64_t{static_cast<unsigned char>(name[i])} << 8 * i;
    return bytes;
}

/// The kinds by their names. A name whose slot is taken is in the next slot that is free.
constexpr std::array<KindEntry, kSlots> MakeTable() {
    std::array<KindEntry, kSlots> table{};
    for (const KindEntry& kind : kKinds) {
        size_t slot = Slot(FirstBytes(kind.name), kind.name.size());
        while (table[slot].method) slot = (slot + 1) % kSlots;
        table[slot] = kind;
    }
    return table;
}
constexpr std::array<KindEntry, kSlots> kTable = MakeTable();

/// The method of a level name, or null. The cost depends neither on the number of kinds nor on the length of the name.
KindMethod FindKind(const CString& text) {
    const std::string_view name = text.View();
    if (name.size() > LongestName()) return nullptr;
    for (size_t slot = Slot(text.FirstBytes(), name.size()); kTable[slot].method; slot = (slot + 1) % kSlots)
        if (kTable[slot].name == name) return kTable[slot].method;
    return nullptr;
}

// The rows of the parser for a field of an object, chosen by the form in the model's row; see `ObjectRows.h`.

/// Q26: a flag that the number 1 sets.
struct IsOne {
    bool& field;
    explicit IsOne(bool& flag) : field(flag) {}
};
void Convert(const CString& value, IsOne flag) noexcept {
    flag.field = ToInt(value) == 1;
}
Loss LossOf(const CString& value, const IsOne&) noexcept {
    const Loss loss = LossOfWhole(value.View());
    return loss != Loss::None || value.IsEmpty() || ToInt(value) == 1 || ToInt(value) == 0 ? loss : Loss::NotOne;
}

/// Q26: a flag that "FALSE" clears and no word sets.
struct ClearedByFalse {
    static constexpr const char* kOnlyWord = "FALSE";
    int& field;
    explicit ClearedByFalse(int& flag) : field(flag) {}
};
void Convert(const CString& value, ClearedByFalse flag) noexcept {
    if (value == ClearedByFalse::kOnlyWord) flag.field = 0;
}
Loss LossOf(const CString& value, const ClearedByFalse&) noexcept {
    return value == "TRUE" || value == ClearedByFalse::kOnlyWord || value.IsEmpty() ? Loss::None : Loss::NeverSet;
}

template <class Member, class Form>
using FieldRow = ObjectField<Member, Form>;

template <class Member>
auto RowOf(const FieldRow<Member, form::Keyword>& row, double& field) { return Row(row.name, Last(field)); }
template <class Member>
auto RowOf(const FieldRow<Member, form::Keyword>& row, int& field) { return Row(row.name, Last(field)); }
template <class Member>
auto RowOf(const FieldRow<Member, form::Keyword>& row, CString& field) { return Row(row.name, Last(field)); }
template <class Member>
auto RowOf(const FieldRow<Member, form::Keyword>& row, Owned<CVEKA_Coordinate>& field) { return Row(row.name, Point(*field)); }
template <class Member>
auto RowOf(const FieldRow<Member, form::Keyword>& row, Owned<CVEKA_3DObjectArray>& field) {
    return Row(row.name, Replace(field, &CVEK_AsciiParser::ObjectsParser));
}
template <class Member>
auto RowOf(const FieldRow<Member, form::KeywordOr>& row, double& field) {
    return Rows(Row(row.name, Last(field)), Row(row.form.other, Last(field)));
}
template <class Member>
auto RowOf(const FieldRow<Member, form::NumberFlag>& row, bool& field) { return Row(row.name, Last(IsOne(field))); }
template <class Member>
auto RowOf(const FieldRow<Member, form::WordFlag>& row, int& field) { return Row(row.name, Last(Flag(field))); }
template <class Member>
auto RowOf(const FieldRow<Member, form::ClearedBy>& row, int& field) {
    return Row(row.form.keyword, Each(ClearedByFalse(field)));
}
template <class Member>
auto RowOf(const FieldRow<Member, form::Place>& row, Owned<CVEKA_Coordinate>& field) {
    return AtPlace("PT", row.form.place, Point(*field));
}
template <class Member>
auto RowOf(const FieldRow<Member, form::Elements>& row, Owned<CVEKA_3DObjectArray>& field) {
    return Row(row.name, Within(Any(ElementOrNull(*field, &CVEK_AsciiParser::ObjectParser))));
}
template <class Member>
auto RowOf(const FieldRow<Member, form::OtherChildren>&, Owned<CVEKA_3DObjectArray>& field) {
    return Any(ElementOrNull(*field, &CVEK_AsciiParser::ObjectParser));
}
template <class Member>
auto RowOf(const FieldRow<Member, form::EveryChildAsList>&, Owned<CVEKA_3DObjectArray>& field) {
    return Any(Replace(field, &CVEK_AsciiParser::ObjectsParser));
}

/// Tries the row of one field after another on a child of an object.
template <class Reader>
struct FieldTry {
    const Reader& reader;
    const Source& child;
    bool found = false;
    bool hasPlaces = false;
    template <class Description, class Field>
    [[gnu::always_inline]] void operator()(const Description& row, Field& field) {
        found = found || RowOf(row, field).Try(reader, child);
        hasPlaces = hasPlaces || std::is_same_v<decltype(row.form), form::Place>;
    }
};

/// The rows of a kind's own fields, in their order.
template <class Kind>
struct KindRows : ChildRow {
    Kind& object;
    explicit KindRows(Kind& one) : object(one) {}
    template <class Reader>
    [[gnu::always_inline]] bool Try(const Reader& reader, const Source& child) const {
        FieldTry<Reader> fields{reader, child};
        FieldAccess::ForEachOwn(object, fields);
        // Q24: a kind with places knows points at other places, and does not read them.
        return fields.found || (fields.hasPlaces && child.level->m_strName == "PT");
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        FieldAccess::ForEachOwn(object, [&](const auto& row, auto& field) { RowOf(row, field).Describe(lister); });
    }
};

/// Q27: a rotation in degrees overwrites the directions.
struct Rotate {
    CVEKA_3DOJ_AxisPivot& solid;
    explicit Rotate(CVEKA_3DOJ_AxisPivot& object) : solid(object) {}
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        CVEKA_Coordinate degrees;
        Point(degrees).Read(reader, from);
        reader.Replaces(from, *solid.GetRotate());
        reader.Overwrites(from, *solid.GetFront());
        reader.Overwrites(from, *solid.GetUp());
        solid.SetRotation(&degrees, true);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        Point(*solid.GetRotate()).Describe(lister);
    }
};

}  // namespace

// The rows of the bases. They come after those of the kind.

inline auto CVEK_AsciiParser::BaseRows(CVEKA_3DObject&) {
    return Rows();
}
inline auto CVEK_AsciiParser::BaseRows(CVEKA_3DOJ_AxisPivot& solid) {
    return Rows(
        Row("ROTATE", Rotate(solid)),
        Row("FRONT", Point(*solid.GetFront())),
        Row("UP", Point(*solid.GetUp())),
        Row("COLOR", Color(*solid.GetColor())),
        Row("PIVOT", Point(*solid.GetPivot())),
        Row("PT", Point(*solid.GetPoint())));
}
inline auto CVEK_AsciiParser::BaseRows(CVEKA_3DOJ_RotMirror& lead) {
    return Rows(
        Row("ROTATION", Point(*lead.GetRotation())),
        Row("MIRROR", Last(lead.Mirror)),
        Row("COLOR", Color(*lead.GetColor())),
        Row("PT", Point(*lead.GetPoint())));
}

template <class Kind>
Kind* CVEK_AsciiParser::KindParser(CECadClsLvl* level) {
    return Read(*this, level, [](Kind& object) { return Rows(KindRows<Kind>(object), BaseRows(object)); });
}

// A user-defined lead has its objects two levels deeper.
template <>
CVEKA_3DOJ_USERDEFINED* CVEK_AsciiParser::KindParser<CVEKA_3DOJ_USERDEFINED>(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_3DOJ_USERDEFINED& lead) { return Rows(
        Row("MAINSHAPE", Replace(lead.DrawObj, &CVEK_AsciiParser::ObjectsParser)),
        Row("LEADSHAPE", Within(
            Row("LEAD", Replace(lead.Lead, &CVEK_AsciiParser::ObjectsParser)))),
        Row("METALMASKSHAPE", Within(
            Row("METALMASKSHAPEDATA", Element(*lead.MetalMaskShapes, &CVEK_AsciiParser::KindParser<CVEKA_3DOJ_METAKMASKSHAPE>)))));
    });
}

#define VEKA_DEFINE(Level, Number, Class, Method) \
    Class* CVEK_AsciiParser::Method(CECadClsLvl* level) { return KindParser<Class>(level); }
VEKA_OBJECT_KINDS(VEKA_DEFINE)
#undef VEKA_DEFINE

CVEKA_3DObjectArray* CVEK_AsciiParser::ObjectsParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_3DObjectArray& objects) { return Rows(
        Any(Element(objects, &CVEK_AsciiParser::ObjectParser)));
    });
}

namespace {

/// The object of the level that a tracer was asked for; null for any other parser.
CVEKA_3DObject* TraceObject(CVEK_AsciiParser& parser) {
    auto* tracer = dynamic_cast<ReadTracer*>(&parser);
    if (!tracer || !tracer->Asked().level) return nullptr;
    const KindMethod method = FindKind(tracer->Asked().level->m_strName);
    if (!method) tracer->UnknownObject(tracer->Asked().level);
    return method ? method(parser, nullptr) : nullptr;
}

}  // namespace

CVEKA_3DObject* CVEK_AsciiParser::ObjectParser(CECadClsLvl* level) {
    if (!level) [[unlikely]] return TraceObject(*this);
    const KindMethod method = FindKind(level->m_strName);
    return method ? method(*this, level) : nullptr;
}

void veka::ListKinds(KeywordLister& lister) {
    for (const KindEntry& kind : kKinds) lister.ListKind(std::string(kind.name), kind.method);
}
