#include "drawing/LeadScene.h"

#include <algorithm>

#include "drawing/SceneBuilder.h"
#include "leads/Lead.h"
#include "model/objects/LeadObjects.h"

namespace drawing {

namespace {

/// A letter of a lead, and what it measures.
struct Dimension {
    /// From the front: a height from the board, or a way along X. From above: a width across.
    enum Kind { Up, Along, Across } kind;
    const char* letter;
    double from, to;
};
using Dimensions = std::vector<Dimension>;

Dimension Up(const char* letter, double from, double to) {
    return {Dimension::Up, letter, from, to};
}
Dimension Along(const char* letter, double from, double to) {
    return {Dimension::Along, letter, from, to};
}
/// A size along X that has its middle at a place.
Dimension Across(const char* letter, double size) {
    return {Dimension::Across, letter, -size / 2, size / 2};
}
Dimension Thick(const char* letter, double size, double middle = 0) {
    return Along(letter, middle - size / 2, middle + size / 2);
}

// What the letters of each form measure.

Dimensions Measure(const CVEKA_3DOJ_BALL& r) {
    return {Up("H", 0, r.H)};
}
Dimensions Measure(const CVEKA_3DOJ_BAR& r) {
    return {Up("H", 0, r.H), Up("Z", -r.Z, 0), Thick("T", r.T)};
}
Dimensions Measure(const CVEKA_3DOJ_BUTT& r) {
    return {Up("H", 0, r.H), Up("Z", -r.Z, 0), Thick("T", r.T), Along("BL", -r.BL, 0), Across("W", r.W)};
}
Dimensions Measure(const CVEKA_3DOJ_CBEND& r) {
    return {Up("Z", 0, r.Z), Up("H", 0, r.H), Thick("L", r.L), Across("W", r.W)};
}
Dimensions Measure(const CVEKA_3DOJ_DIP& r) {
    return {Up("H2", 0, r.H2), Up("H1", 0, r.H1),  Up("Z", -r.Z, 0),
            Thick("T", r.T),   Across("W2", r.W2), Across("W1", r.W1)};
}
Dimensions Measure(const CVEKA_3DOJ_DIPA& r) {
    return {Up("H2", 0, r.H2), Up("H1", 0, r.H1), Up("Z", -r.Z, 0), Thick("T2", r.T2), Thick("T1", r.T1)};
}
Dimensions Measure(const CVEKA_3DOJ_DIPB& r) {
    return {Up("H2", 0, r.H2),   Up("H1", 0, r.H1),  Up("Z", -r.Z, 0),  Thick("T", r.T),
            Along("S", -r.S, 0), Across("W2", r.W2), Across("W1", r.W1)};
}
Dimensions Measure(const CVEKA_3DOJ_FLAT& r) {
    return {Up("T", 0, r.T), Thick("L", r.L), Across("W", r.W)};
}
Dimensions Measure(const CVEKA_3DOJ_GULLWING& r) {
    return {Up("T", 0, r.T),       Up("H", 0, r.H), Thick("B", r.B), Along("M", -r.BL, r.M - r.BL),
            Along("BL", -r.BL, 0), Across("W", r.W)};
}
Dimensions Measure(const CVEKA_3DOJ_GULLWINGA& r) {
    return {Up("T", 0, r.T), Up("H", 0, r.H), Thick("B", r.B), Along("BL", -r.BL, 0), Across("W", r.W)};
}
Dimensions Measure(const CVEKA_3DOJ_JBEND& r) {
    return {Up("H2", 0, r.H2), Up("H1", 0, r.H1),     Thick("T", r.T, (r.D - r.T) / 2),
            Thick("D", r.D),   Along("BL", -r.BL, 0), Across("W2", r.W2),
            Across("W1", r.W1)};
}
Dimensions Measure(const CVEKA_3DOJ_JINVERTED& r) {
    return {Up("H2", 0, r.H2), Up("H1", 0, r.H1),     Thick("T", r.T, (r.T - r.D) / 2),
            Thick("D", r.D),   Along("BL", -r.BL, 0), Across("W2", r.W2),
            Across("W1", r.W1)};
}
Dimensions Measure(const CVEKA_3DOJ_REVERSEBUTT& r) {
    return {Up("H", 0, r.H), Thick("T", r.T, (r.B - r.T) / 2), Thick("B", r.B), Across("W", r.W)};
}
Dimensions Measure(const CVEKA_3DOJ_ROUNDBAR& r) {
    return {Up("H", 0, r.H), Up("BL", r.H, r.H + r.BL), Up("Z", -r.Z, 0), Thick("T", r.T)};
}
Dimensions Measure(const CVEKA_3DOJ_ROUNDBARA& r) {
    return {Up("H2", 0, r.H2), Up("H1", 0, r.H1), Up("Z", -r.Z, 0), Thick("T", r.T), Along("L", -r.L, 0)};
}
Dimensions Measure(const CVEKA_3DOJ_ROUNDBARB& r) {
    const double slope = (r.H1 - r.H2 - r.L2) / 2;
    return {Up("H2", 0, r.H2),
            Up("L2", r.H2 + slope, r.H1 - slope),
            Up("H1", 0, r.H1),
            Up("Z", -r.Z, 0),
            Thick("T", r.T),
            Along("L3", 0, r.L3),
            Along("L1", r.L3 - r.L1, r.L3)};
}
Dimensions Measure(const CVEKA_3DOJ_ROUNDBARC& r) {
    return {Up("H2", 0, r.H2), Up("H1", 0, r.H1), Up("H", 0, r.H),
            Up("Z", -r.Z, 0),  Thick("T", r.T),   Along("L", -r.L, 0)};
}
Dimensions Measure(const CVEKA_3DOJ_KINKDIP& r) {
    return {Up("H", 0, r.H), Up("Z", -r.Z, 0), Thick("T", r.T), Along("D", 0, r.D)};
}
Dimensions Measure(const CVEKA_3DOJ_KINKDIPA& r) {
    return {Up("H1", 0, r.H1), Up("H", 0, r.H), Up("Z", -r.Z, 0), Thick("T", r.T), Along("D", 0, r.D)};
}
Dimensions Measure(const CVEKA_3DOJ_ROUNDDIP& r) {
    return {Up("H2", 0, r.H2),     Up("H1", 0, r.H1),  Up("Z", -r.Z, 0),  Thick("T", r.T),
            Along("BL", -r.BL, 0), Across("W2", r.W2), Across("W1", r.W1)};
}
Dimensions Measure(const CVEKA_3DOJ_ROUNDDIPA& r) {
    return {Up("H3", 0, r.H3),  Up("H2", 0, r.H2),  Up("H1", 0, r.H1),     Up("H", 0, r.H),
            Up("Z", -r.Z, 0),   Thick("T", r.T),    Along("L2", -r.L2, 0), Along("L1", -r.L1 - r.L2, -r.L2),
            Across("W3", r.W3), Across("W2", r.W2), Across("W1", r.W1)};
}
Dimensions Measure(const CVEKA_3DOJ_WRAPAROUND& r) {
    return {Up("H", 0, r.H), Thick("L", r.L), Across("W", r.W)};
}
Dimensions Measure(const CVEKA_3DOJ_WIRE& r) {
    return {Up("L", -r.L, 0), Thick("T", r.T)};
}

template <class Record>
bool MeasureIf(const CVEKA_3DObject& object, Dimensions& dimensions) {
    const auto* record = dynamic_cast<const Record*>(&object);
    if (record) dimensions = Measure(*record);
    return record != nullptr;
}
template <class... Records>
Dimensions MeasureAny(const CVEKA_3DObject& object) {
    Dimensions dimensions;
    (void)(MeasureIf<Records>(object, dimensions) || ...);
    return dimensions;
}
Dimensions MeasureLead(const CVEKA_3DObject& object) {
    return MeasureAny<CVEKA_3DOJ_BALL, CVEKA_3DOJ_BAR, CVEKA_3DOJ_BUTT, CVEKA_3DOJ_CBEND, CVEKA_3DOJ_DIP,
                      CVEKA_3DOJ_DIPA, CVEKA_3DOJ_DIPB, CVEKA_3DOJ_FLAT, CVEKA_3DOJ_GULLWING,
                      CVEKA_3DOJ_GULLWINGA, CVEKA_3DOJ_JBEND, CVEKA_3DOJ_JINVERTED, CVEKA_3DOJ_REVERSEBUTT,
                      CVEKA_3DOJ_ROUNDBAR, CVEKA_3DOJ_ROUNDBARA, CVEKA_3DOJ_ROUNDBARB, CVEKA_3DOJ_ROUNDBARC,
                      CVEKA_3DOJ_KINKDIP, CVEKA_3DOJ_KINKDIPA, CVEKA_3DOJ_ROUNDDIP, CVEKA_3DOJ_ROUNDDIPA,
                      CVEKA_3DOJ_WRAPAROUND, CVEKA_3DOJ_WIRE>(object);
}

class LeadDrawer {
public:
    LeadDrawer(const CVEKA_3DObject& object, SceneBuilder& scene) : m_object(object), m_scene(scene) {}

