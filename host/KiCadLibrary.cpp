#include "host/KiCadLibrary.h"

#include <algorithm>

#include "drawing/Part.h"
#include "files/Paths.h"
#include "host/OutputFile.h"
#include "host/Solids.h"

namespace host {

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t kLargestLibrary = std::uintmax_t{1} << 30;
// A part of a library cannot have a name that begins with a point.
constexpr const char* kLock = ".veka-lock";

fs::path ToPath(const std::string& text) {
    return veka::ToPath(CString(text));
}
std::string ToText(const fs::path& path) {
    return std::string(veka::FromPath(path).View());
}

void MakeDirectory(const std::string& path) {
    std::error_code error;
    fs::create_directories(ToPath(path), error);
    if (error) throw OutputError("cannot make the directory \"" + path + "\": " + error.message());
}

/// The content of a file; empty where there is none.
std::string ReadFile(const std::string& path) {
    try {
        return ReadRegularFile(ToPath(path), kLargestLibrary).bytes;
    } catch (const NoSuchFile&) {
        return "";
    } catch (const SourceError& error) {
        throw OutputError(error.what());
    }
}

/// A footprint without its description, which is that of a part.
std::string WithoutDescription(const std::string& text) {
    const std::size_t begin = text.find("\n  (descr ");
    if (begin == text.npos) return text;
    const std::size_t end = text.find('\n', begin + 1);
    return text.substr(0, begin) + (end == text.npos ? "" : text.substr(end));
}

/// True if a package uses a footprint.
bool Uses(const CVEKA_Package& package, const CString& footprint) {
    if (package.GetDefaultFootprintName() == footprint) return true;
    const CVEKA_FootprintArray& footprints = *package.GetFootprints();
    return std::any_of(footprints.begin(), footprints.end(), [&](const CVEKA_Footprint* used) {
        return used && used->GetLibraryFootprintName() == footprint;
    });
}

}  // namespace

KiCadLibrary::KiCadLibrary(const std::string& place, bool models, Waiting waiting)
    : m_place(place), m_models(models), m_waiting(std::move(waiting)) {
    const fs::path path = ToPath(place);
    m_name = ToText(path.filename());
    m_directory = ToText(path.has_parent_path() ? path.parent_path() : fs::path("."));
    if (!IsFileName(m_name) || kicad::NameInKiCad(m_name, kicad::kLongestFootprintName) != m_name)
        throw OutputError("KiCad takes no library of the name \"" + m_name + '"');
}

std::vector<std::string> KiCadLibrary::Add(const ImportedPart& part,
                                           const std::vector<std::string>& stepFolders) {
    RequirePartNumber(part);
    Remarks remarks;
    const auto take = [&](const kicad::Exported& exported, const char* what) {
        for (const std::string& remark : exported.remarks)
            remarks.push_back(std::string(what) + " \"" + exported.name + "\": " + remark);
    };
    try {
        const drawing::Part drawn(part.Model());
        kicad::Exported symbol = kicad::ExportSymbol(drawn, m_name);
        take(symbol, "symbol");
        MakeDirectory(m_place + ".pretty");
        const std::map<std::string, std::string> models = WriteModels(part, stepFolders, remarks);
        for (const CVEKA_FootprintDB* footprint : *part.Model().GetFootprintDBArr()) {
            if (!footprint) continue;
            const CString name = footprint->GetFootprintName();
            // Of several footprints of one name the first one counts.
            if (name.IsEmpty() || drawn.records.Footprint(name.View()) != footprint) continue;
            const auto model = models.find(std::string(name.View()));
            const kicad::Exported exported =
                kicad::ExportFootprint(drawn, *footprint, model == models.end() ? "" : model->second);
            take(exported, "footprint");
            WriteFootprint(exported, remarks);
        }
        m_symbols.push_back(std::move(symbol));
        ++m_parts;
    } catch (const drawing::DrawingError& error) {
        throw OutputError("\"" + std::string(part.file.View()) + "\" cannot be exported: " + error.what());
    }
    return remarks;
}

std::map<std::string, std::string> KiCadLibrary::WriteModels(const ImportedPart& part,
                                                             const std::vector<std::string>& stepFolders,
                                                             Remarks& remarks) {
    std::map<std::string, std::string> models;
    if (!m_models || !CanWriteSolids()) return models;
    const std::string folder = m_place + ".3dshapes";
    for (const CVEKA_Package* package : *part.Model().GetVEK()->GetPackages()->GetPackageArr()) {
        if (!package || package->GetName().IsEmpty()) continue;
        const std::string name =
            kicad::NameInKiCad(package->GetName().View(), kicad::kLongestFootprintName) + ".step";
        MakeDirectory(folder);
        OutputFile output(std::string(folder).append("/").append(name));
        const std::string model = "model \"" + name + "\": ";
        const auto remark = [&](const std::vector<std::string>& sentences) {
            for (const std::string& sentence : sentences)
                remarks.push_back(std::string(model).append(sentence));
        };
        std::vector<SolidFile> files{{SolidFile::Format::Step, output.TemporaryPath(), false, {}}};
        remark(WriteSolids(part.Model(), std::string(part.file.View()), stepFolders, files, package));
        remark(files[0].failures);
        if (!files[0].written) continue;
        output.Commit();
        for (const CVEKA_FootprintDB* footprint : *part.Model().GetFootprintDBArr())
            if (footprint && Uses(*package, footprint->GetFootprintName()))
                models.try_emplace(std::string(footprint->GetFootprintName().View()),
                                   "${KIPRJMOD}/" + m_name + ".3dshapes/" + name);
    }
    return models;
}

void KiCadLibrary::WriteFootprint(const kicad::Exported& footprint, Remarks& remarks) {
    const std::string path = m_place + ".pretty/" + footprint.name + ".kicad_mod";
    const std::string former = ReadFile(path);
    if (!former.empty() && WithoutDescription(former) != WithoutDescription(footprint.text))
        remarks.push_back("footprint \"" + footprint.name + "\": " +
                          (m_written.count(footprint.name) > 0
                               ? "another part has a different one of this name"
                               : "the one that was there was different"));
    if (former != footprint.text) WriteOutput(path, footprint.text);
    m_written.insert(footprint.name);
}

void KiCadLibrary::Finish() {
    if (m_symbols.empty()) return;
    const FileLock lock(Directory(ToPath(m_directory)), kLock, m_waiting);
    try {
        const std::string former = ReadFile(SymbolFile());
        const std::string text = kicad::WithSymbols(former, m_symbols);
        if (text != former) WriteOutput(SymbolFile(), text);
    } catch (const kicad::NoSymbolLibrary& error) {
        throw OutputError("\"" + SymbolFile() + "\" was left as it is: " + error.what());
    }
    m_symbols.clear();
}

std::vector<std::string> PartFilesOf(const std::string& library) {
    const Directory root(ToPath(library));
    std::vector<std::string> files;
    for (const std::string& name : root.Names()) {
        std::error_code error;
        const fs::path place = root.Path() / ToPath(name);
        if (name.starts_with(".") || !fs::is_directory(place, error)) continue;
        std::vector<std::string> found, others;
        for (const std::string& entry : Directory(place).Names()) {
            if (!fs::is_regular_file(place / ToPath(entry), error) || entry.starts_with(".")) continue;
            (entry.ends_with(".veka") ? found : others).push_back(ToText(place / ToPath(entry)));
        }
        // A part may have been stored from a file of any name.
        if (found.empty()) found = std::move(others);
        files.insert(files.end(), found.begin(), found.end());
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace host
