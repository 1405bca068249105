#pragma once

#include <string>

namespace veka {

/// What a user is to choose: a directory, or a file of a type.
struct PathWanted {
    std::wstring title;    ///< empty: the system's own
    std::wstring type;     ///< as the user reads it; empty: a directory is wanted
    std::wstring pattern;  ///< of the type's file names
    std::wstring extension;
};

/// Lets the user choose in the system's own dialog, which opens at `current` as far as that exists; empty if
/// the user cancels, or if the system has no such dialog. The owner is a window handle or null.
std::wstring PickPath(const PathWanted& wanted, const std::wstring& current, void* owner);

}  // namespace veka
