#include "export/kicad/PadStack.h"

#include <algorithm>
#include <cmath>

#include "export/kicad/BoardGraphics.h"
#include "export/kicad/Outlines.h"
#include "export/kicad/Sexpr.h"

namespace kicad {

namespace {

using drawing::Place;
using drawing::Point;
using drawing::Role;
using drawing::Side;

constexpr double kEqual = 1e-7;
// Files round the radius of a corner to a tenth of a micrometre.
constexpr double kEqualCorner = 1.5e-4;

bool Same(double a, double b) {
    return std::fabs(a - b) <= kEqual;
}

/// By how much an opening is larger than the copper on each side of it.
struct Growth {
    double x = 0, y = 0;
};

/// The growth from one shape to another one, if that is how they differ.
std::optional<Growth> GrowthOf(const PadShape& from, PadShape to) {
    if (from.kind != to.kind || drawing::Distance(from.center, to.center) > kEqual) return std::nullopt;
    to = TurnedLike(to, from.angle);
    if (from.kind != PadShape::Kind::Circle && !Same(from.angle, to.angle)) return std::nullopt;
    if (from.corners != to.corners || !Same(from.deltaX, to.deltaX) || !Same(from.deltaY, to.deltaY))
        return std::nullopt;
    const Growth growth{(to.width - from.width) / 2, (to.height - from.height) / 2};
    if (from.kind == PadShape::Kind::RoundedRectangle &&
        std::fabs(to.corner - from.corner - std::min(growth.x, growth.y)) > kEqualCorner)
        return std::nullopt;
    return growth;
}

const char* WordOf(PadShape::Kind kind) {
    switch (kind) {
        case PadShape::Kind::Circle:
            return "circle";
        case PadShape::Kind::Rectangle:
            return "rect";
        case PadShape::Kind::Oval:
            return "oval";
        case PadShape::Kind::Trapezoid:
            return "trapezoid";
        default:
            return "roundrect";
    }
}

/// The corners of a shape, as KiCad's file has them.
void WriteCorners(Sexpr& out, const PadShape& shape) {
    const double less = std::min(shape.width, shape.height);
    if (shape.kind == PadShape::Kind::RoundedRectangle)
        out.Open("roundrect_rratio").Word(Decimal(shape.corner / less, 10)).Close();
    // KiCad adds the number to one edge and takes it from the other one.
    if (shape.kind == PadShape::Kind::Trapezoid)
        out.Open("rect_delta").Length(shape.deltaX / 2).Length(shape.deltaY / 2).Close();
    if (shape.kind != PadShape::Kind::ChamferedRectangle) return;
    out.Open("roundrect_rratio").Word("0").Close();
    out.Open("chamfer_ratio").Word(Decimal(shape.corner / less, 10)).Close();
    out.Open("chamfer");
    if (shape.corners & PadShape::TopLeft) out.Word("top_left");
    if (shape.corners & PadShape::TopRight) out.Word("top_right");
    if (shape.corners & PadShape::BottomLeft) out.Word("bottom_left");
    if (shape.corners & PadShape::BottomRight) out.Word("bottom_right");
    out.Close();
}

/// The text of the lists that `write` writes.
template <class Writer>
std::string Lists(Writer write) {
    Sexpr out;
    out.Line("");
    const std::size_t before = out.Size();
    write(out);
    out.Close();
    std::string text = out.Take();
    return text.substr(before, text.find_last_of(')') - before);
}

/// Where a pad of its own shape has its middle, and what the middle is drawn as.
struct Anchor {
    Point middle;
    PadShape shape;  ///< a circle or an upright rectangle
    bool isFirst = false;
};

Anchor DiscAt(Point middle, double size) {
    PadShape disc;
    disc.center = middle;
    disc.width = disc.height = size;
    return {middle, disc, false};
}

/// Something round or rectangular inside of what a scene covers. `hole` is the hole of the pad, if it has
/// one.
Anchor AnchorOf(const drawing::Scene& scene, const std::optional<PadShape>& hole, bool outlines) {
    const std::optional<PadShape> first = ShapeOf(scene, scene.Shapes()[0], outlines);
    const bool simple = first && (first->kind == PadShape::Kind::Circle ||
                                  (first->kind == PadShape::Kind::Rectangle && first->angle == 0));
    if (simple && (!hole || drawing::Distance(first->center, hole->center) <= kEqual))
        return {first->center, *first, true};
    // The metal of the middle is drilled away.
    if (hole) return DiscAt(hole->center, std::min(hole->width, hole->height));
    for (const drawing::Shape& shape : scene.Shapes()) {
        const auto* polygon = std::get_if<drawing::Polygon>(&shape.form);
        if (!polygon || !(polygon->filled || outlines)) continue;
        std::vector<std::vector<Point>> areas;
        for (const drawing::Contour& contour : scene.Contours(*polygon))
            areas.push_back(Straightened(scene.Vertices(contour)));
        for (const std::vector<Point>& area : WithoutHoles(std::move(areas))) {
            // The point of the pin, if the metal is there.
            const double here = DepthOf({}, area);
            const Inside inside = here > 0.005 ? Inside{{}, here} : PointInside(area);
            if (inside.depth > 0) return DiscAt(inside.point, inside.depth * 1.8);
        }
    }
    for (const drawing::Shape& shape : scene.Shapes())
        if (const auto* line = std::get_if<drawing::Line>(&shape.form))
            if (line->width > 0) return DiscAt(line->start, line->width);
    constexpr double kSmall = 0.01;
    return DiscAt(scene.Bounds().Center(), kSmall);
}

/// A pad of its own shape. `writeLists` writes its hole and its layers; with `outlines` an outline is filled.
template <class Lister>
KiCadPad PadOfOwnShape(const drawing::Scene& scene, const std::optional<PadShape>& hole,
                       const std::string& kind, bool outlines, Lister writeLists) {
    const Anchor anchor = AnchorOf(scene, hole, outlines);
    KiCadPad pad;
    pad.kind = kind + " custom";
    pad.middle = anchor.middle;
    pad.drilled = hole.has_value();
    pad.body = Lists([&](Sexpr& out) {
        out.Open("size").Length(anchor.shape.width).Length(anchor.shape.height).Close();
        writeLists(out);
        const bool disc = anchor.shape.kind == PadShape::Kind::Circle;
        out.Open("options").Open("clearance").Word("outline").Close();
        out.Open("anchor").Word(disc ? "circle" : "rect").Close().Close();
        out.Open("primitives");
        BoardGraphics graphics(out, scene, anchor.middle, outlines);
        for (std::size_t i = anchor.isFirst ? 1 : 0; i < scene.Shapes().size(); ++i)
            graphics.Write(scene.Shapes()[i]);
        out.Close();
    });
    return pad;
}

}  // namespace

KiCadPad Opening(const drawing::Scene& scene, const std::string& layer) {
    KiCadPad pad = PadOfOwnShape(scene, std::nullopt, "smd", true,
                                 [&](Sexpr& out) { out.Open("layers").Text(layer).Close(); });
    pad.opening = true;
    return pad;
}

KiCadPad Opening(const PadShape& shape, const std::string& layer) {
    KiCadPad pad;
    pad.kind = std::string("smd ") + WordOf(shape.kind);
    pad.middle = shape.center;
    pad.angle = shape.angle;
    pad.opening = true;
    pad.body = Lists([&](Sexpr& out) {
        out.Open("size").Length(shape.width).Length(shape.height).Close();
        out.Open("layers").Text(layer).Close();
        WriteCorners(out, shape);
    });
    return pad;
}

const PadStacks::Drawn* PadStacks::Draw(const CVEKA_Pad* pad) {
    if (!pad) return nullptr;
    const auto [found, isNew] = m_drawn.try_emplace(pad);
    Drawn& drawn = found->second;
    if (isNew) {
        drawn.scene = drawing::PadScene(m_part, *pad);
        for (const std::string& remark : drawn.scene.Remarks())
            m_remarks.Add("the pad " + QuotedName(pad->GetPadName().View()) + ": " + remark);
        if (drawn.scene.Shapes().size() == 1) {
            drawn.shape = ShapeOf(drawn.scene, drawn.scene.Shapes()[0]);
            drawn.outline = ShapeOf(drawn.scene, drawn.scene.Shapes()[0], true);
        }
    }
    return drawn.scene.IsEmpty() ? nullptr : &drawn;
}

/// Reads one padstack.
class PadStackReader {
public:
    PadStackReader(PadStacks& stacks, const CVEKA_PadStack& stack)
        : m_stacks(stacks), m_stack(stack), m_pads(StackedPads(stacks.m_part, stack)) {}

