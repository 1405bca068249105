#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "files/Paths.h"
#include "platform/CString.h"

namespace test {

/// A directory of its own, removed with all that is in it.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    CString operator/(std::string_view name) const;
    /// Writes a file and returns its path.
    CString Write(std::string_view name, std::string_view content) const;
    /// Names of what is in it, sorted.
    std::vector<std::string> Names() const;

private:
    std::filesystem::path m_path;
};

/// Names of what is in a directory, sorted.
std::vector<std::string> Names(const std::filesystem::path& directory);
std::string ReadFile(const std::filesystem::path& path);

/// A folder of the project.
std::filesystem::path ProjectFolder(std::string_view name);

/// The real parts beside the project, sorted; empty if they are not there.
std::vector<std::filesystem::path> CorpusFiles();

}  // namespace test

/// Skips the running test, visibly, where there is no corpus.
#define VEKA_NEEDS_CORPUS() \
    if (test::CorpusFiles().empty()) GTEST_SKIP() << "There is no ../shared/corpus beside the project."
