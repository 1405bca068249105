#pragma once

#include <string>
#include <vector>

namespace host {

/// The arguments after the program's name, in UTF-8.
std::vector<std::string> ProgramArguments();

/// Makes the terminal of the process take and give UTF-8, until this is destroyed.
class Utf8Terminal {
public:
    Utf8Terminal();
    ~Utf8Terminal();
    Utf8Terminal(const Utf8Terminal&) = delete;
    Utf8Terminal& operator=(const Utf8Terminal&) = delete;

private:
    unsigned m_input, m_output;  // the former character sets
};

}  // namespace host
