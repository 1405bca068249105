#include "files/CStdioFile.h"

#include <algorithm>
#include <cstring>

#include "files/Paths.h"
#include "platform/Exceptions.h"
#include "platform/Watch.h"

namespace {

constexpr size_t kBlock = size_t{64} * 1024;

std::FILE* OpenForReading(const CString& path) {
    // The system would use only the bytes before the zero byte.
    if (path.View().find('\0') != std::string_view::npos) return nullptr;
    const std::filesystem::path native = veka::ToPath(path);
    if (veka::IsDirectory(native)) return nullptr;
#ifdef _WIN32
    return _wfopen(native.c_str(), L"rb");
#else
    return std::fopen(native.c_str(), "rb");
#endif
}

}  // namespace

bool CStdioFile::Open(const CString& path) {
    Close();
    m_file.reset(OpenForReading(path));
    if (!m_file) return false;
    std::setvbuf(m_file.get(), nullptr, _IONBF, 0);  // blocks are read directly into m_buffer
    m_path = path;
    m_atEnd = false;
    m_bytesRead = 0;
    return true;
}

void CStdioFile::Close() noexcept {
    m_file.reset();
    m_begin = m_end = 0;
    m_atEnd = true;
}

bool CStdioFile::ReadString(CString& line) {
    std::string_view view;
    if (!ReadLine(view)) return false;
    line = CString(view);
    return true;
}

bool CStdioFile::ReadLine(std::string_view& line) {
    size_t searched = m_begin;
    for (;;) {
        const char* start = m_buffer.get() + m_begin;
        const void* found =
            searched < m_end ? std::memchr(m_buffer.get() + searched, '\n', m_end - searched) : nullptr;
        if (found) {
            size_t length = static_cast<size_t>(static_cast<const char*>(found) - start);
            m_begin += length + 1;
            if (length > 0 && start[length - 1] == '\r') --length;
            line = {start, length};
            return true;
        }
        if (m_atEnd) {
            if (m_begin == m_end) return false;
            line = {start, m_end - m_begin};
            m_begin = m_end;
            return true;
        }
        const size_t unsearched = m_end - m_begin;
        ReadBlock();
        searched = m_begin + unsearched;
    }
}

bool CStdioFile::ReadLines(std::string_view& lines) {
    size_t searched = m_begin;
    for (;;) {
        const std::string_view fresh(m_buffer.get() + searched, m_end - searched);
        const size_t last = fresh.rfind('\n');
        if (last != std::string_view::npos) {
            const size_t end = searched + last + 1;
            lines = {m_buffer.get() + m_begin, end - m_begin};
            m_begin = end;
            return true;
        }
        const size_t unsearched = m_end - m_begin;
        if (m_atEnd) {
            if (unsearched == 0) return false;
            if (m_size - m_end < 2) Resize(m_end + 2);
            m_buffer[m_end++] = '\r';
            m_buffer[m_end++] = '\n';
        } else {
            ReadBlock();
        }
        searched = m_begin + unsearched;
    }
}

void CStdioFile::ReadBlock() {
    // The incomplete line moves to the front. The buffer is doubled when one line fills it.
    std::copy(m_buffer.get() + m_begin, m_buffer.get() + m_end, m_buffer.get());
    m_end -= m_begin;
    m_begin = 0;
    if (m_size - m_end < kBlock / 2) Resize(std::max(m_size * 2, kBlock));
    const size_t count = std::fread(m_buffer.get() + m_end, 1, m_size - m_end, m_file.get());
    m_end += count;
    m_bytesRead += count;
    veka::Watch::Tick();
    if (count == 0) {
        if (std::ferror(m_file.get())) throw CFileException("The file \"" + m_path + "\" cannot be read.");
        m_atEnd = true;
    }
}

void CStdioFile::Resize(size_t size) {
    m_watched.Replace(size);
    auto buffer = std::make_unique_for_overwrite<char[]>(size + kReadable);
    std::copy_n(m_buffer.get(), m_end, buffer.get());
    std::fill_n(buffer.get() + size, kReadable, '\0');
    m_buffer = std::move(buffer);
    m_size = size;
}
