#include "drawing/FootprintScene.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <unordered_map>

namespace drawing {

namespace {

constexpr double kCross = 0.5;           // size of a cross in millimetres
constexpr double kLargestPinName = 1.2;  // height of a pin's name in millimetres
constexpr double kLetterWidth = 0.8;     // of a letter, as a share of its height

/// The beginning of a name, for a title or a mark.
std::string Short(const CString& name) {
    return std::string(name.View().substr(0, 100));
}

/// One of the pads that a padstack names.
struct Use {
    CString (CVEKA_Padstack_LayerInfo::*name)() const;
    const char* title;
    Role role;
};
constexpr Use kCon = {&CVEKA_Padstack_LayerInfo::GetCon, "connected", Role::Copper};
constexpr Use kSolder = {&CVEKA_Padstack_LayerInfo::GetSolder, "solder mask", Role::SolderMask};
constexpr Use kMetal = {&CVEKA_Padstack_LayerInfo::GetMetal, "metal mask", Role::Paste};
/// The pads that are there at one time, on a board.
constexpr Use kPlaced[] = {kCon, kSolder, kMetal};
/// All pads.
constexpr Use kAll[] = {kCon,
                        {&CVEKA_Padstack_LayerInfo::GetUnCon, "not connected", Role::Copper},
                        {&CVEKA_Padstack_LayerInfo::GetAnti, "antipad", Role::KeepOut},
                        {&CVEKA_Padstack_LayerInfo::GetThermal, "thermal relief", Role::KeepOut},
                        kSolder,
                        kMetal};

/// A class of layers of a padstack.
struct LayerClass {
    const CVEKA_Padstack_LayerInfo* info;
    Side side;
    const char* title;
    bool plane = false;
};
constexpr const char* kInnerSignal = "Inner signal";
constexpr const char* kInnerPlane = "Inner plane";
std::vector<LayerClass> LayersOf(const CVEKA_PadStack& stack) {
    return {{stack.GetTop(), Side::Top, "Top"},
            {stack.GetInnerSignal(), Side::Inner, kInnerSignal},
            {stack.GetInnerPlane(), Side::Inner, kInnerPlane, true},
            {stack.GetBottom(), Side::Bottom, "Bottom"}};
}

/// Draws pads by their names.
class PadDrawer {
public:
    PadDrawer(const Part& part, SceneBuilder& scene)
        : m_part(part), m_scene(scene), m_objects(scene, part.fonts) {}

    /// The objects of a pad, with the builder's pen. False if there is no such pad, or if it shows nothing.
    bool Draw(const CString& name, const Place& place) {
        return Draw(m_part.records.Pad(name.View()), place);
    }
    bool Draw(const CVEKA_Pad* pad, const Place& place) {
        if (!pad) return false;
        const size_t before = m_scene.Count();
        m_objects.Draw(*pad->GetCamLayerDrawObjs(),
                       place * Place(Point{pad->GetOffsetX(), pad->GetOffsetY()}));
        return m_scene.Count() > before;
    }

private:
    const Part& m_part;
    SceneBuilder& m_scene;
    ObjectDrawer m_objects;
};

class FootprintDrawer {
public:
    FootprintDrawer(const Part& part, const CVEKA_FootprintDB& footprint)
        : m_part(part), m_footprint(footprint), m_scene("Footprint " + Short(footprint.GetFootprintName())) {}

    Scene Draw() {
        if (!m_part.UnitRemark().empty()) m_scene.Remark(m_part.UnitRemark());
        for (const CVEKA_CAMLayer* layer : *m_footprint.GetCAMLayers())
            if (layer) DrawLayer(*layer);
        for (const CVEKA_FootprintPin* pin : *m_footprint.GetFPins())
            if (pin) DrawPin(*pin);
        return m_scene.Finish();
    }

private:
    std::uint32_t LayerOf(const Part::LayerLook& look) {
        return m_scene.Layer(look.name, look.role, look.side, RankOf(look.role, look.side), look.color,
                             look.shown);
    }
    void DrawLayer(const CVEKA_CAMLayer& layer) {
        const Part::LayerLook look = m_part.LookOf(layer.GetArtworkLayerNo(), layer.GetLayerName());
        m_scene.pen = {LayerOf(look), look.role, {}, {}};
        ObjectDrawer(m_scene, m_part.fonts).Draw(*layer.GetCamLayerDrawObjs(), m_part.Unit());
    }

    /// The layer that a pad of a padstack is drawn on.
    std::uint32_t LayerFor(const StackedPad& pad) {
        if (pad.role == Role::Copper && pad.side == Side::Inner)
            return m_scene.Layer(pad.plane ? kInnerPlane : kInnerSignal, pad.role, pad.side,
                                 RankOf(pad.role, pad.side));
        const auto [found, isNew] = m_layers.try_emplace({pad.role, pad.side}, 0);
        if (isNew) found->second = LayerOf(m_part.LookOf(pad.role, pad.side));
        return found->second;
    }

