#pragma once

#include <filesystem>

#include "platform/CString.h"

namespace veka {

/// A path as the file system takes it: UTF-8 on Windows, the platform's own bytes elsewhere.
inline std::filesystem::path ToPath(const CString& path) {
#ifdef _WIN32
    return std::filesystem::path(std::u8string(path.View().begin(), path.View().end()));
#else
    return std::filesystem::path(path.View());
#endif
}

/// The bytes of a path, in the same encoding.
inline CString FromPath(const std::filesystem::path& path) {
#ifdef _WIN32
    const std::u8string text = path.u8string();
    return CString(std::string(text.begin(), text.end()));
#else
    return CString(path.native());
#endif
}

}  // namespace veka
