#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <unordered_map>
#include <utility>
#include <vector>

#include "leveltree/CECadClsLvl.h"
#include "model/Record.h"
#include "parser/CVEK_AsciiParser.h"
#include "parser/Losses.h"
#include "parser/ReadingForms.h"

namespace veka {

/// A level that a reading can be traced of. The numbers count from 0.
struct NumberedLevel : CECadClsLvl {
    std::size_t number = 0;
};

/// What a row says about the children that it reads. The texts are those that the table of all keywords has.
struct KeywordUse {
    const char* keyword;    ///< "*" for a child of any name, empty for the level itself
    const char* condition;  ///< empty where there is none
    const char* form;
    int place;  ///< the one place where the child is read, counted from 0; -1 for any place

    // The texts are literals, so their addresses tell them apart.
    auto operator<=>(const KeywordUse&) const = default;  // NOLINT(modernize-use-nullptr): clang-tidy 14 sees its own 0
};
using KeywordTable = std::vector<KeywordUse>;

/// Collects what the rows of one level say, without the rows of the levels within.
struct KeywordCollector {
    KeywordTable table;

    void Children(const char* keyword) { table.push_back({keyword, "", "", -1}); }
    void AnyChild() { Children("*"); }
    void EveryChild() { Children("*"); }
    void Itself() { Children(""); }
    void AtPlace(int place) { table.back().place = place; }
    void Condition(const char* text) { table.back().condition = text; }
    void Nothing() { Form("not read"); }
    template <class... Fields>
    void Values(const char* form, const Fields&...) {
        Form(form);
    }
    template <class T, class Make>
    void Record(const char* form, const T&, const Make&) {
        Form(form);
    }
    template <class Rows>
    void Within(const Rows&) {
        Form("levels within");
    }

private:
    void Form(const char* form) {
        if (*table.back().form) table.push_back(table.back());  // one row with two forms
        table.back().form = form;
    }
};

/// A parser that reads levels to find out which of their values arrive in the model. It reads by the same rows as every
/// parser, but each field gets the number of a mark in place of a value. The fields are then copied, moved, replaced and
/// lost as in any import. What the finished model holds are the marks that arrived.
///
/// The levels must be `NumberedLevel`s. The model of the tracer holds marks and is of no use to a host.
class ReadTracer : public CVEK_AsciiParser {
public:
    static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
    static constexpr int kName = -1;  ///< as the place of a value: the name of the level

    /// A value that was read into a field.
    struct Mark {
        std::size_t level;       ///< the level that has the value
        std::size_t because;     ///< another level without which the value would not be read there; or none
        std::size_t context;     ///< the record that was being filled
        std::size_t replacedBy;  ///< the mark that took the field over; or none
        std::size_t group;       ///< of the values that share a flag which one word changes; or none
        std::int32_t value;      ///< place among the values, or `kName`
        Loss loss;
    };
    /// A record that a level gave.
    struct Context {
        std::size_t level;
        std::size_t parent;          ///< the record that was being filled then
        std::size_t slot;            ///< the slot that the record moved into; none for an element of an array
        const std::type_info* type;  ///< of an element
        const char* begin;           ///< the memory of the record, while it was filled
        const char* end;
    };
    /// A level that took a field over.
    struct Slot {
        std::size_t context, level;
        std::size_t fresh;       ///< the record that it brought; or none
        std::size_t replacedBy;  ///< the next slot of the same field; or none
        bool displaced;          ///< the field held something before
    };
    /// Values that share a flag which one word alone changes.
    struct Group {
        std::size_t words = 0;  ///< how often the word was there
        std::size_t wordMark = kNone;
        std::size_t wordLevel = kNone;  ///< the level that has each of the words; none if several levels have
    };
    /// What became of a level as a whole.
    struct Trace {
        std::uint32_t reads = 0;            ///< how many rows have read the level
        std::uint32_t unknownObject = 0;    ///< how many of them knew no object of that name
        bool found = false;                 ///< a row has found the level, whether it read the level or not
        bool onlyOneChild = false;          ///< only the child at the level's own place is read
        bool blocks = false;                ///< without the level another one would be read
        std::size_t passedOverFor = kNone;  ///< the level that was read in its place
        std::vector<std::uint32_t> tables;  ///< the rows that its children were read by
    };

    explicit ReadTracer(std::size_t levels);

    const std::vector<Mark>& Marks() const { return m_marks; }
    const std::vector<Context>& Contexts() const { return m_contexts; }
    const std::vector<Slot>& Slots() const { return m_slots; }
    const std::vector<Group>& Groups() const { return m_groups; }
    const Trace& Of(std::size_t level) const { return m_traces[level]; }
    const KeywordTable& Table(std::uint32_t number) const { return *m_tableOrder[number]; }
    /// The rows of the top level.
    const std::vector<std::uint32_t>& TopTables() const { return m_topTables; }
    /// The level at which the import failed, or none.
    std::size_t Failed() const { return m_failing; }

    /// The mark of a number in a field, or none.
    std::size_t MarkOf(double number) const;
    std::size_t MarkOf(std::string_view text) const;
    /// The mark of a flag at an address in a record of a context, or none.
    std::size_t MarkOfFlag(const void* address, std::size_t context) const;
    /// The context of an element of an array of the model, or none.
    std::size_t ContextOf(const void* element, const std::type_info& type) const;

    // What a `TracingReader` tells.

