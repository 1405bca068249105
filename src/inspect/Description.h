#pragma once

#include <cstddef>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include "model/Record.h"
#include "model/objects/CVEKA_3DObjectArray.h"

/// Descriptions of the record classes at run time. They are made from the rows of the records. Code that
/// works on any record reads the descriptions and needs no template for each class.

namespace veka {

struct RecordDescription;

/// What a field of a record holds.
enum class FieldKind {
    Whole,          ///< an `int` or a `long long`
    Flag,           ///< a `bool`
    Real,           ///< a `double`
    Text,           ///< a `CString`
    TextList,       ///< a `CStringArray`
    DistinctNames,  ///< a list of texts without repetition
    Record,         ///< a record of another class
    Array           ///< an array of records
};

/// A record, or an array, with the description of its class.
struct RecordView {
    const RecordDescription* description = nullptr;
    const void* record = nullptr;  ///< null for a null element of an array
};

/// Deletes records that belong to the caller.
struct DeleteRecord {
    /// Does nothing for a null element.
    VEKA_API void operator()(const RecordView& record) const noexcept;
};

/// A field of a record class. The parameter `record` is the address of a record of that class.
struct FieldDescription {
    const char* name;
    const char* doc;  ///< meaning and unit of the field
    FieldKind kind;
    std::size_t size;                  ///< bytes of the value
    std::ptrdiff_t offset;             ///< bytes from the start of the record to the value
    const RecordDescription* content;  ///< the class of a record or an array; null for the other kinds
    const RecordDescription* owner;    ///< the class whose row the field is
    std::string_view getterName;       ///< empty where the field has no getter
    std::string_view setterName;       ///< empty where the field has no setter
    bool givesConstant;                ///< a constant record's getter gives a constant record or array
    /// Calls the getter and stores what it gives at `result`: a value of the field's type, or the address of
    /// a record or an array as a `const void*`. Null where the field has no getter.
    void (*get)(const FieldDescription& field, const void* record, void* result);
    /// Calls the setter with the value at the address `value`. Null where the field has no setter.
    void (*set)(const FieldDescription& field, void* record, const void* value);
    const void* row;  ///< the row of the field, for `get` and `set`

    /// The address of the value in a record.
    const void* In(const void* record) const noexcept { return static_cast<const char*>(record) + offset; }
    void* In(void* record) const noexcept { return static_cast<char*>(record) + offset; }
    /// The value of a field of the kind `Whole` or `Flag`.
    VEKA_API long long Whole(const void* record) const noexcept;
    /// The value of a field of the kind `Real`.
    VEKA_API double Real(const void* record) const noexcept;
    /// The value of a field of the kind `Text`.
    VEKA_API const CString& Text(const void* record) const noexcept;
    /// The value of a field of the kind `TextList` or `DistinctNames`.
    VEKA_API const CStringArray& Texts(const void* record) const noexcept;
    /// True if two records of the class have equal values, as `AreEqual` compares them.
    VEKA_API bool HaveEqualValues(const void* a, const void* b) const;
    /// Stores a number or a flag without the setter. A number that does not fit is cut off.
    VEKA_API void StoreWhole(void* record, long long value) const noexcept;
    /// Replaces the list of a field of the kind `TextList` or `DistinctNames` without the setter. Texts that
    /// repeat stay, in either kind.
    VEKA_API void StoreTexts(void* record, const CStringArray& texts) const;
    /// Appends one text to such a list.
    VEKA_API void AppendText(void* record, const CString& text) const;
    /// The value of a field of the kind `Record` or `Array`.
    RecordView Content(const void* record) const noexcept { return {content, In(record)}; }
};

/// A record class, or the class of an array of records. The operations take addresses of records of the
/// class.
struct RecordDescription {
    const char* name = "";
    const char* kind = nullptr;  ///< of an object class the name without its prefix, else null
    const std::type_info* type = nullptr;
    const RecordDescription* base = nullptr;     ///< the base class that has rows, or null
    const RecordDescription* element = nullptr;  ///< the class of an array's elements; null for a record
    std::vector<FieldDescription> fields;        ///< in the order of the rows; those of the base come first
    std::size_t inherited = 0;                   ///< number of fields that belong to the base

