#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "parser/CInvalidAccessException.h"
#include "parser/CVEK_AsciiParser.h"
#include "parser/KeywordLister.h"
#include "parser/ReadTracer.h"
#include "parser/ReadingForms.h"
#include "platform/Watch.h"

/// The rows of a parser method: each says which children of a level it reads, and by which form. A method is written as
/// the table of its rows.
///
///     CVEKA_BOM* CVEK_AsciiParser::BOMParser(CECadClsLvl* level) {
///         return Read(*this, level, [](CVEKA_BOM& bom) { return Rows(
///             Row("COST", ByPosition(bom.Unit, bom.Cost)));
///         });
///     }
///
/// The rows are tried on one child of the level after another. The first row that finds a child reads the child; a child
/// that no row finds is passed over.
///
/// `ReadOwn` reads from the level itself, `Try` from one child: true where the row has found the child. `Describe`
/// describes the row for the table of all keywords.
namespace veka {

/// A row that finds children.
struct ChildRow {
    template <class Reader>
    void ReadOwn(const Reader&, const Source&) const {}
};

/// The children of one name.
template <class Form>
struct Row : ChildRow {
    const char* keyword;
    Form form;
    Row(const char* name, Form reading) : keyword(name), form(reading) {}
    // Inline, so that the comparison with a literal is that of two numbers.
    template <class Reader>
    [[gnu::always_inline]] bool Try(const Reader& reader, const Source& child) const {
        if (child.level->m_strName != keyword) return false;
        reader.Reads(child);
        form.Read(reader, child);
        return true;
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Children(keyword);
        form.Describe(lister);
    }
};

/// The children of one name, which are known and not read.
struct Known : ChildRow {
    const char* keyword;
    explicit Known(const char* name) : keyword(name) {}
    template <class Reader>
    [[gnu::always_inline]] bool Try(const Reader&, const Source& child) const {
        return child.level->m_strName == keyword;
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Children(keyword);
        lister.Nothing();
    }
};

/// A child of one name that is the first child of all. Elsewhere it is known and not read.
template <class Form>
struct FirstChild : ChildRow {
    const char* keyword;
    Form form;
    FirstChild(const char* name, Form reading) : keyword(name), form(reading) {}
    template <class Reader>
    [[gnu::always_inline]] bool Try(const Reader& reader, const Source& child) const {
        if (child.level->m_strName != keyword) return false;
        if (child.place != 0) return true;
        reader.Reads(child);
        form.Read(reader, child);
        return true;
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Children(keyword);
        lister.Condition("as the first child");
        form.Describe(lister);
    }
};

/// A child of one name at one place among all children, counted from 0.
template <class Form>
struct AtPlace : ChildRow {
    const char* keyword;
    int place;
    Form form;
    AtPlace(const char* name, int where, Form reading) : keyword(name), place(where), form(reading) {}
    template <class Reader>
    [[gnu::always_inline]] bool Try(const Reader& reader, const Source& child) const {
        if (child.place != place || child.level->m_strName != keyword) return false;
        reader.Reads(child);
        form.Read(reader, child);
        return true;
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Children(keyword);
        lister.AtPlace(place);
        form.Describe(lister);
    }
};

/// Every child that no row above has found, whatever its name is.
template <class Form>
struct Any : ChildRow {
    Form form;
    explicit Any(Form reading) : form(reading) {}
    template <class Reader>
    [[gnu::always_inline]] bool Try(const Reader& reader, const Source& child) const {
        reader.Reads(child);
        form.Read(reader, child);
        return true;
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.AnyChild();
        form.Describe(lister);
    }
};

/// Every child, whatever its name is; the rows below are tried on the child too.
template <class Form>
struct Every : ChildRow {
    Form form;
    explicit Every(Form reading) : form(reading) {}
    template <class Reader>
    [[gnu::always_inline]] bool Try(const Reader& reader, const Source& child) const {
        reader.Reads(child);
        form.Read(reader, child);
        return false;
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.EveryChild();
        form.Describe(lister);
    }
};

/// The level itself, before its children.
template <class Form>
struct Own {
    Form form;
    explicit Own(Form reading) : form(reading) {}
    template <class Reader>
    void ReadOwn(const Reader& reader, const Source& level) const {
        form.Read(reader, level);
    }
    template <class Reader>
    bool Try(const Reader&, const Source&) const {
        return false;
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Itself();
        form.Describe(lister);
    }
};

/// One place in a table of rows.
template <std::size_t, class R>
struct RowAt {
    R row;
};
template <class Places, class... R>
struct RowTable;
template <std::size_t... Place, class... R>
struct RowTable<std::index_sequence<Place...>, R...> : RowAt<Place, R>... {
    explicit RowTable(const R&... rows) : RowAt<Place, R>{rows}... {}
    template <class Reader>
    [[gnu::always_inline]] void ReadOwn(const Reader& reader, const Source& level) const {
        (RowAt<Place, R>::row.ReadOwn(reader, level), ...);
    }
    template <class Reader>
    [[gnu::always_inline]] bool Try(const Reader& reader, const Source& child) const {
        return (RowAt<Place, R>::row.Try(reader, child) || ...);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        (RowAt<Place, R>::row.Describe(lister), ...);
    }
};

/// Rows in their order, themselves a row.
template <class... R>
struct Rows : RowTable<std::index_sequence_for<R...>, R...> {
    explicit Rows(const R&... rows) : RowTable<std::index_sequence_for<R...>, R...>(rows...) {}
};

/// A form: the rows of the level's children, for a level that gives no record of its own.
template <class... R>
struct Within {
    Rows<R...> rows;
    explicit Within(const R&... all) : rows(all...) {}
    template <class Reader>
    [[gnu::always_inline]] void Read(const Reader& reader, const Source& from) const {
        reader.Level(from, rows);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Within(rows);
    }
};

/// The child of a level whose place is the level's own place in its parent; null for a level without children. A level
/// that has children, but none there, raises `CInvalidAccessException`.
inline CECadClsLvl* ChildAtOwnPlace(const Source& from) {
    CECadClsLvlArray& children = *from.level->m_pChildren;
    if (children.GetSize() == 0) return nullptr;
    CECadClsLvl* child = children.GetAt(from.place);
    if (!child) throw CInvalidAccessException(from.level->m_strName, from.place);
    return child;
}

/// What a reader tells on the way. Nothing of it changes what is read; a reader that nobody asks for a report passes over
/// all of it, at no cost.
struct NobodyListens {
    struct Nothing {};
    /// A row has found a child and its form is going to read the child.
    void Reads(const Source&) const {}
    /// A field is going to hold what a level gave, in place of all that it holds.
    template <class Content>
    void Replaces(const Source&, const Content&, const void* = nullptr) const {}
    /// As `Replaces`, where the new content is more than defaults whatever the level holds.
    template <class Content>
    void Overwrites(const Source&, const Content&) const {}
    /// While the result lives, values are read only since this level is there, which may be null.
    Nothing Because(const CECadClsLvl*) const { return {}; }
    /// A level that could fill a field is passed over, since the slot is taken.
    template <class Method>
    void PassesOver(const Source&, Method, const void*) const {}
};

/// Reads by rows: converts values into fields, and levels into records.
class FieldReader : public NobodyListens {
public:
    explicit FieldReader(CVEK_AsciiParser& parser) : m_parser(parser) {}

