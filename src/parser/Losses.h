#pragma once

#include <string_view>

#include "parser/Conversions.h"

/// What a conversion leaves out of a value: `LossOf`, chosen by the type of the field as `Convert` is. A conversion of its
/// own has a `LossOf` of its own beside its `Convert`.
namespace veka {

enum class Loss : unsigned char {
    None,
    NoNumber,         ///< the text does not begin with a number; the number is 0
    TextAfterNumber,  ///< the number ends before the text does
    Wraps,            ///< a whole number of more than 32 bits
    OutOfRange,       ///< a decimal number that becomes infinite or 0
    NoFlag,           ///< neither TRUE nor FALSE; the flag is cleared
    NotOne,           ///< not the number 1, and the flag is cleared; 0 is no loss
    NotByteOne,       ///< not the byte of code 1, and the flag is cleared
    NeverSet,         ///< no word sets the flag, and the word is not FALSE
    UnknownTarget,    ///< a word that is no target
    NoPoint,          ///< a version without a point
    MinorNumber,      ///< a version whose minor number is not what comes after the point
};

/// An empty value is no loss: the file gives nothing.
Loss LossOfWhole(std::string_view text) noexcept;
Loss LossOfReal(std::string_view text) noexcept;

template <class Field>
Loss LossOf(const CString&, const Field&) noexcept {
    return Loss::None;
}
inline Loss LossOf(const CString& value, const int&) noexcept {
    return LossOfWhole(value.View());
}
inline Loss LossOf(const CString& value, const double&) noexcept {
    return LossOfReal(value.View());
}
inline Loss LossOf(const CString& value, const FromOne&) noexcept {
    return LossOfWhole(value.View());
}
inline Loss LossOf(const CString& value, const Flag&) noexcept {
    return value == "TRUE" || value == "FALSE" || value.IsEmpty() ? Loss::None : Loss::NoFlag;
}

}  // namespace veka
