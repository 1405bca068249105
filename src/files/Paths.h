#pragma once

#include <filesystem>

#include "platform/CString.h"
#include "platform/Export.h"

namespace veka {

/// A path for the file system, from the platform's own bytes, on Windows from UTF-8. On Windows most
/// functions of the system refuse a long path; such a path becomes absolute and gets the prefix with which
/// they accept it. It is not defined which file a path with a zero byte names.
VEKA_API std::filesystem::path ToPath(const CString& path);

/// The bytes of a path, in the same encoding.
VEKA_API CString FromPath(const std::filesystem::path& path);

/// True if there is a file or a directory. Links are followed. What may not be looked at counts as missing.
VEKA_API bool Exists(const std::filesystem::path& path);

/// True if there is a directory.
VEKA_API bool IsDirectory(const std::filesystem::path& path);

}  // namespace veka
