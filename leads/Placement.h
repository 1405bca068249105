#pragma once

#include <array>

#include "model/objects/CVEKA_3DOJ_RotMirror.h"

namespace veka {

/// A place in space, or a direction.
struct Position {
    double x = 0, y = 0, z = 0;

    bool operator==(const Position&) const = default;
};

/// How something is turned, mirrored and moved: three rows of a matrix. The last column is the move.
struct Placement {
    std::array<std::array<double, 4>, 3> rows{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};

    Position operator()(const Position& position) const;
    /// The position as a direction: turned and mirrored, not moved.
    Position Turned(const Position& direction) const;
    /// This placement after another one.
    Placement After(const Placement& first) const;
    /// False where a number is infinite or no number.
    bool IsFinite() const;

    bool operator==(const Placement&) const = default;
};

/// The placement of what stands on a pin: turned about Z by the pin's rotation in degrees, then moved to the
/// pin's point. What is drawn for a pin has the pin's point as its origin and X as the direction away from
/// the body.
Placement PlaceOfPin(const CVEKA_Coordinate& point, double rotation);

/// The placement of a lead or a drawn object in the frame of its pin: mirrored (X becomes -X) where the
/// mirror word says so, turned about X, then Y, then Z, and moved to its point.
Placement PlaceOfObject(const CVEKA_3DOJ_RotMirror& object);

/// The placement of an object's frame in the package. Some files write the turn of a pin at the pin and once
/// more at each of its objects. One turn is meant, so an object with the pin's own turn about Z is only moved
/// by its pin.
Placement PlaceOnPin(const CVEKA_3DObject& object, const CVEKA_Coordinate& pinPoint, double pinRotation);

/// True for the words that mean mirrored: Y, YES, TRUE and 1, in upper or lower case. Any other word means
/// not mirrored.
bool IsMirrored(const CString& word);

/// The millimetres of one unit of a part, by the text of its unit; 0 for a text that is no unit of length.
double MillimetersOfUnit(const CString& unit);

}  // namespace veka
