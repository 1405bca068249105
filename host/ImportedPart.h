#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "host/PartLibrary.h"
#include "host/Reading.h"
#include "model/CVEKA_Manager.h"
#include "parser/Import.h"

namespace host {

/// A part data file, read once: its bytes and what the import made of them.
struct ImportedPart {
    CString file;                          ///< as the user named it
    FileContent content;                   ///< what is stored
    std::shared_ptr<CVEKA_Manager> model;  ///< shared with a thread that makes its solids
    std::vector<std::string> faults;  ///< a sentence for each thing that is wrong with the file as a whole
    veka::ImportResult result;

    /// True if the file has a section that the import reads.
    bool HasSections() const { return result.sections > result.unreadSections; }
    /// True if the file has the section of a part.
    bool HasPart() const { return result.parts > 0; }
    const CVEKA_Manager& Model() const { return *model; }
    CString Mpn() const { return Model().GetVEK()->GetPartGeneral()->GetMPN(); }
    /// The name of the part in a library; empty for a part without a part number.
    std::string Name() const;
};

/// A file that has no part, or a part without a part number.
struct NoPart : std::runtime_error {
    using runtime_error::runtime_error;
};

/// An import that exceeded a limit, or that the user ended.
struct ImportEnded : std::runtime_error {
    using runtime_error::runtime_error;
};

/// The bytes of a part data file, or of `in` for the name `-`. Raises `SourceError`, also for more bytes than
/// the limit of a file's size allows.
FileContent ReadContent(const std::string& file, std::istream& in, const Limits& limits);

/// Reads and imports a part data file. Raises `SourceError`, `ImportEnded`, and what the import raises.
ImportedPart ReadPart(const CString& file, const Reading& reading = {});
/// Imports the content of a part data file that was read.
ImportedPart ReadPart(const CString& file, FileContent content, const Reading& reading);
/// Reads and imports a part data file from standard input.
ImportedPart ReadPart(std::istream& in, const Reading& reading = {});

/// Raises `NoPart` where a file has nothing that the import reads.
void RequireSections(const ImportedPart& part);
/// Raises `NoPart` where a part cannot have a place in a library.
void RequirePartNumber(const ImportedPart& part);

/// The name of the part's file in a library.
std::string StoredFileName(const ImportedPart& part);

/// Stores the bytes of a part's file in a library. Raises `NoPart` and `StoreError`.
Outcome Store(const ImportedPart& part, const CString& library, Existing existing,
              const Waiting& waiting = nullptr);

/// True if the library has a part of this name.
bool HasPart(const CString& library, const std::string& name);

/// The faults of a file as one sentence.
std::string FaultSentence(const std::vector<std::string>& faults);

}  // namespace host
