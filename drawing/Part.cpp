#include "drawing/Part.h"

#include <algorithm>
#include <functional>

#include "leads/Placement.h"

namespace drawing {

namespace {

bool HasOne(std::string_view text, std::initializer_list<std::string_view> words) {
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view word) { return text.find(word) != std::string_view::npos; });
}

std::uint8_t Part255(int value) {
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

/// The colour that a layer gives; black is what a layer without a colour has.
std::optional<Color> ColorOfLayer(const CVEKA_Layer& layer) {
    const CVEKA_Color& color = *layer.GetColor();
    const Color result{Part255(color.GetRed()), Part255(color.GetGreen()), Part255(color.GetBlue())};
    if (result == Color{}) return std::nullopt;
    return result;
}

/// The beginning of a name.
std::string Short(const CString& name) {
    return std::string(name.View().substr(0, 200));
}

std::pair<Role, Side> RoleOfLayer(const CVEKA_Layer& layer) {
    return RoleOfNames(Short(layer.GetECadLayerName()) + ' ' + Short(layer.GetName()));
}

std::string Capitalized(std::string text) {
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

}  // namespace

std::pair<Role, Side> RoleOfNames(std::string_view names) {
    // Every word between blanks, so that its beginning and its end can be told.
    std::string text = " ";
    for (const char c : names)
        text += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c == '_' ? ' ' : c;
    text += ' ';
    Side side = Side::Both;
    if (HasOne(text, {" B.", "BOTTOM", "BACK", " BOT ", "BOT ", " BOT."}))
        side = Side::Bottom;
    else if (HasOne(text, {" F.", "TOP", "FRONT"}))
        side = Side::Top;
    else if (HasOne(text, {"INNER", " IN1", " IN2", "PLANE"}))
        side = Side::Inner;
    Role role = Role::Other;
    if (HasOne(text, {"SILK", "LEGEND", "OVERLAY"}))
        role = Role::Silk;
    else if (HasOne(text, {"PASTE", "CREAM", "STENCIL", "METALMASK", "METAL MASK"}))
        role = Role::Paste;
    else if (HasOne(text, {"MASK", "SOLDER", "RESIST"}))
        role = Role::SolderMask;
    else if (HasOne(text, {"COURTYARD", "CRTYD", "PLACE BOUND"}))
        role = Role::Courtyard;
    else if (HasOne(text, {".FAB", "FABRICATION", "ASSEMBLY", " ASSY"}))
        role = Role::Assembly;
    else if (HasOne(text, {"KEEP-OUT", "KEEPOUT", "KEEP OUT", "RESTRICT"}))
        role = Role::KeepOut;
    else if (HasOne(text, {"DRILL", "HOLE"}))
        role = Role::Drill;
    else if (HasOne(text, {"COPPER", ".CU ", "SIGNAL", "CONDUCTOR", "ETCH", " TOP ", " BOTTOM ", "PLANE"}))
        role = Role::Copper;
    return {role, side};
}

int RankOf(Role role, Side side) {
    // What covers what on one side. A mask and a paste are drawn with the copper seen through them.
    int rank = 90;
    switch (role) {
        case Role::SolderMask:
            rank = 10;
            break;
        case Role::Copper:
            rank = 20;
            break;
        case Role::Paste:
            rank = 30;
            break;
        case Role::KeepOut:
            rank = 40;
            break;
        case Role::Assembly:
            rank = 50;
            break;
        case Role::Silk:
            rank = 60;
            break;
        case Role::Courtyard:
            rank = 70;
            break;
        case Role::Drill:
            rank = 80;
            break;
        case Role::PinName:
            rank = 100;
            break;
        default:
            break;
    }
    return rank + (side == Side::Bottom ? 0 : side == Side::Inner ? 200 : 400);
}

Part::Part(const CVEKA_Manager& manager)
    : records(manager),
      fonts(*manager.GetLibFonts()),
      m_manager(manager),
      m_layersByName(*manager.GetVEK()->GetLayers()->GetLayerArr(),
                     std::mem_fn(&CVEKA_Layer::GetECadLayerName)) {
    const CString unit = Vek().GetPartGeneral()->GetUnit();
    m_millimetres = veka::MillimetersOfUnit(unit);
    if (!(m_millimetres > 0)) {
        m_millimetres = 1;
        if (!unit.IsEmpty())
            m_unitRemark = "the unit \"" + std::string(unit.View().substr(0, 40)) +
                           "\" is not known; it counts as millimetres";
    }
    for (const CVEKA_Layer* layer : *Vek().GetLayers()->GetLayerArr()) {
        if (!layer) continue;
        m_layersByNumber.try_emplace(layer->GetARNNumber(), layer);
        m_layersByRole.try_emplace(RoleOfLayer(*layer), layer);
    }
}

Part::LayerLook Part::LookOf(int artworkNumber, const CString& layerName) const {
    const auto byNumber = m_layersByNumber.find(artworkNumber);
    const CVEKA_Layer* layer = byNumber == m_layersByNumber.end() ? nullptr : byNumber->second;
    // A name that is another layer's counts more than the number.
    if (!layer || (!layerName.IsEmpty() && layer->GetECadLayerName() != layerName))
        if (const CVEKA_Layer* named = m_layersByName.Find(layerName.View())) layer = named;
    LayerLook look;
    if (!layer) {
        look.name = layerName.IsEmpty() ? "Layer " + std::to_string(artworkNumber) : Short(layerName);
        std::tie(look.role, look.side) = RoleOfNames(look.name);
        return look;
    }
    std::tie(look.role, look.side) = RoleOfLayer(*layer);
    const CString name = layer->GetName().IsEmpty() ? layer->GetECadLayerName() : layer->GetName();
    look.name = name.IsEmpty() ? "Layer " + std::to_string(artworkNumber) : Short(name);
    look.color = ColorOfLayer(*layer);
    look.shown = layer->GetVisibleType() != "FALSE";
    return look;
}

Part::LayerLook Part::LookOf(Role role, Side side) const {
    const auto found = m_layersByRole.find({role, side});
    if (found != m_layersByRole.end())
        return LookOf(found->second->GetARNNumber(), found->second->GetECadLayerName());
    LayerLook look;
    look.role = role;
    look.side = side;
    look.name = side == Side::Both ? Capitalized(NameOf(role))
                                   : Capitalized(NameOf(side)) + std::string(" ") + NameOf(role);
    return look;
}

}  // namespace drawing
