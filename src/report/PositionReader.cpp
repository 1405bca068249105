#include "report/PositionReader.h"

#include <algorithm>
#include <array>

#include "leveltree/LevelReader.h"
#include "leveltree/QuoteLookAhead.h"

namespace veka {

namespace {

constexpr std::string_view kSpaces = " \t\r\n\v\f";
constexpr std::size_t kMostFaults = 10'000;  // of each kind
constexpr std::size_t kMostText = 80;

/// Reads one text. The rules are those of `LevelReader`, and are told there.
class PositionReader {
public:
    explicit PositionReader(std::string_view text) : m_rest(text) {}

    PositionedText Read() {
        while (!m_stopped && !m_rest.empty()) ReadLine(NextLine());
        if (m_inString) AddFault(TextFault::What::OpenString, {m_tokenBegin, Here(m_line.size())}, m_token);
        for (PositionedLevel* level : m_open) level->region.end = m_text.end;
        m_text.open = std::move(m_owned);
        return std::move(m_text);
    }

private:
    /// The next line without its end.
    std::string_view NextLine() {
        ++m_lineNumber;
        const std::size_t feed = m_rest.find('\n');
        std::string_view line = m_rest.substr(0, feed);
        m_rest.remove_prefix(feed == std::string_view::npos ? m_rest.size() : feed + 1);
        m_text.end = {m_lineNumber, static_cast<int>(line.size()) + 1};
        if (feed != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
        return line;
    }

    void ReadLine(std::string_view line) {
        m_indent = 0;
        m_line = line;
        if (line.starts_with("//")) {
            if (m_inString) AddFault(TextFault::What::CommentInString, {Here(0), Here(line.size())}, line);
            return;
        }
        if (m_inString) {
            m_token += '\n';
        } else {
            m_indent = std::min(line.find_first_not_of(kSpaces), line.size());
            m_line.remove_prefix(m_indent);
        }
        m_lineAsked = m_stringAsked = false;
        m_stringBegin = 0;
        m_firstOfLine = !m_inString;
        bool lead = false;  // the byte before is the first one of two
        bool paired = false;
        std::size_t token = 0;
        for (std::size_t i = 0; i < m_line.size(); ++i) {
            const bool formerPaired = std::exchange(paired, lead || static_cast<signed char>(m_line[i]) < 0);
            lead = !lead && static_cast<signed char>(m_line[i]) < 0;
            if (m_inString) {
                if (m_line[i] != '"') {
                    m_token += m_line[i];
                    continue;
                }
                if (!EndsString(i, formerPaired)) continue;
                token = i + 1;
                continue;
            }
            ReadOutside(i, token);
            if (m_stopped) return;
        }
        if (!m_inString) Commit(token, m_line.size());
        if (m_line.size() > 1) m_previousByte = m_line[m_line.size() - 2];
    }

    /// A byte outside of strings; `token` is where the token began that the byte can be part of.
    void ReadOutside(std::size_t i, std::size_t& token) {
        switch (m_line[i]) {
            case ' ':
                Commit(token, i);
                break;
            case '(':
                Commit(token, i);
                Open(i);
                break;
            case ')':
                Commit(token, i);
                Close(i);
                break;
            case '"':
                if (i > token && m_line[i - 1] == '\\') return;
                if (i > token)
                    AddFault(TextFault::What::LostToken, {Here(token), Here(i)},
                             m_line.substr(token, i - token));
                m_inString = true;
                m_token.clear();
                m_tokenBegin = Here(i);
                m_stringBegin = i + 1;
                m_stringAsked = false;
                m_firstOfLine = false;
                break;
            default:
                return;
        }
        token = i + 1;
    }

    /// A quote inside of a string: ends the string, or is added to its text.
    bool EndsString(std::size_t quote, bool formerPaired) {
        const bool suspect = quote == 0 ? m_previousByte == '\\' : m_line[quote - 1] == '\\' && !formerPaired;
        if (suspect) {
            if (!m_lineAsked) m_lookAhead.StartLine(m_line);
            if (!m_stringAsked) m_lookAhead.StartString(m_stringBegin);
            m_lineAsked = m_stringAsked = true;
            if (!m_lookAhead.EndsAt(quote)) {
                m_token += '"';
                return false;
            }
        } else if (m_token.empty()) {
            m_token.assign(1, ' ');
        } else if (quote == 0) {
            m_token += ' ';
            AddFault(TextFault::What::BlankAdded, {Here(0), Here(1)}, m_token);
        }
        m_inString = false;
        AddToken(m_token, {m_tokenBegin, Here(quote + 1)});
        return true;
    }

    void Commit(std::size_t begin, std::size_t end) {
        if (begin >= end) return;
        const std::string_view token = m_line.substr(begin, end - begin);
        const Region region{Here(begin), Here(end)};
        if (token.find('\t') != std::string_view::npos && !m_open.empty())
            AddFault(TextFault::What::TabInToken, region, token);
        AddToken(token, region);
        m_firstOfLine = false;
    }

    void AddToken(std::string_view token, const Region& region) {
        if (token.empty()) return;
        if (m_open.empty()) {
            AddOutside(token, region);
            return;
        }
        PositionedLevel& level = *m_open.back();
        if (level.m_strName.IsEmpty()) {
            level.m_strName = CString(token);
            level.nameRegion = region;
        } else {
            level.m_aValues.Add(token == " " ? CString() : CString(token));
            level.values.push_back(region);
        }
    }

    /// Text outside of all levels: one fault for the text of a line.
    void AddOutside(std::string_view token, const Region& region) {
        if (!m_text.faults.empty()) {
            TextFault& last = m_text.faults.back();
            if (last.what == TextFault::What::Outside && last.region.end.line == region.begin.line) {
                last.region.end = region.end;
                if (last.text.size() + token.size() < kMostText) (last.text += ' ') += token;
                return;
            }
        }
        AddFault(TextFault::What::Outside, region, token);
    }

    void Open(std::size_t i) {
        if (static_cast<unsigned>(m_depth) >= LevelReader::kMaximumDepth) {
            m_stopped = true;
            const Place begin = Here(i);
            while (!m_rest.empty()) NextLine();
            AddFault(m_depth < 0 ? TextFault::What::RestAfterStray : TextFault::What::TooDeep,
                     {begin, m_text.end}, {});
            return;
        }
        ++m_depth;
        auto level = std::make_unique<PositionedLevel>();
        level->number = m_text.levels.size();
        level->m_nDepth = m_depth;
        level->region.begin = Here(i);
        level->parent = m_open.empty() ? nullptr : m_open.back();
        m_text.levels.push_back(level.get());
        // A level that begins a line at the column of its parent or before it hints that the parent was to
        // end before.
        if (m_firstOfLine && level->parent && m_begunLine.back() && m_text.suspect == ReadTracer::kNone &&
            level->region.begin.column <= level->parent->region.begin.column)
            m_text.suspect = level->parent->number;
        m_open.push_back(level.get());
        m_begunLine.push_back(m_firstOfLine);
        m_owned.push_back(std::move(level));
        m_firstOfLine = false;
    }

    void Close(std::size_t i) {
        --m_depth;
        m_firstOfLine = false;
        if (m_open.empty()) {
            AddFault(TextFault::What::StrayParenthesis, {Here(i), Here(i + 1)}, ")");
            return;
        }
        std::unique_ptr<PositionedLevel> level = std::move(m_owned.back());
        m_owned.pop_back();
        m_open.pop_back();
        m_begunLine.pop_back();
        level->region.end = Here(i + 1);
        level->closed = true;
        if (m_open.empty()) {
            m_text.roots.push_back(std::move(level));
        } else {
            level->place = m_open.back()->m_pChildren->GetSize();
            m_open.back()->m_pChildren->Add(std::unique_ptr<CECadClsLvl>(std::move(level)));
        }
    }

    Place Here(std::size_t index) const { return {m_lineNumber, static_cast<int>(m_indent + index) + 1}; }

    void AddFault(TextFault::What what, const Region& region, std::string_view text) {
        if (m_counts[static_cast<std::size_t>(what)]++ >= kMostFaults) return;
        m_text.faults.push_back({what, region, std::string(text.substr(0, kMostText)),
                                 m_open.empty() ? ReadTracer::kNone : m_open.back()->number});
    }

    std::string_view m_rest;
    PositionedText m_text;
    std::vector<std::unique_ptr<PositionedLevel>> m_owned;  // the levels that are open
    std::vector<PositionedLevel*> m_open;                   // the same
    std::vector<bool> m_begunLine;                          // of each, true if it is the first of its line
    std::array<std::size_t, 9> m_counts{};
    int m_depth = 0;
    int m_lineNumber = 0;
    bool m_stopped = false;
    std::string_view m_line;  // the line without its indentation, if it does not begin in a string
    std::size_t m_indent = 0;
    bool m_firstOfLine = false;
    bool m_inString = false;
    std::string m_token;  // the string so far
    Place m_tokenBegin;
    std::size_t m_stringBegin = 0;  // where the string begins in the line
    char m_previousByte = 0;        // the last but one byte of an earlier line
    bool m_lineAsked = false, m_stringAsked = false;
    QuoteLookAhead m_lookAhead;
};

}  // namespace

PositionedText::~PositionedText() = default;

PositionedText ReadWithPositions(std::string_view text) {
    return PositionReader(text).Read();
}

}  // namespace veka
