#include "support/Told.h"

#include <sstream>

#include "inspect/Json.h"
#include "inspect/Outline.h"

namespace test {

std::string Outlined(const CVEKA_Manager& model, bool all) {
    std::ostringstream out;
    host::Outline(out, all).Write(model);
    return out.str();
}

std::string AsJson(const CVEKA_Manager& model) {
    std::ostringstream out;
    host::Json(out).Write(model);
    return out.str();
}

std::vector<std::string> SectionsAsJson(const CVEKA_Manager& model) {
    std::vector<std::string> sections;
    veka::ForEachField(model, [&](const auto&, const auto& field) {
        std::ostringstream out;
        host::Json json(out);
        host::VisitValue(json, field);
        sections.push_back(out.str());
    });
    return sections;
}

}  // namespace test
