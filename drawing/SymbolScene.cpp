#include "drawing/SymbolScene.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "drawing/Gate.h"
#include "leads/Placement.h"

namespace drawing {

namespace {

/// The beginning of a name, for a title or a mark.
std::string Short(const CString& name) {
    return std::string(name.View().substr(0, 100));
}

Point At(const CVEKA_Coordinate* point) {
    return {point->GetX(), point->GetY()};
}

/// Draws the gates of a symbol into one scene.
class GateDrawer {
public:
    GateDrawer(const Part& part, SceneBuilder& scene) : m_part(part), m_scene(scene), m_gates(part) {
        m_body = scene.Layer("Body", Role::Body, Side::Both, 10);
        m_pins = scene.Layer("Pins", Role::Pin, Side::Both, 20);
        m_names = scene.Layer("Pin names", Role::PinName, Side::Both, 40);
        m_numbers = scene.Layer("Pin numbers", Role::PinNumber, Side::Both, 50);
        m_labels = scene.Layer("Labels", Role::Label, Side::Both, 60);
        m_hidden = scene.Layer("Hidden labels", Role::Label, Side::Both, 70, {}, false);
    }

    void Draw(const CVEKA_Partition& partition) {
        const Gate gate = m_gates.Read(partition);
        if (gate.MissesLibrary()) {
            m_scene.pen = {m_body, Role::Missing, Source::Of(partition), {}};
            m_scene.AddCross({}, {}, 1, Short(partition.GetLibPartitionName()));
        }
        m_scene.pen = {m_body, Role::Body, {}, {}};
        ObjectDrawer(m_scene, m_part.fonts).Draw(*gate.body, gate.place);
        for (const GatePin& pin : gate.pins) DrawPin(pin, gate.place);
        DrawLabels(partition, gate.place);
    }
    /// The name of a gate, below everything that was drawn from the given shape on.
    void DrawTitle(const CVEKA_Partition& partition, size_t first) {
        const Box box = m_scene.BoundsFrom(first);
        if (box.IsEmpty() || partition.GetPatitionName().IsEmpty()) return;
        const CString name = partition.GetPatitionName();
        const double height = std::clamp(box.Height() * 0.07, 0.8, 3.0);
        m_scene.pen = {m_labels, Role::Label, Source::Of(partition), {}};
        m_scene.AddText({}, {box.Center().x, box.bottom - height}, height, 0, name.View(), Align::Middle,
                        Lift::Top);
    }

private:
    void DrawPin(const GatePin& gatePin, const Place& whole) {
        const CVEKA_PartitionPin& pin = *gatePin.pin;
        const Place& place = gatePin.place;
        const Source source = Source::Of(pin);
        m_scene.pen = {m_pins, Role::Pin, source, {}};
        // The far end of the pin's shape is where its name begins.
        Box box;
        if (gatePin.shape)
            box = DrawShape(*gatePin.shape, place);
        else if (gatePin.MissesShape())
            m_scene.AddCross(place, {}, 0.8, Short(gatePin.library->GetLibPinShapeName()));
        ObjectDrawer objects(m_scene, m_part.fonts);
        objects.Draw(*pin.GetDrawObjs(), whole);
        if (gatePin.library) objects.Draw(*gatePin.library->GetCAMLayerDrawObjs(), whole);
        DrawNames(pin, place, box);
    }

    /// Draws a pin's shape; returns its box in the coordinates of the pin.
    Box DrawShape(const CVEKA_NSHAPE& shape, const Place& place) {
        auto [found, isNew] = m_boxes.try_emplace(&shape);
        if (isNew) {
            SceneBuilder scratch("");
            ObjectDrawer(scratch, m_part.fonts).Draw(*shape.GetPinBodyShape(), {});
            found->second = scratch.BoundsFrom(0);
        }
        ObjectDrawer(m_scene, m_part.fonts).Draw(*shape.GetPinBodyShape(), place);
        const SceneBuilder::Pen pen = m_scene.pen;
        m_scene.CountPieces(static_cast<size_t>(shape.GetPinConnShape()->GetSize()));
        for (const CVEKA_PinConnShape* point : *shape.GetPinConnShape()) {
            if (!point || !(point->GetSize() > 0)) continue;
            m_scene.pen.definition = Source::Of(*point);
            const Point at = At(point->GetPoint());
            const double half = point->GetSize() / 2;
            if (point->GetSetShapeType() == "CROSS") {
                m_scene.AddLine(place, at + Point{-half, -half}, at + Point{half, half}, half / 4);
                m_scene.AddLine(place, at + Point{-half, half}, at + Point{half, -half}, half / 4);
            } else {
                m_scene.AddCircle(place, at, half, half / 4, false);
            }
        }
        m_scene.pen = pen;
        return found->second;
    }

