#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Assert.h"
#include "platform/Export.h"

/// Marks a result that is valid only as long as the object of the call. Clang then warns where the object is
/// temporary and the result is kept.
#if defined(__has_cpp_attribute)
#if __has_cpp_attribute(clang::lifetimebound)
#define VEKA_LIFETIMEBOUND [[clang::lifetimebound]]
#endif
#endif
#ifndef VEKA_LIFETIMEBOUND
#define VEKA_LIFETIMEBOUND
#endif

/// Byte string without an encoding. It can contain any byte, a zero byte too.
///
/// Positions and counts are ints, as in the toolkit. A position or count outside the string is clamped
/// to it; only `GetAt` and `SetAt` raise `CInvalidArgException`. A text of more than 2^31 - 1 bytes raises
/// `std::length_error`.
///
/// A string takes 16 bytes, because records have many strings, and most are short or empty. Up to 14 bytes of
/// text are in the object itself. The last byte says where the text is.
class VEKA_API CString {
public:
    CString() noexcept = default;
    /// Copies a zero-terminated text; a null pointer gives the empty string.
    CString(const char* text) : CString(text ? std::string_view(text) : std::string_view()) {}
    /// Copies `length` bytes; a negative length counts as 0.
    CString(const char* bytes, int length)
        : CString(bytes && length > 0 ? std::string_view(bytes, static_cast<size_t>(length))
                                      : std::string_view()) {}
    /// One byte, repeated; a negative count counts as 0.
    explicit CString(char c, int repeat = 1);
    explicit CString(std::string_view bytes) { Copy(bytes); }
    explicit CString(const std::string& bytes) : CString(std::string_view(bytes)) {}
    CString(const CString& other) {
        if (other.Where() <= kMaximumInside)
            std::memcpy(m_bytes, other.m_bytes, sizeof m_bytes);
        else
            Copy(other.View());
    }
    /// Takes over the text; a borrowed one is copied. The other string is then empty.
    CString(CString&& other) noexcept { MoveFrom(other); }
    ~CString() { Free(); }
    CString& operator=(const CString& other) {
        if (this == &other) return *this;
        if (other.Where() > kMaximumInside) return *this = CString(other);
        Free();
        std::memcpy(m_bytes, other.m_bytes, sizeof m_bytes);
        return *this;
    }
    CString& operator=(CString&& other) noexcept {
        if (this == &other) return *this;
        Free();
        MoveFrom(other);
        return *this;
    }

    /// A string whose text stays where it is. The text must live as long as the string, and a zero byte must
    /// follow it. A short text is copied.
    static CString Borrow(std::string_view text) noexcept {
        VEKA_ASSERT(text.empty() || text.data()[text.size()] == '\0');
        VEKA_ASSERT(text.size() <= INT32_MAX);
        return CString(text, Borrowed());
    }
    /// A copy of a text of up to `kMaximumInside` bytes, for a fast reader. 16 bytes must be readable from
    /// `text` on, whatever the length.
    static CString Inside(const char* text, size_t length) noexcept {
        VEKA_ASSERT(length <= kMaximumInside);
        std::uint64_t bytes[2];
        std::memcpy(bytes, text, sizeof bytes);
        const Form& form = kForms[length];
        bytes[0] = (bytes[0] & form.kept[0]) | form.added[0];
        bytes[1] = (bytes[1] & form.kept[1]) | form.added[1];
        CString string;
        std::memcpy(string.m_bytes, bytes, sizeof bytes);
        return string;
    }
    /// Length of the longest text that needs no memory of its own.
    static constexpr size_t kMaximumInside = 14;

    /// All bytes, valid until the string changes.
    std::string_view View() const noexcept VEKA_LIFETIMEBOUND {
        const unsigned char where = Where();
        if (where <= kMaximumInside) return {m_bytes, where};
        return {Pointer(), OutsideLength()};
    }
    /// Zero-terminated bytes, valid until the string changes.
    const char* GetString() const noexcept VEKA_LIFETIMEBOUND {
        return Where() <= kMaximumInside ? m_bytes : Pointer();
    }
    operator const char*() const noexcept VEKA_LIFETIMEBOUND { return GetString(); }
    /// All bytes, but not of a temporary string: they would be gone at once.
    operator std::string_view() const& noexcept VEKA_LIFETIMEBOUND { return View(); }
    operator std::string_view() const&& = delete;
    /// A copy of all bytes. Explicit, because assigning a string to a `std::string` would be ambiguous.
    explicit operator std::string() const { return std::string(View()); }

