#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "parser/ReadTracer.h"
#include "report/Region.h"

namespace veka {

/// A level that knows where it stands in the text. The levels of a text are numbered in the order of their
/// open parentheses.
struct PositionedLevel : NumberedLevel {
    Region region;               ///< with both parentheses
    Region nameRegion;           ///< empty for a level without a name
    std::vector<Region> values;  ///< with the quotes of strings
    PositionedLevel* parent = nullptr;
    INT_PTR place = 0;  ///< among the children of the parent; not set in a level that was not closed
    bool closed = false;

    PositionedLevel* Child(INT_PTR index) const {
        return static_cast<PositionedLevel*>(m_pChildren->GetAt(index));
    }
};

/// Something that the reader of the levels drops or changes in silence.
struct TextFault {
    enum class What {
        StrayParenthesis,  ///< a close parenthesis without a level; not counted further
        RestAfterStray,    ///< a level after a stray parenthesis; the reading ends there
        TooDeep,           ///< a level inside of 20 open levels; the reading ends there
        OpenString,        ///< a string that never ends
        Outside,           ///< text outside of all levels
        LostToken,         ///< a token directly before an opening quote
        CommentInString,   ///< a line of a string that is taken for a comment
        BlankAdded,        ///< a string whose closing quote begins a line gets a blank more
        TabInToken,        ///< a tab, which does not separate tokens
    };
    What what;
    Region region;
    std::string text;       ///< at most 80 bytes of it
    std::size_t level = 0;  ///< the number of the level around it; `ReadTracer::kNone` outside of all levels
};

/// The levels of a text with their places.
struct PositionedText {
    std::vector<std::unique_ptr<PositionedLevel>> roots;  ///< the closed top-level levels
    std::vector<std::unique_ptr<PositionedLevel>>
        open;                              ///< the levels that were not closed, the outermost first
    std::vector<PositionedLevel*> levels;  ///< all levels by their numbers
    std::vector<TextFault> faults;
    /// The innermost level that seems to lack its close parenthesis, by the indentation; `ReadTracer::kNone`
    /// without one.
    std::size_t suspect = ReadTracer::kNone;
    Place end;  ///< of the text

    ~PositionedText();
    PositionedText() = default;
    PositionedText(PositionedText&&) = default;
    PositionedText& operator=(PositionedText&&) = default;
};

/// Reads a text into levels by the rules of `LevelReader`, and notes where each level and each value stands.
/// The time and the memory are proportional to the size of the text.
PositionedText ReadWithPositions(std::string_view text);

}  // namespace veka