    /// A pad that a padstack names, looked up.
    struct Placed {
        const CVEKA_Pad* pad = nullptr;
        std::uint32_t layer = 0;
        Role role = Role::Other;
        std::string name;
    };
    /// The pads and the drill of a padstack. They are looked up once, however many pins use the padstack.
    const std::vector<Placed>& PadsOf(const CVEKA_PadStack& stack) {
        const auto entry = m_stacks.try_emplace(&stack);
        std::vector<Placed>& pads = entry.first->second;
        if (!entry.second) return pads;
        for (const StackedPad& pad : StackedPads(m_part, stack))
            pads.push_back({pad.pad, LayerFor(pad), pad.role, Short(pad.name)});
        return pads;
    }

    void DrawPin(const CVEKA_FootprintPin& pin) {
        const Place place =
            m_part.Unit() * Place({pin.GetPoint()->GetX(), pin.GetPoint()->GetY()}, pin.GetRotation());
        const Source source = Source::Of(pin);
        const CString stackName = pin.GetLibPadstackName();
        const CVEKA_PadStack* stack = m_part.records.PadStack(stackName.View());
        Box box;
        m_missing.clear();
        if (stack)
            box = DrawStack(*stack, place, source);
        else
            m_missing.push_back(stackName.IsEmpty() ? "no padstack" : Short(stackName));
        m_scene.pen = {0, Role::Missing, source, {}};
        if (!m_missing.empty()) {
            std::string names;
            for (const std::string& name : m_missing) names += (names.empty() ? "" : ", ") + name;
            m_scene.AddCross(place, {}, kCross, names);
        }
        DrawName(pin, place, box);
    }

    /// The pads and the drill of a padstack; returns the box of its copper, or else of what there is.
    Box DrawStack(const CVEKA_PadStack& stack, const Place& place, const Source& source) {
        PadDrawer pads(m_part, m_scene);
        Box copper, rest;
        for (const Placed& placed : PadsOf(stack)) {
            m_scene.pen = {placed.layer, placed.role, source, {}};
            const size_t before = m_scene.Count();
            if (pads.Draw(placed.pad, place))
                (placed.role == Role::Copper ? copper : rest).Add(m_scene.BoundsFrom(before));
            else if (std::find(m_missing.begin(), m_missing.end(), placed.name) == m_missing.end())
                m_missing.push_back(placed.name);
        }
        return copper.IsEmpty() ? rest : copper;
    }

    /// The name of a pin in the middle of its pad, as large as the pad has room for.
    void DrawName(const CVEKA_FootprintPin& pin, const Place& place, const Box& pad) {
        const CString name = pin.GetPinName();
        if (name.IsEmpty()) return;
        double width = pad.Width(), height = pad.Height();
        if (pad.IsEmpty()) width = height = kCross * 2;
        const double letters = static_cast<double>(std::min(name.GetLength(), 100));
        // Along the longer side, if the name needs it.
        const bool upright = height > width * 1.5 && letters > 1;
        if (upright) std::swap(width, height);
        const double size =
            std::min({height * 0.55, width * 0.85 / (letters * kLetterWidth), kLargestPinName});
        const Point at = pad.IsEmpty() ? place(Point{}) : pad.Center();
        m_scene.pen = {
            m_scene.Layer("Pin names", Role::PinName, Side::Both, RankOf(Role::PinName, Side::Both)),
            Role::PinName,
            Source::Of(pin),
            {}};
        m_scene.AddText(Place(at), {}, std::max(size, 0.01), upright ? 90 : 0, name.View(), Align::Middle,
                        Lift::Middle);
    }

    const Part& m_part;
    const CVEKA_FootprintDB& m_footprint;
    SceneBuilder m_scene;
    std::map<std::pair<Role, Side>, std::uint32_t> m_layers;
    std::unordered_map<const CVEKA_PadStack*, std::vector<Placed>> m_stacks;
    std::vector<std::string> m_missing;
};

/// The pads of a padstack, in rows.
class PadStackDrawer {
public:
    PadStackDrawer(const Part& part, const CVEKA_PadStack& stack)
        : m_part(part), m_stack(stack), m_scene("Padstack " + Short(stack.GetPadstackName())) {}

