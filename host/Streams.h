#pragma once

#include <iosfwd>

namespace host {

/// What the program reads from and writes to.
struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;      ///< messages, questions and prompts
    bool terminal = false;  ///< a user at a terminal answers on `in`
    bool live = false;      ///< `err` is a terminal, on which a line can be written over
};

}  // namespace host
