#pragma once

#include <memory>
#include <string_view>

#include "files/LineSource.h"
#include "platform/Watch.h"

namespace veka {

/// The lines of a text in memory. The text must live as long as the source.
class MemoryLines final : public LineSource {
public:
    explicit MemoryLines(std::string_view text) noexcept : m_rest(text) {}

    bool ReadLines(std::string_view& lines) override;

private:
    std::string_view m_rest;  // the text that has not been given yet
    WatchedMemory m_watched;
    std::unique_ptr<char[]> m_tail;  // a copy of the last lines, followed by bytes that can be read
};

}  // namespace veka
