#pragma once

#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

#include "model/RecordMemory.h"
#include "platform/CExPtrArray.h"
#include "platform/CString.h"
#include "platform/CStringArray.h"
#include "platform/Exceptions.h"
#include "platform/Owned.h"

/// The record macros: a record is written as the table of its fields.
///
///     /// A part in the bill of materials.
///     class VEKA_API CVEKA_BOM {
///         VEKA_RECORD(CVEKA_BOM)
///         VEKA_TEXT(Unit, "currency of the cost")
///         VEKA_NUMBER(double, Cost, 0, "price of one piece")
///     };
///
/// `VEKA_RECORD` gives the record its default, copy and move operations, the protected `Init`, and three
/// virtual operations in this order: destructor, `operator=`, `Clone`. `VEKA_ARRAY` makes the owning array of
/// a record.
///
/// Each row makes a private field with its default, and the accessors `GetX` and `SetX` of a field X. The
/// rows ending in `_AS` name their accessors. The last argument of a row describes the field: its meaning and
/// its unit. Lengths are in the part's unit unless the row says otherwise.
///
/// `veka::ForEachField` visits the fields of any record with their names and descriptions. Whatever is done
/// alike to all records uses it: the printers, the reference, the generic record tests.

class CVEK_AsciiParser;

namespace veka {

/// What one row of a record says about its field. A field without accessors has null for them.
template <class Member, class Getter, class Setter>
struct Field {
    const char* name;
    const char* doc;  ///< meaning and unit
    Member member;
    Getter getter;
    Setter setter;
    std::string_view getterName;  ///< empty where the field has no getter
    std::string_view setterName;  ///< empty where the field has no setter
};
template <class Member, class Getter, class Setter>
Field(const char*, const char*, Member, Getter, Setter, std::string_view, std::string_view)
    -> Field<Member, Getter, Setter>;

/// The name of the function in an expression for a pointer to a member function: what follows the last "::".
/// Empty for `nullptr`.
constexpr std::string_view FunctionNameIn(std::string_view expression) {
    const std::size_t colon = expression.rfind(':');
    if (colon == std::string_view::npos) return {};
    const std::string_view name = expression.substr(colon + 1);
    return name.substr(0, name.find(')'));
}

/// Ranks the overloads that count the rows of a record: the overload of the last row is the best match.
template <int N>
struct Rank : Rank<N - 1> {};
template <>
struct Rank<0> {};
/// Most fields that a record can have.
inline constexpr int kMaximumFields = 48;

/// Reads the rows of a record.
struct FieldAccess {
    /// What a class with rows, or one derived from it, says about itself.
    template <class Record>
    struct RowsOf {
        using Class = typename Record::VekaSelf;  ///< the class with rows
        using Base = typename Record::VekaBase;   ///< its base class with rows, or void
        static constexpr const char* Name() { return Record::VekaName(); }
    };

    /// Number of rows, without those of a base class.
    template <class Record>
    static constexpr int kCount = decltype(Record::VekaCount(Rank<kMaximumFields>{}))::value;

    /// Calls `visit(row, field)` for every field, those of a base class first.
    template <class Record, class Visitor>
    static void ForEach(Record& record, Visitor&& visit) {
        using Class = std::remove_const_t<Record>;
        if constexpr (!std::is_void_v<typename Class::VekaBase>) {
            using Base = typename Class::VekaBase;
            ForEach(static_cast<std::conditional_t<std::is_const_v<Record>, const Base, Base>&>(record),
                    visit);
        }
        ForEachOwn(record, visit);
    }
    /// Calls `visit(row, field)` for every field but those of a base class.
    template <class Record, class Visitor>
    static void ForEachOwn(Record& record, Visitor&& visit) {
        using Class = std::remove_const_t<Record>;
        ForEach<Class>(record, visit, std::make_integer_sequence<int, kCount<Class>>());
    }

