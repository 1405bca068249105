#include "leveltree/CECadCls.h"

#include <array>
#include <cstring>
#include <memory>
#include <string>

#include "leveltree/Messages.h"
#include "leveltree/QuoteLookAhead.h"
#include "platform/AfxMessageBox.h"
#include "platform/CStdioFile.h"

namespace {

constexpr unsigned kMaximumDepth = 20;

/// Which bytes end a run of plain bytes outside a string.
constexpr std::array<bool, 256> MakeSpecial() {
    std::array<bool, 256> special{};
    for (const char c : {'"', '\n', ' ', '(', ')'}) special[static_cast<unsigned char>(c)] = true;
    return special;
}
constexpr std::array<bool, 256> kSpecial = MakeSpecial();

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

/// One read of a file: the state that lives from its first line to its last.
class Reader {
public:
    Reader(CECadCls& tree, char previousByte) : m_tree(tree), m_previousByte(previousByte) {}

    int Read(CStdioFile& file);

private:
    bool ReadLine(std::string_view line);
    size_t ReadInside(std::string_view line, size_t i);
    size_t ReadOutside(std::string_view line, size_t i);
    bool IsSuspect(std::string_view line, size_t quote) const;
    void Close(std::string_view lastBytes, bool opensLine);
    void Commit(std::string_view token);
    bool OpenLevel(std::string_view token);
    void CloseLevel(std::string_view token);

    CECadCls& m_tree;
    unsigned m_depth = 0;  // signed in meaning; unsigned, so that counting wraps
    CECadClsLvl* m_current = nullptr;
    std::array<std::unique_ptr<CECadClsLvl>, kMaximumDepth> m_open;  // slot k holds the level of depth k + 1
    bool m_inString = false;
    bool m_failed = false;
    std::string m_earlierLines;  // of the string that runs over a line end
    char m_previousByte;         // the last but one byte of an earlier line
    veka::QuoteLookAhead m_lookAhead;
};

int Reader::Read(CStdioFile& file) {
    unsigned lineCount = 0;
    for (std::string_view line; file.ReadLine(line);) {
        m_tree.m_nLineCount = static_cast<int>(++lineCount);
        if (line.substr(0, 2) == "//") continue;
        if (!ReadLine(line)) return -1;
        if (m_tree.m_nLineCount != 1 && m_tree.m_bStopAtDepthZero && m_depth == 0) return 0;
    }
    return m_depth == 0 ? 0 : -1;
}

/// Reads one line that is no comment; false after the brace error.
bool Reader::ReadLine(std::string_view line) {
    if (m_inString) {
        m_earlierLines += '\n';
    } else {
        const size_t text = line.find_first_not_of(" \t\r\n\v\f");
        line.remove_prefix(text == std::string_view::npos ? line.size() : text);
    }
    m_lookAhead.StartLine(line);
    m_lookAhead.StartString(0);
    for (size_t i = 0; i < line.size();) {
        i = m_inString ? ReadInside(line, i) : ReadOutside(line, i);
        if (m_failed) return false;
    }
    if (line.size() > 1) m_previousByte = line[line.size() - 2];
    return true;
}

/// Reads on inside a string that began or continued at `begin`; returns the index behind what was read.
size_t Reader::ReadInside(std::string_view line, size_t begin) {
    for (size_t i = begin;; ++i) {
        const void* found = std::memchr(line.data() + i, '"', line.size() - i);
        if (!found) {
            m_earlierLines += line.substr(begin);
            return line.size();
        }
        i = static_cast<size_t>(static_cast<const char*>(found) - line.data());
        if (!IsSuspect(line, i)) {
            Close(line.substr(begin, i - begin), i == 0);
            return i + 1;
        }
        if (m_lookAhead.EndsAt(i)) {
            m_earlierLines += line.substr(begin, i - begin);
            Commit(m_earlierLines);
            m_earlierLines.clear();
            m_inString = false;
            return i + 1;
        }
    }
}

/// True if the quote may be an escaped one: a backslash stands before it that is a character of its own.
bool Reader::IsSuspect(std::string_view line, size_t quote) const {
    // Before a line's first byte stands a byte of an earlier line. That is required.
    if (quote == 0) return m_previousByte == '\\';
    return line[quote - 1] == '\\' && !FollowsTrailByte(line, quote);
}

/// Ends a string at a plain quote. A blank marks the empty string, and is put behind the text of a string
/// whose closing quote opens its line, too.
void Reader::Close(std::string_view lastBytes, bool opensLine) {
    m_inString = false;
    if (m_earlierLines.empty()) {
        Commit(lastBytes.empty() ? " " : lastBytes);
        return;
    }
    m_earlierLines += lastBytes;
    if (opensLine) m_earlierLines += ' ';
    Commit(m_earlierLines);
    m_earlierLines.clear();
}

/// Reads one token outside a string, and the byte that ends it; returns the index behind what was read.
size_t Reader::ReadOutside(std::string_view line, size_t begin) {
    for (size_t i = begin;; ++i) {
        while (i < line.size() && !kSpecial[static_cast<unsigned char>(line[i])]) ++i;
        const std::string_view token = line.substr(begin, i - begin);
        if (i == line.size()) {
            // The token is over with its line: nothing that a caller can see happens before the next one.
            Commit(token);
            return i;
        }
        switch (line[i]) {
            case '"':
                if (!token.empty() && token.back() == '\\') continue;  // the quote belongs to the token
                m_inString = true;  // and a token directly before it is thrown away
                m_lookAhead.StartString(i + 1);
                return i + 1;
            case ' ':
                Commit(token);
                return i + 1;
            case '(':
                m_failed = !OpenLevel(token);
                return i + 1;
            case ')':
                CloseLevel(token);
                return i + 1;
            default:
                return i + 1;
        }
    }
}

/// Gives the current level a token: its name first, then its values.
void Reader::Commit(std::string_view token) {
    if (token.empty() || !m_current) return;
    if (m_current->m_strName.IsEmpty())
        m_current->m_strName = CString(token);
    else
        m_current->m_aValues.Add(token == " " ? CString() : CString(token));
}

/// Opens a level behind a token of the enclosing one; false after the brace error.
bool Reader::OpenLevel(std::string_view token) {
    const unsigned slot = m_depth++;
    if (slot >= kMaximumDepth) {
        CString text;
        text.Format(veka::messages::kUnexpectedBrace, static_cast<int>(m_depth), m_tree.m_nLineCount);
        AfxMessageBox(text);
        return false;
    }
    Commit(token);
    m_open[slot] = std::make_unique<CECadClsLvl>();
    m_current = m_open[slot].get();
    m_current->m_nDepth = static_cast<int>(m_depth);
    return true;
}

/// Closes the current level behind its last token, which puts it into the tree.
void Reader::CloseLevel(std::string_view token) {
    --m_depth;
    Commit(token);
    if (m_depth >= kMaximumDepth || !m_open[m_depth]) return;  // a stray parenthesis
    CECadClsLvl* parent = m_depth == 0 ? nullptr : m_open[m_depth - 1].get();
    CECadClsLvlArray& siblings = parent ? *parent->m_pChildren : *m_tree.m_pRootLevels;
    siblings.Add(std::move(m_open[m_depth]));
    m_current = parent;
}

}  // namespace

CECadCls::CECadCls() = default;
CECadCls::~CECadCls() = default;

int CECadCls::ReadLevelTree(int nReserved) {
    m_nLineCount = 0;
    CStdioFile file;
    if (!file.Open(m_strFilePath)) return 0;
    return Reader(*this, static_cast<char>(nReserved)).Read(file);
}
