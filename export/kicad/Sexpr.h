#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/Plane.h"

namespace kicad {

/// A text as KiCad quotes texts, in UTF-8. A byte that is no UTF-8 counts as a character of Windows-1252.
/// What no text can hold becomes U+FFFD.
std::string Quoted(std::string_view bytes);

/// A number with up to some digits behind the point, without an exponent and without zeros at the end.
std::string Decimal(double value, int digits);

/// True if KiCad can hold a length in millimetres: a board's lengths are 32 bits of nanometres.
bool Holds(double millimetres);
bool Holds(drawing::Point point);

/// Writes S-expressions. Lists are written one to a line, or inside of the line of the list around them.
class Sexpr {
public:
    /// Begins a list on a line of its own.
    Sexpr& Line(std::string_view name);
    /// Begins a list in the line of the list around it.
    Sexpr& Open(std::string_view name);
    /// Ends the innermost list.
    Sexpr& Close();

    /// Adds lines that were written before, each of which begins with a line feed.
    Sexpr& Lines(std::string_view lines);

    // Values of the innermost list.
    Sexpr& Word(std::string_view word);
    Sexpr& Text(std::string_view bytes);
    /// A length in millimetres, to the nanometre.
    Sexpr& Length(double millimetres);
    /// An angle in degrees, from 0 up to 360.
    Sexpr& Angle(double degrees);
    /// A point whose Y points up, as two lengths whose Y points down.
    Sexpr& Down(drawing::Point point);
    /// A point whose Y points up, as it is.
    Sexpr& Up(drawing::Point point);

    /// How many bytes were written.
    std::size_t Size() const { return m_text.size(); }
    /// What was written; every list must be closed.
    std::string Take();

private:
    std::string m_text;
    std::vector<bool> m_lists;  // of each open list, whether a list inside of it has a line of its own
};

}  // namespace kicad
