// A plain reader of s-expressions, as programs for electronic design have one: it takes one token after
// another and fills the records on the way.

#include <cstdio>

#include "Peers.h"
#include "ReadRecords.h"

namespace bench {

namespace {

/// The tokens of a text: parentheses, words, and texts in quotes with backslashes.
class Tokens {
public:
    explicit Tokens(std::string_view text) : m_next(text.data()), m_end(text.data() + text.size()) {}
    /// The next byte that is no white space; 0 at the end.
    char Peek() {
        while (m_next != m_end && (*m_next == ' ' || *m_next == '\n')) ++m_next;
        return m_next == m_end ? '\0' : *m_next;
    }
    void Skip() { ++m_next; }
    /// The next word or text. It is valid until the next one.
    std::string_view Word() {
        if (Peek() == '"') return Quoted();
        const char* begin = m_next;
        while (m_next != m_end && *m_next != ' ' && *m_next != '\n' && *m_next != '(' && *m_next != ')')
            ++m_next;
        return {begin, static_cast<size_t>(m_next - begin)};
    }

private:
    std::string_view Quoted() {
        m_text.clear();
        for (++m_next; m_next != m_end && *m_next != '"'; ++m_next) {
            if (*m_next == '\\' && m_next + 1 != m_end) ++m_next;
            m_text += *m_next;
        }
        if (m_next != m_end) ++m_next;
        return m_text;
    }

    const char* m_next;
    const char* m_end;
    std::string m_text;
};

class SExpressionLevel {
public:
    /// The open parenthesis is the next token.
    explicit SExpressionLevel(Tokens& tokens) : m_tokens(tokens) {
        m_tokens.Skip();
        if (m_tokens.Peek() != '"')
            m_name = m_tokens.Word();
        else
            m_name = m_kept = m_tokens.Word();
    }
    /// Passes over what has not been read.
    ~SExpressionLevel() {
        if (!m_read) Read(kIgnore, kIgnore);
    }
    SExpressionLevel(const SExpressionLevel&) = delete;
    SExpressionLevel& operator=(const SExpressionLevel&) = delete;

    std::string_view Name() const { return m_name; }
    template <class OnValue, class OnChild>
    void Read(OnValue onValue, OnChild onChild) {
        m_read = true;
        for (;;) {
            const char next = m_tokens.Peek();
            if (next == '\0') return;
            if (next == ')') return m_tokens.Skip();
            if (next == '(') {
                SExpressionLevel child(m_tokens);
                onChild(child);
            } else {
                onValue(TextValue{m_tokens.Word()});
            }
        }
    }

private:
    Tokens& m_tokens;
    std::string_view m_name;
    std::string m_kept;  // a name in quotes
    bool m_read = false;
};

template <bool kFromFile>
class SExpressionRecords : public RecordReader {
public:
    explicit SExpressionRecords(const std::string& input) : m_input(input) {}
    void Read() override {
        if constexpr (kFromFile) m_text = Load(m_input);
        Tokens tokens(kFromFile ? m_text : m_input);
        m_part.emplace();
        while (tokens.Peek() == '(') {
            SExpressionLevel level(tokens);
            ReadSection(level, *m_part);
        }
    }

private:
    static std::string Load(const std::string& path) {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                                   std::fclose);
        Require(file && std::fseek(file.get(), 0, SEEK_END) == 0, path.c_str());
        std::string text(static_cast<size_t>(std::ftell(file.get())), '\0');
        std::rewind(file.get());
        Require(std::fread(text.data(), 1, text.size(), file.get()) == text.size(), path.c_str());
        return text;
    }

    const std::string& m_input;
    std::string m_text;
};

}  // namespace

std::unique_ptr<Reader> MakeSExpressionRecords(const std::string& text) {
    return std::make_unique<SExpressionRecords<false>>(text);
}
std::unique_ptr<Reader> MakeSExpressionRecordsFromFile(const std::string& path) {
    return std::make_unique<SExpressionRecords<true>>(path);
}

}  // namespace bench