    void* (*make)() = nullptr;                                   ///< a new record with its defaults
    void* (*copy)(const void* source) = nullptr;                 ///< a new record by the copy constructor
    void* (*move)(void* source) = nullptr;                       ///< a new record by the move constructor
    void* (*clone)(const void* source) = nullptr;                ///< a new record by `Clone`
    void (*assign)(void* target, const void* source) = nullptr;  ///< `operator=` with a copy
    void (*moveAssign)(void* target, void* source) = nullptr;    ///< `operator=` with a move
    void (*init)(void* record) = nullptr;              ///< the protected `Init`; null for a private one
    void (*destroy)(void* record) noexcept = nullptr;  ///< deletes a record that was made
    /// The address of an object as one of this class, or null; for object classes.
    const void* (*cast)(const CVEKA_3DObject& object) = nullptr;
    /// A record of this class as an object; for object classes.
    CVEKA_3DObject* (*object)(void* record) = nullptr;

    INT_PTR (*size)(const void* array) = nullptr;                  ///< number of elements, nulls included
    RecordView (*at)(const void* array, INT_PTR index) = nullptr;  ///< an element as its own class
    void* (*add)(void* array) = nullptr;  ///< appends a new element with its defaults
    /// Takes `count` elements out of an array from `first` on, and puts others in their place, which the
    /// array owns from then on. Gives the elements that were taken out; they belong to the caller. An element
    /// without a record is null. Raises `CInvalidArgException` for a range outside the array and for a record
    /// that the array cannot hold; after an exception the array is as before.
    std::vector<RecordView> (*exchange)(void* array, INT_PTR first, INT_PTR count,
                                        const std::vector<RecordView>& elements) = nullptr;
    void (*copyAll)(void* target, const void* source) = nullptr;  ///< `Copy`
    void (*append)(void* target, const void* source) = nullptr;   ///< `Append`

    bool IsArray() const noexcept { return element != nullptr; }
    /// True for this class and for the classes that it is derived from.
    bool IsA(const RecordDescription& other) const noexcept {
        const RecordDescription* description = this;
        while (description && description != &other) description = description->base;
        return description != nullptr;
    }
};

/// The description of a class, or null for a class that is not described.
VEKA_API const RecordDescription* FindDescription(const std::type_info& type);
/// The description of a class. Raises `CInvalidArgException` for a class that is not described.
VEKA_API const RecordDescription& Describe(const std::type_info& type);
/// All descriptions, in the order of the classes' names.
VEKA_API const std::vector<const RecordDescription*>& AllDescriptions();

/// A record or an array as one of a class that is described.
template <class T>
RecordView ViewAs(const T& value) {
    return {&Describe(typeid(T)), &value};
}
/// An object as its own class. An object of a host's class counts as the nearest base that is described.
VEKA_API RecordView View(const CVEKA_3DObject& object);
/// A record or an array. A record of a host's class counts as the record class that it is derived from.
template <class T>
RecordView View(const T& value) {
    if constexpr (std::is_base_of_v<CVEKA_3DObject, T>)
        return View(static_cast<const CVEKA_3DObject&>(value));
    else if constexpr (IsArray<T>)
        return ViewAs(value);
    else
        return ViewAs<typename FieldAccess::RowsOf<T>::Class>(value);
}

/// True if two records have one class and the same values in all fields, or two arrays have equal elements.
/// NaN equals NaN here, so that a record equals its copy. Two null elements are equal.
VEKA_API bool AreEqual(const RecordView& a, const RecordView& b);

}  // namespace veka
