#pragma once

#include <vector>

#include "platform/CString.h"

namespace veka {

/// What the reading of a text found out about its levels as a whole.
struct LevelsRead {
    enum class Structure {
        Balanced,          ///< each level was closed
        Unclosed,          ///< the text ended inside a level
        StrayParenthesis,  ///< a close parenthesis had no level to close
        TooDeep,           ///< a level was opened inside the maximum number of open levels
    };
    /// A level that was not closed.
    struct OpenLevel {
        CString name;
        int line;  ///< of its open parenthesis
    };

    Structure structure = Structure::Balanced;
    /// True if reading stopped at an open parenthesis: `TooDeep`, or a level after a stray parenthesis.
    bool stopped = false;
    /// Open parentheses less close parentheses.
    int depth = 0;
    /// Line of the parenthesis that is wrong; for `Unclosed` the last line. 0 if the levels are balanced.
    int breakLine = 0;
    /// Close parentheses that had no level to close.
    int strayParentheses = 0;
    /// The levels that were not closed, the outermost first.
    std::vector<OpenLevel> open;
    /// Line in which a string begins that was not closed; 0 if there is none.
    int openString = 0;
};

}  // namespace veka
