#pragma once

#include <string>
#include <typeinfo>
#include <vector>

#include "model/Record.h"
#include "parser/CVEK_AsciiParser.h"

namespace veka {

/// One row of a parser method: a keyword of the file format.
struct KeywordRow {
    std::string parent;   ///< the level in which the keyword is known; empty at the top level
    std::string keyword;  ///< "*" for a child of any name, empty for what the level itself gives
    std::string form;     ///< how the level is read
    std::string target;   ///< the class and the fields that are filled
    std::string meaning;  ///< what the fields mean, and their units
    std::string kind;     ///< the kind of object that the row belongs to; empty for a row of a section
    std::string base;     ///< the base class of the kind, where the field belongs to that class
};

/// A parser that lists its rows instead of reading by them: every parser method, called without a level, lists the rows
/// of its level and of the levels in that level. Rows and forms describe themselves to the lister.
class KeywordLister : public CVEK_AsciiParser {
public:
    /// All keywords, in the order of the rows: the sections of a file, and then the objects.
    static std::vector<KeywordRow> AllKeywords();

    /// Lists the rows of a record.
    template <class T, class Rows>
    void List(const T& record, const Rows& rows) {
        const std::size_t former = m_targets.size();
        AddTargets(record);
        rows.Describe(*this);
        m_targets.resize(former);
    }
    /// Lists the rows of an object kind by one of its parser methods.
    template <class Method>
    void ListKind(const std::string& level, Method method) {
        m_parent = m_kind = level;
        delete method(*this, nullptr);
        m_parent.clear();
        m_kind.clear();
    }

    // What a row says on the children that it finds.
    void Children(const char* keyword) { Begin(keyword); }
    void AnyChild() { Begin("*"); }
    void EveryChild() { Begin("*"); }
    void Itself() { Begin(""); }
    void AtPlace(int place) { m_condition = "at place " + std::to_string(place) + ": "; }
    void Condition(const char* text) { m_condition = std::string(text) + ": "; }

    // What a form says on the reading.
    void Nothing() { Add("not read"); }
    template <class... Fields>
    void Values(const char* form, const Fields&... fields) {
        Target all;
        (Join(all, TargetOf(fields)), ...);
        Add(form, all);
    }
    template <class T, class Make>
    void Record(const char* form, const T& target, const Make& make) {
        Add(form, TargetOf(target));
        const std::string former = std::exchange(m_parent, m_keyword);
        ListRecord(make);
        m_parent = former;
    }
    template <class Rows>
    void Within(const Rows& rows) {
        Add("levels within");
        const std::string former = std::exchange(m_parent, m_keyword);
        rows.Describe(*this);
        m_parent = former;
    }

private:
    /// A field that rows can fill, with the class and the names that lead to the field.
    struct Target {
        const void* address = nullptr;
        std::string name, meaning, base;
        std::string context;  ///< what the record in which the field is means; empty for the record of the rows
    };

    static std::string ClassName(const std::type_info& type);
    void Begin(const char* keyword) {
        m_keyword = keyword;
        m_condition.clear();
    }
    void Add(const std::string& form) { Add(form, Target()); }
    void Add(const std::string& form, const Target& target) {
        m_rows.push_back(
            {m_parent, m_keyword, m_condition + form, target.name, target.meaning, m_kind, target.base});
    }
    static void Join(Target& all, const Target& one);
    Target TargetAt(const void* address) const;
    template <class Field>
    Target TargetOf(const Field& field) const {
        if constexpr (requires { field.field; })
            return TargetAt(&field.field);
        else
            return TargetAt(&field);
    }
    /// Adds a record or an array, and all fields of the record.
    template <class T>
    void AddTargets(const T& record) {
        m_targets.push_back({&record, ClassName(typeid(T)), IsArray<T> ? "one element" : "", "", ""});
        if constexpr (!IsArray<T>) AddFields(record);
    }
    template <class T>
    void AddFields(const T& record) {
        ForEachField(record, [&](const auto& row, const auto& field) {
            using Base = typename FieldAccess::RowsOf<T>::Base;
            Target target;
            if constexpr (!std::is_same_v<decltype(OwnerOf(row.member)), T>) target.base = ClassName(typeid(Base));
            target.name = (target.base.empty() ? ClassName(typeid(T)) : target.base) + "::" + row.name;
            target.meaning = row.doc;
            AddField(target, field);
        });
    }
    /// Adds a field, and where the field is a record its fields.
    template <class Field>
    void AddField(Target& target, const Field& field) {
        if constexpr (requires { field.get(); }) {
            using Content = std::remove_cvref_t<decltype(*field)>;
            target.address = field.get();
            m_targets.push_back(target);
            if constexpr (!IsArray<Content>) {
                ForEachField(*field, [&](const auto& row, const auto& inner) {
                    Target within = target;
                    within.name += std::string(".") + row.name;
                    within.context = target.meaning;
                    within.meaning = row.doc;
                    AddField(within, inner);
                });
            }
        } else {
            target.address = &field;
            m_targets.push_back(target);
        }
    }
    template <class Record, class Field>
    static Record OwnerOf(Field Record::*);
    template <class Result>
    void ListRecord(Result* (CVEK_AsciiParser::*method)(CECadClsLvl*)) {
        delete (this->*method)(nullptr);
    }
    template <class Make>
    void ListRecord(const Make& rowsOf) {
        ListFresh(&Make::operator(), rowsOf);
    }
    template <class Rows, class T, class Make>
    void ListFresh(Rows (Make::*)(T&) const, const Make& rowsOf) {
        T record;
        List(record, rowsOf(record));
    }

    std::vector<KeywordRow> m_rows;
    std::vector<Target> m_targets;
    std::string m_parent, m_keyword, m_condition, m_kind;
};

/// Lists the sections of a file.
void ListSections(KeywordLister& lister);
/// Lists the kinds of objects.
void ListKinds(KeywordLister& lister);

}  // namespace veka
