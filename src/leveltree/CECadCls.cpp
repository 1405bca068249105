#include "leveltree/CECadCls.h"

#include <array>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

#include "leveltree/Messages.h"
#include "leveltree/QuoteLookAhead.h"
#include "leveltree/Scan.h"
#include "leveltree/Stack.h"
#include "platform/AfxMessageBox.h"
#include "platform/CStdioFile.h"

namespace {

constexpr unsigned kMaximumDepth = 20;
static_assert(CStdioFile::kReadable >= veka::SpecialBytes::kBlock);

bool IsHigh(char byte) {
    return static_cast<unsigned char>(byte) >= 0x80;
}

/// True if the byte before `index` is the second half of a double-byte character. Any byte with the top bit
/// set leads such a character unless it is a second half itself, so of a run of them every other one leads.
bool FollowsTrailByte(std::string_view line, size_t index) {
    size_t run = index - 1;
    while (run > 0 && IsHigh(line[run - 1])) --run;
    return (index - 1 - run) % 2 == 1;
}

/// The text from `begin` to a line feed, without the carriage return directly before it.
std::string_view WithoutLineEnd(const char* begin, const char* feed) {
    if (feed != begin && feed[-1] == '\r') --feed;
    return {begin, static_cast<size_t>(feed - begin)};
}

/// One read of a file: the state that lives from its first line to its last.
class Reader {
public:
    Reader(CECadCls& tree, char previousByte, veka::Pages& pages,
           const std::function<void(CECadClsLvl*)>& take)
        : m_tree(tree), m_pages(pages), m_take(take), m_previousByte(previousByte) {}

    int Read(CStdioFile& file);

private:
    /// A level that has not been closed yet. What it holds stands on the stacks of values and children, above
    /// what the levels around it hold.
    struct OpenLevel {
        CString name;
        size_t values = 0;
        size_t children = 0;
    };

    const char* ReadLine(const char* begin, veka::SpecialBytes& specials);
    const char* ReadOutside(const char* begin, veka::SpecialBytes& specials);
    const char* ReadInside(const char* begin);
    const char* LineEnd(const char* text) const;
    bool IsSuspect(std::string_view line, size_t quote) const;
    void CloseString(std::string_view lastBytes, bool opensLine);
    CString Keep(std::string_view text);
    CString* NextToken();
    void Commit(std::string_view token);
    void CommitString(std::string_view text);
    bool Open();
    void Fail();
    void Close();

