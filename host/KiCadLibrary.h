#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "export/kicad/KiCad.h"
#include "host/ImportedPart.h"

namespace host {

/// Libraries of KiCad at a place DIR/NAME: the symbols DIR/NAME.kicad_sym, the footprints DIR/NAME.pretty and
/// the solid models DIR/NAME.3dshapes. What is there already stays, except what has the same name. Each file
/// takes its place once it is whole.
class KiCadLibrary {
public:
    /// `models` says whether solid models are written, too. `waiting` is asked while another program writes
    /// the symbols. Raises `OutputError` for a place that has no name which KiCad takes.
    KiCadLibrary(const std::string& place, bool models, Waiting waiting);

    /// Writes the footprints and models of a part, and keeps its symbol until `Finish`. Returns what KiCad
    /// cannot hold, a sentence each. A STEP file that the part names is looked for beside the part's file and
    /// in the folders. Raises `NoPart` and `OutputError`.
    std::vector<std::string> Add(const ImportedPart& part, const std::vector<std::string>& stepFolders);
    /// Writes the symbols. Raises `OutputError` and `StoreError`.
    void Finish();

    /// Where the symbols are.
    std::string SymbolFile() const { return m_place + ".kicad_sym"; }
    std::size_t Parts() const { return m_parts; }

private:
    using Remarks = std::vector<std::string>;
    /// Writes the models of the packages; returns their paths by the names of footprints.
    std::map<std::string, std::string> WriteModels(const ImportedPart& part,
                                                   const std::vector<std::string>& stepFolders,
                                                   Remarks& remarks);
    void WriteFootprint(const kicad::Exported& footprint, Remarks& remarks);

    std::string m_place, m_directory, m_name;
    bool m_models;
    Waiting m_waiting;
    std::vector<kicad::Exported> m_symbols;
    std::set<std::string> m_written;  // names of footprints
    std::size_t m_parts = 0;
};

/// The part files in the directories of a library of parts, in the order of their names. Raises `StoreError`.
std::vector<std::string> PartFilesOf(const std::string& library);

}  // namespace host