    std::vector<KiCadPad> Read() {
        for (const drawing::StackedPad& pad : m_pads)
            if (!m_stacks.Draw(pad.pad))
                Remark("names the pad " + QuotedName(pad.name.View()) + ", which is not there or is empty");
        ReadHole();
        const drawing::StackedPad* top = Find(Role::Copper, Side::Top);
        const drawing::StackedPad* bottom = Find(Role::Copper, Side::Bottom);
        if (!top && !bottom && !m_hole) {
            for (const drawing::StackedPad& pad : m_pads)
                if (pad.role == Role::Copper && m_stacks.Draw(pad.pad))
                    Remark("has a pad on inner layers only; it is not exported");
            AddOpenings(nullptr, {Side::Top, Side::Bottom}, Role::SolderMask);
            AddOpenings(nullptr, {Side::Top, Side::Bottom}, Role::Paste);
            return std::move(m_result);
        }
        const bool alike = top && bottom && Alike(*top, *bottom);
        AddPad(top ? top : bottom,
               alike || !(top && bottom) ? std::vector<Side>{Side::Top, Side::Bottom}
                                         : std::vector<Side>{Side::Top},
               m_hole);
        if (top && bottom && !alike) {
            Remark(
                "has another pad on the bottom than on the top; the pad on the bottom is a pad of its own");
            AddPad(bottom, {Side::Bottom}, std::nullopt);
        }
        RemarkOnUses();
        return std::move(m_result);
    }

private:
    void Remark(const std::string& what) {
        m_stacks.m_remarks.Add("the padstack " + QuotedName(m_stack.GetPadstackName().View()) + ' ' + what);
    }
    const drawing::StackedPad* Find(Role role, Side side) const {
        for (const drawing::StackedPad& pad : m_pads)
            if (pad.role == role && pad.side == side && m_stacks.Draw(pad.pad)) return &pad;
        return nullptr;
    }
    /// True if two pads look the same.
    bool Alike(const drawing::StackedPad& a, const drawing::StackedPad& b) {
        if (a.pad == b.pad) return true;
        const auto &first = m_stacks.Draw(a.pad)->shape, &second = m_stacks.Draw(b.pad)->shape;
        return first && second && *first == *second;
    }

