#pragma once

#include <memory>
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
///     /// One line of a bill of materials.
///     class VEKA_API CVEKA_Item {
///         VEKA_RECORD(CVEKA_Item)
///         VEKA_TEXT(Unit, GetUnit, SetUnit)                    ///< currency
///         VEKA_NUMBER(double, Cost, 0, GetCost, SetCost)
///         VEKA_OWNED(CVEKA_Color, Color, GetColor, SetColor)
///     };
///
/// Each row makes a field with its default and the accessors named in it. A field knows how to be default,
/// copied and moved, so a record needs no code of its own: `VEKA_RECORD` gives it the default, copy and move
/// operations, the protected `Init`, and three virtual operations in this order: destructor, `operator=`,
/// `Clone`. `VEKA_ARRAY` makes the owning array of a record.
///
/// Each row also describes itself: `veka::ForEachField` walks the fields of any record, for what is done
/// alike to all of them (see the generic record tests and the host's inspector).

class CVEK_AsciiParser;

namespace veka {

/// What one row of a record says about its field; a field without accessors has null for them.
template <class Member, class Getter, class Setter>
struct Field {
    const char* name;
    Member member;
    Getter getter;
    Setter setter;
};
template <class Member, class Getter, class Setter>
Field(const char*, Member, Getter, Setter) -> Field<Member, Getter, Setter>;

/// Ranks overloads, so that the best one tells how many rows a record has so far.
template <int N>
struct Rank : Rank<N - 1> {};
template <>
struct Rank<0> {};
inline constexpr int kMaximumFields = 48;

/// The way to the rows of a record.
struct FieldAccess {
    /// What a class with rows, or one derived from it, says about itself.
    template <class Record>
    struct RowsOf {
        using Class = typename Record::VekaSelf;  ///< the class with rows
        using Base = typename Record::VekaBase;   ///< its base class with rows, or void
        static constexpr const char* Name() { return Record::VekaName(); }
    };

    template <class Record>
    static constexpr int kCount = decltype(Record::VekaCount(Rank<kMaximumFields>{}))::value;

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
    /// Without those of a base class.
    template <class Record, class Visitor>
    static void ForEachOwn(Record& record, Visitor&& visit) {
        using Class = std::remove_const_t<Record>;
        ForEach<Class>(record, visit, std::make_integer_sequence<int, kCount<Class>>());
    }

    /// True if the copy of a field differs from its source.
    template <class Record>
    static constexpr bool AnyFieldLoses() {
        return AnyFieldLoses<Record>(std::make_integer_sequence<int, kCount<Record>>());
    }

private:
    template <class Record, int... Index>
    static constexpr bool AnyFieldLoses(std::integer_sequence<int, Index...>) {
        return (FieldLoses(Record::VekaField(std::integral_constant<int, Index>{}).member) || ...);
    }
    template <class Class, class T>
    static constexpr bool FieldLoses(T Class::*) {
        return false;
    }
    template <class Class, class T>
    static constexpr bool FieldLoses(Owned<T> Class::*);

    template <class Class, class Record, class Visitor, int... Index>
    static void ForEach(Record& record, Visitor& visit, std::integer_sequence<int, Index...>) {
        (Visit<Class, Index>(record, visit), ...);
    }
    template <class Class, int Index, class Record, class Visitor>
    static void Visit(Record& record, Visitor& visit) {
        static constexpr auto field = Class::VekaField(std::integral_constant<int, Index>{});
        visit(field, record.*field.member);
    }
};

/// Calls `visit(description, field)` for every field of a record, in the order of its rows; those of a base
/// class come first.
template <class Record, class Visitor>
void ForEachField(Record& record, Visitor&& visit) {
    FieldAccess::ForEach(record, visit);
}

template <class T>
concept IsArray = requires {
    typename T::Element;
};
template <class T>
concept LosesItself = requires(T& value) {
    value.VekaLose();
};

/// True if a copy of a record or an array differs from its source: some classes lose a field when they are
/// copied, and whatever holds one of them loses it too.
template <class T>
constexpr bool CopyLoses() {
    if constexpr (LosesItself<T>)
        return true;
    else if constexpr (IsArray<T>)
        return CopyLoses<typename T::Element>();
    else
        return FieldAccess::AnyFieldLoses<T>();
}

template <class Class, class T>
constexpr bool FieldAccess::FieldLoses(Owned<T> Class::*) {
    return CopyLoses<T>();
}

/// Does to an object what copying it would have done. A move takes the source's storage over, and then does
/// this, so that nothing tells a move from a copy.
template <class T>
void Lose(T& value) {
    if constexpr (!CopyLoses<T>()) {
    } else if constexpr (LosesItself<T>) {
        value.VekaLose();
    } else if constexpr (IsArray<T>) {
        for (auto* element : value)
            if (element) Lose(*element);
    } else {
        ForEachField(value, [](const auto&, auto& field) {
            if constexpr (requires { field.get(); }) Lose(*field);
        });
    }
}

}  // namespace veka

#define VEKA_RECORD(Class) VEKA_RECORD_CLONED_BY(Class, Clone)

/// A record whose cloning operation has another name.
#define VEKA_RECORD_CLONED_BY(Class, Clone)           \
public:                                               \
    Class() = default;                                \
    Class(const Class&) = default;                    \
    Class(Class&&) = default;                         \
    virtual ~Class() = default;                       \
    virtual Class& operator=(const Class&) = default; \
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

