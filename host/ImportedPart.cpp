#include "host/ImportedPart.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <istream>
#include <random>

#include "files/Paths.h"
#include "host/CommandLine.h"
#include "leveltree/CECadCls.h"
#include "parser/CVEK_AsciiParser.h"
#include "platform/Exceptions.h"
#include "window/SBUtility.h"

namespace host {

namespace {

constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 30;

std::string Quoted(const CString& text) {
    return '"' + std::string(text.View()) + '"';
}

/// A directory of this user only, with one file of some bytes in it, while this lives.
class TemporaryCopy {
public:
    explicit TemporaryCopy(const std::string& bytes) : m_directory(MakeDirectory()) {
        std::ofstream(File(), std::ios::binary) << bytes;
    }
    ~TemporaryCopy() {
        std::error_code error;
        std::filesystem::remove_all(m_directory, error);
    }
    TemporaryCopy(const TemporaryCopy&) = delete;
    TemporaryCopy& operator=(const TemporaryCopy&) = delete;

    CString Path() const { return veka::FromPath(File()); }

private:
    /// Nobody else can read the directory or put a link into it.
    static std::filesystem::path MakeDirectory() {
        const std::filesystem::path parent = std::filesystem::temp_directory_path();
#ifdef _WIN32
        // The directory for temporary files is the user's own there.
        std::random_device random;
        std::filesystem::path directory = parent / ("veka-import-" + std::to_string(random()));
        if (!std::filesystem::create_directory(directory))
            throw SourceError("cannot make a temporary directory");
        return directory;
#else
        std::string directory = parent / "veka-import-XXXXXX";
        if (!mkdtemp(directory.data())) throw SourceError("cannot make a temporary directory");
        return directory;
#endif
    }
    std::filesystem::path File() const {
        return m_directory / "part.veka";
    }

    std::filesystem::path m_directory;
};

/// Names of the top-level sections that the import reads.
constexpr std::array<std::string_view, 8> kSections{"FONTS",     "VEK",        "COLORTABLE", "PADS",
                                                    "PADSTACKS", "FOOTPRINTS", "NSHAPE",     "PARTITIONS"};

std::string InLine(int line) {
    return "line " + std::to_string(line);
}

ImportedPart Import(const CString& file, FileContent content) {
    ImportedPart part{file, std::move(content), nullptr, {}, false, false};
    int parts = 0;
    std::vector<std::string> unknown;
    const TemporaryCopy copy(part.content.bytes);
    CECadCls tree;
    tree.m_strFilePath = copy.Path();
    const int read = tree.ReadTopLevels(0, [&](const CECadClsLvl* level) {
        const std::string_view name = level->m_strName.View();
        if (name == "VEK") ++parts;
        if (std::find(kSections.begin(), kSections.end(), name) != kSections.end())
            part.hasSections = true;
        else if (unknown.size() < 3)
            unknown.push_back("nothing reads the section " + Quoted(level->m_strName));
    });
    if (read != 0) part.faults.push_back("its levels are unbalanced in " + InLine(tree.m_nLineCount));
    part.hasPart = parts > 0;
    part.faults.insert(part.faults.end(), unknown.begin(), unknown.end());
    if (parts > 1)
        part.faults.push_back("of " + std::to_string(parts) + " parts in the file the last one was kept");

    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(copy.Path());
    parser.Parser();
    part.model.reset(parser.GetCVEKA_Manager());
    parser.SetCVEKA_Manager(nullptr);
    return part;
}

}  // namespace

std::string ImportedPart::Name() const {
    return std::string(SBUtility::GetInstance().EncodeEntityCode(Mpn()).View());
}

ImportedPart ReadPart(const CString& file) {
    return Import(file, ReadRegularFile(veka::ToPath(file), kLargestFile));
}

ImportedPart ReadPart(std::istream& in) {
    FileContent content;
    constexpr size_t kBlock = 1 << 18;
    while (in) {
        const size_t size = content.bytes.size();
        content.bytes.resize(size + kBlock);
        in.read(content.bytes.data() + size, kBlock);
        content.bytes.resize(size + static_cast<size_t>(in.gcount()));
        if (content.bytes.size() > kLargestFile)
            throw SourceError("standard input is larger than " + std::to_string(kLargestFile >> 20) + " MB");
    }
    if (in.bad()) throw SourceError("cannot read standard input");
    return Import(kStandardInput, std::move(content));
}

void RequireSections(const ImportedPart& part) {
    if (!part.hasSections) throw NoPart(Quoted(part.file) + " holds no part");
}

void RequirePartNumber(const ImportedPart& part) {
    if (!part.hasPart) throw NoPart(Quoted(part.file) + " holds no part");
    if (part.Mpn().IsEmpty()) throw NoPart(Quoted(part.file) + " holds no part with a part number");
}

Outcome Store(const ImportedPart& part, const CString& library, Existing existing, const Waiting& waiting) {
    RequirePartNumber(part);
    const std::string name = part.Name();
    const std::string fileName = part.file == kStandardInput
                                     ? name + ".veka"
                                     : std::string(veka::FromPath(veka::ToPath(part.file).filename()).View());
    return PartLibrary(veka::ToPath(library), waiting).Store(name, fileName, part.content, existing);
}

bool HasPart(const CString& library, const std::string& name) {
    const SBUtility& utility = SBUtility::GetInstance();
    return utility.DoesFileOrDirExist(utility.SBPathCombine(library, CString(name), __FILE__, __LINE__),
                                      __FILE__, __LINE__);
}

std::string FaultSentence(const ImportedPart& part) {
    std::string sentence;
    for (const std::string& fault : part.faults) sentence += (sentence.empty() ? "" : "; ") + fault;
    return sentence;
}

}  // namespace host
