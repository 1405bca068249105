#include "python/Drawings.h"

#include <initializer_list>
#include <string>
#include <utility>

#include "drawing/Drawing.h"
#include "model/CVEKA_Manager.h"
#include "python/RecordOf.h"

namespace veka::python {

namespace {

/// What a word means.
template <class Meaning>
Meaning Choose(const std::string& word, std::initializer_list<std::pair<const char*, Meaning>> choices) {
    std::string known;
    for (const auto& [name, meaning] : choices) {
        if (word == name) return meaning;
        known += std::string(known.empty() ? "" : ", ") + name;
    }
    throw py::value_error("\"" + word + "\" is none of these: " + known);
}

drawing::Theme ToTheme(const std::string& word) {
    return Choose<drawing::Theme>(word, {{"dark", drawing::Theme::Dark}, {"light", drawing::Theme::Light}});
}

/// The picture that `make` makes of a part.
template <class Make>
py::bytes Draw(const py::object& part, drawing::Side side, drawing::Theme theme, Make make) try {
    const drawing::Part drawn(RecordOf<CVEKA_Manager>(part));
    return drawing::WriteSvg(make(drawn), side, theme);
} catch (const drawing::TooLarge& error) {
    throw py::value_error(error.what());
}

}  // namespace

py::bytes DrawFootprint(const py::object& part, const py::object& footprint, const std::string& side,
                        const std::string& theme) {
    const auto from = Choose<drawing::Side>(
        side,
        {{"both", drawing::Side::Both}, {"top", drawing::Side::Top}, {"bottom", drawing::Side::Bottom}});
    const auto& record = RecordOf<CVEKA_FootprintDB>(footprint);
    return Draw(part, from, ToTheme(theme),
                [&](const drawing::Part& drawn) { return FootprintScene(drawn, record); });
}

py::bytes DrawSymbol(const py::object& part, const py::object& symbol, const std::string& theme) {
    const auto& record = RecordOf<CVEKA_Symbol>(symbol);
    return Draw(part, drawing::Side::Both, ToTheme(theme),
                [&](const drawing::Part& drawn) { return SymbolScene(drawn, record); });
}

py::bytes DrawPackage(const py::object& part, const py::object& package, const std::string& looking,
                      const std::string& theme) {
    const auto from = Choose<drawing::Looking>(looking, {{"above", drawing::Looking::FromAbove},
                                                         {"front", drawing::Looking::FromFront},
                                                         {"side", drawing::Looking::FromSide}});
    const auto& record = RecordOf<CVEKA_Package>(package);
    return Draw(part, drawing::Side::Both, ToTheme(theme),
                [&](const drawing::Part& drawn) { return PackageScene(drawn, record, from); });
}

}  // namespace veka::python
