#pragma once

#include "model/objects/CVEKA_3DObjectArray.h"

/// The rows of the object kinds: an object kind is written as the table of its fields, and a row tells
/// besides the field how the parser fills it. A field is public and bears the name of its keyword.
///
///     /// A ring.
///     class CVEKA_3DOJ_DONUT : public CVEKA_3DOJ_AxisPivot {
///         VEKA_OBJECT(CVEKA_3DOJ_DONUT, CVEKA_3DOJ_AxisPivot, 3)
///         VEKA_REAL(OUTERDIAM)
///         VEKA_REAL(INNERDIAM)
///         VEKA_REAL(THICKNESS)
///     };
///
/// The parser tries the rows of the class in their order, then the keywords of its base.

namespace veka::form {

/// The keyword is the field's name; the last value counts, and a point or list is replaced.
struct Keyword {};
/// As `Keyword`, and under a second keyword too; the later level in the file counts.
struct KeywordOr {
    const char* other;
};
/// A number: true exactly for 1.
struct NumberFlag {};
/// "TRUE" or not, for each value; the last one decides.
struct WordFlag {};
/// Cleared by "FALSE" under the keyword, and by nothing else; never set.
struct ClearedBy {
    const char* keyword;
};
/// A "PT" level that stands at this place among all children of the object, counted from 0.
struct Place {
    int place;
};
/// The children of the keyword's level are appended, unknown ones as null.
struct Elements {};
/// Every child that no other row takes is appended, an unknown one as null.
struct OtherChildren {};
/// Every child is a list of objects that replaces the field.
struct EveryChildAsList {};
/// Filled by no row.
struct None {};

}  // namespace veka::form

namespace veka {

/// What a row of an object kind says about its field.
template <class Member, class Form>
struct ObjectField {
    const char* name;
    Member member;
    Form form;
    std::nullptr_t getter = nullptr;
    std::nullptr_t setter = nullptr;
};

template <class Member, class Form>
constexpr ObjectField<Member, Form> DescribeObjectField(const char* name, Member member, Form form) {
    return {name, member, form};
}

}  // namespace veka

/// The operations of an object kind: all copies are whole, and a new object has its number.
#define VEKA_OBJECT(Class, Base, Number)                   \
    VEKA_OBJECT_OPERATIONS(Class, Base, Number)            \
protected:                                                 \
    /** Sets the number and every field to the default. */ \
    void Init() {                                          \
        *this = Class();                                   \
    }                                                      \
                                                           \
public:

#define VEKA_OBJECT_OPERATIONS(Class, Base, Number)   \
public:                                               \
    Class() {                                         \
        CVEKA_3DObject::SetType(Number);              \
    }                                                 \
    Class(const Class&) = default;                    \
    Class(Class&&) = default;                         \
    ~Class() override = default;                      \
    virtual Class& operator=(const Class&) = default; \
    Class& operator=(Class&&) = default;              \
    Class* Clone() const override {                   \
        return new Class(*this);                      \
    }                                                 \
                                                      \
    VEKA_FIELDS_OF(Class, Base)                       \
public:

#define VEKA_OBJECT_FIELD(Type, Name, Form, ...)                                                    \
    VEKA_DESCRIBE_AS(Name, ::veka::DescribeObjectField(#Name, &VekaSelf::Name, ::veka::form::Form)) \
public:                                                                                             \
    Type Name __VA_ARGS__;

#define VEKA_REAL(Name) VEKA_OBJECT_FIELD(double, Name, Keyword{}, = 0)
#define VEKA_INTEGER(Name) VEKA_OBJECT_FIELD(int, Name, Keyword{}, = 0)
#define VEKA_STRING(Name) VEKA_OBJECT_FIELD(CString, Name, Keyword{})
#define VEKA_POINT(Name) VEKA_OBJECT_FIELD(Owned<CVEKA_Coordinate>, Name, Keyword{})
/// A flag that a number sets: true exactly for 1.
#define VEKA_NUMBER_FLAG(Name) VEKA_OBJECT_FIELD(bool, Name, NumberFlag{}, = false)
/// A point that is told by the place of its "PT" level among the children.
#define VEKA_PLACED_POINT(Name, At) VEKA_OBJECT_FIELD(Owned<CVEKA_Coordinate>, Name, Place{At})
/// Objects in a level of their own, which replace what the field held.
#define VEKA_OBJECTS(Name) VEKA_OBJECT_LIST(Name, Keyword{})
#define VEKA_OBJECT_LIST(Name, Form) \
    VEKA_OBJECT_FIELD(Owned<CVEKA_3DObjectArray>, Name, Form, = Holding<VekaSelf>())

/// The group that leads with a clinched end share.
#define VEKA_CLINCH_GROUP    \
    VEKA_NUMBER_FLAG(CLINCH) \
    VEKA_REAL(CLINCHLENGTH)  \
    VEKA_REAL(CLINCHROTATE)