    /// Assigns every field but those of a base class.
    template <class Record>
    static void CopyOwn(const Record& source, Record& target) {
        ForEachOwn(target, [&](const auto& row, auto& field) { field = source.*row.member; });
    }

private:
    template <class Class, class Record, class Visitor, int... Index>
    static void ForEach(Record& record, Visitor& visit, std::integer_sequence<int, Index...>) {
        (Visit<Class, Index>(record, visit), ...);
    }
    template <class Class, int Index, class Record, class Visitor>
    static void Visit(Record& record, Visitor& visit) {
        static constexpr auto row = Class::VekaField(std::integral_constant<int, Index>{});
        visit(row, record.*row.member);
    }
};

/// Calls `visit(row, field)` for every field of a record, in the order of its rows. The fields of a base
/// class come first.
template <class Record, class Visitor>
void ForEachField(Record& record, Visitor&& visit) {
    FieldAccess::ForEach(record, visit);
}

/// An owning array of the model.
template <class T>
concept IsArray = requires {
    typename T::Element;
};

/// Changes a value to what a copy of it would be. Some classes lose a part of their content in a copy; such a
/// class says in its own `BecomeACopy` what is lost, and a record or an array that holds such a class loses
/// that part too. The move of an array takes over the source's elements and then calls this function, so that
/// a move has the effects of a copy.
template <class T>
void BecomeACopy(T& value) {
    if constexpr (requires { value.BecomeACopy(); }) {
        value.BecomeACopy();
    } else if constexpr (IsArray<T>) {
        for (auto* element : value)
            if (element) BecomeACopy(*element);
    } else {
        ForEachField(value, [](const auto&, auto& field) {
            if constexpr (requires { field.get(); }) BecomeACopy(*field);
        });
    }
}

}  // namespace veka

/// The operations of a record.
#define VEKA_RECORD(Class) VEKA_RECORD_CLONED_BY(Class, Clone)

/// The operations of a record whose cloning operation has another name.
#define VEKA_RECORD_CLONED_BY(Class, Clone)           \
public:                                               \
    Class() = default;                                \
    Class(const Class&) = default;                    \
    Class(Class&&) = default;                         \
    virtual ~Class() = default;                       \
    virtual Class& operator=(const Class&) = default; \
    /** A deep copy. The caller owns the copy. */     \
    virtual Class* Clone() const {                    \
        return new Class(*this);                      \
    }                                                 \
    Class& operator=(Class&&) = default;              \
                                                      \
protected:                                            \
    /** Sets every field to its default. */           \
    void Init() {                                     \
        *this = Class();                              \
    }                                                 \
                                                      \
    VEKA_FIELDS_OF(Class, void)

/// The operations of a record whose copy loses something. The record writes its copy operations, `Init` and
/// `BecomeACopy` itself, and puts its rows after `VEKA_FIELDS_OF`.
#define VEKA_RECORD_OPERATIONS(Class)       \
public:                                     \
    Class() = default;                      \
    virtual ~Class() = default;             \
                                            \
protected:                                  \
    /** Sets every field to its default. */ \
    void Init();

/// What the rows of a class need besides the operations. `Base` is the base class with rows, or void.
#define VEKA_FIELDS_OF(Class, Base)           \
    VEKA_RECORD_MEMORY(Class)                 \
private:                                      \
    friend class ::CVEK_AsciiParser;          \
    friend struct ::veka::FieldAccess;        \
    using VekaSelf = Class;                   \
    using VekaBase = Base;                    \
    static constexpr const char* VekaName() { \
        return #Class;                        \
    }                                         \
    static std::integral_constant<int, 0> VekaCount(::veka::Rank<0>);

