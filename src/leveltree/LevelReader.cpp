#include "leveltree/LevelReader.h"

#include <cstring>
#include <limits>
#include <stdexcept>
#include <utility>

#include "platform/Assert.h"

namespace veka {

namespace {

static_assert(LineSource::kReadable >= SpecialBytes::kBlock);
static_assert(Stack<CString>::kReadable >= CECadClsLvl::kReadable);

bool IsHigh(char byte) {
    return static_cast<unsigned char>(byte) >= 0x80;
}

/// True if the byte before `index` is the second byte of a double-byte character. A byte with the top bit set
/// is the first byte of such a character, unless it is a second byte itself. So in a run of bytes with the
/// top bit set every other one is a first byte.
bool FollowsTrailByte(std::string_view line, std::size_t index) {
    std::size_t run = index - 1;
    while (run > 0 && IsHigh(line[run - 1])) --run;
    return (index - 1 - run) % 2 == 1;
}

/// The text from `begin` to a line feed, without a carriage return directly before the line feed.
std::string_view WithoutLineEnd(const char* begin, const char* feed) {
    if (feed != begin && feed[-1] == '\r') --feed;
    return {begin, static_cast<std::size_t>(feed - begin)};
}

}  // namespace

LevelsRead LevelReader::Read(LineSource& source) {
    VEKA_ASSERT(m_lineCount == 0);
    ReadLevels(source);
    return Summary();
}

void LevelReader::ReadLevels(LineSource& source) {
    for (std::string_view lines; source.ReadLines(lines);) {
        VEKA_ASSERT(lines.empty() || lines.back() == '\n');
        const char* text = lines.data();
        m_block = text;
        m_end = text + lines.size();
        if (m_watched) Tick(text);
        SpecialBytes specialBytes(text);
        m_line = {};
        text = m_inString ? BeginStringLine(text) : BeginLine(text);
        while (text != m_end) {
            text = m_inString  ? ReadInside(text)
                   : m_watched ? ReadOutside<true>(text, specialBytes)
                               : ReadOutside<false>(text, specialBytes);
            if (!text) {
                m_bytesInBlock = static_cast<std::size_t>(LineEnd(m_lineBegin) + 1 - m_block);
                return;
            }
        }
        m_bytesBefore += lines.size();
        m_bytesInBlock = 0;
    }
}

/// The next line that is not a comment, or the end of the block.
inline const char* LevelReader::NextLine(const char* text) {
    for (; text != m_end; text = LineEnd(text) + 1) {
        m_lineCount = static_cast<int>(static_cast<unsigned>(m_lineCount) + 1);
        if (text[0] != '/' || text[1] != '/') break;
    }
    return text;
}

/// Begins the next line outside a string. Returns the first token of the line, or the end of the block.
inline const char* LevelReader::BeginLine(const char* text) {
    text = NextLine(text);
    if (text != m_end) text = m_lineBegin = SkipWhiteSpace(text);
    return text;
}

/// Begins the next line inside a string. White space at the beginning of the line is part of the string.
const char* LevelReader::BeginStringLine(const char* text) {
    text = NextLine(text);
    if (text == m_end) return text;
    m_earlierLines += '\n';
    m_earlierMemory.Follow(m_earlierLines.capacity());
    return m_lineBegin = text;
}

/// Ends a line at the end of its text; false if reading is to stop.
inline bool LevelReader::EndLine(const char* end) {
    if (end - m_lineBegin > 1) m_previousByte = end[-2];
    return !m_stopAtDepthZero || m_lineCount == 1 || m_depth != 0;
}

/// Tells the watch how far reading has come.
void LevelReader::Tick(const char* text) {
    m_bytesInBlock = static_cast<std::size_t>(text - m_block);
    m_nextTick = m_bytesInBlock + kTickBytes;
    Watch::Tick();
}

/// Reads tokens to the next opening quote and returns the place after the quote, or reads to the end of the
/// block and returns that. Null if reading is to stop.
template <bool kWatched>
const char* LevelReader::ReadOutside(const char* text, SpecialBytes& specialBytes) {
    // Copies of members: the compiler keeps them in registers.
    SpecialBytes specials = specialBytes;
    CString* top = m_strings.Top();
    OpenLevel* current = m_current;
    // Adds a token. The caller needs none of its variables after that: what is needed after the calls in here
    // takes registers that the loop needs.
    const auto commit = [&](const char* begin, const char* end) {
        const auto size = static_cast<std::size_t>(end - begin);
        if (size == 0 || current == m_open.data()) return;
        if (size <= CString::kMaximumInside)
            new (top) CString(CString::Inside(begin, size));
        else
            new (top) CString(Keep({begin, size}));
        top = m_strings.Pushed(top);
    };
    const auto close = [&] {
        --m_depth;
        if (current == m_open.data()) {
            if (m_strayLine == 0) m_strayLine = m_lineCount;
            return;
        }
        if (m_strings.HeightOf(top) == current->strings) {  // the level has no name
            new (top) CString;
            top = m_strings.Pushed(top);
        }
        CString* const strings = m_strings.At(current->strings);
        const std::size_t children = current->children;
        CECadClsLvl* level = CECadClsLvl::Make(m_pages, static_cast<int>(m_depth) + 1, {strings, top},
                                               m_children.Last(children));
        ++m_made;
        top = strings;
        if constexpr (kWatched) ++m_levelCount;
        --current;
        if (current == m_open.data()) [[unlikely]] {
            m_children.Pop(children);
            m_pages.AddUsers(std::exchange(m_made, 0));
            m_take(level, current[1].line);
        } else {
            m_children.Replace(children, level);
            ++current->children;
        }
    };

    specials.Seek(text);
    for (;;) {
        const char* end = specials.Next();
        if constexpr (kWatched)
            if (static_cast<std::size_t>(end - m_block) >= m_nextTick) [[unlikely]]
                Tick(end);
        const char c = *end;
        const char* const begin = text;
        if (c == ' ') {
            text = end + 1;
            commit(begin, end);
        } else if (c == ')') {
            text = end + 1;
            commit(begin, end);
            close();
        } else if (c == '(') {
            text = end + 1;
            commit(begin, end);
            if (m_depth >= kMaximumDepth) {
                ++m_depth;
                m_stopped = true;
                text = nullptr;
                break;
            }
            ++m_depth;
            *++current = {m_strings.HeightOf(top), 0, m_lineCount};
        } else if (c == '\n') {
            const char* feed = end;
            if (feed != m_lineBegin && feed[-1] == '\r') --end;
            // If the next line is a comment, the token goes on over the comment. It is committed here all the
            // same: no caller can see a difference.
            text = feed + 1;
            const bool goesOn = EndLine(end);
            commit(begin, end);
            if (!goesOn) {
                text = nullptr;
                break;
            }
            text = BeginLine(text);
            if (text == m_end) break;
            specials.Seek(text);
        } else if (c == '"' && (end == text || end[-1] != '\\')) {
            m_inString = true;  // a token directly before the quote is dropped
            text = end + 1;
            break;
        }
        // Any other byte is part of the token.
    }
    specialBytes = specials;
    m_strings.SetTop(top);
    m_current = current;
    return text;
}

/// Reads a string from `begin` on, which is its first byte or the beginning of a further line. Returns the
/// place after its closing quote, or the beginning of the next line. Null if reading is to stop.
const char* LevelReader::ReadInside(const char* begin) {
    if (m_line.data() != m_lineBegin) {
        m_line = WithoutLineEnd(m_lineBegin, LineEnd(begin));
        m_lookAheadOnLine = false;
    }
    const std::string_view line = m_line;
    const auto first = static_cast<std::size_t>(begin - line.data());
    bool asked = false;
    for (std::size_t i = first;; ++i) {
        i = line.find('"', i);
        if (i == std::string_view::npos) {
            if (begin != m_lineBegin) m_stringLine = m_lineCount;
            m_earlierLines += line.substr(first);
            const char* end = line.data() + line.size();
            return EndLine(end) ? BeginStringLine(LineEnd(end) + 1) : nullptr;
        }
        if (!IsSuspect(line, i)) {
            CloseString(line.substr(first, i - first), i == 0);
            return line.data() + i + 1;
        }
        if (!m_lookAheadOnLine) m_lookAhead.StartLine(line);
        if (!asked) m_lookAhead.StartString(first);
        asked = m_lookAheadOnLine = true;
        if (m_lookAhead.EndsAt(i)) {
            m_earlierLines += line.substr(first, i - first);
            m_inString = false;
            CommitString(m_earlierLines);
            m_earlierLines.clear();
            return line.data() + i + 1;
        }
    }
}

/// The next line feed. Each line of a block ends with one.
const char* LevelReader::LineEnd(const char* text) const {
    return static_cast<const char*>(std::memchr(text, '\n', static_cast<std::size_t>(m_end - text)));
}

/// True if the quote may be escaped: the byte before the quote is a backslash that is not the second byte of
/// a double-byte character.
bool LevelReader::IsSuspect(std::string_view line, std::size_t quote) const {
    // Q28: the byte before the first byte of a line is a byte of an earlier line.
    if (quote == 0) return m_previousByte == '\\';
    return line[quote - 1] == '\\' && !FollowsTrailByte(line, quote);
}

/// Ends a string at a quote that is not escaped. Q30: an empty string becomes one blank. Q31: a string whose
/// closing quote is the first byte of a line gets one blank more.
void LevelReader::CloseString(std::string_view lastBytes, bool opensLine) {
    m_inString = false;
    if (m_earlierLines.empty()) {
        CommitString(lastBytes.empty() ? " " : lastBytes);
        return;
    }
    m_earlierLines += lastBytes;
    if (opensLine) m_earlierLines += ' ';
    CommitString(m_earlierLines);
    m_earlierLines.clear();
}

/// A string with this text. The memory for a long text is taken from the pages.
CString LevelReader::Keep(std::string_view text) {
    if (text.size() <= CString::kMaximumInside) return CString(text);
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        throw std::length_error("a token of more than 2^31 - 1 bytes");
    char* copy = m_pages.Allocate<char>(text.size() + 1);
    std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    return CString::Borrow({copy, text.size()});
}

/// Adds a string, which is not empty, to the current level. Q30: one blank means the empty string, unless the
/// string is the name of the level.
void LevelReader::CommitString(std::string_view text) {
    if (m_current == m_open.data()) return;
    const bool value = m_strings.HeightOf(m_strings.Top()) > m_current->strings;
    new (m_strings.Top()) CString(value && text == " " ? CString() : Keep(text));
    m_strings.Push();
}

/// What is known about the levels at the end of the text.
LevelsRead LevelReader::Summary() const {
    using Structure = LevelsRead::Structure;
    LevelsRead read;
    read.stopped = m_stopped;
    read.depth = static_cast<int>(m_depth);
    if (m_strayLine > 0)
        read.structure = Structure::StrayParenthesis;
    else if (m_stopped)
        read.structure = Structure::TooDeep;
    else if (m_depth > 0)
        read.structure = Structure::Unclosed;
    if (read.structure != Structure::Balanced) read.breakLine = m_strayLine > 0 ? m_strayLine : m_lineCount;
    // The level that was too deep is not among the open ones.
    const auto open = static_cast<unsigned>(m_current - m_open.data());
    read.strayParentheses = static_cast<int>(open - (m_depth - (m_stopped ? 1 : 0)));
    for (const OpenLevel* level = m_open.data() + 1; level <= m_current; ++level) {
        const bool last = level == m_current;
        const bool named = (last ? m_strings.HeightOf(m_strings.Top()) : level[1].strings) > level->strings;
        read.open.push_back({named ? *m_strings.At(level->strings) : CString(), level->line});
    }
    if (m_inString) read.openString = m_stringLine;
    return read;
}

}  // namespace veka