    /// The name behind the far end of the pin, and the number above its middle. Both can be read from below
    /// or from the right.
    void DrawNames(const CVEKA_PartitionPin& pin, const Place& place, const Box& box) {
        double size = pin.GetNameSize();
        if (!(size > 0)) size = CVEKA_PartitionPin().GetNameSize();
        // The far end of the shape along X, seen from the point where the net attaches. A shape that has no
        // length goes to the right.
        double far = box.IsEmpty() ? 0 : (box.right >= -box.left ? box.right : box.left);
        const double way = far < 0 ? -1 : 1;
        const double angle = place.Angle();
        // Turned by half a turn where it would stand on its head.
        const bool turned = angle > 90 + 1e-6 && angle <= 270 + 1e-6;
        const bool forward = (way > 0) != turned;
        const double rotation = turned ? 180 : 0;
        const Source source = Source::Of(pin);
        m_scene.pen = {m_names, Role::PinName, source, {}};
        const CString name = pin.GetGatePinName(), number = pin.GetPinName();
        m_scene.AddText(place, {far + way * size * 0.4, 0}, size * 0.75, rotation, name.View(),
                        forward ? Align::Left : Align::Right, Lift::Middle);
        m_scene.pen = {m_numbers, Role::PinNumber, source, {}};
        const double aside = size * 0.25 * (turned ? -1 : 1);
        m_scene.AddText(place, {far / 2, aside}, size * 0.6, rotation, number.View(),
                        far == 0 ? (forward ? Align::Right : Align::Left) : Align::Middle, Lift::Bottom);
    }

    void DrawLabels(const CVEKA_Partition& partition, const Place& whole) {
        for (const CVEKA_PropertyLabel* label : *partition.GetPropertyLabels()) {
            if (!label) continue;
            m_scene.pen = {label->GetVisible() ? m_labels : m_hidden, Role::Label, Source::Of(*label), {}};
            const Justification where = JustificationOf(label->GetJustify());
            const CString property = label->GetProperty();
            m_scene.AddText(whole, At(label->GetPoint()), m_part.fonts.Height(label->GetFID()),
                            label->GetRotation(), property.View(), where.align, where.lift,
                            veka::IsMirrored(label->GetMirror()));
        }
    }

    const Part& m_part;
    SceneBuilder& m_scene;
    GateReader m_gates;
    std::uint32_t m_body, m_pins, m_names, m_numbers, m_labels, m_hidden;
    std::unordered_map<const CVEKA_NSHAPE*, Box> m_boxes;
};

}  // namespace

Scene GateScene(const Part& part, const CVEKA_Partition& partition) {
    SceneBuilder scene("Gate " + Short(partition.GetPatitionName()));
    if (!part.UnitRemark().empty()) scene.Remark(part.UnitRemark());
    GateDrawer(part, scene).Draw(partition);
    return scene.Finish();
}

Scene SymbolScene(const Part& part, const CVEKA_Symbol& symbol) {
    SceneBuilder scene("Symbol " + Short(symbol.GetSymbolName()));
    if (!part.UnitRemark().empty()) scene.Remark(part.UnitRemark());
    GateDrawer drawer(part, scene);
    const bool several = symbol.GetPartitions()->GetSize() > 1;
    double right = 0;
    bool first = true;
    for (const CVEKA_Partition* partition : *symbol.GetPartitions()) {
        if (!partition) continue;
        const size_t before = scene.Count();
        drawer.Draw(*partition);
        if (several) drawer.DrawTitle(*partition, before);
        const Box box = scene.BoundsFrom(before);
        if (box.IsEmpty()) continue;
        // Beside the gates before it, with a gap.
        const double gap = first ? 0 : std::max(2.0, box.Width() * 0.1);
        scene.MoveFrom(before, {right + gap - box.left, 0});
        right += gap + box.Width();
        first = false;
    }
    return scene.Finish();
}

}  // namespace drawing
