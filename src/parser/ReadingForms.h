#pragma once

#include <memory>
#include <tuple>
#include <utility>

#include "leveltree/CECadClsLvl.h"
#include "model/CVEKA_Color.h"
#include "model/CVEKA_Coordinate.h"
#include "parser/Conversions.h"

class CVEK_AsciiParser;

/// The forms of reading: what is done with a level that a row has found. `Rows.h` says how rows find levels.
///
/// A form names the fields that it fills. No form reads a value that is not there: what a level lacks leaves the field as
/// it is. Values beyond those that a form reads are ignored.
///
/// `Read` does the reading, through a reader: a `FieldReader` fills the fields, a `TracingReader` also notes what became
/// of each value. `Describe` describes the form for the table of all keywords.
namespace veka {

/// A level that is to be read, and where it was found.
struct Source {
    CECadClsLvl* level;
    CECadClsLvl* parent;
    INT_PTR place;  ///< among the children of the parent, counted from 0
};

/// Where a record comes from: a parser method of its own, or rows that a form names itself. The rows are given by a
/// function of the fresh record.
template <class Make>
struct MakerOf {
    template <class Rows, class Fresh>
    static Fresh FreshOf(Rows (Make::*)(Fresh&) const);
    using Record = decltype(FreshOf(&Make::operator()));
    static constexpr bool kGivesRows = true;
};
template <class Result>
struct MakerOf<Result* (CVEK_AsciiParser::*)(CECadClsLvl*)> {
    using Record = Result;
    static constexpr bool kGivesRows = false;
};
template <class Make>
using RecordOf = typename MakerOf<Make>::Record;
template <class Make>
inline constexpr bool kGivesRows = MakerOf<Make>::kGivesRows;

// ---------------------------------------------------------------- Values

/// A form that fills one field.
template <class Field>
struct OneField {
    Field field;
    explicit OneField(Field&& target) : field(std::forward<Field>(target)) {}
};

/// The first value of the level.
template <class Field>
struct First : OneField<Field> {
    using OneField<Field>::OneField;
    template <class Reader>
    [[gnu::always_inline]] void Read(const Reader& reader, const Source& from) const {
        const CStringArray& values = from.level->m_aValues;
        if (values.GetSize() > 0) reader.Value(from, values[0], this->field);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Values("first value", this->field);
    }
};
template <class Field>
First(Field&&) -> First<Field>;

/// The last value of the level: each value overwrites the one before it.
template <class Field>
struct Last : OneField<Field> {
    using OneField<Field>::OneField;
    template <class Reader>
    [[gnu::always_inline]] void Read(const Reader& reader, const Source& from) const {
        const CStringArray& values = from.level->m_aValues;
        const INT_PTR count = values.GetSize();
        if (count > 0) reader.Value(from, values[count - 1], this->field);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Values("last value", this->field);
    }
};
template <class Field>
Last(Field&&) -> Last<Field>;

/// Every value of the level, one after another, for conversions that look at each.
template <class Field>
struct Each : OneField<Field> {
    using OneField<Field>::OneField;
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        for (const CString& value : from.level->m_aValues) reader.Value(from, value, this->field);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Values("every value", this->field);
    }
};
template <class Field>
Each(Field&&) -> Each<Field>;

/// The name of the level.
template <class Field>
struct Name : OneField<Field> {
    using OneField<Field>::OneField;
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        reader.Value(from, from.level->m_strName, this->field);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Values("name of the level", this->field);
    }
};
template <class Field>
Name(Field&&) -> Name<Field>;

/// Value 0 for the first field, value 1 for the second, and so on. `Rest` takes all values that are left.
template <class... Fields>
struct ByPosition {
    std::tuple<Fields...> fields;
    explicit ByPosition(Fields&&... targets) : fields(std::forward<Fields>(targets)...) {}
    template <class Reader>
    [[gnu::always_inline]] void Read(const Reader& reader, const Source& from) const {
        std::apply([&](auto&... field) {
            INT_PTR next = 0;
            (ReadOne(reader, from, next, field), ...);
        }, fields);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        std::apply([&](auto&... field) { lister.Values("by position", field...); }, fields);
    }

private:
    template <class Reader, class Field>
    static void ReadOne(const Reader& reader, const Source& from, INT_PTR& next, Field& field) {
        const CStringArray& values = from.level->m_aValues;
        if (next < values.GetSize()) reader.Value(from, values[next++], field);
    }
    template <class Reader>
    static void ReadOne(const Reader& reader, const Source& from, INT_PTR& next, const Rest& rest) {
        const CStringArray& values = from.level->m_aValues;
        while (next < values.GetSize()) reader.Value(from, values[next++], rest);
    }
};
template <class... Fields>
ByPosition(Fields&&...) -> ByPosition<Fields...>;

