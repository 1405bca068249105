// Objects: their dispatch by level name, and the one reader that all kinds share.

#include <array>
#include <string_view>

#include "model/objects/Objects.h"
#include "parser/CVEK_AsciiParser.h"
#include "parser/ReadingForms.h"

using namespace veka;

namespace {

using KindMethod = CVEKA_3DObject* (*)(CVEK_AsciiParser& parser, CECadClsLvl* level);

struct KindEntry {
    std::string_view name;
    KindMethod method = nullptr;
};

constexpr std::array kKinds{
#define VEKA_ENTRY(Level, Method, Class) \
    KindEntry{Level, [](CVEK_AsciiParser& parser, CECadClsLvl* level) -> CVEKA_3DObject* { return parser.Method(level); }},
    VEKA_OBJECT_KINDS(VEKA_ENTRY)
#undef VEKA_ENTRY
};

constexpr size_t kSlots = 256;

constexpr size_t LongestName() {
    size_t longest = 0;
    for (const KindEntry& kind : kKinds) longest = kind.name.size() > longest ? kind.name.size() : longest;
    return longest;
}

/// First slot of a name.
constexpr size_t Slot(std::string_view name) {
    std::uint32_t hash = 2166136261u;
    for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    return (hash ^ (hash >> 15)) % kSlots;
}

/// The kinds by their names; a name whose slot is taken stands in the next free one.
constexpr std::array<KindEntry, kSlots> MakeTable() {
    std::array<KindEntry, kSlots> table{};
    for (const KindEntry& kind : kKinds) {
        size_t slot = Slot(kind.name);
        while (table[slot].method) slot = (slot + 1) % kSlots;
        table[slot] = kind;
    }
    return table;
}
constexpr std::array<KindEntry, kSlots> kTable = MakeTable();

/// The method of a level name, or null; its cost depends neither on the number of kinds nor on a long name.
KindMethod FindKind(std::string_view name) {
    if (name.size() > LongestName()) return nullptr;
    for (size_t slot = Slot(name); kTable[slot].method; slot = (slot + 1) % kSlots)
        if (kTable[slot].name == name) return kTable[slot].method;
    return nullptr;
}

void ReadValue(CVEK_AsciiParser&, CECadClsLvl* child, double& field) { Last(child, field); }
void ReadValue(CVEK_AsciiParser&, CECadClsLvl* child, int& field) { Last(child, field); }
void ReadValue(CVEK_AsciiParser&, CECadClsLvl* child, CString& field) { Last(child, field); }
void ReadValue(CVEK_AsciiParser&, CECadClsLvl* child, Owned<CVEKA_Coordinate>& field) { Point(child, *field); }
void ReadValue(CVEK_AsciiParser& parser, CECadClsLvl* child, Owned<CVEKA_3DObjectArray>& field) {
    Take(field, parser.ObjectsParser(child));
}

void AppendObject(CVEK_AsciiParser& parser, Owned<CVEKA_3DObjectArray>& field, CECadClsLvl* child) {
    field->Add(std::unique_ptr<CVEKA_3DObject>(parser.ObjectParser(child)));
}

/// One child of an object level: what the rows of the object's kind are tried on.
struct Member {
    CVEK_AsciiParser& parser;
    CECadClsLvl* child;
    int place;  // among the children of the object
    bool taken = false;

    const CString& Name() const { return child->m_strName; }

    /// Tries a row of the object, on the field that it stands for.
    template <class Row, class Field>
    [[gnu::always_inline]] void operator()(const Row& row, Field& field) {
        Try(row.name, row.form, field);
    }

    // Each form takes the child if it is its own. Inline where there is a keyword, which is then compared as
    // two numbers.
    template <class Field>
    [[gnu::always_inline]] void Try(const char* name, form::Keyword, Field& field) {
        if (taken || Name() != name) return;
        ReadValue(parser, child, field);
        taken = true;
    }
    [[gnu::always_inline]] void Try(const char* name, form::KeywordOr form, double& field) {
        Try(name, form::Keyword(), field);
        Try(form.other, form::Keyword(), field);
    }
    [[gnu::always_inline]] void Try(const char* name, form::NumberFlag, bool& field) {
        int number = field;
        Try(name, form::Keyword(), number);
        field = number == 1;
    }
    [[gnu::always_inline]] void Try(const char* name, form::WordFlag, int& field) {
        if (taken || Name() != name) return;
        Last(child, Flag{field});
        taken = true;
    }
    [[gnu::always_inline]] void Try(const char*, form::ClearedBy form, int& field) {
        if (taken || Name() != form.keyword) return;
        for (const CString& value : child->m_aValues)
            if (value == "FALSE") field = 0;
        taken = true;
    }
    // A point at a place of no row is taken and ignored, so each of these rows looks at each point.
    void Try(const char*, form::Place form, Owned<CVEKA_Coordinate>& field) {
        if (Name() != "PT") return;
        if (form.place == place) Point(child, *field);
        taken = true;
    }
    [[gnu::always_inline]] void Try(const char* name, form::Elements, Owned<CVEKA_3DObjectArray>& field) {
        if (taken || Name() != name) return;
        for (CECadClsLvl* element : Children(child)) AppendObject(parser, field, element);
        taken = true;
    }
    void Try(const char*, form::OtherChildren, Owned<CVEKA_3DObjectArray>& field) {
        if (taken) return;
        AppendObject(parser, field, child);
        taken = true;
    }
    void Try(const char*, form::EveryChildAsList, Owned<CVEKA_3DObjectArray>& field) {
        Take(field, parser.ObjectsParser(child));
        taken = true;
    }

