#include "report/ImportReport.h"

#include "report/Arrivals.h"
#include "report/ModelCheck.h"
#include "report/Structure.h"
#include "report/Unread.h"

namespace veka {

ImportReport ReportImport(std::string_view bytes, const ReportOptions& options) {
    const PositionedText text = ReadWithPositions(bytes);
    ReportWriter report(text, options.most);
    FindStructure(text, report);
    const Arrivals arrivals(text);
    FindUnread(text, arrivals, report);
    CheckModel(text, arrivals, options.folder, report);
    return report.Finish();
}

}  // namespace veka