    void Draw(const veka::Lead& lead) {
        const size_t start = m_scene.Count();
        AddOutlines(lead, veka::LeadView::Front, {});
        const Box front = m_scene.BoundsFrom(start);
        if (front.IsEmpty()) return;
        m_letter = std::max(front.Width(), front.Height()) * 0.06;
        const Dimensions dimensions = MeasureLead(m_object);
        // Heights to the right, the lower ones nearer; ways along X above.
        double x = front.right, y = front.top;
        for (const Dimension& dimension : dimensions) {
            if (dimension.kind == Dimension::Up) {
                x += m_letter * 2.9;
                AddUp(dimension, x, front.right);
            } else if (dimension.kind == Dimension::Along) {
                y += m_letter * 2.2;
                AddAlong(dimension, y, front.top);
            }
        }
        // The board.
        m_scene.pen = {
            m_scene.Layer("Board", Role::Other, Side::Both, 5), Role::Other, Source::Of(m_object), {}};
        m_scene.AddLine({}, {front.left - m_letter, 0}, {x + m_letter, 0}, m_letter * 0.06);
        const bool across = std::any_of(dimensions.begin(), dimensions.end(), [](const Dimension& dimension) {
            return dimension.kind == Dimension::Across;
        });
        if (across) DrawAbove(lead, dimensions, front);
    }

private:
    void AddOutlines(const veka::Lead& lead, veka::LeadView view, Point at) {
        m_scene.pen = {
            m_scene.Layer("Lead", Role::Lead, Side::Both, 10), Role::Lead, Source::Of(m_object), {}};
        for (const veka::LeadPolygon& polygon : veka::Outlines(lead, {}, view)) {
            std::vector<Vertex> outline;
            for (const veka::ViewPoint& corner : polygon) outline.push_back({{corner.x, corner.y}, 0});
            m_scene.AddPolygon(Place(at), {std::move(outline)}, 0, true);
        }
    }
    /// The same lead from above, below the picture from the front, with its widths.
    void DrawAbove(const veka::Lead& lead, const Dimensions& dimensions, const Box& front) {
        const size_t start = m_scene.Count();
        AddOutlines(lead, veka::LeadView::Top, {});
        const Box above = m_scene.BoundsFrom(start);
        const double down = std::min(front.bottom, 0.0) - m_letter * 3 - above.top;
        m_scene.MoveFrom(start, {0, down});
        double x = above.right;
        for (const Dimension& dimension : dimensions) {
            if (dimension.kind != Dimension::Across) continue;
            x += m_letter * 2.9;
            AddUp({Dimension::Up, dimension.letter, dimension.from + down, dimension.to + down}, x,
                  above.right);
        }
    }