    // The keywords of the bases, behind those of the kind.
    void TryBase(CVEKA_3DObject&) {}
    void TryBase(CVEKA_3DOJ_AxisPivot& object) {
        if (Name() == "ROTATE") {
            CVEKA_Coordinate degrees;
            Point(child, degrees);
            object.SetRotation(&degrees, true);
        }
        else if (Name() == "FRONT") Point(child, *object.GetFront());
        else if (Name() == "UP") Point(child, *object.GetUp());
        else if (Name() == "COLOR") Color(child, *object.GetColor());
        else if (Name() == "PIVOT") Point(child, *object.GetPivot());
        else if (Name() == "PT") Point(child, *object.GetPoint());
    }
    void TryBase(CVEKA_3DOJ_RotMirror& object) {
        if (Name() == "ROTATION") Point(child, *object.GetRotation());
        else if (Name() == "MIRROR") {
            CString mirror = object.GetMirror();
            Last(child, mirror);
            object.SetMirror(mirror);
        }
        else if (Name() == "COLOR") Color(child, *object.GetColor());
        else if (Name() == "PT") Point(child, *object.GetPoint());
    }
};

}  // namespace

template <class Kind>
Kind* CVEK_AsciiParser::KindParser(CECadClsLvl* level) {
    auto object = std::make_unique<Kind>();
    int place = 0;
    for (CECadClsLvl* child : Children(level)) {
        Member member{*this, child, place++};
        FieldAccess::ForEachOwn(*object, member);
        if (!member.taken) member.TryBase(*object);
    }
    return object.release();
}

// A user-defined lead holds its objects two levels down.
template <>
CVEKA_3DOJ_USERDEFINED* CVEK_AsciiParser::KindParser<CVEKA_3DOJ_USERDEFINED>(CECadClsLvl* level) {
    auto object = std::make_unique<CVEKA_3DOJ_USERDEFINED>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "MAINSHAPE") Take(object->DrawObj, ObjectsParser(child));
        else if (keyword == "LEADSHAPE") {
            for (CECadClsLvl* lead : Children(child))
                if (lead->m_strName == "LEAD") Take(object->Lead, ObjectsParser(lead));
        }
        else if (keyword == "METALMASKSHAPE") {
            for (CECadClsLvl* data : Children(child))
                if (data->m_strName == "METALMASKSHAPEDATA")
                    object->AddMetalMaskShape(KindParser<CVEKA_3DOJ_METAKMASKSHAPE>(data));
        }
    }
    return object.release();
}

#define VEKA_DEFINE(Level, Method, Class) \
    Class* CVEK_AsciiParser::Method(CECadClsLvl* level) { return KindParser<Class>(level); }
VEKA_OBJECT_KINDS(VEKA_DEFINE)
#undef VEKA_DEFINE

CVEKA_3DObjectArray* CVEK_AsciiParser::ObjectsParser(CECadClsLvl* level) {
    auto objects = std::make_unique<CVEKA_3DObjectArray>();
    for (CECadClsLvl* child : Children(level)) veka::Append(*objects, ObjectParser(child));
    return objects.release();
}

CVEKA_3DObject* CVEK_AsciiParser::ObjectParser(CECadClsLvl* level) {
    const KindMethod method = FindKind(level->m_strName.View());
    if (!method) return nullptr;
    std::unique_ptr<CVEKA_3DObject> object(method(*this, level));
    // A wrap-around end becomes a flat lead; its height lands in the thickness, and its own thickness is lost.
    if (object->GetType() == 33) {
        const auto& end = static_cast<const CVEKA_3DOJ_WRAPAROUND&>(*object);
        auto flat = std::make_unique<CVEKA_3DOJ_FLAT>();
        flat->W = end.W;
        flat->L = end.L;
        flat->T = end.H;
        flat->SetRotation(end.GetRotation());
        flat->SetMirror(end.GetMirror());
        flat->SetColor(end.GetColor());
        flat->SetPoint(end.GetPoint());
        object = std::move(flat);
    }
    return object.release();
}
