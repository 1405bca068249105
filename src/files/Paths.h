#pragma once

#include <filesystem>

#include "platform/CString.h"
#include "platform/Export.h"

namespace veka {

/// A path as the file system takes it: the platform's own bytes; on Windows UTF-8, where a path too long for
/// most of the system's functions becomes absolute and gets the prefix that lets them take it. Which file a
/// path with a zero byte names is not defined.
VEKA_API std::filesystem::path ToPath(const CString& path);

/// The bytes of a path, in the same encoding.
VEKA_API CString FromPath(const std::filesystem::path& path);

/// True if there is a file or a directory. Links are followed; what cannot be looked at does not exist.
VEKA_API bool Exists(const std::filesystem::path& path);

/// True if there is a directory.
VEKA_API bool IsDirectory(const std::filesystem::path& path);

}  // namespace veka
