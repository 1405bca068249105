#pragma once

#include <chrono>
#include <iosfwd>
#include <string>

namespace host {

/// A line of a terminal that says how far something with many items has come, and is written over and over.
class ProgressLine {
public:
    explicit ProgressLine(std::ostream& terminal) : m_terminal(terminal) {}

    /// Shows the number of items that are done, items for each second, the time left and the current item. It
    /// is written ten times a second at most.
    void Show(std::size_t done, std::size_t all, const std::string& current);
    /// Removes the line, so that a message can be written.
    void Clear();

private:
    using Clock = std::chrono::steady_clock;

    std::ostream& m_terminal;
    const Clock::time_point m_begin = Clock::now();
    Clock::time_point m_shown;
    bool m_visible = false;
};

/// The text of the line, at most 79 characters without bytes that control a terminal.
std::string ProgressText(std::size_t done, std::size_t all, std::chrono::milliseconds passed,
                         const std::string& current);

}  // namespace host