    /// Reads a level by its rows.
    template <class Rows>
    [[gnu::always_inline]] void Level(const Source& from, const Rows& rows) const {
        rows.ReadOwn(*this, from);
        INT_PTR place = 0;
        for (CECadClsLvl* child : *from.level->m_pChildren) {
            rows.Try(*this, Source{child, from.level, place});
            TickAtStep(static_cast<std::size_t>(++place));
        }
    }
    /// Converts a value of a level, or the name of the level, into a field.
    template <class Field>
    void Value(const Source&, const CString& value, Field&& field) const {
        Convert(value, field);
    }
    /// All values of a level, for a list.
    const CStringArray& Values(const Source& from) const { return from.level->m_aValues; }
    /// Reads a level into a record.
    template <class Record, class Make>
    [[gnu::always_inline]] void Fill(const Source& from, Record& record, const Make& rowsOf) const {
        Level(from, rowsOf(record));
    }
    /// As `Fill`, but the rows are tried on one child alone; see `ElementByPlace`.
    template <class Record, class Make>
    void FillByPlace(const Source& from, Record& record, const Make& rowsOf) const {
        const auto rows = rowsOf(record);
        rows.ReadOwn(*this, from);
        if (CECadClsLvl* child = ChildAtOwnPlace(from)) rows.Try(*this, Source{child, from.level, from.place});
    }
    /// The record of a level, by a parser method or by rows.
    template <class Result>
    std::unique_ptr<Result> New(Result* (CVEK_AsciiParser::*method)(CECadClsLvl*), const Source& from) const {
        return std::unique_ptr<Result>((m_parser.*method)(from.level));
    }
    template <class Make>
    std::unique_ptr<RecordOf<Make>> New(const Make& rowsOf, const Source& from) const {
        auto record = std::make_unique<RecordOf<Make>>();
        Level(from, rowsOf(*record));
        return record;
    }

private:
    CVEK_AsciiParser& m_parser;
};

/// Reads by rows as a `FieldReader` does, but a field gets the number of its value's mark in place of the value. What is
/// left in the model in the end tells which values arrived. See `ReadTracer`.
class TracingReader {
public:
    explicit TracingReader(ReadTracer& tracer) : m_tracer(tracer) {}

