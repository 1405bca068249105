#pragma once

#include "parser/Numbers.h"
#include "platform/CStringArray.h"

/// How the text of a value becomes the content of a field: `Convert`, chosen by the type of the field. Where the type is
/// not enough, a row names a conversion around the field, as in `First(Flag(general.Visible))`.
namespace veka {

inline void Convert(const CString& value, CString& field) {
    field = value;
}
inline void Convert(const CString& value, int& field) noexcept {
    field = ToInt(value);
}
inline void Convert(const CString& value, double& field) noexcept {
    field = ToDouble(value);
}

/// A number that is 1 for the text "TRUE" and 0 for any other text.
struct Flag {
    int& field;
    explicit Flag(int& number) : field(number) {}
};
inline void Convert(const CString& value, Flag flag) noexcept {
    flag.field = value == "TRUE";
}

/// A number that the file counts from 1 and the model from 0.
struct FromOne {
    int& field;
    explicit FromOne(int& number) : field(number) {}
};
inline void Convert(const CString& value, FromOne number) noexcept {
    number.field = static_cast<int>(static_cast<unsigned>(ToInt(value)) - 1u);
}

/// The list of all values that are left, in `ByPosition`.
struct Rest {
    CStringArray& field;
    explicit Rest(CStringArray& list) : field(list) {}
};
inline void Convert(const CString& value, Rest rest) {
    rest.field.Add(value);
}

}  // namespace veka
