#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "files/LineSource.h"
#include "leveltree/CECadClsLvl.h"
#include "leveltree/LevelsRead.h"
#include "leveltree/Pages.h"
#include "leveltree/QuoteLookAhead.h"
#include "leveltree/Scan.h"
#include "leveltree/Stack.h"
#include "platform/CString.h"
#include "platform/Watch.h"

namespace veka {

/// Reads the lines of one text into levels, byte by byte by the rules of the format.
///
/// Some rules look accidental (Q28 to Q31). Files depend on them.
class LevelReader {
public:
    struct Options {
        char previousByte = 0;         ///< the byte before the first line
        bool stopAtDepthZero = false;  ///< stop after a line, not the first, that ends outside all levels
        /// Count the levels, and call `Watch::Tick` once for each `kTickBytes` of the text.
        bool watched = false;
    };
    /// Receives a top-level level when it has been closed, and the line of its open parenthesis. The level
    /// and the levels below it are users of the pages until they are deleted. An exception ends the reading.
    using TakeLevel = std::function<void(CECadClsLvl* level, int line)>;

    /// The levels are made in `pages` and are valid as long as the memory of the pages.
    LevelReader(Pages& pages, TakeLevel take, Options options)
        : m_pages(pages),
          m_take(std::move(take)),
          m_stopAtDepthZero(options.stopAtDepthZero),
          m_watched(options.watched),
          m_previousByte(options.previousByte) {}

    /// Reads the whole text. Must be called only once.
    LevelsRead Read(LineSource& source);
    /// Number of lines that have been read so far, also after an exception.
    int LineCount() const noexcept { return m_lineCount; }
    /// Number of levels that have been closed so far, if reading is watched.
    std::uint64_t LevelCount() const noexcept { return m_levelCount; }
    /// Number of bytes that have been read so far: at the end, or as of the last tick. The end of line that a
    /// `LineSource` adds counts too.
    std::uint64_t BytesRead() const noexcept { return m_bytesBefore + m_bytesInBlock; }

    static constexpr unsigned kMaximumDepth = 20;
    static constexpr std::size_t kTickBytes = std::size_t{64} * 1024;

private:
    /// A level that has not been closed yet.
    struct OpenLevel {
        Stack<CString>::Height strings;  // where its name and its values begin on the stack of strings
        std::size_t children;            // number of its children, which are the last ones on their stack
        int line;
    };

    void ReadLevels(LineSource& source);
    template <bool kWatched>
    const char* ReadOutside(const char* text, SpecialBytes& specialBytes);
    void Tick(const char* text);
    const char* ReadInside(const char* begin);
    const char* NextLine(const char* text);
    const char* BeginLine(const char* text);
    const char* BeginStringLine(const char* text);
    bool EndLine(const char* end);
    const char* LineEnd(const char* text) const;
    bool IsSuspect(std::string_view line, std::size_t quote) const;
    void CloseString(std::string_view lastBytes, bool opensLine);
    CString Keep(std::string_view text);
    void CommitString(std::string_view text);
    LevelsRead Summary() const;

    Pages& m_pages;
    const TakeLevel m_take;
    const bool m_stopAtDepthZero;
    const bool m_watched;
    int m_lineCount = 0;
    std::uint64_t m_levelCount = 0;
    std::uint64_t m_bytesBefore = 0;  // in earlier blocks
    std::size_t m_bytesInBlock = 0;
    std::size_t m_nextTick = 0;     // in the block
    const char* m_block = nullptr;  // of lines
    unsigned m_depth = 0;  // less than 0 after a stray parenthesis; unsigned, so that it can wrap around
    std::array<OpenLevel, kMaximumDepth + 1>
        m_open;  // the first element stands for the place outside all levels
    OpenLevel* m_current = m_open.data();
    Stack<CString> m_strings;  // for each open level its name and its values; no string owns memory
    Stack<CECadClsLvl*> m_children;
    std::size_t m_made = 0;  // levels since the last top-level one
    int m_strayLine = 0;     // of the first stray close parenthesis
    bool m_stopped = false;
    bool m_inString = false;
    const char* m_end = nullptr;        // of the block
    const char* m_lineBegin = nullptr;  // without leading white space
    std::string_view m_line;         // the last line of the block that a string was in, from m_lineBegin on
    bool m_lookAheadOnLine = false;  // m_lookAhead has been started for m_line
    std::string m_earlierLines;      // of a string of several lines
    WatchedMemory m_earlierMemory;
    int m_stringLine = 0;  // where that string begins
    char m_previousByte;   // the last but one byte of an earlier line
    QuoteLookAhead m_lookAhead;
};

}  // namespace veka
