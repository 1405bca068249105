#pragma once

#include <memory>
#include <optional>
#include <stdexcept>

#include "model/CVEKA_Manager.h"
#include "parser/CVEK_AsciiParser.h"

class CWnd;

namespace host {

/// A part that the import dialog has read.
struct ImportedPart {
    std::unique_ptr<CVEK_AsciiParser> parser;
    CString file;
    CString library;  ///< directory that the user wants it stored in

    const CVEKA_Manager& Model() const { return *parser->GetCVEKA_Manager(); }
    CString Mpn() const { return Model().GetVEK()->GetPartGeneral()->GetMPN(); }
};

/// A file whose part has no number: its place in a library would be the library itself.
struct NoPartNumber : std::runtime_error {
    using runtime_error::runtime_error;
};

/// Runs the import dialog with what its fields are opened with; nothing where it ends with Cancel.
std::optional<ImportedPart> RunImportDialog(const CString& file, const CString& library,
                                            CWnd* parent = nullptr);

/// Raises `NoPartNumber` where a part cannot have a place in a library.
void RequirePartNumber(const ImportedPart& part);

/// Stores a copy of the part's file in its library and returns the name that the part has there. Raises
/// `NoPartNumber` and `StoreError`.
CString Store(const ImportedPart& part);

}  // namespace host
