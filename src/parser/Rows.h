#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "parser/CVEK_AsciiParser.h"
#include "parser/KeywordLister.h"
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
        if (child.place == 0) form.Read(reader, child);
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

/// Reads by rows: converts values into fields, and levels into records.
class FieldReader {
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
    /// Converts a value into a field.
    template <class Field>
    void Value(const CString& value, Field&& field) const {
        Convert(value, field);
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

/// What a parser method does: makes a record and reads a level into it by the record's rows. Without a level, a
/// `KeywordLister` lists the rows, and any other parser gives a record of defaults.
template <class Make>
RecordOf<Make>* Read(CVEK_AsciiParser& parser, CECadClsLvl* level, const Make& rowsOf) {
    if (!level) [[unlikely]] {
        auto record = std::make_unique<RecordOf<Make>>();
        if (auto* lister = dynamic_cast<KeywordLister*>(&parser)) lister->List(*record, rowsOf(*record));
        return record.release();
    }
    return FieldReader(parser).New(rowsOf, Source{level, nullptr, 0}).release();
}

}  // namespace veka