    /// The first eight bytes as a number, the first byte the lowest. After a shorter text come zeros.
    std::uint64_t FirstBytes() const noexcept {
        std::uint64_t bytes;
        std::memcpy(&bytes, GetString(), sizeof bytes);
        return bytes;
    }

    /// True if the text is in memory that belongs to the string alone, and that its destructor frees.
    bool OwnsMemory() const noexcept { return Where() == kOwned; }

    int GetLength() const noexcept { return static_cast<int>(View().size()); }
    bool IsEmpty() const noexcept { return Where() == 0; }
    void Empty() noexcept {
        Free();
        std::memset(m_bytes, 0, sizeof m_bytes);
    }

    /// The byte at a position; raises `CInvalidArgException` outside the string.
    char GetAt(int index) const;
    char operator[](int index) const { return GetAt(index); }
    /// Replaces one byte; raises `CInvalidArgException` outside the string.
    void SetAt(int index, char c);

    /// The first `count` bytes.
    CString Left(int count) const;
    /// The last `count` bytes.
    CString Right(int count) const;
    /// The bytes from `first` on, `count` at the most.
    CString Mid(int first, int count) const;
    CString Mid(int first) const;

    /// Position of the first occurrence at or after `start`, or -1.
    int Find(std::string_view text, int start = 0) const noexcept;
    int Find(char c, int start = 0) const noexcept { return Find(std::string_view(&c, 1), start); }
    int Find(const char* text, int start = 0) const noexcept {
        return Find(std::string_view(text ? text : ""), start);
    }
    int Find(const CString& text, int start = 0) const noexcept { return Find(text.View(), start); }
    /// Position of the last occurrence, or -1.
    int ReverseFind(char c) const noexcept;
    /// Position of the first byte that is one of the given bytes, or -1.
    int FindOneOf(const char* bytes) const noexcept;

    /// Takes `count` bytes out and returns the new length.
    int Delete(int index, int count = 1);
    /// Puts text before a position and returns the new length.
    int Insert(int index, const CString& text);
    /// Replaces every occurrence, from the left and without overlap; returns how many there were.
    int Replace(const CString& from, const CString& to);
    /// Takes every such byte out and returns how many there were.
    int Remove(char c);

    /// Removes leading blanks, tabs, carriage returns, line feeds, vertical tabs and form feeds.
    CString& TrimLeft();
    /// Removes the same bytes from the end.
    CString& TrimRight();
    CString& Trim() { return TrimLeft().TrimRight(); }

    /// Makes the letters a to z upper case, and no other byte.
    CString& MakeUpper();
    /// Makes the letters A to Z lower case, and no other byte.
    CString& MakeLower();

    /// Byte-wise order, bytes as unsigned numbers: negative, 0 or positive.
    int Compare(const CString& other) const noexcept { return View().compare(other.View()); }
    /// As `Compare`, but A to Z count as a to z.
    int CompareNoCase(const CString& other) const noexcept;

    /// Replaces the content by a text that is formatted as by printf.
#if defined(__GNUC__)
    __attribute__((format(printf, 2, 3)))
#endif
    void
    Format(const char* format, ...);

    void Append(const CString& text) {
        *this += text.View();
    }
    void AppendChar(char c) {
        *this += c;
    }
    CString& operator+=(const CString& text) {
        return *this += text.View();
    }
    CString& operator+=(const char* text) {
        return *this += std::string_view(text ? text : "");
    }
    CString& operator+=(char c) {
        return *this += std::string_view(&c, 1);
    }
    CString& operator+=(std::string_view bytes);

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
        // A short text is always inside, and zeros follow it.
        if (a.Where() <= kMaximumInside || b.Where() <= kMaximumInside)
            return std::memcmp(a.m_bytes, b.m_bytes, sizeof m_bytes) == 0;
        return a.View() == b.View();
    }
    // Always inline: the comparison with a literal, such as a keyword, is then the comparison of two numbers.
    [[gnu::always_inline]] friend bool operator==(const CString& a, const char* b) noexcept {
        const size_t length = b ? std::char_traits<char>::length(b) : 0;
        if (length > kMaximumInside) return a.View() == std::string_view(b, length);
        return a.Where() == length && (length == 0 || std::memcmp(a.m_bytes, b, length) == 0);
    }
    friend bool operator==(const CString& a, std::string_view b) noexcept {
        return a.View() == b;
    }
    friend auto operator<=>(const CString& a, const CString& b) noexcept {
        return a.View() <=> b.View();
    }