/// For a record whose copy loses something: it writes its copies and `Init` itself, names what is lost in
/// `VekaLose`, which a move then does too, and declares its rows behind `VEKA_FIELDS_OF`.
#define VEKA_RECORD_OPERATIONS(Class)       \
public:                                     \
    Class() = default;                      \
    virtual ~Class() = default;             \
                                            \
protected:                                  \
    /** Sets every field to its default. */ \
    void Init();

/// What the rows of a class need besides its operations; `Base` is the base class with rows, or void.
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

/// The description of one field; `Getter` and `Setter` are member pointers or null.
#define VEKA_DESCRIBE(Name, Getter, Setter) \
    VEKA_DESCRIBE_AS(Name, (::veka::Field{#Name, &VekaSelf::Name, Getter, Setter}))
/// As above, with any description that has at least the name and the member.
#define VEKA_DESCRIBE_AS(Name, Description)                                                               \
private:                                                                                                  \
    static constexpr int kVekaRow_##Name =                                                                \
        decltype(VekaCount(::veka::Rank<::veka::kMaximumFields>{}))::value;                               \
    static std::integral_constant<int, kVekaRow_##Name + 1> VekaCount(::veka::Rank<kVekaRow_##Name + 1>); \
    static constexpr auto VekaField(std::integral_constant<int, kVekaRow_##Name>) {                       \
        return Description;                                                                               \
    }

/// A number: its type, name, default, getter and setter.
#define VEKA_NUMBER(Type, Name, Default, Get, Set)      \
    VEKA_DESCRIBE(Name, &VekaSelf::Get, &VekaSelf::Set) \
    Type Name = Default;                                \
                                                        \
public:                                                 \
    Type Get() const noexcept {                         \
        return Name;                                    \
    }                                                   \
    void Set(Type value) noexcept {                     \
        Name = value;                                   \
    }                                                   \
                                                        \
private:

/// A flag: an int that holds 0 or 1, 0 by default.
#define VEKA_FLAG(Name, Get, Set) VEKA_NUMBER(int, Name, 0, Get, Set)

/// A byte string, empty by default.
#define VEKA_TEXT(Name, Get, Set)                       \
    VEKA_DESCRIBE(Name, &VekaSelf::Get, &VekaSelf::Set) \
    CString Name;                                       \
                                                        \
public:                                                 \
    CString Get() const {                               \
        return Name;                                    \
    }                                                   \
    void Set(const CString& value) {                    \
        Name = value;                                   \
    }                                                   \
                                                        \
private:

/// A sub-record or an array. The getter hands out the one that the record holds; the setter copies into it,
/// and raises `CInvalidArgException` for null.
#define VEKA_OWNED(Class, Name, Get, Set)               \
    VEKA_DESCRIBE(Name, &VekaSelf::Get, &VekaSelf::Set) \
    Owned<Class> Name;                                  \
                                                        \
public:                                                 \
    Class* Get() const noexcept {                       \
        return Name;                                    \
    }                                                   \
    void Set(const Class* value) {                      \
        if (!value) AfxThrowInvalidArgException();      \
        *Name = *value;                                 \
    }                                                   \
                                                        \
private:

/// A list of strings. The getter fills the list given to it; the setter replaces the field's list.
#define VEKA_LIST(Name, Get, Set)                       \
    VEKA_DESCRIBE(Name, &VekaSelf::Get, &VekaSelf::Set) \
    CStringArray Name;                                  \
                                                        \
public:                                                 \
    void Get(CStringArray& list) const {                \
        list.Copy(Name);                                \
    }                                                   \
    void Set(const CStringArray& list) {                \
        Name.Copy(list);                                \
    }                                                   \
                                                        \
private:

/// The setter of a list that appends one string.
#define VEKA_LIST_APPEND(Name, Append)  \
public:                                 \
    void Append(const CString& value) { \
        Name.Add(value);                \
    }                                   \
                                        \
private:

/// A field that is used directly, without accessors: a number, a text, a list or a sub-record.
#define VEKA_PUBLIC_NUMBER(Type, Name, Default) \
    VEKA_DESCRIBE(Name, nullptr, nullptr)       \
public:                                         \
    Type Name = Default;
#define VEKA_PUBLIC_TEXT(Name) VEKA_PUBLIC_FIELD(CString, Name)
#define VEKA_PUBLIC_LIST(Name) VEKA_PUBLIC_FIELD(CStringArray, Name)
#define VEKA_PUBLIC_OWNED(Class, Name) VEKA_PUBLIC_FIELD(Owned<Class>, Name)
#define VEKA_PUBLIC_FIELD(Type, Name)     \
    VEKA_DESCRIBE(Name, nullptr, nullptr) \
public:                                   \
    Type Name;

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
        ::veka::Lose(*this);                                                                       \
    }                                                                                              \
    ~Array() override = default;                                                                   \
    virtual Array& operator=(const Array& other) {                                                 \
        if (this != &other) Copy(other);                                                           \
        return *this;                                                                              \
    }                                                                                              \
    virtual Array* Clone() const {                                                                 \
        return new Array(*this);                                                                   \
    }                                                                                              \
    virtual void Copy(const Array& other) {                                                        \
        DeleteAll();                                                                               \
        Append(other);                                                                             \
    }                                                                                              \
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
            ::veka::Lose(*this);                                                                   \
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
