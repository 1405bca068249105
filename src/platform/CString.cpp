#include "platform/CString.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <limits>
#include <ostream>
#include <stdexcept>

#include "platform/Exceptions.h"

namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n\v\f";

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

size_t Clamp(int value, size_t limit) {
    return value < 0 ? 0 : std::min(static_cast<size_t>(value), limit);
}

int Position(size_t found) {
    return found == std::string::npos ? -1 : static_cast<int>(found);
}

// A block of memory begins with its capacity.
constexpr size_t kHeader = sizeof(size_t);

}  // namespace

CString::CString(char c, int repeat) {
    const size_t length = repeat > 0 ? static_cast<size_t>(repeat) : 0;
    std::memset(Make(length), c, length);
}

char* CString::MakeOutside(size_t length, size_t capacity) {
    if (length > static_cast<size_t>(std::numeric_limits<int>::max()))
        throw std::length_error("a text of more than 2^31 - 1 bytes");
    char* block = static_cast<char*>(::operator new(kHeader + capacity + 1));
    std::memcpy(block, &capacity, sizeof capacity);
    char* text = block + kHeader;
    text[length] = '\0';
    Set(text, length, kOwned);
    return text;
}

void CString::FreeOutside() noexcept {
    ::operator delete(Pointer() - kHeader);
}

size_t CString::Capacity() const noexcept {
    if (Where() <= kMaximumInside) return kMaximumInside;
    if (Where() == kBorrowed) return 0;
    size_t capacity;
    std::memcpy(&capacity, Pointer() - kHeader, sizeof capacity);
    return capacity;
}

char* CString::Writable() {
    if (Where() == kBorrowed) *this = CString(View());
    return Where() <= kMaximumInside ? m_bytes : Pointer();
}

char CString::GetAt(int index) const {
    const std::string_view text = View();
    if (index < 0 || static_cast<size_t>(index) >= text.size()) AfxThrowInvalidArgException();
    return text[static_cast<size_t>(index)];
}

void CString::SetAt(int index, char c) {
    if (index < 0 || index >= GetLength()) AfxThrowInvalidArgException();
    Writable()[index] = c;
}

CString CString::Left(int count) const {
    return CString(View().substr(0, Clamp(count, View().size())));
}

CString CString::Right(int count) const {
    return CString(View().substr(View().size() - Clamp(count, View().size())));
}

CString CString::Mid(int first, int count) const {
    return CString(View().substr(Clamp(first, View().size()), Clamp(count, View().size())));
}

CString CString::Mid(int first) const {
    return CString(View().substr(Clamp(first, View().size())));
}

int CString::Find(std::string_view text, int start) const noexcept {
    return start < 0 ? -1 : Position(View().find(text, static_cast<size_t>(start)));
}

int CString::ReverseFind(char c) const noexcept {
    return Position(View().rfind(c));
}

int CString::FindOneOf(const char* bytes) const noexcept {
    return bytes ? Position(View().find_first_of(bytes)) : -1;
}

CString& CString::operator+=(std::string_view bytes) {
    const size_t old = View().size(), length = old + bytes.size();
    if (length > Capacity()) {
        // The bytes can be a part of this string. So the old text is freed last.
        CString longer;
        char* text = longer.MakeOutside(length, std::max(length, 2 * old));
        std::memcpy(text, View().data(), old);
        std::memcpy(text + old, bytes.data(), bytes.size());
        return *this = std::move(longer);
    }
    char* text = Writable();
    std::memmove(text + old, bytes.data(), bytes.size());
    if (Where() <= kMaximumInside)
        m_bytes[15] = static_cast<char>(length);
    else
        Set(text, length, kOwned);
    text[length] = '\0';
    return *this;
}

int CString::Delete(int index, int count) {
    std::string text(View());
    text.erase(Clamp(index, text.size()), Clamp(count, text.size()));
    *this = CString(text);
    return GetLength();
}

int CString::Insert(int index, const CString& other) {
    std::string text(View());
    text.insert(Clamp(index, text.size()), other.View());
    *this = CString(text);
    return GetLength();
}

int CString::Replace(const CString& from, const CString& to) {
    if (from.IsEmpty()) return 0;
    const std::string_view text = View();
    std::string result;
    int count = 0;
    size_t start = 0;
    for (size_t at; (at = text.find(from.View(), start)) != std::string::npos; ++count) {
        result.append(text, start, at - start).append(to.View());
        start = at + from.View().size();
    }
    if (count == 0) return 0;
    result.append(text, start);
    *this = CString(result);
    return count;
}

int CString::Remove(char c) {
    std::string text(View());
    const auto count = static_cast<int>(std::erase(text, c));
    if (count > 0) *this = CString(text);
    return count;
}

CString& CString::TrimLeft() {
    const size_t first = View().find_first_not_of(kWhiteSpace);
    if (first != 0) *this = CString(View().substr(std::min(first, View().size())));
    return *this;
}

CString& CString::TrimRight() {
    const size_t length = View().find_last_not_of(kWhiteSpace) + 1;
    if (length != View().size()) *this = CString(View().substr(0, length));
    return *this;
}

CString& CString::MakeUpper() {
    char* text = Writable();
    std::transform(text, text + GetLength(), text, Upper);
    return *this;
}

CString& CString::MakeLower() {
    char* text = Writable();
    std::transform(text, text + GetLength(), text, Lower);
    return *this;
}

int CString::CompareNoCase(const CString& other) const noexcept {
    const std::string_view one = View(), two = other.View();
    const size_t common = std::min(one.size(), two.size());
    for (size_t i = 0; i < common; ++i) {
        const auto a = static_cast<unsigned char>(Lower(one[i]));
        const auto b = static_cast<unsigned char>(Lower(two[i]));
        if (a != b) return a < b ? -1 : 1;
    }
    if (one.size() == two.size()) return 0;
    return one.size() < two.size() ? -1 : 1;
}

void CString::Format(const char* format, ...) {
    va_list args;
    va_start(args, format);
    va_list again;
    va_copy(again, args);
    const int length = std::vsnprintf(nullptr, 0, format, args);
    va_end(args);
    std::string text(length > 0 ? static_cast<size_t>(length) : 0, '\0');
    if (length > 0) std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    *this = CString(text);
}

std::ostream& operator<<(std::ostream& out, const CString& text) {
    return out << text.View();
}