    /// A record is filled while this lives.
    class Scope {
    public:
        template <class Record>
        Scope(ReadTracer& tracer, const CECadClsLvl* level, const Record& record) : m_tracer(tracer) {
            tracer.Begin(level, &record, sizeof record, typeid(Record));
        }
        ~Scope() { m_tracer.End(); }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        ReadTracer& m_tracer;
    };
    /// Values are read because of a level while this lives.
    class Reason {
    public:
        Reason(ReadTracer& tracer, const CECadClsLvl* level)
            : m_tracer(tracer), m_former(std::exchange(tracer.m_because, level ? Number(level) : kNone)) {}
        ~Reason() { m_tracer.m_because = m_former; }
        Reason(const Reason&) = delete;
        Reason& operator=(const Reason&) = delete;

    private:
        ReadTracer& m_tracer;
        std::size_t m_former;
    };

    /// The level of the next parser method that is called without a level.
    void Ask(const Source& from) { m_asked = from; }
    const Source& Asked() const { return m_asked; }
    void EnterTop(const KeywordTable& table) { m_topTables.push_back(Intern(table)); }
    void Enter(const CECadClsLvl* level, const KeywordTable& table);
    void Found(const CECadClsLvl* level) { m_traces[Number(level)].found = true; }
    void Reads(const CECadClsLvl* level) { ++m_traces[Number(level)].reads; }
    void UnknownObject(const CECadClsLvl* level) { ++m_traces[Number(level)].unknownObject; }
    void OnlyOneChild(const CECadClsLvl* level) { m_traces[Number(level)].onlyOneChild = true; }
    void Failing(const CECadClsLvl* level) { m_failing = level ? Number(level) : kNone; }
    void PassedOver(const CECadClsLvl* level, const void* slot, bool holdsSomething);
    /// A new mark for a value of a level, or for the level's name.
    int Add(const CECadClsLvl* level, const CString& value, Loss loss);
    /// A mark has been put into a field.
    void Wrote(int mark, const void* field);
    /// Puts the mark of a value into a flag that one word changes. The values of one flag share a mark.
    void MarkOneWord(int mark, int& field, bool isTheWord);
    void Replaced(const CECadClsLvl* level, const void* slot, bool displaced);
    /// An element that a parser method has given.
    template <class Result>
    void Made(const Result& result) {
        m_records[&result] = m_lastContext;
        m_contexts[m_lastContext].type = &typeid(result);
    }

    static CString Text(int mark);

private:
    static constexpr int kFirst = 1000;  // no field has so large a default

    static std::size_t Number(const CECadClsLvl* level) { return static_cast<const NumberedLevel*>(level)->number; }
    std::uint32_t Intern(const KeywordTable& table);
    void Begin(const CECadClsLvl* level, const void* record, std::size_t size, const std::type_info& type);
    void End();

    std::vector<Trace> m_traces;
    std::vector<Mark> m_marks;
    std::vector<Context> m_contexts;  // the first one is the model
    std::vector<Slot> m_slots;
    std::vector<Group> m_groups;
    std::map<KeywordTable, std::uint32_t> m_tables;
    std::vector<const KeywordTable*> m_tableOrder;
    std::vector<std::uint32_t> m_topTables;
    std::unordered_map<const void*, std::size_t> m_records;    // the newest context of an address
    std::unordered_map<const void*, std::size_t> m_written;    // the newest mark of a field
    std::unordered_map<const void*, std::size_t> m_slotsHere;  // the newest slot of a field
    Source m_asked{};
    std::size_t m_context = 0, m_lastContext = 0, m_because = kNone, m_failing = kNone;
    std::size_t m_passedOver = 0;
};

// How a mark is put into a field: `PutMark`, chosen by the type of the field as `Convert` is.

inline void PutMark(int mark, int& field) {
    field = mark;
}
inline void PutMark(int mark, double& field) {
    field = mark;
}
inline void PutMark(int, bool& field) {
    field = true;
}
inline void PutMark(int mark, CString& field) {
    field = ReadTracer::Text(mark);
}
inline void PutMark(int mark, Rest rest) {
    rest.field.Add(ReadTracer::Text(mark));
}
template <class Wrapper>
    requires std::is_class_v<Wrapper>
void PutMark(int mark, const Wrapper& wrapper)
    requires requires { PutMark(mark, wrapper.field); }
{
    PutMark(mark, wrapper.field);
}

/// True if a record holds nothing but its defaults, an array no element, a list no text.
template <class T>
bool IsBlank(const T& content) {
    if constexpr (IsArray<T> || std::is_same_v<T, CStringArray>) {
        return content.GetSize() == 0;
    } else {
        static const T blank;
        bool same = true;
        const char* const begin = reinterpret_cast<const char*>(&content);
        const char* const blankBegin = reinterpret_cast<const char*>(&blank);
        ForEachField(content, [&](const auto&, const auto& field) {
            if constexpr (requires { field.get(); }) {
                same = same && IsBlank(*field);
            } else if constexpr (requires { field.Names(); }) {
                same = same && field.Names().IsEmpty();
            } else {
                using Field = std::remove_cvref_t<decltype(field)>;
                const auto offset = reinterpret_cast<const char*>(&field) - begin;
                same = same && field == *reinterpret_cast<const Field*>(blankBegin + offset);
            }
        });
        return same;
    }
}

}  // namespace veka