    CECadCls& m_tree;
    veka::Pages& m_pages;
    const std::function<void(CECadClsLvl*)>& m_take;
    unsigned m_depth = 0;  // signed in meaning; unsigned, so that counting wraps
    std::array<OpenLevel, kMaximumDepth> m_open;
    OpenLevel* m_current = nullptr;
    veka::Stack<CString> m_values;  // none has memory of its own
    veka::Stack<CECadClsLvl*> m_children;
    bool m_inString = false;
    bool m_failed = false;
    const char* m_end = nullptr;        // of the lines that are in memory
    const char* m_lineBegin = nullptr;  // behind the white space
    std::string_view m_line;            // from there on, once a string has stood in it
    bool m_lookAheadOnLine = false;
    std::string m_earlierLines;  // of the string that runs over a line end
    char m_previousByte;         // the last but one byte of an earlier line
    veka::QuoteLookAhead m_lookAhead;
};

int Reader::Read(CStdioFile& file) {
    for (std::string_view lines; file.ReadLines(lines);) {
        const char* next = lines.data();
        m_end = next + lines.size();
        veka::SpecialBytes specials;
        while (next != m_end) {
            m_tree.m_nLineCount = static_cast<int>(static_cast<unsigned>(m_tree.m_nLineCount) + 1);
            if (next[0] == '/' && next[1] == '/') {
                next = LineEnd(next) + 1;
                continue;
            }
            next = ReadLine(next, specials);
            if (m_failed) return -1;
            if (m_tree.m_nLineCount != 1 && m_tree.m_bStopAtDepthZero && m_depth == 0) return 0;
        }
    }
    return m_depth == 0 ? 0 : -1;
}

/// Reads one line that is no comment; returns the place behind it.
inline const char* Reader::ReadLine(const char* begin, veka::SpecialBytes& specials) {
    if (m_inString)
        m_earlierLines += '\n';
    else
        begin = veka::SkipWhiteSpace(begin);
    m_lineBegin = begin;
    m_line = {};
    m_lookAheadOnLine = false;
    const char* feed = begin;
    do {
        feed = m_inString ? ReadInside(feed) : ReadOutside(feed, specials);
        if (m_failed) return nullptr;
    } while (*feed != '\n');
    const std::string_view line = WithoutLineEnd(m_lineBegin, feed);
    if (line.size() > 1) m_previousByte = line[line.size() - 2];
    return feed + 1;
}

/// Reads tokens up to the end of the line, which is returned, or to an opening quote; then the place behind
/// it is.
inline const char* Reader::ReadOutside(const char* begin, veka::SpecialBytes& specials) {
    for (;;) {
        // Most levels open a line.
        const char* end = *begin == '(' ? begin : specials.Find(begin);
        // A quote behind a backslash belongs to the token.
        while (*end == '"' && end != begin && end[-1] == '\\') end = specials.Find(end + 1);
        const std::string_view token(begin, static_cast<size_t>(end - begin));
        begin = end + 1;
        switch (*end) {
            case '"':
                m_inString = true;  // and a token directly before it is thrown away
                return begin;
            case ' ':
                Commit(token);
                continue;
            case '(':
                Commit(token);
                if (!Open()) return end;
                continue;
            case ')':
                Commit(token);
                Close();
                continue;
            default:
                // The token is over with its line: nothing that a caller can see happens before the next one.
                Commit(WithoutLineEnd(token.data(), end));
                return end;
        }
    }
}

/// Reads on inside a string that began or continued at `begin`; returns the place behind its end, or the end
/// of the line.
const char* Reader::ReadInside(const char* begin) {
    if (!m_line.data()) m_line = WithoutLineEnd(m_lineBegin, LineEnd(begin));
    const std::string_view line = m_line;
    const auto first = static_cast<size_t>(begin - line.data());
    bool asked = false;
    for (size_t i = first;; ++i) {
        i = line.find('"', i);
        if (i == std::string_view::npos) {
            m_earlierLines += line.substr(first);
            const char* end = line.data() + line.size();
            return *end == '\n' ? end : end + 1;
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

/// The next line feed.
const char* Reader::LineEnd(const char* text) const {
    return static_cast<const char*>(std::memchr(text, '\n', static_cast<size_t>(m_end - text)));
}

/// True if the quote may be an escaped one: a backslash stands before it that is a character of its own.
bool Reader::IsSuspect(std::string_view line, size_t quote) const {
    // Before a line's first byte stands a byte of an earlier line. That is required.
    if (quote == 0) return m_previousByte == '\\';
    return line[quote - 1] == '\\' && !FollowsTrailByte(line, quote);
}

/// Ends a string at a plain quote. A blank marks the empty string, and is put behind the text of a string
/// whose closing quote opens its line, too.
void Reader::CloseString(std::string_view lastBytes, bool opensLine) {
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

/// A string of a text, whose memory is the pages' where it needs some.
CString Reader::Keep(std::string_view text) {
    if (text.size() <= CString::kMaximumInside) return CString(text);
    if (text.size() > static_cast<size_t>(std::numeric_limits<int>::max()))
        throw std::length_error("a token of more than 2^31 - 1 bytes");
    char* copy = m_pages.Take<char>(text.size() + 1);
    std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    return CString::Borrow({copy, text.size()});
}

/// The place of the next token: the current level's name, and once it has one its next value. Null outside
/// every level.
inline CString* Reader::NextToken() {
    if (!m_current) return nullptr;
    if (m_current->name.IsEmpty()) return &m_current->name;
    CString* value = new (m_values.Push()) CString;
    ++m_current->values;
    return value;
}

/// Gives the current level a token from outside a string; an empty one is none.
inline void Reader::Commit(std::string_view token) {
    if (token.empty()) return;
    CString* place = NextToken();
    if (!place) return;
    if (token.size() <= CString::kMaximumInside)
        new (place) CString(CString::Inside(token.data(), token.size()));
    else
        new (place) CString(Keep(token));
}

/// Gives the current level a string, which is not empty: a single blank stands for the empty one, but in a
/// name.
void Reader::CommitString(std::string_view text) {
    CString* place = NextToken();
    if (!place) return;
    const bool value = place != &m_current->name;
    new (place) CString(value && text == " " ? CString() : Keep(text));
}

/// Opens a level; false after the brace error.
inline bool Reader::Open() {
    if (m_depth >= kMaximumDepth) {
        Fail();
        return false;
    }
    m_current = &m_open[m_depth++];
    m_current->values = m_current->children = 0;
    return true;
}

/// Too many levels are open, or a stray parenthesis has closed one too many.
void Reader::Fail() {
    m_failed = true;
    ++m_depth;
    CString text;
    text.Format(veka::messages::kUnexpectedBrace, static_cast<int>(m_depth), m_tree.m_nLineCount);
    AfxMessageBox(text);
}

/// Closes the current level, which puts it into the tree.
inline void Reader::Close() {
    const unsigned slot = --m_depth;
    if (slot >= kMaximumDepth) return;  // a stray parenthesis
    OpenLevel& open = *m_current;
    CECadClsLvl* level = CECadClsLvl::Make(m_pages, static_cast<int>(slot) + 1, std::move(open.name),
                                           m_values.Last(open.values), m_children.Last(open.children));
    m_values.Pop(open.values);
    m_children.Pop(open.children);
    if (slot == 0) {
        m_current = nullptr;
        m_take(level);
    } else {
        m_current = &open - 1;
        *m_children.Push() = level;
        ++m_current->children;
    }
}

}  // namespace

CECadCls::CECadCls() = default;
CECadCls::~CECadCls() = default;

int CECadCls::ReadLevelTree(int nReserved) {
    return Read(nReserved, [this](CECadClsLvl* level) { m_pRootLevels->Add(level); });
}

int CECadCls::ReadTopLevels(int nReserved, const std::function<void(CECadClsLvl*)>& take) {
    return Read(nReserved, [&](CECadClsLvl* level) {
        take(level);
        m_pages.Reset();
    });
}

int CECadCls::Read(int nReserved, const std::function<void(CECadClsLvl*)>& take) {
    m_nLineCount = 0;
    CStdioFile file;
    if (!file.Open(m_strFilePath)) return 0;
    return Reader(*this, static_cast<char>(nReserved), m_pages, take).Read(file);
}
