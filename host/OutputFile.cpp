#include "host/OutputFile.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <system_error>

#include "files/Paths.h"
#include "platform/Utf16.h"

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
fs::path Resolved(const std::string& text) {
#ifdef _WIN32
    // The functions for paths do not know the prefix of a long path.
    const fs::path path(veka::ToUtf16(text));
#else
    const fs::path path = ToPath(text);
#endif
    std::error_code error;
    const fs::path resolved = fs::weakly_canonical(fs::absolute(path, error), error);
    return ToPath(error ? text : ToText(resolved));
}

bool IsBelow(const fs::path& path, const fs::path& directory) {
    const auto [rest, ignored] = std::mismatch(directory.begin(), directory.end(), path.begin(), path.end());
    return rest == directory.end();
}

}  // namespace

OutputFile::OutputFile(const std::string& path) try {
    if (path.empty()) return;
    if (IsLinkOfAnotherUser(ToPath(path)))
        throw OutputError('"' + path + "\" is a link that another user made, and is not followed");
    const fs::path place = Resolved(path);
    std::error_code error;
    const fs::file_status status = fs::status(place, error);
    if (fs::exists(status) && !fs::is_regular_file(status))
        throw OutputError('"' + path + "\" is no regular file and cannot be replaced");
    m_place.emplace(place.parent_path());
    m_name = ToText(place.filename());
    m_scratch.emplace(fs::temp_directory_path());
    m_own.emplace(m_scratch->MakeUnique("veka-out-"));
    m_temporaryPath = ToText(m_own->Path() / place.filename());
} catch (const StoreError& error) {
    throw OutputError(error.what());
} catch (const fs::filesystem_error& error) {
    throw OutputError("there is no directory for temporary files: " + error.code().message());
}

OutputFile::~OutputFile() {
    if (!m_own) return;
    const std::string name = m_own->Name();
    m_own.reset();
    m_scratch->RemoveAll(name);
}

void OutputFile::Commit() try {
    if (!m_own) return;
    const FileContent content =
        ReadRegularFile(ToPath(m_temporaryPath), std::numeric_limits<std::uintmax_t>::max());
    m_place->Replace(m_name, content.bytes);
} catch (const StoreError& error) {
    throw OutputError(error.what());
} catch (const SourceError& error) {
    throw OutputError(error.what());
}

void WriteOutput(const std::string& path, std::string_view bytes) {
    OutputFile file(path);
    std::ofstream out(ToPath(file.TemporaryPath()), std::ios::binary);
    out << bytes;
    out.close();
    if (!out) throw OutputError("cannot write \"" + path + '"');
    file.Commit();
}

void RequireOutsideOf(const std::string& output, const std::string& input, const std::string& library,
                      const std::string& partName) {
    if (output.empty()) return;
    const fs::path path = Resolved(output);
    std::error_code error;
    if (path == Resolved(input) || fs::equivalent(path, ToPath(input), error))
        throw RefusedOutput('"' + output + "\" is the file that is imported");
    if (library.empty()) return;
    const fs::path root = Resolved(library);
    const fs::path entry = path.lexically_relative(root);
    const bool own = IsBelow(path, root) && entry.begin()->native().starts_with(ToPath(".veka-").native());
    if (own || (!partName.empty() && IsBelow(path, root / ToPath(partName))))
        throw RefusedOutput('"' + output + "\" lies in the place of a part in the library");
}

}  // namespace host
