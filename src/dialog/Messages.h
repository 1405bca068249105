#pragma once

namespace veka::messages {

inline constexpr const char* kAsciiPathFail = "VEK Ascii File Path Fail!";
inline constexpr const char* kXmlPathFail = "VEK XML File Path Fail!";
inline constexpr const char* kLibraryDirectoryMissing = "VEK Library Directory Not Exist!";
inline constexpr const char* kAsciiReadFail = "VEK Ascii File read Fail!";
/// Follows the closing quote of the target path directly.
inline constexpr const char* kAlreadyExists = "is already exist. Do you want to overwrite";

inline constexpr const char* kAsciiCaption = "Import ASCII Part Data File";
inline constexpr const char* kXmlCaption = "Import XML Part Data File";
inline constexpr const char* kAsciiFileLabel = "ASCII Part Data File";
inline constexpr const char* kXmlFileLabel = "XML Part Data File";
inline constexpr const char* kSelectGroup = "Select File/Directory";
inline constexpr const char* kDirectoryLabel = "Part Library Directory";
inline constexpr const char* kBrowse = "...";
inline constexpr const char* kOk = "OK";
inline constexpr const char* kCancel = "Cancel";

inline constexpr const char* kAsciiFileType = "VEKA File";
inline constexpr const char* kAsciiExtension = "veka";
inline constexpr const char* kXmlFileType = "VEKX File";
inline constexpr const char* kXmlExtension = "vekx";
inline constexpr const char* kDirectoryTitle = "VEK Library Directory";

}  // namespace veka::messages
