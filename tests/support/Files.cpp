#include "support/Files.h"

#include <algorithm>
#include <fstream>
#include <random>
#include <sstream>

namespace test {

namespace fs = std::filesystem;

TemporaryDirectory::TemporaryDirectory() {
    std::random_device random;
    do m_path = fs::temp_directory_path() / ("veka-test-" + std::to_string(random()));
    while (!fs::create_directory(m_path));
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code error;
    fs::remove_all(m_path, error);
}

CString TemporaryDirectory::operator/(std::string_view name) const {
    return veka::FromPath((m_path / veka::ToPath(CString(name))).make_preferred());
}

CString TemporaryDirectory::Write(std::string_view name, std::string_view content) const {
    std::ofstream(m_path / veka::ToPath(CString(name)), std::ios::binary) << content;
    return *this / name;
}

std::vector<std::string> TemporaryDirectory::Names() const {
    return test::Names(m_path);
}

std::vector<std::string> Names(const fs::path& directory) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(directory))
        names.emplace_back(veka::FromPath(entry.path().filename()).View());
    std::sort(names.begin(), names.end());
    return names;
}

std::string ReadFile(const fs::path& path) {
    // In one piece: a sanitized program takes long over single characters.
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    if (file.peek() != std::ifstream::traits_type::eof()) bytes << file.rdbuf();
    return std::move(bytes).str();
}

fs::path ProjectFolder(std::string_view name) {
    return fs::path(VEKA_PROJECT_DIR) / name;
}

std::vector<fs::path> CorpusFiles() {
    std::vector<fs::path> files;
    const fs::path corpus = ProjectFolder("../shared/corpus");
    if (!fs::is_directory(corpus)) return files;
    for (const auto& entry : fs::directory_iterator(corpus))
        if (entry.path().extension() == ".veka") files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace test
