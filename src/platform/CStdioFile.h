#pragma once

#include <cstdio>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/CString.h"
#include "platform/Export.h"

/// A text file, read line by line.
///
/// A line ends at a line feed, and one carriage return directly before it is dropped with it. Every
/// other byte belongs to the line, the zero byte too. A last line without a line feed is a line.
class VEKA_API CStdioFile {
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

private:
    struct Closer {
        void operator()(std::FILE* file) const noexcept { std::fclose(file); }
    };

    void ReadBlock();

    std::unique_ptr<std::FILE, Closer> m_file;
    CString m_path;
    std::vector<char> m_buffer;
    size_t m_begin = 0;  // of what has not been handed out yet
    size_t m_end = 0;
    bool m_atEnd = true;
};