    template <class Rows>
    void Level(const Source& from, const Rows& rows) const {
        m_tracer.Enter(from.level, TableOf(rows));
        rows.ReadOwn(*this, from);
        INT_PTR place = 0;
        for (CECadClsLvl* child : *from.level->m_pChildren)
            if (rows.Try(*this, Source{child, from.level, place++})) m_tracer.Found(child);
    }
    template <class Field>
    void Value(const Source& from, const CString& value, Field&& field) const {
        const int mark = m_tracer.Add(from.level, value, LossOf(value, field));
        if constexpr (requires { field.kOnlyWord; })
            m_tracer.MarkOneWord(mark, field.field, value == field.kOnlyWord);
        else
            PutMark(mark, field);
        if constexpr (requires { field.field; })
            m_tracer.Wrote(mark, &field.field);
        else
            m_tracer.Wrote(mark, &field);
    }
    CStringArray Values(const Source& from) const {
        CStringArray marks;
        for (const CString& value : from.level->m_aValues) marks.Add(ReadTracer::Text(m_tracer.Add(from.level, value, Loss::None)));
        return marks;
    }
    template <class Record, class Make>
    void Fill(const Source& from, Record& record, const Make& rowsOf) const {
        const ReadTracer::Scope scope(m_tracer, from.level, record);
        Level(from, rowsOf(record));
    }
    template <class Record, class Make>
    void FillByPlace(const Source& from, Record& record, const Make& rowsOf) const {
        const ReadTracer::Scope scope(m_tracer, from.level, record);
        const auto rows = rowsOf(record);
        m_tracer.Enter(from.level, TableOf(rows));
        rows.ReadOwn(*this, from);
        m_tracer.OnlyOneChild(from.level);
        m_tracer.Failing(from.level);
        if (CECadClsLvl* child = ChildAtOwnPlace(from))
            if (rows.Try(*this, Source{child, from.level, from.place})) m_tracer.Found(child);
        m_tracer.Failing(nullptr);
    }
    template <class Result>
    std::unique_ptr<Result> New(Result* (CVEK_AsciiParser::*method)(CECadClsLvl*), const Source& from) const {
        m_tracer.Ask(from);
        std::unique_ptr<Result> result((m_tracer.*method)(nullptr));
        if (result) m_tracer.Made(*result);
        return result;
    }
    template <class Make>
    std::unique_ptr<RecordOf<Make>> New(const Make& rowsOf, const Source& from) const {
        auto record = std::make_unique<RecordOf<Make>>();
        Fill(from, *record, rowsOf);
        return record;
    }

    void Reads(const Source& child) const { m_tracer.Reads(child.level); }
    template <class Content>
    void Replaces(const Source& from, const Content& content, const void* slot = nullptr) const {
        m_tracer.Replaced(from.level, slot ? slot : &content, !IsBlank(content));
    }
    template <class Content>
    void Overwrites(const Source& from, const Content& content) const {
        m_tracer.Replaced(from.level, &content, true);
    }
    ReadTracer::Reason Because(const CECadClsLvl* level) const { return ReadTracer::Reason(m_tracer, level); }
    template <class Method>
    void PassesOver(const Source& from, Method method, const void* slot) const {
        const auto fresh = New(method, from);
        m_tracer.PassedOver(from.level, slot, fresh && !IsBlank(*fresh));
    }

private:
    template <class Rows>
    static KeywordTable TableOf(const Rows& rows) {
        KeywordCollector collector;
        rows.Describe(collector);
        return std::move(collector.table);
    }

    ReadTracer& m_tracer;
};

/// What a parser method does: makes a record and reads a level into it by the record's rows. Without a level, a
/// `KeywordLister` lists the rows, a `ReadTracer` traces the reading of the level that it was asked for, and any other
/// parser gives a record of defaults.
template <class Make>
RecordOf<Make>* Read(CVEK_AsciiParser& parser, CECadClsLvl* level, const Make& rowsOf) {
    if (!level) [[unlikely]] {
        auto record = std::make_unique<RecordOf<Make>>();
        if (auto* lister = dynamic_cast<KeywordLister*>(&parser))
            lister->List(*record, rowsOf(*record));
        else if (auto* tracer = dynamic_cast<ReadTracer*>(&parser); tracer && tracer->Asked().level)
            TracingReader(*tracer).Fill(tracer->Asked(), *record, rowsOf);
        return record.release();
    }
    return FieldReader(parser).New(rowsOf, Source{level, nullptr, 0}).release();
}

}  // namespace veka