    void ReadHole() {
        const drawing::StackedPad* drill = Find(Role::Drill, Side::Both);
        if (!drill) return;
        const PadStacks::Drawn& drawn = *m_stacks.Draw(drill->pad);
        m_hole = drawn.outline;
        if (m_hole && (m_hole->kind == PadShape::Kind::Circle || m_hole->kind == PadShape::Kind::Oval))
            return;
        Remark("has a hole that is neither round nor a slot; the export has a slot of that size");
        if (m_hole) {
            m_hole->kind = PadShape::Kind::Oval;
            m_hole->corners = 0;
            return;
        }
        const drawing::Box box = drawn.scene.Bounds();
        m_hole = PadShape{PadShape::Kind::Oval, box.Center(), box.Width(), box.Height()};
    }

    bool Plated() const { return m_stack.GetDrill_Plating(); }

    /// The layers that a pad of a role is on, of those that were asked for.
    std::vector<std::string> CopperLayers(const drawing::StackedPad* pad, const std::vector<Side>& sides) {
        // A hole that is not plated has no copper, but it keeps copper away on all layers.
        if (!pad) return {"*.Cu"};
        std::vector<std::string> layers;
        bool inner = true, anyInner = false;
        for (const drawing::StackedPad& other : m_pads) {
            if (other.role != Role::Copper || !m_stacks.Draw(other.pad)) continue;
            if (other.side == Side::Inner) {
                anyInner = true;
                if (!Alike(*pad, other)) inner = false;
                continue;
            }
            if (std::find(sides.begin(), sides.end(), other.side) != sides.end())
                layers.emplace_back(other.side == Side::Top ? "F.Cu" : "B.Cu");
        }
        if (!anyInner) return layers;
        if (!inner) Remark("has another pad on inner layers; KiCad has one shape for all layers");
        if (layers.size() == 2) return {"*.Cu"};
        if (inner)
            Remark("has a pad on inner layers, but not on both outer ones; the inner ones are not exported");
        return layers;
    }

