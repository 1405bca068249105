#include "python/Exports.h"

#include <memory>
#include <string>
#include <vector>

#include "host/CommandLine.h"
#include "host/KiCadLibrary.h"
#include "host/SolidOutput.h"
#include "python/Values.h"

namespace veka::python {

namespace {

CVEKA_Manager& ModelOf(const py::capsule& part) {
    return *part.get_pointer<CVEKA_Manager>();
}

std::vector<std::string> Paths(const py::list& list) {
    std::vector<std::string> paths;
    for (const py::handle path : list) paths.emplace_back(py::cast<py::bytes>(path));
    return paths;
}

py::list Sentences(const std::vector<std::string>& sentences) {
    py::list list;
    for (const std::string& sentence : sentences) list.append(FromText(sentence));
    return list;
}

/// Waits for another program for a minute, unless the user interrupts this one.
bool GoOnWaiting(std::chrono::milliseconds waited, const std::string&) {
    Checked(PyErr_CheckSignals());
    return waited < std::chrono::minutes(1);
}

}  // namespace

py::list WriteSolids(const py::capsule& part, const py::bytes& path, const std::string& format,
                     const py::list& folders) {
    const auto kind = format == "gltf" ? host::SolidFile::Format::Gltf : host::SolidFile::Format::Step;
    return Sentences(
        host::WriteSolidOutput(ModelOf(part), host::kStandardInput, Paths(folders), kind, std::string(path)));
}

py::list WriteToKiCad(const py::list& parts, const py::bytes& place, bool models, const py::list& folders) {
    host::KiCadLibrary library(std::string(place), models, GoOnWaiting);
    std::vector<std::string> remarks;
    for (const py::handle part : parts) {
        host::ImportedPart imported;
        imported.file = host::kStandardInput;
        // The object of Python owns the model.
        imported.model = {std::shared_ptr<void>(), &ModelOf(py::cast<py::capsule>(part))};
        imported.result.parts = imported.result.sections = 1;
        for (std::string& remark : library.Add(imported, Paths(folders)))
            remarks.push_back(std::move(remark));
        Checked(PyErr_CheckSignals());
    }
    library.Finish();
    return Sentences(remarks);
}

}  // namespace veka::python
