#include "leveltree/CECadCls.h"

#include <array>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string>

#include "files/CStdioFile.h"
#include "leveltree/Messages.h"
#include "leveltree/QuoteLookAhead.h"
#include "leveltree/Scan.h"
#include "leveltree/Stack.h"
#include "window/AfxMessageBox.h"

namespace {

constexpr unsigned kMaximumDepth = 20;
static_assert(CStdioFile::kReadable >= veka::SpecialBytes::kBlock);
static_assert(veka::Stack<CString>::kReadable >= CECadClsLvl::kReadable);

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
    /// A level that has not been closed yet: where on the stack of strings begins what it holds, and how many
    /// of the last children are its own.
    struct OpenLevel {
        veka::Stack<CString>::Height strings;
        size_t children;
    };

    const char* ReadOutside(const char* text, veka::SpecialBytes& specialBytes);
    const char* ReadInside(const char* begin);
    const char* NextLine(const char* text);
    const char* BeginLine(const char* text);
    const char* BeginStringLine(const char* text);
    bool EndLine(const char* end);
    const char* LineEnd(const char* text) const;
    bool IsSuspect(std::string_view line, size_t quote) const;
    void CloseString(std::string_view lastBytes, bool opensLine);
    CString Keep(std::string_view text);
    void CommitString(std::string_view text);
    void Fail();

    CECadCls& m_tree;
    veka::Pages& m_pages;
    const std::function<void(CECadClsLvl*)>& m_take;
    unsigned m_depth = 0;                             // signed in meaning; unsigned, so that counting wraps
    std::array<OpenLevel, kMaximumDepth + 1> m_open;  // the first stands for what is outside all levels
    OpenLevel* m_current = m_open.data();
    veka::Stack<CString> m_strings;  // names, each with its values behind it; none has memory of its own
    veka::Stack<CECadClsLvl*> m_children;
    bool m_inString = false;
    bool m_failed = false;
    const char* m_end = nullptr;        // of the lines that are in memory
    const char* m_lineBegin = nullptr;  // behind the white space
    std::string_view m_line;            // the last line in memory that a string stood in, from there on
    bool m_lookAheadOnLine = false;     // which the look-ahead has been told of
    std::string m_earlierLines;         // of the string that runs over a line end
    char m_previousByte;                // the last but one byte of an earlier line
    veka::QuoteLookAhead m_lookAhead;
};

int Reader::Read(CStdioFile& file) {
    for (std::string_view lines; file.ReadLines(lines);) {
        const char* text = lines.data();
        m_end = text + lines.size();
        veka::SpecialBytes specialBytes(text);
        m_line = {};
        text = m_inString ? BeginStringLine(text) : BeginLine(text);
        while (text != m_end) {
            text = m_inString ? ReadInside(text) : ReadOutside(text, specialBytes);
            if (!text) return m_failed ? -1 : 0;
        }
    }
    return m_depth == 0 ? 0 : -1;
}

/// The next line that is no comment, or the end of the lines.
inline const char* Reader::NextLine(const char* text) {
    for (; text != m_end; text = LineEnd(text) + 1) {
        m_tree.m_nLineCount = static_cast<int>(static_cast<unsigned>(m_tree.m_nLineCount) + 1);
        if (text[0] != '/' || text[1] != '/') break;
    }
    return text;
}

/// Begins the next line outside a string; returns its first token, or the end of the lines.
inline const char* Reader::BeginLine(const char* text) {
    text = NextLine(text);
    if (text != m_end) text = m_lineBegin = veka::SkipWhiteSpace(text);
    return text;
}

/// As `BeginLine`, inside a string: its text goes on where the line begins.
const char* Reader::BeginStringLine(const char* text) {
    text = NextLine(text);
    if (text == m_end) return text;
    m_earlierLines += '\n';
    return m_lineBegin = text;
}

/// Ends a line, whose text ends here; false where the read is to stop.
inline bool Reader::EndLine(const char* end) {
    if (end - m_lineBegin > 1) m_previousByte = end[-2];
    return !m_tree.m_bStopAtDepthZero || m_tree.m_nLineCount == 1 || m_depth != 0;
}