    /// Adds the pad of some copper or of a hole, with its openings on the same sides.
    void AddPad(const drawing::StackedPad* copper, const std::vector<Side>& sides,
                const std::optional<PadShape>& hole) {
        const PadStacks::Drawn* drawn = copper ? m_stacks.Draw(copper->pad) : nullptr;
        std::optional<PadShape> shape = drawn ? drawn->shape : hole;
        if (shape && hole && shape->kind == PadShape::Kind::Circle && hole->kind != PadShape::Kind::Circle) {
            // A slot turns with its pad, so that a round pad takes the angle of the slot.
            shape->angle = hole->angle;
        }
        m_margins = {};
        const bool custom = drawn && !shape;
        const std::vector<std::string> layers = CopperLayers(copper, sides);
        const std::size_t place = m_result.size();
        m_result.emplace_back();
        std::vector<std::string> openings = AddOpenings(shape ? &*shape : nullptr, sides, Role::SolderMask);
        const std::vector<std::string> paste = AddOpenings(shape ? &*shape : nullptr, sides, Role::Paste);
        openings.insert(openings.end(), paste.begin(), paste.end());
        m_result[place] = custom ? CustomPad(drawn->scene, hole, layers, openings)
                                 : PlainPad(*shape, hole, layers, openings);
    }

    std::string Kind(const std::optional<PadShape>& hole) const {
        if (hole) return Plated() ? "thru_hole" : "np_thru_hole";
        return m_stack.GetType() == "EDGE" ? "connect" : "smd";
    }
    void WriteLayers(Sexpr& out, const std::vector<std::string>& layers,
                     const std::vector<std::string>& openings) {
        out.Open("layers");
        for (const std::string& layer : layers) out.Text(layer);
        for (const std::string& layer : openings) out.Text(layer);
        out.Close();
        if (m_margins.mask != 0) out.Open("solder_mask_margin").Length(m_margins.mask).Close();
        if (m_margins.paste != 0) out.Open("solder_paste_margin").Length(m_margins.paste).Close();
        if (m_margins.ratio != 0)
            out.Open("solder_paste_margin_ratio").Word(Decimal(m_margins.ratio, 9)).Close();
    }

    /// The hole in a pad's frame, which is turned by an angle, and the offset of the pad's shape from the
    /// hole.
    void WriteHole(Sexpr& out, const std::optional<PadShape>& hole, Point offset, double angle) {
        if (!hole && std::hypot(offset.x, offset.y) < kEqual) return;
        out.Open("drill");
        if (hole && hole->kind == PadShape::Kind::Circle) {
            out.Length(hole->width);
        } else if (hole) {
            const PadShape turned = TurnedLike(*hole, angle);
            if (!Same(turned.angle, angle))
                Remark("has a slot at another angle than its pad; it is turned like the pad");
            out.Word("oval").Length(turned.width).Length(turned.height);
        }
        if (std::hypot(offset.x, offset.y) >= kEqual) out.Open("offset").Down(offset).Close();
        out.Close();
    }

    KiCadPad PlainPad(const PadShape& shape, const std::optional<PadShape>& hole,
                      const std::vector<std::string>& layers, const std::vector<std::string>& openings) {
        KiCadPad pad;
        pad.kind = Kind(hole) + ' ' + WordOf(shape.kind);
        pad.middle = hole ? hole->center : Point{};
        pad.angle = shape.angle;
        pad.drilled = hole.has_value();
        pad.body = Lists([&](Sexpr& out) {
            out.Open("size").Length(shape.width).Length(shape.height).Close();
            WriteHole(out, hole, Place({}, -shape.angle)(shape.center - pad.middle), shape.angle);
            WriteLayers(out, layers, openings);
            WriteCorners(out, shape);
        });
        return pad;
    }

    KiCadPad CustomPad(const drawing::Scene& scene, const std::optional<PadShape>& hole,
                       const std::vector<std::string>& layers, const std::vector<std::string>& openings) {
        return PadOfOwnShape(scene, hole, Kind(hole), false, [&](Sexpr& out) {
            WriteHole(out, hole, {}, 0);
            WriteLayers(out, layers, openings);
        });
    }

