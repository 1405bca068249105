#include "support/ModelText.h"

#include <sstream>

#include "inspect/Json.h"
#include "inspect/Outline.h"

namespace test {

std::string Outlined(const CVEKA_Manager& model, bool all) {
    std::ostringstream out;
    veka::Outline(out, all).Write(model);
    return out.str();
}

std::string AsJson(const CVEKA_Manager& model) {
    std::ostringstream out;
    veka::Json(out).Write(model);
    return out.str();
}

std::vector<std::string> SectionsAsJson(const CVEKA_Manager& model) {
    std::vector<std::string> sections;
    const veka::RecordView view = veka::View(model);
    for (const veka::FieldDescription& field : view.description->fields) {
        std::ostringstream out;
        veka::Json(out).WriteField(field, view.record);
        sections.push_back(out.str());
    }
    return sections;
}

}  // namespace test
