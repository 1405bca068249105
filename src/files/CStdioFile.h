#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "files/LineSource.h"
#include "platform/CString.h"
#include "platform/Watch.h"

/// A text file, read line by line.
///
/// A line ends at a line feed. The line feed and one carriage return directly before the line feed are not
/// part of the line. Every other byte is part of the line, a zero byte too. A last line without a line feed
/// is a line.
class CStdioFile final : public veka::LineSource {
public:
    CStdioFile() = default;
    ~CStdioFile() override { Close(); }

    /// Opens a file for reading; false if that fails or if the path names a directory.
    bool Open(const CString& path);
    /// Closes the file; nothing can be read from it any more.
    void Close() noexcept;

    /// Reads the next line; false at the end of the file, or if no file is open.
    /// Raises `CFileException` if the file cannot be read.
    bool ReadString(CString& line);
    /// As `ReadString`, without a copy: the bytes are valid until the next line is read.
    bool ReadLine(std::string_view& line);
    /// Reads all lines that are in the buffer, for a reader that finds the line ends itself.
    /// Raises `CFileException` if the file cannot be read.
    bool ReadLines(std::string_view& lines) override;
    /// Number of bytes that were read from the file, those in the buffer too.
    std::uint64_t BytesRead() const noexcept { return m_bytesRead; }
    /// Number of bytes that the file had when it was opened; 0 for what is no plain file.
    std::uint64_t Size() const noexcept { return m_fileSize; }

private:
    /// Reads a block of the file to the end of the buffer; notes the end of the file.
    void ReadBlock();
    void Resize(size_t size);

    int m_file = -1;  // the system's number of the open file
    CString m_path;
    veka::WatchedMemory m_watched;
    std::unique_ptr<char[]> m_buffer;
    size_t m_size = 0;   // of the buffer, without the kReadable bytes after it
    size_t m_begin = 0;  // of the bytes that have not been given yet
    size_t m_end = 0;
    std::uint64_t m_bytesRead = 0;
    std::uint64_t m_fileSize = 0;
    bool m_atEnd = true;
};
