#pragma once

namespace Math {

/// Three numbers: a point, a direction or a colour.
template <class T>
struct Vector {
    T X{}, Y{}, Z{};

    bool operator==(const Vector&) const = default;
};

}  // namespace Math
