#include "python/Checking.h"

#include <string>
#include <string_view>

#include "python/Values.h"
#include "report/ImportReport.h"

namespace veka::python {

py::list Check(const py::bytes& data, const py::bytes& folder) {
    const std::string_view text = data;
    ReportOptions options;
    options.folder = folder;
    const ImportReport report = [&] {
        const py::gil_scoped_release unlocked;
        return ReportImport(text, options);
    }();
    py::list findings;
    for (const Finding& finding : report.Findings()) {
        const CodeDescription& code = Describe(finding.code);
        findings.append(py::make_tuple(code.id, NameOf(code.severity), NameOf(code.kind),
                                       finding.region.begin.line, finding.region.begin.column,
                                       FromText(finding.path), FromText(finding.text),
                                       FromText(finding.sentence)));
    }
    return findings;
}

}  // namespace veka::python