    /// Says of which layers the openings of a role are the pad's own, grown by a margin. Others become pads.
    std::vector<std::string> AddOpenings(const PadShape* shape, const std::vector<Side>& sides, Role role) {
        std::vector<std::string> layers;
        bool first = true;
        for (const Side side : sides) {
            const drawing::StackedPad* opening = Find(role, side);
            if (!opening) continue;
            const std::string layer =
                std::string(side == Side::Top ? "F." : "B.") + (role == Role::Paste ? "Paste" : "Mask");
            const PadStacks::Drawn& drawn = *m_stacks.Draw(opening->pad);
            if (IsMargin(shape, *opening, drawn, role, first)) {
                layers.push_back(layer);
                first = false;
            } else if (drawn.outline) {
                m_result.push_back(Opening(*drawn.outline, layer));
            } else {
                m_result.push_back(Opening(drawn.scene, layer));
            }
        }
        if (layers.size() == 2 && role == Role::SolderMask) return {"*.Mask"};
        return layers;
    }

    /// True if an opening is the pad, grown by a margin that all openings of the role have.
    bool IsMargin(const PadShape* shape, const drawing::StackedPad& opening, const PadStacks::Drawn& drawn,
                  Role role, bool first) {
        Margins margins = m_margins;
        if (IsCopper(opening.pad)) {
            (role == Role::Paste ? margins.paste : margins.mask) = 0;
            if (role == Role::Paste) margins.ratio = 0;
        } else {
            const std::optional<Growth> growth =
                shape && drawn.outline ? GrowthOf(*shape, *drawn.outline) : std::nullopt;
            if (!growth) return false;
            if (Same(growth->x, growth->y)) {
                (role == Role::Paste ? margins.paste : margins.mask) = growth->x;
                if (role == Role::Paste) margins.ratio = 0;
            } else {
                // In the stencil a margin can be a share of the size, too.
                const double more = shape->width - shape->height;
                if (role != Role::Paste || std::fabs(more) < kEqual) return false;
                margins.ratio = (growth->x - growth->y) / more;
                margins.paste = growth->x - margins.ratio * shape->width;
                if (std::fabs(margins.paste) < kEqual) margins.paste = 0;
            }
        }
        if (!first && !(margins == m_margins)) return false;
        m_margins = margins;
        return true;
    }
    bool IsCopper(const CVEKA_Pad* pad) const {
        return std::any_of(m_pads.begin(), m_pads.end(), [&](const drawing::StackedPad& other) {
            return other.role == Role::Copper && other.side != Side::Inner && other.pad == pad;
        });
    }

    /// What padstacks have besides, which KiCad makes by itself.
    void RemarkOnUses() {
        std::string uses;
        const auto add = [&](bool used, const char* what) {
            if (used) uses += (uses.empty() ? "" : ", ") + std::string(what);
        };
        const CVEKA_Padstack_LayerInfo* const layers[] = {m_stack.GetTop(), m_stack.GetInnerSignal(),
                                                          m_stack.GetInnerPlane(), m_stack.GetBottom()};
        const auto any = [&](auto has) { return std::any_of(std::begin(layers), std::end(layers), has); };
        add(any([](const CVEKA_Padstack_LayerInfo* l) { return !l->GetAnti().IsEmpty(); }), "antipads");
        add(any([](const CVEKA_Padstack_LayerInfo* l) { return !l->GetThermal().IsEmpty(); }),
            "thermal reliefs");
        add(any([](const CVEKA_Padstack_LayerInfo* l) { return l->GetTearDrop(); }), "teardrops");
        add(any([](const CVEKA_Padstack_LayerInfo* l) {
                return !l->GetUnCon().IsEmpty() && l->GetUnCon() != l->GetCon();
            }),
            "other pads where a pin is not connected");
        if (!uses.empty())
            m_stacks.m_remarks.Add("not exported, because KiCad makes them by the rules of a board: " + uses);
    }

    struct Margins {
        double mask = 0, paste = 0, ratio = 0;
        bool operator==(const Margins& other) const {
            return Same(mask, other.mask) && Same(paste, other.paste) &&
                   std::fabs(ratio - other.ratio) < 1e-9;
        }
    };

    PadStacks& m_stacks;
    const CVEKA_PadStack& m_stack;
    const std::vector<drawing::StackedPad> m_pads;
    std::optional<PadShape> m_hole;
    Margins m_margins;
    std::vector<KiCadPad> m_result;
};

const std::vector<KiCadPad>& PadStacks::Of(const CVEKA_PadStack& stack) {
    const auto [found, isNew] = m_stacks.try_emplace(&stack);
    if (isNew) found->second = PadStackReader(*this, stack).Read();
    return found->second;
}

}  // namespace kicad
