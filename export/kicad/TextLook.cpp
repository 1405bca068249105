#include "export/kicad/TextLook.h"

#include "export/kicad/Sexpr.h"
#include "model/objects/Objects.h"

namespace kicad {

namespace {

// A line of text is this thick, as a share of its height, where the font does not say.
constexpr double kPen = 0.15;

bool IsSize(double value) {
    return value > 0 && Holds(value);
}

template <class Object>
void Take(TextLook& look, const drawing::Part& part, const Object& object) {
    if (!object.VALUE.IsEmpty()) look.bytes = object.VALUE.View();
    const CVEKA_Font standard;
    const CVEKA_Font* found = part.fonts.Find(object.FID);
    const CVEKA_Font& font = found ? *found : standard;
    const double width = font.GetCharWidthA() * part.Millimetres(),
                 pen = font.GetPenWidth() * part.Millimetres();
    if (IsSize(width)) look.width = width;
    if (IsSize(pen)) look.pen = pen;
}

}  // namespace

TextLook LookOfText(const drawing::Part& part, const drawing::Scene& scene, const drawing::Shape& shape) {
    const auto& text = std::get<drawing::Text>(shape.form);
    TextLook look{scene.String(text), {}, text.height, text.height * kPen};
    if (!shape.source) return look;
    if (*shape.source.type == typeid(CVEKA_3DOJ_TEXT)) {
        Take(look, part, *static_cast<const CVEKA_3DOJ_TEXT*>(shape.source.record));
    } else if (*shape.source.type == typeid(CVEKA_3DOJ_PROPTEXT)) {
        const auto& object = *static_cast<const CVEKA_3DOJ_PROPTEXT*>(shape.source.record);
        Take(look, part, object);
        look.property = object.NAME;
    }
    return look;
}

}  // namespace kicad
