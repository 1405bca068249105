#pragma once

#include <iosfwd>
#include <string_view>

namespace host {

/// Writes the program's messages, one line each. No text from a file or a path reaches the terminal raw.
class Messages {
public:
    explicit Messages(std::ostream& err) : m_err(err) {}
    void Say(std::string_view sentence);

private:
    std::ostream& m_err;
};

}  // namespace host