/// As `ByPosition`, where the level has as many values as there are fields; else nothing is read.
template <class... Fields>
struct Exactly : ByPosition<Fields...> {
    using ByPosition<Fields...>::ByPosition;
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        if (from.level->m_aValues.GetSize() == sizeof...(Fields)) ByPosition<Fields...>::Read(reader, from);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        std::apply([&](auto&... field) { lister.Values("by position, of exactly so many values", field...); }, this->fields);
    }
};
template <class... Fields>
Exactly(Fields&&...) -> Exactly<Fields...>;

/// The first three values; those that are missing are 0.
struct Point {
    CVEKA_Coordinate& field;
    explicit Point(CVEKA_Coordinate& point) : field(point) {}
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        double x = 0, y = 0, z = 0;
        ByPosition(x, y, z).Read(reader, from);
        reader.Replaces(from, field);
        field.SetX(x);
        field.SetY(y);
        field.SetZ(z);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Values("point", field);
    }
};

/// The first three values; those that are missing are 0.
struct Color {
    CVEKA_Color& field;
    explicit Color(CVEKA_Color& color) : field(color) {}
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        int red = 0, green = 0, blue = 0;
        ByPosition(red, green, blue).Read(reader, from);
        reader.Replaces(from, field);
        field.SetRed(red);
        field.SetGreen(green);
        field.SetBlue(blue);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Values("colour", field);
    }
};

/// Every value, appended to a list.
struct List {
    CStringArray& field;
    explicit List(CStringArray& list) : field(list) {}
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        field.Append(reader.Values(from));
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Values("every value, appended", field);
    }
};

/// Every value, in place of what the list held.
struct NewList {
    CStringArray& field;
    explicit NewList(CStringArray& list) : field(list) {}
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        reader.Replaces(from, field);
        field.Copy(reader.Values(from));
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Values("every value, replacing the list", field);
    }
};

// ---------------------------------------------------------------- Levels

/// A record moves into the field of its parent, with the effects of the field's `operator=`. A method that gives null
/// leaves the field as it is.
template <class Field, class Make>
struct Replace {
    Field& field;
    Make make;
    Replace(Field& target, Make maker) : field(target), make(maker) {}
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        if constexpr (kGivesRows<Make>) {
            RecordOf<Make> fresh;
            reader.Fill(from, fresh, make);
            reader.Replaces(from, *field);
            *field = std::move(fresh);
        } else if (const auto fresh = reader.New(make, from)) {
            reader.Replaces(from, *field);
            *field = std::move(*fresh);
        }
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Record("record, replacing the one before it", *field, make);
    }
};

/// A record is appended to an array. A method that gives null appends nothing.
template <class Array, class Make>
struct Element {
    Array& field;
    Make make;
    Element(Array& array, Make maker) : field(array), make(maker) {}
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        if (auto fresh = reader.New(make, from)) field.Add(std::move(fresh));
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Record("record, appended", field, make);
    }
};

/// As `Element`, but a method that gives null appends null.
template <class Array, class Make>
struct ElementOrNull : Element<Array, Make> {
    using Element<Array, Make>::Element;
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        this->field.Add(reader.New(this->make, from));
    }
};
template <class Array, class Make>
ElementOrNull(Array&, Make) -> ElementOrNull<Array, Make>;

/// As `Element`, but the rows are tried on only one child of the level: the child whose place in the level is the
/// level's own place in its parent. A level that has children, but none there, raises `CInvalidAccessException`.
template <class Array, class Make>
struct ElementByPlace : Element<Array, Make> {
    using Element<Array, Make>::Element;
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        auto record = std::make_unique<RecordOf<Make>>();
        reader.FillByPlace(from, *record, this->make);
        this->field.Add(std::move(record));
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Record("record, appended, of the child at the level's own place", this->field, this->make);
    }
};
template <class Array, class Make>
ElementByPlace(Array&, Make) -> ElementByPlace<Array, Make>;

// ---------------------------------------------------------------- Forms around a form

/// Reads the level only where it has a child, of any name.
template <class Form>
struct IfItHasChildren {
    Form form;
    explicit IfItHasChildren(Form inner) : form(inner) {}
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        CECadClsLvlArray& children = *from.level->m_pChildren;
        if (children.GetSize() == 0) return;
        [[maybe_unused]] const auto because = reader.Because(children.GetSize() == 1 ? children.GetAt(0) : nullptr);
        form.Read(reader, from);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Condition("where the level has a child");
        form.Describe(lister);
    }
};

/// Reads the parent of the level in place of the level.
template <class Form>
struct Parent {
    Form form;
    explicit Parent(Form inner) : form(inner) {}
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        [[maybe_unused]] const auto because = reader.Because(from.level);
        form.Read(reader, Source{from.parent, nullptr, 0});
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Condition("of the parent");
        form.Describe(lister);
    }
};

}  // namespace veka
