#include "drawing/SymbolScene.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

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
    GateDrawer(const Part& part, SceneBuilder& scene) : m_part(part), m_scene(scene) {
        m_body = scene.Layer("Body", Role::Body, Side::Both, 10);
        m_pins = scene.Layer("Pins", Role::Pin, Side::Both, 20);
        m_names = scene.Layer("Pin names", Role::PinName, Side::Both, 40);
        m_numbers = scene.Layer("Pin numbers", Role::PinNumber, Side::Both, 50);
        m_labels = scene.Layer("Labels", Role::Label, Side::Both, 60);
        m_hidden = scene.Layer("Hidden labels", Role::Label, Side::Both, 70, {}, false);
    }

    void Draw(const CVEKA_Partition& partition) {
        const CString libraryName = partition.GetLibPartitionName();
        const CVEKA_PartitionDB* library = m_part.records.LibraryPartition(libraryName.View());
        const double scale = partition.GetLibPartitionScale();
        const Place whole = m_part.Unit() * Place::Scaled(scale > 0 && std::isfinite(scale) ? scale : 1);
        if (!library && !libraryName.IsEmpty()) {
            m_scene.pen = {m_body, Role::Missing, Source::Of(partition), {}};
            m_scene.AddCross({}, {}, 1, Short(libraryName));
        }
        // The body of the partition itself is the frame of the library's body.
        const bool own = !library || library->GetBodyShape()->IsEmpty();
        m_scene.pen = {m_body, Role::Body, {}, {}};
        ObjectDrawer(m_scene, m_part.fonts)
            .Draw(own ? *partition.GetBodyShape() : *library->GetBodyShape(), whole);
        DrawPins(partition, library, whole);
        DrawLabels(partition, whole);
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
    /// A pin of a library partition with its shape, looked up.
    struct LibraryPin {
        const CVEKA_PartitionDBPin* pin = nullptr;
        const CVEKA_NSHAPE* shape = nullptr;
        std::string missing;  ///< the name of a shape that is not there
    };
    using LibraryPins = std::unordered_map<int, LibraryPin>;
    /// The pins of a library partition by their numbers. They are looked up once, however many gates use
    /// them.
    const LibraryPins& PinsOf(const CVEKA_PartitionDB& library) {
        const auto [found, isNew] = m_libraryPins.try_emplace(&library);
        if (!isNew) return found->second;
        for (const CVEKA_PartitionDBPin* pin : *library.GetPins()) {
            if (!pin) continue;
            const CString name = pin->GetLibPinShapeName();
            const CVEKA_NSHAPE* shape = m_part.records.PinShape(name.View());
            found->second.try_emplace(pin->GetPartitionPinNo(),
                                      LibraryPin{pin, shape, shape ? std::string() : Short(name)});
        }
        return found->second;
    }
    void DrawPins(const CVEKA_Partition& partition, const CVEKA_PartitionDB* library, const Place& whole) {
        static const LibraryPins none;
        const LibraryPins& pins = library ? PinsOf(*library) : none;
        int index = 0;
        for (const CVEKA_PartitionPin* pin : *partition.GetPins()) {
            const auto found = pins.find(index++);
            if (pin) DrawPin(*pin, found == pins.end() ? LibraryPin() : found->second, whole);
        }
    }

    void DrawPin(const CVEKA_PartitionPin& pin, const LibraryPin& library, const Place& whole) {
        Point point = At(pin.GetPoint());
        double rotation = pin.GetPinRotation();
        if (library.pin && point == Point{} && rotation == 0) {
            point = At(library.pin->GetPoint());
            rotation = library.pin->GetPinRotation();
        }
        const Place place = whole * Place(point, rotation);
        const Source source = Source::Of(pin);
        m_scene.pen = {m_pins, Role::Pin, source, {}};
        // The far end of the pin's shape is where its name begins.
        Box box;
        if (library.shape)
            box = DrawShape(*library.shape, place);
        else if (!library.missing.empty())
            m_scene.AddCross(place, {}, 0.8, library.missing);
        ObjectDrawer objects(m_scene, m_part.fonts);
        objects.Draw(*pin.GetDrawObjs(), whole);
        if (library.pin) objects.Draw(*library.pin->GetCAMLayerDrawObjs(), whole);
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
    std::uint32_t m_body, m_pins, m_names, m_numbers, m_labels, m_hidden;
    std::unordered_map<const CVEKA_NSHAPE*, Box> m_boxes;
    std::unordered_map<const CVEKA_PartitionDB*, LibraryPins> m_libraryPins;
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
