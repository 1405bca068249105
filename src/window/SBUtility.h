#pragma once

#include "platform/CString.h"
#include "platform/Export.h"

class CWnd;

/// The shared utility singleton: questions to the file system and to the user.
class VEKA_API SBUtility {
public:
    static SBUtility& GetInstance();

    /// True if a file or a directory of that path exists. Links are followed; an empty path, a dangling
    /// link and what cannot be looked at do not exist. Source file and line are for diagnostics only.
    bool DoesFileOrDirExist(const CString& path, const char* sourceFile, int line) const;
    /// The file that the user picks, or empty. The flag and the further string have no effect.
    CString GetFilePathFromUser(int flag, const CString& description, const CString& extension,
                                const CString& further, const CString& current, CWnd* parent) const;
    /// The directory that the user picks, or empty.
    CString GetDirectoryFromUser(const CString& title, const CString& current, void* owner) const;
    /// A name that is safe in every file system, at most 200 bytes long; different texts give different
    /// names. ASCII letters, digits and - _ + stay as they are, a point too inside the name; any other
    /// byte becomes `&#N;` with its decimal number, and so does the first letter of a name that Windows
    /// reserves. A longer name is cut and ends in a hash of the whole text. Empty stays empty.
    CString EncodeEntityCode(const CString& text) const;
    /// Directory and name with exactly one separator between them, also for an empty name.
    CString SBPathCombine(const CString& directory, const CString& name, const char* sourceFile,
                          int line) const;

private:
    SBUtility() = default;
};