/// Reads tokens up to an opening quote, and returns the place behind it, or up to the end of the lines. Null
/// where the read is to stop.
const char* Reader::ReadOutside(const char* text, veka::SpecialBytes& specialBytes) {
    // Copies, because the compiler keeps them in registers then.
    veka::SpecialBytes specials = specialBytes;
    CString* top = m_strings.Top();
    OpenLevel* current = m_current;
    const auto commit = [&](const char* end) {
        const auto size = static_cast<size_t>(end - text);
        if (size == 0 || current == m_open.data()) return;
        if (size <= CString::kMaximumInside)
            new (top) CString(CString::Inside(text, size));
        else
            new (top) CString(Keep({text, size}));
        top = m_strings.Pushed(top);
    };
    const auto close = [&] {
        --m_depth;
        if (current == m_open.data()) return;               // a stray parenthesis
        if (m_strings.HeightOf(top) == current->strings) {  // it has no name
            new (top) CString;
            top = m_strings.Pushed(top);
        }
        CString* const strings = m_strings.At(current->strings);
        CECadClsLvl* level = CECadClsLvl::Make(m_pages, static_cast<int>(m_depth) + 1, {strings, top},
                                               m_children.Last(current->children));
        top = strings;
        m_children.Pop(current->children);
        --current;
        if (current == m_open.data()) {
            m_take(level);
        } else {
            *m_children.Top() = level;
            m_children.Push();
            ++current->children;
        }
    };

    specials.Seek(text);
    for (;;) {
        const char* end = specials.Next();
        const char c = *end;
        if (c == ' ') {
            commit(end);
        } else if (c == ')') {
            commit(end);
            close();
        } else if (c == '(') {
            commit(end);
            if (m_depth >= kMaximumDepth) {
                Fail();
                return nullptr;
            }
            ++m_depth;
            *++current = {m_strings.HeightOf(top), 0};
        } else if (c == '\n') {
            const char* feed = end;
            if (feed != m_lineBegin && feed[-1] == '\r') --end;
            // The token is over with its line: nothing that a caller can see happens before the next one.
            commit(end);
            if (!EndLine(end)) return nullptr;
            text = BeginLine(feed + 1);
            if (text == m_end) break;
            specials.Seek(text);
            continue;
        } else if (c == '"' && (end == text || end[-1] != '\\')) {
            m_inString = true;  // and a token directly before it is thrown away
            text = end + 1;
            break;
        } else {
            continue;  // the byte belongs to the token
        }
        text = end + 1;
    }
    specialBytes = specials;
    m_strings.SetTop(top);
    m_current = current;
    return text;
}

/// Reads on inside a string that began or continued at `begin`; returns the place behind its end, or where it
/// goes on in the next line. Null where the read is to stop.
const char* Reader::ReadInside(const char* begin) {
    if (m_line.data() != m_lineBegin) {
        m_line = WithoutLineEnd(m_lineBegin, LineEnd(begin));
        m_lookAheadOnLine = false;
    }
    const std::string_view line = m_line;
    const auto first = static_cast<size_t>(begin - line.data());
    bool asked = false;
    for (size_t i = first;; ++i) {
        i = line.find('"', i);
        if (i == std::string_view::npos) {
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

/// Gives the current level a string, which is not empty: a single blank stands for the empty one, but in a
/// name.
void Reader::CommitString(std::string_view text) {
    if (m_current == m_open.data()) return;
    const bool value = m_strings.HeightOf(m_strings.Top()) > m_current->strings;
    new (m_strings.Top()) CString(value && text == " " ? CString() : Keep(text));
    m_strings.Push();
}

/// Too many levels are open, or a stray parenthesis has closed one too many.
void Reader::Fail() {
    m_failed = true;
    ++m_depth;
    CString text;
    text.Format(veka::messages::kUnexpectedBrace, static_cast<int>(m_depth), m_tree.m_nLineCount);
    AfxMessageBox(text);
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
