#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "files/LineSource.h"
#include "leveltree/CECadClsLvl.h"
#include "leveltree/Pages.h"
#include "leveltree/QuoteLookAhead.h"
#include "leveltree/Scan.h"
#include "leveltree/Stack.h"
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
    /// The levels that were not closed, the outermost first.
    std::vector<OpenLevel> open;
    /// Line in which a string begins that was not closed; 0 if there is none.
    int openString = 0;
};

/// Reads the lines of one text into levels, byte by byte by the rules of the format.
///
/// The rules look accidental in places. All of them are required.
class LevelReader {
public:
    struct Options {
        char previousByte = 0;         ///< the byte before the first line
        bool stopAtDepthZero = false;  ///< stop after a line, not the first, that ends outside all levels
    };
    /// Receives a top-level level once it has been closed, and the line of its open parenthesis. An exception
    /// ends the reading.
    using TakeLevel = std::function<void(CECadClsLvl* level, int line)>;

    /// The levels are made in `pages` and are valid as long as the memory of the pages.
    LevelReader(Pages& pages, TakeLevel take, Options options)
        : m_pages(pages),
          m_take(std::move(take)),
          m_stopAtDepthZero(options.stopAtDepthZero),
          m_previousByte(options.previousByte) {}

    /// Reads the whole text. To be called once.
    LevelsRead Read(LineSource& source);
    /// Number of lines that have been read so far, also after an exception.
    int LineCount() const noexcept { return m_lineCount; }

    static constexpr unsigned kMaximumDepth = 20;

private:
    /// A level that has not been closed yet.
    struct OpenLevel {
        Stack<CString>::Height strings;  // where its name and its values begin on the stack of strings
        std::size_t children;            // number of its children, which are the last ones on their stack
        int line;
    };

    void ReadLevels(LineSource& source);
    const char* ReadOutside(const char* text, SpecialBytes& specialBytes);
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
    int m_lineCount = 0;
    unsigned m_depth = 0;  // signed in meaning; unsigned, so that it may wrap around
    std::array<OpenLevel, kMaximumDepth + 1> m_open;  // the first element is the place outside all levels
    OpenLevel* m_current = m_open.data();
    Stack<CString> m_strings;  // of each open level its name, then its values; none of them owns memory
    Stack<CECadClsLvl*> m_children;
    int m_strayLine = 0;  // of the first stray close parenthesis
    bool m_stopped = false;
    bool m_inString = false;
    const char* m_end = nullptr;        // of the block of lines
    const char* m_lineBegin = nullptr;  // without leading white space
    std::string_view m_line;         // the last line of the block that a string was in, from m_lineBegin on
    bool m_lookAheadOnLine = false;  // m_lookAhead has been started for m_line
    std::string m_earlierLines;      // of a string of several lines
    int m_stringLine = 0;            // where that string begins
    char m_previousByte;             // the last but one byte of an earlier line
    QuoteLookAhead m_lookAhead;
};

}  // namespace veka
