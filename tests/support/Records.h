#pragma once

#include <string>
#include <type_traits>

#include "model/Record.h"
#include "model/library/DistinctNames.h"

/// What the generic tests do with any record: fill it, compare it, and look for what two of them share.
namespace test {

template <class T, class = void>
inline constexpr bool kIsArray = false;
template <class T>
inline constexpr bool kIsArray<T, std::void_t<typename T::Element>> = true;

template <class T>
inline constexpr bool kIsOwned = false;
template <class T>
inline constexpr bool kIsOwned<Owned<T>> = true;

/// Gives every field a value of its own, none of them its default.
template <class T>
void Fill(T& value, int& seed) {
    if constexpr (std::is_same_v<T, bool>) {
        value = true;
    } else if constexpr (std::is_arithmetic_v<T>) {
        value = static_cast<T>(++seed);
    } else if constexpr (std::is_same_v<T, CString>) {
        value = CString("text " + std::to_string(++seed));
    } else if constexpr (std::is_same_v<T, CStringArray>) {
        for (int i = 0; i < 2; ++i) value.Add(CString("entry " + std::to_string(++seed)));
    } else if constexpr (std::is_same_v<T, DistinctNames>) {
        for (int i = 0; i < 20; ++i) value.Add(CString("name " + std::to_string(++seed)));
    } else if constexpr (kIsOwned<T>) {
        Fill(*value, seed);
    } else if constexpr (kIsArray<T>) {
        for (int i = 0; i < 2; ++i) {
            auto element = std::make_unique<typename T::Element>();
            Fill(*element, seed);
            value.Add(std::move(element));
        }
    } else {
        veka::ForEachField(value, [&](const auto&, auto& field) { Fill(field, seed); });
    }
}
template <class T>
T Filled(int seed) {
    T value{};
    Fill(value, seed);
    return value;
}

/// True if two values have the same content, while neither leads to anything of the other.
template <class T>
bool SameButApart(const T& a, const T& b) {
    if constexpr (std::is_arithmetic_v<T> || std::is_same_v<T, CString> || std::is_same_v<T, CStringArray>) {
        return a == b;
    } else if constexpr (std::is_same_v<T, DistinctNames>) {
        return a.Names() == b.Names();
    } else if constexpr (kIsOwned<T>) {
        return a.get() != b.get() && SameButApart(*a, *b);
    } else if constexpr (kIsArray<T>) {
        if (a.GetSize() != b.GetSize()) return false;
        for (INT_PTR i = 0; i < a.GetSize(); ++i)
            if (!a[i] || !b[i] || a[i] == b[i] || !SameButApart(*a[i], *b[i])) return false;
        return true;
    } else {
        bool same = true;
        veka::ForEachField(a, [&](const auto& description, const auto& field) {
            same = same && SameButApart(field, b.*description.member);
        });
        return same;
    }
}

}  // namespace test