/// Makes a row of a field that is declared elsewhere. `Getter` and `Setter` are member pointers or null.
#define VEKA_DESCRIBE(Name, Getter, Setter, Doc)                                 \
    VEKA_DESCRIBE_AS(Name, Doc,                                                  \
                     (::veka::Field{#Name, Doc, &VekaSelf::Name, Getter, Setter, \
                                    ::veka::FunctionNameIn(#Getter), ::veka::FunctionNameIn(#Setter)}))
/// As above, with any description that has at least the name, the doc and the member.
#define VEKA_DESCRIBE_AS(Name, Doc, Description)                                                            \
private:                                                                                                    \
    static constexpr int kVekaRow_##Name =                                                                  \
        decltype(VekaCount(::veka::Rank<::veka::kMaximumFields>{}))::value;                                 \
    static_assert(kVekaRow_##Name < ::veka::kMaximumFields,                                                 \
                  "A record has at most 48 fields, and " #Name                                              \
                  " is one more. Raise veka::kMaximumFields in model/Record.h.");                           \
    static_assert(sizeof("" Doc) > 1, "The row " #Name " needs a description of the field, as a literal."); \
    static std::integral_constant<int, kVekaRow_##Name + 1> VekaCount(::veka::Rank<kVekaRow_##Name + 1>);   \
    static constexpr auto VekaField(std::integral_constant<int, kVekaRow_##Name>) {                         \
        return Description;                                                                                 \
    }

/// A number.
#define VEKA_NUMBER(Type, Name, Default, Doc) VEKA_NUMBER_AS(Type, Name, Default, Get##Name, Set##Name, Doc)
#define VEKA_NUMBER_AS(Type, Name, Default, Get, Set, Doc)   \
    VEKA_DESCRIBE(Name, &VekaSelf::Get, &VekaSelf::Set, Doc) \
    Type Name = Default;                                     \
                                                             \
public:                                                      \
    Type Get() const noexcept {                              \
        return Name;                                         \
    }                                                        \
    void Set(Type value) noexcept {                          \
        Name = value;                                        \
    }                                                        \
                                                             \
private:

/// A flag: an int that holds 0 or 1, 0 by default.
#define VEKA_FLAG(Name, Doc) VEKA_NUMBER(int, Name, 0, Doc)

/// A byte string, empty by default.
#define VEKA_TEXT(Name, Doc) VEKA_TEXT_AS(Name, Get##Name, Set##Name, Doc)
#define VEKA_TEXT_AS(Name, Get, Set, Doc)                    \
    VEKA_DESCRIBE(Name, &VekaSelf::Get, &VekaSelf::Set, Doc) \
    CString Name;                                            \
                                                             \
public:                                                      \
    CString Get() const {                                    \
        return Name;                                         \
    }                                                        \
    void Set(CString value) {                                \
        Name = std::move(value);                             \
    }                                                        \
                                                             \
private:

/// A sub-record or an array. The getters give the one that the record holds; it can be changed only through a
/// record that can be changed. The setter copies into it, and raises `CInvalidArgException` for null.
#define VEKA_OWNED(Class, Name, Doc) VEKA_OWNED_AS(Class, Name, Get##Name, Set##Name, Doc)
#define VEKA_OWNED_AS(Class, Name, Get, Set, Doc)                                                        \
    VEKA_DESCRIBE(Name, static_cast<const Class* (VekaSelf::*)() const>(&VekaSelf::Get), &VekaSelf::Set, \
                  Doc)                                                                                   \
    VEKA_OWNED_FIELD(Class, Name, Set)                                                                   \
    Class* Get() noexcept {                                                                              \
        return Name;                                                                                     \
    }                                                                                                    \
    const Class* Get() const noexcept {                                                                  \
        return Name;                                                                                     \
    }                                                                                                    \
                                                                                                         \
private:
/// A sub-record or an array that can be changed through a constant record too. Use it only where hosts are
/// promised a constant getter that gives a variable sub-record.
#define VEKA_OWNED_VARIABLE(Class, Name, Doc)                            \
    VEKA_DESCRIBE(Name, &VekaSelf::Get##Name, &VekaSelf::Set##Name, Doc) \
    VEKA_OWNED_FIELD(Class, Name, Set##Name)                             \
    Class* Get##Name() const noexcept {                                  \
        return Name;                                                     \
    }                                                                    \
                                                                         \
private:
#define VEKA_OWNED_FIELD(Class, Name, Set)         \
    Owned<Class> Name;                             \
                                                   \
public:                                            \
    void Set(const Class* value) {                 \
        if (!value) AfxThrowInvalidArgException(); \
        *Name = *value;                            \
    }

/// A list of strings. The getter fills the list that it is given; the setter replaces the field's list.
#define VEKA_LIST(Name, Doc) VEKA_LIST_AS(Name, Get##Name, Set##Name, Doc)
#define VEKA_LIST_AS(Name, Get, Set, Doc)                    \
    VEKA_DESCRIBE(Name, &VekaSelf::Get, &VekaSelf::Set, Doc) \
    CStringArray Name;                                       \
                                                             \
public:                                                      \
    void Get(CStringArray& list) const {                     \
        list.Copy(Name);                                     \
    }                                                        \
    void Set(const CStringArray& list) {                     \
        Name.Copy(list);                                     \
    }                                                        \
                                                             \
private:

/// A second setter of a list, which appends one string.
#define VEKA_LIST_APPEND(Name, Append)   \
public:                                  \
    /** Appends one text to the list. */ \
    void Append(CString value) {         \
        Name.Add(std::move(value));      \
    }                                    \
                                         \
private:

/// A public field of any type, without accessors.
#define VEKA_PUBLIC(Type, Name, Default, Doc)  \
    VEKA_DESCRIBE(Name, nullptr, nullptr, Doc) \
public:                                        \
    Type Name = Default;

/// The whole class of an owning array of records.
#define VEKA_ARRAY(Array, Element)                                  \
    class VEKA_API Array : public CExPtrArray<Element*, Element*> { \
        VEKA_ARRAY_OPERATIONS(Array, Element)                       \
    };

/// The operations of an owning array: copies are deep and pass over null elements. `Copy` onto itself empties
/// the array, since it deletes what it holds before it looks at the source.
#define VEKA_ARRAY_OPERATIONS(Array, Element)                                                      \
public:                                                                                            \
    Array() = default;                                                                             \
    Array(const Array& other) : CExPtrArray() {                                                    \
        Array::Append(other);                                                                      \
    }                                                                                              \
    Array(Array&& other) noexcept {                                                                \
        Swap(other);                                                                               \
        RemoveNullElement();                                                                       \
        ::veka::BecomeACopy(*this);                                                                \
    }                                                                                              \
    ~Array() override = default;                                                                   \
    virtual Array& operator=(const Array& other) {                                                 \
        if (this != &other) Copy(other);                                                           \
        return *this;                                                                              \
    }                                                                                              \
    /** A deep copy without the null elements. The caller owns the copy. */                        \
    virtual Array* Clone() const {                                                                 \
        return new Array(*this);                                                                   \
    }                                                                                              \
    /** Replaces the elements by copies of the other array's elements. */                          \
    virtual void Copy(const Array& other) {                                                        \
        DeleteAll();                                                                               \
        Append(other);                                                                             \
    }                                                                                              \
    /** Appends copies of the other array's elements. */                                           \
    virtual void Append(const Array& other) {                                                      \
        const INT_PTR count = other.GetSize();                                                     \
        for (INT_PTR i = 0; i < count; ++i)                                                        \
            if (const Element* element = other.GetAt(i)) Add(std::make_unique<Element>(*element)); \
    }                                                                                              \
    Array& operator=(Array&& other) noexcept {                                                     \
        if (this != &other) {                                                                      \
            DeleteAll();                                                                           \
            Swap(other);                                                                           \
            RemoveNullElement();                                                                   \
            ::veka::BecomeACopy(*this);                                                            \
        }                                                                                          \
        return *this;                                                                              \
    }                                                                                              \
    const CRuntimeClass* GetRuntimeClass() const override {                                        \
        static const CRuntimeClass runtimeClass{#Array};                                           \
        return &runtimeClass;                                                                      \
    }                                                                                              \
                                                                                                   \
protected:                                                                                         \
    /** Deletes all elements. */                                                                   \
    void Init() {                                                                                  \
        DeleteAll();                                                                               \
    }
