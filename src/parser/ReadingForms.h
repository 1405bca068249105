#pragma once

#include <memory>

#include "leveltree/CECadClsLvl.h"
#include "model/CVEKA_Color.h"
#include "model/CVEKA_Coordinate.h"
#include "parser/Numbers.h"

/// How parser methods read a level: its children, the four forms of reading its values, and the ways of a
/// result into the record that holds it. No form reads a value that is not there: what a level lacks keeps its
/// default, and what it has too much is ignored.
namespace veka {

/// The child levels of a level, for a range-based loop.
inline const CECadClsLvlArray& Children(const CECadClsLvl* level) noexcept {
    return *level->m_pChildren;
}

/// A flag is set by this text alone.
inline bool IsTrue(const CString& value) noexcept {
    return value == "TRUE";
}

/// Marks a number in a reading form as a flag.
struct Flag {
    int& field;
};

inline void Convert(const CString& value, CString& field) { field = value; }
inline void Convert(const CString& value, int& field) noexcept { field = ToInt(value); }
inline void Convert(const CString& value, double& field) noexcept { field = ToDouble(value); }
inline void Convert(const CString& value, Flag flag) noexcept { flag.field = IsTrue(value); }

/// First value: the others are ignored.
template <class Field>
void First(const CECadClsLvl* level, Field&& field) {
    if (level->m_aValues.GetSize() > 0) Convert(level->m_aValues[0], field);
}

/// Last value: each overwrites the one before it.
template <class Field>
void Last(const CECadClsLvl* level, Field&& field) {
    const INT_PTR count = level->m_aValues.GetSize();
    if (count > 0) Convert(level->m_aValues[count - 1], field);
}

/// By position: value 0 to the first field, value 1 to the second, and so on.
template <class... Fields>
void ByPosition(const CECadClsLvl* level, Fields&&... fields) {
    const CStringArray& values = level->m_aValues;
    INT_PTR next = 0;
    const auto read = [&](auto&& field) {
        if (next < values.GetSize()) Convert(values[next++], field);
    };
    (read(fields), ...);
}

/// Point: the first three values; those that are missing are 0.
inline void Point(const CECadClsLvl* level, CVEKA_Coordinate& point) {
    double x = 0, y = 0, z = 0;
    ByPosition(level, x, y, z);
    point.SetX(x);
    point.SetY(y);
    point.SetZ(z);
}

/// Colour: the first three values; those that are missing are 0.
inline void Color(const CECadClsLvl* level, CVEKA_Color& color) {
    int red = 0, green = 0, blue = 0;
    ByPosition(level, red, green, blue);
    color.SetRed(red);
    color.SetGreen(green);
    color.SetBlue(blue);
}

/// List: every value is appended.
inline void List(const CECadClsLvl* level, CStringArray& list) { list.Append(level->m_aValues); }

/// Takes a fresh result into an owned field, with the effects of the field's `operator=`, and frees it. Null
/// leaves the field as it is.
template <class T>
void Take(Owned<T>& field, T* fresh) {
    const std::unique_ptr<T> owner(fresh);
    if (owner) *field = std::move(*owner);
}

/// Appends a fresh result to an array, which takes it over. Null appends nothing.
template <class Array, class T>
void Append(Array& array, T* fresh) {
    std::unique_ptr<T> owner(fresh);
    if (owner) array.Add(std::move(owner));
}

}  // namespace veka
