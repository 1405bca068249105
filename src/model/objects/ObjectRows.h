#pragma once

#include "model/objects/CVEKA_3DObjectArray.h"
#include "model/objects/ObjectKinds.h"

/// The rows of the object kinds. An object kind is written as the table of its fields, and each row also says
/// how the parser fills the field. A field is public and has the name of its keyword.
///
///     /// A ring.
///     class CVEKA_3DOJ_DONUT : public CVEKA_3DOJ_AxisPivot {
///         VEKA_OBJECT(CVEKA_3DOJ_DONUT, CVEKA_3DOJ_AxisPivot)
///         VEKA_REAL(OUTERDIAM, "outer diameter")
///         VEKA_REAL(INNERDIAM, "inner diameter")
///         VEKA_REAL(THICKNESS, "size along Z")
///     };
///
/// The number of the kind is in `ObjectKinds.h`. The parser tries the rows of the class in their order, and
/// then the keywords of its base.

namespace veka::form {

/// The keyword is the field's name. The last value counts; a point or a list is replaced.
struct Keyword {};
/// As `Keyword`, with a second keyword for the same field. The later level in the file counts.
struct KeywordOr {
    const char* other;
};
/// A number, true only for 1.
struct NumberFlag {};
/// A flag, set by the word "TRUE". The last value counts.
struct WordFlag {};
/// A flag that the word "FALSE" clears and no word sets.
struct ClearedBy {
    const char* keyword;
};
/// A "PT" level at this position among all children of the object, counted from 0.
struct Place {
    int place;
};
/// The children of the keyword's level are appended, an unknown child as null.
struct Elements {};
/// Every child that no other row takes is appended, an unknown child as null.
struct OtherChildren {};
/// Every child is a list of objects, which replaces the field.
struct EveryChildAsList {};
/// No keyword fills the field.
struct None {};

}  // namespace veka::form

namespace veka {

/// What a row of an object kind says about its field.
template <class Member, class Form>
struct ObjectField {
    const char* name;
    const char* doc;  ///< meaning and unit
    Member member;
    Form form;
    std::nullptr_t getter = nullptr;
    std::nullptr_t setter = nullptr;
    std::string_view getterName{};
    std::string_view setterName{};
};

template <class Member, class Form>
constexpr ObjectField<Member, Form> DescribeObjectField(const char* name, const char* doc, Member member,
                                                        Form form) {
    return {.name = name, .doc = doc, .member = member, .form = form};
}

}  // namespace veka

/// The operations of an object kind. All copies are whole, and a new object has the number of its kind.
#define VEKA_OBJECT(Class, Base)        \
    VEKA_OBJECT_OPERATIONS(Class, Base) \
    VEKA_OBJECT_INIT(Class, Base, protected)

/// The same for a kind whose `Init` is private.
#define VEKA_OBJECT_WITH_PRIVATE_INIT(Class, Base) \
    VEKA_OBJECT_OPERATIONS(Class, Base)            \
    VEKA_OBJECT_INIT(Class, Base, private)

#define VEKA_OBJECT_INIT(Class, Base, Access)                                         \
    Access: /** Sets the number through `SetType`, and every field to its default. */ \
    void Init() {                                                                     \
        Base::Init();                                                                 \
        SetType(::veka::kKindNumber<Class>);                                          \
        ::veka::FieldAccess::CopyOwn(Class(), *this);                                 \
    }                                                                                 \
                                                                                      \
public:

/// The operations of an object kind but for `Init`.
#define VEKA_OBJECT_OPERATIONS(Class, Base)                  \
public:                                                      \
    Class() {                                                \
        CVEKA_3DObject::SetType(::veka::kKindNumber<Class>); \
    }                                                        \
    Class(const Class&) = default;                           \
    Class(Class&&) = default;                                \
    ~Class() override = default;                             \
    virtual Class& operator=(const Class& other) {           \
        if (this == &other) return *this;                    \
        Init();                                              \
        Base::operator=(other);                              \
        ::veka::FieldAccess::CopyOwn(other, *this);          \
        return *this;                                        \
    }                                                        \
    Class& operator=(Class&&) = default;                     \
    Class* Clone() const override {                          \
        return new Class(*this);                             \
    }                                                        \
                                                             \
    VEKA_FIELDS_OF(Class, Base)                              \
public:

/// A field of any type, with its default, the form in which the parser reads it, and its description.
#define VEKA_OBJECT_FIELD(Type, Name, Default, Form, Doc)                                          \
    VEKA_DESCRIBE_AS(Name, Doc,                                                                    \
                     ::veka::DescribeObjectField(#Name, Doc, &VekaSelf::Name, ::veka::form::Form)) \
public:                                                                                            \
    Type Name = Default;

#define VEKA_REAL(Name, Doc) VEKA_OBJECT_FIELD(double, Name, 0, Keyword{}, Doc)
#define VEKA_INTEGER(Name, Doc) VEKA_OBJECT_FIELD(int, Name, 0, Keyword{}, Doc)
#define VEKA_STRING(Name, Doc) VEKA_OBJECT_FIELD(CString, Name, {}, Keyword{}, Doc)
#define VEKA_POINT(Name, Doc) VEKA_OBJECT_FIELD(Owned<CVEKA_Coordinate>, Name, {}, Keyword{}, Doc)
/// A point that the position of its "PT" level among the children selects.
#define VEKA_PLACED_POINT(Name, At, Doc) VEKA_OBJECT_FIELD(Owned<CVEKA_Coordinate>, Name, {}, Place{At}, Doc)
/// A list of objects.
#define VEKA_OBJECT_LIST(Name, Form, Doc) \
    VEKA_OBJECT_FIELD(Owned<CVEKA_3DObjectArray>, Name, NewList<VekaSelf>(), Form, Doc)

/// The group that leads with a clinched end share.
#define VEKA_CLINCH_GROUP                                                                           \
    VEKA_OBJECT_FIELD(bool, CLINCH, false, NumberFlag{}, "true if the end of the lead is clinched") \
    VEKA_REAL(CLINCHLENGTH, "length of the clinched end")                                           \
    VEKA_REAL(CLINCHROTATE, "rotation of the clinched end in degrees")
