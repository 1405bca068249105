#pragma once

#include <cstdint>
#include <string>

namespace drawing {

/// Red, green and blue, each from 0 to 255.
struct Color {
    std::uint8_t red = 0, green = 0, blue = 0;

    bool operator==(const Color&) const = default;
};

/// The colour as in HTML: "#c83434".
std::string HtmlColor(Color color);

/// What a shape is for.
enum class Role : std::uint8_t {
    Copper,
    SolderMask,
    Paste,
    Silk,
    Assembly,
    Courtyard,
    Drill,
    KeepOut,
    Body,
    Lead,
    Pin,
    PinName,
    PinNumber,
    Label,
    Marking,    ///< what is printed on a body
    Dimension,  ///< a dimension line or its text
    Missing,    ///< the cross in place of a record that the part does not have
    Other       ///< what no other role fits: the edge of the board, remarks
};
/// The name of a role in lower case, for example "solder mask".
const char* NameOf(Role role);

/// The side of a board that something belongs to.
enum class Side : std::uint8_t { Top, Bottom, Inner, Both };
/// The name of a side in lower case, for example "top".
const char* NameOf(Side side);

/// Whether a drawing is shown on a dark or on a light ground.
enum class Theme { Dark, Light };

/// The colour behind a drawing.
Color Ground(Theme theme);
/// The colour of texts that belong to no layer.
Color Ink(Theme theme);
/// The usual colour of a role.
Color ColorOf(Role role, Side side, Theme theme);
/// A colour as it can be seen on the ground of a theme: much too dark and much too light ones are changed.
Color Readable(Color color, Theme theme);
/// True if an area of this role is filled with the ground, and has a line around it: a hole.
bool IsHollow(Role role);
/// How much of a layer covers what is below it, above 0 and up to 1.
double OpacityOf(Role role);

}  // namespace drawing
