#include "host/OutputFile.h"

#include <algorithm>
#include <random>
#include <system_error>

#include "files/Paths.h"

namespace host {

namespace fs = std::filesystem;

namespace {

fs::path ToPath(const std::string& text) {
    return veka::ToPath(CString(text));
}

std::string ToText(const fs::path& path) {
    return std::string(veka::FromPath(path).View());
}

/// The path without links, as far as it exists.
fs::path Resolved(const fs::path& path) {
    std::error_code error;
    fs::path resolved = fs::weakly_canonical(fs::absolute(path, error), error);
    return error ? path : resolved;
}

bool IsBelow(const fs::path& path, const fs::path& directory) {
    const auto [rest, ignored] = std::mismatch(directory.begin(), directory.end(), path.begin(), path.end());
    return rest == directory.end();
}

}  // namespace

OutputFile::OutputFile(const std::string& path) {
    if (path.empty()) return;
    m_place = Resolved(ToPath(path));
    std::error_code error;
    const fs::file_status status = fs::status(m_place, error);
    if (fs::exists(status) && !fs::is_regular_file(status))
        throw OutputError('"' + path + "\" is no regular file and cannot be replaced");
    std::random_device random;
    m_temporary = m_place.parent_path() /
                  ToPath(".veka-" + std::to_string(random()) + '-' + ToText(m_place.filename()));
    m_temporaryPath = ToText(m_temporary);
}

OutputFile::~OutputFile() {
    std::error_code error;
    if (!m_temporary.empty()) fs::remove(m_temporary, error);
}

void OutputFile::Commit() {
    if (m_temporary.empty()) return;
    std::error_code error;
    const fs::file_status former = fs::status(m_place, error);
    if (fs::exists(former)) fs::permissions(m_temporary, former.permissions(), error);
    fs::rename(m_temporary, m_place, error);
    if (error) throw OutputError("cannot write \"" + ToText(m_place) + "\": " + error.message());
    m_temporary.clear();
}

void RequireOutsideOf(const std::string& output, const std::string& input, const std::string& library,
                      const std::string& partName) {
    if (output.empty()) return;
    const fs::path path = Resolved(ToPath(output));
    std::error_code error;
    if (path == Resolved(ToPath(input)) || fs::equivalent(path, ToPath(input), error))
        throw RefusedOutput('"' + output + "\" is the file that is imported");
    if (library.empty()) return;
    const fs::path root = Resolved(ToPath(library));
    const fs::path entry = path.lexically_relative(root);
    const bool own = IsBelow(path, root) && entry.begin()->native().starts_with(ToPath(".veka-").native());
    if (own || (!partName.empty() && IsBelow(path, root / ToPath(partName))))
        throw RefusedOutput('"' + output + "\" lies in the place of a part in the library");
}

}  // namespace host