    void SetPen() {
        m_scene.pen = {m_scene.Layer("Dimensions", Role::Dimension, Side::Both, 20),
                       Role::Dimension,
                       Source::Of(m_object),
                       {}};
    }
    /// The tip of an arrow at a point; `back` is the direction of its line.
    void AddTip(Point at, Point back) {
        const Point left{-back.y, back.x};
        const double length = m_letter * 0.5;
        m_scene.AddPolygon(
            {}, {{{at}, {at + (back + left * 0.3) * length}, {at + (back - left * 0.3) * length}}}, 0, true);
    }
    void AddUp(const Dimension& dimension, double x, double from) {
        SetPen();
        const double thin = m_letter * 0.05;
        for (const double y : {dimension.from, dimension.to})
            m_scene.AddLine({}, {std::min(from, x) + m_letter * 0.2, y}, {x + m_letter * 0.3, y}, thin);
        m_scene.AddLine({}, {x, dimension.from}, {x, dimension.to}, thin);
        AddTip({x, dimension.from}, {0, 1});
        AddTip({x, dimension.to}, {0, -1});
        m_scene.AddText({}, {x + m_letter * 0.3, (dimension.from + dimension.to) / 2}, m_letter, 0,
                        dimension.letter, Align::Left, Lift::Middle);
    }
    void AddAlong(const Dimension& dimension, double y, double from) {
        SetPen();
        const double thin = m_letter * 0.05;
        for (const double x : {dimension.from, dimension.to})
            m_scene.AddLine({}, {x, from + m_letter * 0.2}, {x, y + m_letter * 0.3}, thin);
        m_scene.AddLine({}, {dimension.from, y}, {dimension.to, y}, thin);
        AddTip({dimension.from, y}, {1, 0});
        AddTip({dimension.to, y}, {-1, 0});
        m_scene.AddText({}, {(dimension.from + dimension.to) / 2, y + m_letter * 0.3}, m_letter, 0,
                        dimension.letter, Align::Middle, Lift::Bottom);
    }

    const CVEKA_3DObject& m_object;
    SceneBuilder& m_scene;
    double m_letter = 1;
};

}  // namespace

Scene LeadScene(const CVEKA_3DObject& lead) {
    const CString name = lead.GetType(lead.GetType());
    SceneBuilder scene("Lead " + std::string(name.View()));
    const veka::Lead metal = veka::ReadLead(lead);
    if (metal.failure.empty())
        LeadDrawer(lead, scene).Draw(metal);
    else
        scene.Remark(metal.failure);
    return scene.Finish();
}

}  // namespace drawing
