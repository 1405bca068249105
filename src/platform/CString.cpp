#include "platform/CString.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

#include "platform/Exceptions.h"

namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n\v\f";

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

size_t Clamp(int value, size_t limit) {
    return value < 0 ? 0 : std::min(static_cast<size_t>(value), limit);
}

int Position(size_t found) {
    return found == std::string::npos ? -1 : static_cast<int>(found);
}

}  // namespace

char CString::GetAt(int index) const {
    if (index < 0 || static_cast<size_t>(index) >= m_text.size()) AfxThrowInvalidArgException();
    return m_text[static_cast<size_t>(index)];
}

void CString::SetAt(int index, char byte) {
    if (index < 0 || static_cast<size_t>(index) >= m_text.size()) AfxThrowInvalidArgException();
    m_text[static_cast<size_t>(index)] = byte;
}

CString CString::Left(int count) const {
    return CString(View().substr(0, Clamp(count, m_text.size())));
}

CString CString::Right(int count) const {
    return CString(View().substr(m_text.size() - Clamp(count, m_text.size())));
}

CString CString::Mid(int first, int count) const {
    return CString(View().substr(Clamp(first, m_text.size()), Clamp(count, m_text.size())));
}

CString CString::Mid(int first) const {
    return CString(View().substr(Clamp(first, m_text.size())));
}

int CString::Find(std::string_view text, int start) const noexcept {
    return start < 0 ? -1 : Position(m_text.find(text, static_cast<size_t>(start)));
}

int CString::ReverseFind(char byte) const noexcept {
    return Position(m_text.rfind(byte));
}

int CString::FindOneOf(const char* bytes) const noexcept {
    return bytes ? Position(m_text.find_first_of(bytes)) : -1;
}

int CString::Delete(int index, int count) {
    m_text.erase(Clamp(index, m_text.size()), Clamp(count, m_text.size()));
    return GetLength();
}

int CString::Insert(int index, const CString& text) {
    m_text.insert(Clamp(index, m_text.size()), text.m_text);
    return GetLength();
}

int CString::Replace(const CString& from, const CString& to) {
    if (from.IsEmpty()) return 0;
    std::string result;
    int count = 0;
    size_t start = 0;
    for (size_t at; (at = m_text.find(from.m_text, start)) != std::string::npos; ++count) {
        result.append(m_text, start, at - start).append(to.m_text);
        start = at + from.m_text.size();
    }
    if (count == 0) return 0;
    result.append(m_text, start);
    m_text = std::move(result);
    return count;
}

int CString::Remove(char byte) {
    return static_cast<int>(std::erase(m_text, byte));
}

CString& CString::TrimLeft() {
    m_text.erase(0, m_text.find_first_not_of(kWhiteSpace));
    return *this;
}

CString& CString::TrimRight() {
    m_text.erase(m_text.find_last_not_of(kWhiteSpace) + 1);
    return *this;
}

CString& CString::MakeUpper() noexcept {
    for (char& c : m_text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return *this;
}

CString& CString::MakeLower() noexcept {
    for (char& c : m_text) c = Lower(c);
    return *this;
}

int CString::CompareNoCase(const CString& other) const noexcept {
    const size_t common = std::min(m_text.size(), other.m_text.size());
    for (size_t i = 0; i < common; ++i) {
        const auto a = static_cast<unsigned char>(Lower(m_text[i]));
        const auto b = static_cast<unsigned char>(Lower(other.m_text[i]));
        if (a != b) return a < b ? -1 : 1;
    }
    if (m_text.size() == other.m_text.size()) return 0;
    return m_text.size() < other.m_text.size() ? -1 : 1;
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
    m_text = std::move(text);
}