    Scene Draw() {
        const double cell = CellSize();
        m_letter = std::clamp(cell * 0.07, 0.05, 1.5);
        m_cell = {cell + 2 * m_letter, cell + 6 * m_letter};
        if (!m_part.UnitRemark().empty()) m_scene.Remark(m_part.UnitRemark());
        for (const LayerClass& layer : LayersOf(m_stack)) DrawRow(layer);
        if (!m_stack.GetDrill_ShapeName().IsEmpty()) {
            Title(m_stack.GetDrill_Plating() ? "Drill, plated" : "Drill, not plated");
            Cell("", m_stack.GetDrill_ShapeName(), Role::Drill, Side::Both, 0);
            ++m_row;
        }
        return m_scene.Finish();
    }

private:
    /// The size of a square about the origin that every pad fits in.
    double CellSize() {
        SceneBuilder scratch("");
        PadDrawer pads(m_part, scratch);
        for (const LayerClass& layer : LayersOf(m_stack))
            for (const Use& use : kAll) pads.Draw((layer.info->*use.name)(), m_part.Unit());
        pads.Draw(m_stack.GetDrill_ShapeName(), m_part.Unit());
        const Box box = scratch.BoundsFrom(0);
        if (box.IsEmpty()) return 2 * kCross;
        return 2 * std::max({-box.left, box.right, -box.bottom, box.top, kCross});
    }
    Point Middle(int column) const { return {(column + 0.5) * m_cell.x, -(m_row + 0.5) * m_cell.y}; }

    void DrawRow(const LayerClass& layer) {
        int column = 0;
        for (const Use& use : kAll) {
            const CString name = (layer.info->*use.name)();
            if (name.IsEmpty()) continue;
            if (column == 0) Title(layer.title);
            Cell(use.title, name, use.role, layer.side, column++);
        }
        if (column > 0) ++m_row;
    }
    /// The title of a row, to its left.
    void Title(const char* title) {
        SetLabel();
        m_scene.AddText({}, {-m_letter, Middle(0).y}, m_letter * 1.3, 0, title, Align::Right, Lift::Middle);
    }
    void Cell(const char* use, const CString& name, Role role, Side side, int column) {
        const Point middle = Middle(column);
        m_scene.pen = {
            m_scene.Layer(role == Role::Drill ? "Drill" : NameOf(role), role, side, RankOf(role, side)),
            role,
            Source::Of(m_stack),
            {}};
        if (!PadDrawer(m_part, m_scene).Draw(name, Place(middle) * m_part.Unit()))
            m_scene.AddCross(Place(middle), {}, kCross, Short(name));
        SetLabel();
        const double under = middle.y - m_cell.y / 2 + m_letter;
        const double letters = static_cast<double>(std::max(name.GetLength(), 1));
        const double size = std::min(m_letter, m_cell.x * 0.95 / (letters * kLetterWidth));
        m_scene.AddText({}, {middle.x, under}, size, 0, name.View(), Align::Middle, Lift::Bottom);
        m_scene.AddText({}, {middle.x, under + m_letter * 1.7}, m_letter * 0.8, 0, use, Align::Middle,
                        Lift::Bottom);
    }
    void SetLabel() {
        m_scene.pen = {
            m_scene.Layer("Labels", Role::Label, Side::Both, 900), Role::Label, Source::Of(m_stack), {}};
    }

    const Part& m_part;
    const CVEKA_PadStack& m_stack;
    SceneBuilder m_scene;
    double m_letter = 0;
    Point m_cell;
    int m_row = 0;
};

}  // namespace

Scene FootprintScene(const Part& part, const CVEKA_FootprintDB& footprint) {
    return FootprintDrawer(part, footprint).Draw();
}

std::vector<StackedPad> StackedPads(const Part& part, const CVEKA_PadStack& padStack) {
    std::vector<StackedPad> pads;
    const auto add = [&](const CString& name, Role role, Side side, bool plane) {
        if (!name.IsEmpty()) pads.push_back({name, part.records.Pad(name.View()), role, side, plane});
    };
    for (const LayerClass& layer : LayersOf(padStack))
        for (const Use& use : kPlaced) add((layer.info->*use.name)(), use.role, layer.side, layer.plane);
    add(padStack.GetDrill_ShapeName(), Role::Drill, Side::Both, false);
    return pads;
}

Scene PadScene(const Part& part, const CVEKA_Pad& pad) {
    SceneBuilder scene("Pad " + Short(pad.GetPadName()));
    scene.pen = {scene.Layer("Pad", Role::Copper, Side::Both, 0), Role::Copper, {}, {}};
    PadDrawer(part, scene).Draw(&pad, part.Unit());
    return scene.Finish();
}

Scene PadStackScene(const Part& part, const CVEKA_PadStack& padStack) {
    return PadStackDrawer(part, padStack).Draw();
}

std::vector<const CVEKA_PadStack*> PadStacksOf(const Part& part, const CVEKA_FootprintDB& footprint) {
    std::vector<const CVEKA_PadStack*> stacks;
    std::set<const CVEKA_PadStack*> seen;
    for (const CVEKA_FootprintPin* pin : *footprint.GetFPins()) {
        if (!pin) continue;
        const CVEKA_PadStack* stack = part.records.PadStack(pin->GetLibPadstackName().View());
        if (stack && seen.insert(stack).second) stacks.push_back(stack);
    }
    return stacks;
}

}  // namespace drawing
