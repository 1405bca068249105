#pragma once

#include <cstdio>
#include <memory>
#include <string_view>

#include "platform/CString.h"

/// A text file, read line by line.
///
/// A line ends at a line feed, and one carriage return directly before it is dropped with it. Every
/// other byte belongs to the line, the zero byte too. A last line without a line feed is a line.
class CStdioFile {
public:
    /// Opens a file for reading; false if that fails or if the path is a directory's.
    bool Open(const CString& path);
    /// Closes the file; nothing can be read from it any more.
    void Close() noexcept;

    /// Reads the next line; false at the end of the file, or if no file is open.
    /// A file that cannot be read on raises `CFileException`.
    bool ReadString(CString& line);
    /// As `ReadString`, without a copy: the bytes are valid until the next line is read.
    bool ReadLine(std::string_view& line);
    /// Reads lines at once, as many as stand in the buffer: for a reader that finds the line ends itself.
    /// Each ends with its line feed, and a carriage return before that is still there. Where the last line of
    /// the file has no line feed, a carriage return and a line feed are put behind it, so that a carriage
    /// return of its own stays a part of it. Behind the lines `kReadable` bytes can be read. The bytes are
    /// valid until the next lines are read.
    bool ReadLines(std::string_view& lines);

    static constexpr size_t kReadable = 64;

private:
    struct Closer {
        void operator()(std::FILE* file) const noexcept { std::fclose(file); }
    };

    /// Reads on into the buffer, behind what has not been handed out yet; notes the end of the file.
    void ReadBlock();
    void Resize(size_t size);

    std::unique_ptr<std::FILE, Closer> m_file;
    CString m_path;
    std::unique_ptr<char[]> m_buffer;
    size_t m_size = 0;   // of the buffer, without the bytes that are only readable
    size_t m_begin = 0;  // of what has not been handed out yet
    size_t m_end = 0;
    bool m_atEnd = true;
};
