#include "host/ProgressLine.h"

#include <cmath>
#include <ostream>

#include "platform/Printable.h"
#include "platform/Utf8.h"

namespace host {

namespace {

constexpr size_t kWidth = 79;

/// A duration as a user reads it: "12 s", "3 min 5 s".
std::string Duration(std::uint64_t seconds) {
    if (seconds < 60) return std::to_string(seconds) + " s";
    if (seconds < 3600) return std::to_string(seconds / 60) + " min " + std::to_string(seconds % 60) + " s";
    return std::to_string(seconds / 3600) + " h " + std::to_string(seconds / 60 % 60) + " min";
}

std::uint64_t Rounded(double value) {
    return static_cast<std::uint64_t>(std::llround(value));
}

/// The first characters of a text.
std::string Front(const std::string& text, size_t characters) {
    size_t size = 0;
    for (; characters > 0 && size < text.size(); --characters)
        size += std::max<size_t>(1, veka::Utf8Length(std::string_view(text).substr(size)));
    return text.substr(0, size);
}

}  // namespace

std::string ProgressText(std::size_t done, std::size_t all, std::chrono::milliseconds passed,
                         const std::string& current) {
    std::string text = std::to_string(done) + '/' + std::to_string(all);
    const auto time = static_cast<double>(passed.count()) / 1000;
    if (done > 0 && time > 0) {
        const double rate = static_cast<double>(done) / time;
        text += "  " + std::to_string(Rounded(rate)) + " parts/s";
        if (rate > 0) text += "  " + Duration(Rounded(static_cast<double>(all - done) / rate)) + " left";
    }
    // A name that is longer than the line would be seen only in part, and would cost time to print.
    text += "  " + veka::Printable(current.substr(0, 4 * kWidth));
    return Front(text, kWidth);
}

void ProgressLine::Show(std::size_t done, std::size_t all, const std::string& current) {
    const auto now = Clock::now();
    if (m_visible && now - m_shown < std::chrono::milliseconds(100)) return;
    m_shown = now;
    m_visible = true;
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(now - m_begin);
    m_terminal << '\r' << ProgressText(done, all, passed, current) << "\x1B[K" << std::flush;
}

void ProgressLine::Clear() {
    if (m_visible) m_terminal << "\r\x1B[K" << std::flush;
    m_visible = false;
}

}  // namespace host
