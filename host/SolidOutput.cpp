#include "host/SolidOutput.h"

#include "host/OutputFile.h"

namespace host {

std::vector<std::string> WriteSolidOutput(const CVEKA_Manager& part, const std::string& partFile,
                                          const std::vector<std::string>& stepFolders,
                                          SolidFile::Format format, const std::string& path) {
    OutputFile output(path);
    std::vector<SolidFile> files{{format, output.TemporaryPath(), false, {}}};
    std::vector<std::string> remarks = WriteSolids(part, partFile, stepFolders, files);
    const std::vector<std::string>& failures = files[0].failures;
    if (!files[0].written)
        throw OutputError('"' + path +
                          "\" was not written: " + (failures.empty() ? "no reason is known" : failures[0]));
    output.Commit();
    remarks.insert(remarks.end(), failures.begin(), failures.end());
    return remarks;
}

}  // namespace host