private:
    struct Borrowed {};
    CString(std::string_view text, Borrowed) noexcept {
        if (text.size() <= kMaximumInside)
            Copy(text);
        else
            Set(text.data(), text.size(), kBorrowed);
    }

    // The last byte: the length of a text inside, or one of these.
    static constexpr unsigned char kOwned = 0x80;     // in a block of memory, after the capacity of the block
    static constexpr unsigned char kBorrowed = 0x81;  // in memory that is not the string's
    /// Makes a string of a text inside and of the bytes after it: `kept` are the bytes of the text, `added`
    /// is a string with the length and no text. The first byte of a word is the lowest, on all systems that
    /// the library is built for.
    struct alignas(32) Form {
        std::uint64_t kept[2];
        std::uint64_t added[2];
    };
    static constexpr auto kForms = [] {
        std::array<Form, kMaximumInside + 1> forms{};
        for (size_t length = 0; length <= kMaximumInside; ++length) {
            for (size_t i = 0; i < length; ++i) forms[length].kept[i / 8] |= std::uint64_t{0xFF} << i % 8 * 8;
            forms[length].added[1] = std::uint64_t{length} << 56;
        }
        return forms;
    }();
    static_assert(std::endian::native == std::endian::little);

    unsigned char Where() const noexcept {
        return static_cast<unsigned char>(m_bytes[15]);
    }
    char* Pointer() const noexcept {
        char* pointer;
        std::memcpy(&pointer, m_bytes, sizeof pointer);
        return pointer;
    }
    size_t OutsideLength() const noexcept {
        std::uint32_t length;
        std::memcpy(&length, m_bytes + 8, sizeof length);
        return length;
    }
    void Set(const char* text, size_t length, unsigned char where) noexcept {
        const auto number = static_cast<std::uint32_t>(length);
        std::memcpy(m_bytes, &text, sizeof text);
        std::memcpy(m_bytes + 8, &number, sizeof number);
        m_bytes[15] = static_cast<char>(where);
    }
    /// Moves the other string here. This string must hold nothing that has to be freed. A borrowed text is
    /// copied, because this string may outlive it; the program ends if there is no memory for the copy.
    void MoveFrom(CString& other) noexcept {
        if (other.Where() == kBorrowed)
            Copy(other.View());
        else
            std::memcpy(m_bytes, other.m_bytes, sizeof m_bytes);
        std::memset(other.m_bytes, 0, sizeof m_bytes);
    }
    /// Copies a text into a string that is empty.
    void Copy(std::string_view bytes) {
        char* text = Make(bytes.size());
        if (!bytes.empty()) std::memcpy(text, bytes.data(), bytes.size());
    }
    /// Makes room for a text of this length in a string that is empty.
    char* Make(size_t length) {
        if (length > kMaximumInside) return MakeOutside(length, length);
        m_bytes[15] = static_cast<char>(length);
        return m_bytes;
    }
    char* MakeOutside(size_t length, size_t capacity);
    size_t Capacity() const noexcept;
    /// The bytes for change.
    char* Writable();
    void Free() noexcept {
        if (Where() == kOwned) FreeOutside();
    }
    void FreeOutside() noexcept;

    alignas(8) char m_bytes[16] = {};
};

/// Writes all bytes of a string.
VEKA_API std::ostream& operator<<(std::ostream& out, const CString& text);

// Doxygen does not understand a specialization in another namespace.
/// @cond
/// Equal strings have equal hashes, and so has a `std::string_view` of the same bytes.
template <>
struct std::hash<CString> {
    std::size_t operator()(const CString& text) const noexcept {
        return std::hash<std::string_view>()(text.View());
    }
};
/// @endcond
