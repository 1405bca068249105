#include "export/kicad/SymbolLibrary.h"

#include <optional>
#include <unordered_map>

namespace kicad {

namespace {

/// Reads the lists of a library, as far as it takes to find its symbols.
class Scanner {
public:
    explicit Scanner(std::string_view text) : m_text(text) {}

    /// A symbol and where it stands.
    struct Entry {
        std::string name;
        std::size_t begin = 0, end = 0;
    };

    /// Finds the symbols and the end of the last list. Raises `NoSymbolLibrary`.
    void Scan() {
        Expect('(');
        if (Atom() != "kicad_symbol_lib") Fail();
        for (;;) {
            Blanks();
            if (m_at >= m_text.size()) Fail();
            if (m_text[m_at] == ')') break;
            if (m_text[m_at] != '(') {
                Atom();
                continue;
            }
            Entry entry;
            entry.begin = m_at++;
            if (Atom() == "symbol") entry.name = Atom();
            SkipList();
            entry.end = m_at;
            if (!entry.name.empty()) entries.push_back(std::move(entry));
        }
        end = m_at++;
        Blanks();
        if (m_at < m_text.size()) Fail();
    }

    std::vector<Entry> entries;
    std::size_t end = 0;  ///< of the parenthesis that ends the library

private:
    [[noreturn]] static void Fail() { throw NoSymbolLibrary("it is no symbol library of KiCad"); }
    void Blanks() {
        while (m_at < m_text.size() &&
               (m_text[m_at] == ' ' || (m_text[m_at] >= '\t' && m_text[m_at] <= '\r')))
            ++m_at;
    }
    void Expect(char c) {
        Blanks();
        if (m_at >= m_text.size() || m_text[m_at] != c) Fail();
        ++m_at;
    }
    /// A word, or the text between quotes.
    std::string Atom() {
        Blanks();
        std::string atom;
        if (m_at >= m_text.size()) Fail();
        if (m_text[m_at] == '"') {
            for (++m_at; m_at < m_text.size() && m_text[m_at] != '"'; ++m_at) {
                if (m_text[m_at] == '\\' && m_at + 1 < m_text.size()) ++m_at;
                atom += m_text[m_at];
            }
            if (m_at >= m_text.size()) Fail();
            ++m_at;
            return atom;
        }
        while (m_at < m_text.size() &&
               std::string_view(" \t\n\v\f\r()\"").find(m_text[m_at]) == std::string_view::npos)
            atom += m_text[m_at++];
        return atom;
    }
    /// Goes behind the end of the list that is open.
    void SkipList() {
        for (std::size_t depth = 1; depth > 0;) {
            Blanks();
            if (m_at >= m_text.size()) Fail();
            if (m_text[m_at] == '(') {
                ++depth;
                ++m_at;
            } else if (m_text[m_at] == ')') {
                --depth;
                ++m_at;
            } else {
                Atom();
            }
        }
    }

    std::string_view m_text;
    std::size_t m_at = 0;
};

std::string_view WithoutIndent(std::string_view text) {
    const std::size_t first = text.find('(');
    return first == std::string_view::npos ? text : text.substr(first);
}

}  // namespace

std::string WithSymbols(std::string_view library, const std::vector<Exported>& symbols) {
    static constexpr std::string_view kEmpty = "(kicad_symbol_lib (version 20211014) (generator veka)\n)\n";
    if (library.empty()) library = kEmpty;
    Scanner scanner(library);
    scanner.Scan();
    // Of several symbols of one name the last one counts.
    std::unordered_map<std::string, const Exported*> added;
    for (const Exported& symbol : symbols) added[symbol.name] = &symbol;
    std::string result;
    std::size_t copied = 0;
    for (const Scanner::Entry& entry : scanner.entries) {
        const auto found = added.find(entry.name);
        if (found == added.end() || !found->second) continue;
        result += library.substr(copied, entry.begin - copied);
        result += WithoutIndent(found->second->text);
        copied = entry.end;
        found->second = nullptr;
    }
    // Behind the last symbol, without the line end before the closing parenthesis.
    std::size_t end = scanner.end;
    while (end > copied && (library[end - 1] == ' ' || library[end - 1] == '\n' || library[end - 1] == '\r'))
        --end;
    result += library.substr(copied, end - copied);
    for (const Exported& symbol : symbols) {
        const Exported*& left = added[symbol.name];
        if (!left) continue;
        result += "\n  ";
        result += WithoutIndent(left->text);
        left = nullptr;
    }
    return result.append(library.substr(end));
}

}  // namespace kicad
