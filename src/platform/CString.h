#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/Export.h"

/// Byte string without an encoding; any byte may stand in it, a zero byte too.
///
/// Positions and counts are ints, as in the toolkit. A position or count outside the string is clamped
/// to it; only `GetAt` and `SetAt` raise `CInvalidArgException`.
class VEKA_API CString {
public:
    CString() noexcept = default;
    /// Copies a zero-terminated text; a null pointer gives the empty string.
    CString(const char* text) : m_text(text ? text : "") {}
    /// Copies `length` bytes; a negative length counts as 0.
    CString(const char* bytes, int length)
        : m_text(bytes, bytes && length > 0 ? static_cast<size_t>(length) : 0) {}
    /// One byte, repeated; a negative count counts as 0.
    explicit CString(char byte, int repeat = 1)
        : m_text(repeat > 0 ? static_cast<size_t>(repeat) : 0, byte) {}
    explicit CString(std::string_view bytes) : m_text(bytes) {}
    explicit CString(std::string bytes) noexcept : m_text(std::move(bytes)) {}

    /// All bytes, valid until the string changes.
    std::string_view View() const noexcept { return m_text; }
    /// Zero-terminated bytes, valid until the string changes.
    const char* GetString() const noexcept { return m_text.c_str(); }
    operator const char*() const noexcept { return m_text.c_str(); }

    int GetLength() const noexcept { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const noexcept { return m_text.empty(); }
    void Empty() noexcept { m_text.clear(); }

    /// The byte at a position; raises `CInvalidArgException` outside the string.
    char GetAt(int index) const;
    char operator[](int index) const { return GetAt(index); }
    /// Replaces one byte; raises `CInvalidArgException` outside the string.
    void SetAt(int index, char byte);

    /// The first `count` bytes.
    CString Left(int count) const;
    /// The last `count` bytes.
    CString Right(int count) const;
    /// The bytes from `first` on, `count` at the most.
    CString Mid(int first, int count) const;
    CString Mid(int first) const;

    /// Position of the first occurrence at or behind `start`, or -1.
    int Find(std::string_view text, int start = 0) const noexcept;
    int Find(char byte, int start = 0) const noexcept { return Find(std::string_view(&byte, 1), start); }
    int Find(const char* text, int start = 0) const noexcept {
        return Find(std::string_view(text ? text : ""), start);
    }
    int Find(const CString& text, int start = 0) const noexcept { return Find(text.View(), start); }
    /// Position of the last occurrence, or -1.
    int ReverseFind(char byte) const noexcept;
    /// Position of the first byte that is one of the given, or -1.
    int FindOneOf(const char* bytes) const noexcept;

    /// Takes `count` bytes out and returns the new length.
    int Delete(int index, int count = 1);
    /// Puts text before a position and returns the new length.
    int Insert(int index, const CString& text);
    /// Replaces every occurrence, from the left and without overlap; returns how many there were.
    int Replace(const CString& from, const CString& to);
    /// Takes every such byte out and returns how many there were.
    int Remove(char byte);

    /// Removes leading blanks, tabs, carriage returns, line feeds, vertical tabs and form feeds.
    CString& TrimLeft();
    /// Removes the same bytes from the end.
    CString& TrimRight();
    CString& Trim() { return TrimLeft().TrimRight(); }

    /// Upper case for the letters a to z alone.
    CString& MakeUpper() noexcept;
    /// Lower case for the letters A to Z alone.
    CString& MakeLower() noexcept;

    /// Byte-wise order, bytes as unsigned numbers: negative, 0 or positive.
    int Compare(const CString& other) const noexcept { return m_text.compare(other.m_text); }
    /// As `Compare`, with A to Z taken for a to z.
    int CompareNoCase(const CString& other) const noexcept;

    /// Replaces the content by a text made in the manner of printf.
#if defined(__GNUC__)
    __attribute__((format(printf, 2, 3)))
#endif
    void
    Format(const char* format, ...);

    void Append(const CString& text) {
        m_text += text.m_text;
    }
    void AppendChar(char byte) {
        m_text += byte;
    }
    CString& operator+=(const CString& text) {
        m_text += text.m_text;
        return *this;
    }
    CString& operator+=(const char* text) {
        if (text) m_text += text;
        return *this;
    }
    CString& operator+=(char byte) {
        m_text += byte;
        return *this;
    }
    CString& operator+=(std::string_view bytes) {
        m_text += bytes;
        return *this;
    }

    friend CString operator+(CString left, const CString& right) {
        return std::move(left += right);
    }
    friend CString operator+(CString left, const char* right) {
        return std::move(left += right);
    }
    friend CString operator+(const char* left, const CString& right) {
        return std::move(CString(left) += right);
    }

    friend bool operator==(const CString& a, const CString& b) noexcept {
        return a.m_text == b.m_text;
    }
    // Inline, so that the length of a literal is known where keywords are compared.
    friend bool operator==(const CString& a, const char* b) noexcept {
        return a.View() == std::string_view(b ? b : "");
    }
    friend bool operator==(const CString& a, std::string_view b) noexcept {
        return a.View() == b;
    }
    friend auto operator<=>(const CString& a, const CString& b) noexcept {
        return a.m_text <=> b.m_text;
    }

private:
    std::string m_text;
};
