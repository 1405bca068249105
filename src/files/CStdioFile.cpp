#include "files/CStdioFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "files/Paths.h"
#include "platform/Exceptions.h"
#include "platform/Watch.h"

namespace {

constexpr size_t kBlock = size_t{64} * 1024;
constexpr size_t kLineEnd = 2;  // bytes that are added to a last line

// The system's files, without the buffer of the C library: blocks are read directly into ours.
#ifdef _WIN32
using Status = struct _stat64;
int OpenForReading(const CString& path) {
    return _wopen(veka::ToPath(path).c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT);
}
bool GetStatus(int file, Status& status) {
    return _fstat64(file, &status) == 0;
}
std::ptrdiff_t Read(int file, char* memory, size_t size) {
    return _read(file, memory, static_cast<unsigned>(std::min(size, size_t{1} << 30)));
}
void CloseFile(int file) {
    _close(file);
}
#else
using Status = struct stat;
int OpenForReading(const CString& path) {
    return open(path.GetString(), O_RDONLY | O_CLOEXEC);
}
bool GetStatus(int file, Status& status) {
    return fstat(file, &status) == 0;
}
std::ptrdiff_t Read(int file, char* memory, size_t size) {
    return read(file, memory, size);
}
void CloseFile(int file) {
    close(file);
}
#endif

bool IsOfKind(const Status& status, unsigned kind) {
    return (status.st_mode & S_IFMT) == kind;
}

}  // namespace

bool CStdioFile::Open(const CString& path) {
    Close();
    // The system would use only the bytes before a zero byte.
    if (path.View().find('\0') != std::string_view::npos) return false;
    m_file = OpenForReading(path);
    if (m_file < 0) return false;
    Status status;
    if (!GetStatus(m_file, status) || IsOfKind(status, S_IFDIR)) {
        Close();
        return false;
    }
    m_fileSize = IsOfKind(status, S_IFREG) ? static_cast<std::uint64_t>(status.st_size) : 0;
    m_path = path;
    m_atEnd = false;
    m_bytesRead = 0;
    return true;
}

void CStdioFile::Close() noexcept {
    if (m_file >= 0) CloseFile(m_file);
    m_file = -1;
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
            if (m_size - m_end < kLineEnd) Resize(m_end + kLineEnd);
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
    // A small file is read in one piece. There is room for more than the file, so that the end is seen at
    // once.
    const bool isSmall = m_bytesRead == 0 && m_fileSize > 0 && m_fileSize <= kBlock - kLineEnd;
    const size_t room = isSmall ? static_cast<size_t>(m_fileSize) + kLineEnd : kBlock / 2;
    if (m_size - m_end < room) Resize(std::max(m_size * 2, isSmall ? room : kBlock));
    const size_t before = m_end;
    bool failed = false;
    while (m_end < m_size && !m_atEnd) {
        const size_t wanted = m_size - m_end;
        const std::ptrdiff_t count = Read(m_file, m_buffer.get() + m_end, wanted);
        failed = count < 0;
        if (failed) break;
        m_end += static_cast<size_t>(count);
        m_bytesRead += static_cast<std::uint64_t>(count);
        // What is no plain file can give a part of its bytes now and more of them later.
        const bool isWhole = m_fileSize > 0 && m_bytesRead >= m_fileSize;
        m_atEnd = count == 0 || (isWhole && static_cast<size_t>(count) < wanted);
    }
    veka::Watch::Tick();
    // What was read before a failure is given first.
    if (failed && m_end == before) throw CFileException("The file \"" + m_path + "\" cannot be read.");
}

void CStdioFile::Resize(size_t size) {
    m_watched.Replace(size);
    auto buffer = std::make_unique_for_overwrite<char[]>(size + kReadable);
    std::copy_n(m_buffer.get(), m_end, buffer.get());
    std::fill_n(buffer.get() + size, kReadable, '\0');
    m_buffer = std::move(buffer);
    m_size = size;
}
