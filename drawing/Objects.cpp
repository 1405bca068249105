#include "drawing/Objects.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <typeindex>
#include <unordered_map>

#include "leads/Placement.h"
#include "model/objects/Objects.h"

namespace drawing {

namespace {

// Deeper than any file, whose levels are at most 20 deep.
constexpr int kDeepest = 40;
constexpr int kMostSpokes = 360;

using Outline = std::vector<Vertex>;
using Outlines = std::vector<Outline>;

Point At(const CVEKA_Coordinate* point) {
    return {point->GetX(), point->GetY()};
}

/// The place of a rectangle: its point, its rotation, and an offset that turns with it.
Place PlaceOf(const CVEKA_Coordinate* point, double rotation, const CVEKA_Coordinate* offset = nullptr) {
    const Place place(At(point), rotation);
    return offset ? place * Place(At(offset)) : place;
}

bool IsPositive(double width, double height) {
    return width > 0 && height > 0;
}

Outline Moved(Outline outline, const Place& place) {
    for (Vertex& vertex : outline) vertex = place.Moved(vertex);
    return outline;
}

/// Joins lines and arcs to closed outlines.
class Joiner {
public:
    void Add(Point start, Point end) { AddPiece(start, end, {{start, 0}}, {{end, 0}}); }
    void AddArc(Point start, Point end, Point center, bool counterClockwise) {
        const double radius = Distance(start, center);
        if (!(radius > 0)) return;
        const ArcAngles arc = ArcBetween(start, end, center, counterClockwise);
        Outline there, back;
        AppendArc(there, center, radius, arc);
        there[0].point = start;
        AppendArc(back, center, radius, {arc.start + arc.sweep, -arc.sweep});
        back[0].point = end;
        AddPiece(start, end, std::move(there), std::move(back));
    }
    Outlines Finish() {
        Close();
        return std::move(m_done);
    }

private:
    /// A piece with its corners but the last one, as it runs and the other way round.
    void AddPiece(Point start, Point end, Outline there, Outline back) {
        if (!m_open.empty() && Distance(m_end, m_open[0].point) <= kGap) Close();
        // A piece may be drawn from its end to its start.
        const bool turned = !m_open.empty() && Distance(m_end, start) > kGap && Distance(m_end, end) <= kGap;
        Outline& piece = turned ? back : there;
        // Where the pieces leave a gap, a straight line closes the gap.
        if (!m_open.empty() && Distance(m_end, piece[0].point) > kGap) m_open.push_back({m_end, 0});
        m_open.insert(m_open.end(), piece.begin(), piece.end());
        m_end = turned ? start : end;
    }
    void Close() {
        if (!m_open.empty()) {
            if (Distance(m_end, m_open[0].point) > kGap) m_open.push_back({m_end, 0});
            m_done.push_back(std::move(m_open));
        }
        m_open.clear();
    }

    // In units of the file. Points that are closer are meant as one point.
    static constexpr double kGap = 1e-3;

    Outlines m_done;
    Outline m_open;
    Point m_end;
};

/// Collects outlines, and counts the objects that it looks at.
struct Collector {
    Outlines outlines;
    std::size_t looked = 0;

    void Add(const CVEKA_3DObjectArray& objects, int depth);
    void AddClosed(const CVEKA_3DObject& object, int depth);
};

/// The outlines of one object that is closed by itself.
void Collector::AddClosed(const CVEKA_3DObject& object, int depth) {
    if (depth > kDeepest) return;
    const auto add = [&](double width, double height, Outline outline, const Place& place) {
        if (IsPositive(width, height)) outlines.push_back(Moved(std::move(outline), place));
    };
    if (const auto* circle = dynamic_cast<const CVEKA_3DOJ_CIRCLE*>(&object))
        add(circle->D, circle->D, CircleOutline(circle->D / 2), PlaceOf(circle->PT, 0));
    else if (const auto* disc = dynamic_cast<const CVEKA_3DOJ_FILLCIRCLE*>(&object))
        add(disc->D, disc->D, CircleOutline(disc->D / 2), PlaceOf(disc->PT, 0, disc->OFFSET));
    else if (const auto* open = dynamic_cast<const CVEKA_3DOJ_RECTANGLE*>(&object))
        add(open->W, open->H, RectangleOutline(open->W, open->H), PlaceOf(open->PT, open->ROTATION));
    else if (const auto* filled = dynamic_cast<const CVEKA_3DOJ_FILLRECT*>(&object))
        add(filled->W, filled->H, RectangleOutline(filled->W, filled->H),
            PlaceOf(filled->PT, filled->ROTATION, filled->OFFSET));
    else if (const auto* cut = dynamic_cast<const CVEKA_3DOJ_CHAMPEREDRECT*>(&object))
        add(cut->W, cut->H,
            IsPositive(cut->W, cut->H) ? ChamferedOutline(cut->W, cut->H, cut->CHAMPEREDVALUE) : Outline(),
            PlaceOf(cut->PT, cut->ROTATION, cut->OFFSET));
    else if (const auto* round = dynamic_cast<const CVEKA_3DOJ_ROUNDEDRECTANGLE*>(&object))
        add(round->W, round->H,
            IsPositive(round->W, round->H) ? RoundedOutline(round->W, round->H, round->R) : Outline(),
            PlaceOf(round->PT, round->ROTATION, round->OFFSET));
    else if (const auto* oblong = dynamic_cast<const CVEKA_3DOJ_OBLONG*>(&object))
        add(oblong->W, oblong->H,
            IsPositive(oblong->W, oblong->H)
                ? RoundedOutline(oblong->W, oblong->H, std::min(oblong->W, oblong->H) / 2)
                : Outline(),
            PlaceOf(oblong->PT, oblong->ROTATION));
    else if (const auto* hole = dynamic_cast<const CVEKA_3DOJ_VOID*>(&object))
        Add(*hole->Elements, depth + 1);
    else if (const auto* line = dynamic_cast<const CVEKA_3DOJ_POLYLINE*>(&object))
        Add(*line->Elements, depth + 1);
    else if (const auto* polygon = dynamic_cast<const CVEKA_3DOJ_POLYGON*>(&object))
        Add(*polygon->BOUNDARY, depth + 1);
}

void Collector::Add(const CVEKA_3DObjectArray& objects, int depth) {
    looked += static_cast<std::size_t>(objects.GetSize());
    Joiner joiner;
    for (const CVEKA_3DObject* object : objects) {
        if (!object) continue;
        if (const auto* line = dynamic_cast<const CVEKA_3DOJ_LINE*>(object))
            joiner.Add(At(line->StartPoint), At(line->EndPoint));
        else if (const auto* arc = dynamic_cast<const CVEKA_3DOJ_ARC*>(object))
            joiner.AddArc(At(arc->StartPoint), At(arc->EndPoint), At(arc->CenterPoint), arc->DIR == "CCW");
        else if (const auto* spaceLine = dynamic_cast<const CVEKA_3DOJ_3DLINE*>(object))
            joiner.Add(At(spaceLine->StartPoint), At(spaceLine->EndPoint));
        else if (const auto* spaceArc = dynamic_cast<const CVEKA_3DOJ_3DARC*>(object))
            joiner.AddArc(At(spaceArc->StartPoint), At(spaceArc->EndPoint), At(spaceArc->CenterPoint),
                          spaceArc->DIR == "CCW");
        else
            AddClosed(*object, depth);
    }
    Outlines joined = joiner.Finish();
    std::move(joined.begin(), joined.end(), std::back_inserter(outlines));
}

/// The widest pen of the lines and arcs of an outline.
double WidestPen(const CVEKA_3DObjectArray& objects) {
    double widest = 0;
    const auto take = [&widest](double width) {
        if (width > widest) widest = width;
    };
    for (const CVEKA_3DObject* object : objects) {
        if (const auto* line = dynamic_cast<const CVEKA_3DOJ_LINE*>(object)) take(line->LW);
        if (const auto* arc = dynamic_cast<const CVEKA_3DOJ_ARC*>(object)) take(arc->LW);
        if (const auto* spaceLine = dynamic_cast<const CVEKA_3DOJ_3DLINE*>(object)) take(spaceLine->LW);
        if (const auto* spaceArc = dynamic_cast<const CVEKA_3DOJ_3DARC*>(object)) take(spaceArc->LW);
    }
    return widest;
}

/// A thermal relief: the gaps that its spokes leave between two circles, or between two squares.
class Relief {
public:
    explicit Relief(const CVEKA_3DOJ_THERMAL& thermal)
        : m_outer(thermal.OUTER / 2),
          m_inner(thermal.INNER > 0 ? thermal.INNER / 2 : 0),
          m_half(thermal.SPOKEWIDTH > 0 ? thermal.SPOKEWIDTH / 2 : 0),
          m_rotation(thermal.ROTATION),
          m_spokes(thermal.NOOFSPOKES > 0 ? std::round(thermal.NOOFSPOKES) : 0),
          m_square(thermal.TYPE == "SQUARE" || thermal.TYPE == "RECTANGLE") {}

    bool CanBeDrawn() const {
        return m_outer > 0 && m_inner < m_outer && m_spokes <= kMostSpokes && std::isfinite(m_rotation);
    }
    Outlines Make() const {
        const int spokes = m_half > 0 ? static_cast<int>(m_spokes) : 0;
        if (spokes == 0) {
            Outlines ring{Whole(m_outer)};
            if (m_inner > 0) ring.push_back(Whole(m_inner));
            return ring;
        }
        Outlines gaps;
        for (int i = 0; i < spokes; ++i) {
            const double from = m_rotation + 360.0 * i / spokes, to = m_rotation + 360.0 * (i + 1) / spokes;
            Outline gap = Gap(from, to);
            if (gap.size() > 2) gaps.push_back(std::move(gap));
        }
        return gaps;
    }

private:
    Outline Whole(double radius) const {
        return m_square ? RectangleOutline(2 * radius, 2 * radius) : CircleOutline(radius);
    }
    /// The point at which an edge of a spoke leaves a circle or a square. The edge is `aside` to the left of
    /// the middle of the spoke, whose direction is `degrees`.
    Point Leaves(double degrees, double aside, double radius) const {
        const Point along = Direction(degrees), left{-along.y, along.x};
        const Point foot = left * aside;
        if (!m_square) return foot + along * std::sqrt(std::max(0.0, radius * radius - aside * aside));
        double way = std::numeric_limits<double>::infinity();
        for (const auto& [f, a] : {std::pair{foot.x, along.x}, std::pair{foot.y, along.y}}) {
            if (a > 1e-12) way = std::min(way, (radius - f) / a);
            if (a < -1e-12) way = std::min(way, (-radius - f) / a);
        }
        return foot + along * std::max(0.0, way);
    }
    /// The way along a circle or a square, counter-clockwise, without its end.
    void Walk(Outline& outline, Point start, Point end, double radius) const {
        const ArcAngles arc = ArcBetween(start, end, {}, true);
        if (!m_square) {
            AppendArc(outline, {}, radius, arc);
            return;
        }
        outline.push_back({start, 0});
        for (double corner = std::ceil((arc.start - 45) / 90) * 90 + 45; corner < arc.start + arc.sweep;
             corner += 90)
            if (corner > arc.start)
                outline.push_back({Direction(corner) * (radius * std::numbers::sqrt2), 0});
    }
    /// The gap between two spokes.
    Outline Gap(double from, double to) const {
        const double between = to - from;
        // The spokes meet at this distance from the centre.
        const double half = between / 2 * std::numbers::pi / 180;
        const double meet = between < 180 ? m_half / std::sin(half) : m_half;
        const double reach = m_square ? m_outer * std::numbers::sqrt2 : m_outer;
        if (meet >= reach || m_half >= m_outer) return {};
        Outline gap;
        const Point start = Leaves(from, m_half, m_outer), end = Leaves(to, -m_half, m_outer);
        if (m_square && ArcBetween(start, end, {}, true).sweep > between + 1e-6) return {};
        Walk(gap, start, end, m_outer);
        gap.push_back({end, 0});
        const Point innerStart = Leaves(from, m_half, m_inner), innerEnd = Leaves(to, -m_half, m_inner);
        const bool apart = m_inner > meet || (m_square && m_inner * std::numbers::sqrt2 > meet);
        if (apart && m_inner > m_half && ArcBetween(innerStart, innerEnd, {}, true).sweep <= between) {
            Outline inner;
            Walk(inner, innerStart, innerEnd, m_inner);
            // Back along the inner side: the bulge of a way belongs to its other end then.
            gap.push_back({innerEnd, inner.empty() ? 0 : -inner.back().bulge});
            for (size_t i = inner.size(); i > 1; --i)
                gap.push_back({inner[i - 1].point, -inner[i - 2].bulge});
            gap.push_back({innerStart, 0});
        } else {
            gap.push_back({Direction((from + to) / 2) * meet, 0});
        }
        return gap;
    }

    double m_outer, m_inner, m_half, m_rotation, m_spokes;
    bool m_square;
};

}  // namespace

/// One function for each kind of object. A kind that has no function of its own is drawn as its base class.
struct ObjectCases {
    using Drawer = ObjectDrawer;

    static void Draw(Drawer& d, const CVEKA_3DOJ_LINE& o, const Place& place) {
        d.m_scene.AddLine(place, At(o.StartPoint), At(o.EndPoint), o.LW);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_3DLINE& o, const Place& place) {
        d.m_scene.AddLine(place, At(o.StartPoint), At(o.EndPoint), o.LW);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_ARC& o, const Place& place) { DrawArc(d, o, place); }
    static void Draw(Drawer& d, const CVEKA_3DOJ_3DARC& o, const Place& place) { DrawArc(d, o, place); }
    template <class ArcObject>
    static void DrawArc(Drawer& d, const ArcObject& o, const Place& place) {
        const Point start = At(o.StartPoint), center = At(o.CenterPoint);
        const double radius = Distance(start, center);
        d.m_scene.AddArc(place, center, radius > 0 ? radius : o.R,
                         ArcBetween(start, At(o.EndPoint), center, o.DIR == "CCW"), o.LW);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_CIRCLE& o, const Place& place) {
        d.m_scene.AddCircle(place, At(o.PT), o.D / 2, o.LW, false);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_3DCIRCLE& o, const Place& place) {
        d.m_scene.AddCircle(place, At(o.PT), o.D / 2, o.LW, false);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_FILLCIRCLE& o, const Place& place) {
        d.m_scene.AddCircle(place, At(o.PT) + At(o.OFFSET), o.D / 2, 0, true);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_3DFILLCIRCLE& o, const Place& place) {
        d.m_scene.AddCircle(place, At(o.PT), o.D / 2, 0, true);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_PINPOINT& o, const Place& place) {
        d.m_scene.AddCircle(place, At(o.PT), o.D / 2, 0, true);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_RECTANGLE& o, const Place& place) {
        // A rectangle without a width or a height is a line.
        if (o.W >= 0 && o.H >= 0 && (o.W == 0) != (o.H == 0))
            return d.m_scene.AddLine(place * PlaceOf(o.PT, o.ROTATION), {-o.W / 2, -o.H / 2},
                                     {o.W / 2, o.H / 2}, o.LW);
        DrawClosed(d, o, place, o.LW, false);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_FILLRECT& o, const Place& place) {
        DrawClosed(d, o, place, 0, true);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_CHAMPEREDRECT& o, const Place& place) {
        DrawClosed(d, o, place, 0, true);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_ROUNDEDRECTANGLE& o, const Place& place) {
        DrawClosed(d, o, place, 0, true);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_OBLONG& o, const Place& place) {
        DrawClosed(d, o, place, 0, true);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_VOID& o, const Place& place) {
        DrawClosed(d, o, place, 0, false);
    }
    static void DrawClosed(Drawer& d, const CVEKA_3DObject& o, const Place& place, double width,
                           bool filled) {
        Collector collector;
        collector.AddClosed(o, d.m_depth);
        d.m_scene.CountPieces(collector.looked);
        d.m_scene.AddPolygon(place, collector.outlines, width, filled);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_3DFILLRECT& o, const Place& place) {
        if (!IsPositive(o.W, o.H)) return d.m_scene.LeaveOut();
        d.m_scene.AddPolygon(place * PlaceOf(o.PT, o.ROTATION, o.OFFSET), {RectangleOutline(o.W, o.H)}, 0,
                             true);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_3DOBLONG& o, const Place& place) {
        if (!IsPositive(o.W, o.H)) return d.m_scene.LeaveOut();
        d.m_scene.AddPolygon(place * PlaceOf(o.PT, o.ROTATION),
                             {RoundedOutline(o.W, o.H, std::min(o.W, o.H) / 2)}, 0, true);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_POLYGON& o, const Place& place) {
        Collector collector;
        collector.Add(*o.BOUNDARY, d.m_depth);
        const bool hasOutline = !collector.outlines.empty();
        if (hasOutline) collector.Add(*o.VOID, d.m_depth);
        d.m_scene.CountPieces(collector.looked);
        if (!hasOutline) return d.m_scene.LeaveOut();
        d.m_scene.AddPolygon(place, collector.outlines, WidestPen(*o.BOUNDARY), true);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_3DPOLYGON& o, const Place& place) {
        Collector collector;
        collector.Add(*o.BOUNDARY, d.m_depth);
        d.m_scene.CountPieces(collector.looked);
        d.m_scene.AddPolygon(place, collector.outlines, WidestPen(*o.BOUNDARY), true);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_POLYLINE& o, const Place& place) {
        d.Draw(*o.Elements, place);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_CONTOUR& o, const Place& place) {
        d.Draw(*o.Elements, place);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_COMPOSITE& o, const Place& place) {
        d.Draw(*o.Elements, place * PlaceOf(o.PT, o.ROTATION));
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_TAPERED& o, const Place& place) {
        const Point start = At(o.StartPoint), end = At(o.EndPoint);
        const double length = Distance(start, end);
        if (!(length > 0) || o.SWIDTH < 0 || o.EWIDTH < 0 || !(o.SWIDTH + o.EWIDTH > 0))
            return d.m_scene.LeaveOut();
        const Point along = (end - start) * (1 / length), left{-along.y, along.x};
        d.m_scene.AddPolygon(place,
                             {{{start + left * (o.SWIDTH / 2)},
                               {start - left * (o.SWIDTH / 2)},
                               {end - left * (o.EWIDTH / 2)},
                               {end + left * (o.EWIDTH / 2)}}},
                             0, true);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_THERMAL& o, const Place& place) {
        const Relief relief(o);
        if (!relief.CanBeDrawn()) return d.m_scene.LeaveOut();
        d.m_scene.AddPolygon(place, relief.Make(), 0, true);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_TEXT& o, const Place& place) {
        DrawText(d, o, place, o.VALUE);
    }
    static void Draw(Drawer& d, const CVEKA_3DOJ_PROPTEXT& o, const Place& place) {
        if (o.Visible) DrawText(d, o, place, o.VALUE.IsEmpty() ? o.NAME : o.VALUE);
    }
    template <class TextObject>
    static void DrawText(Drawer& d, const TextObject& o, const Place& place, const CString& value) {
        const Justification where = JustificationOf(o.JUSTIFY);
        d.m_scene.AddText(place, At(o.PT), d.m_fonts.Height(o.FID), o.ROTATION, value.View(), where.align,
                          where.lift, veka::IsMirrored(o.MIRROR));
    }
    // Solids and leads stand in space: the package's drawing shows them.
    static void Draw(Drawer& d, const CVEKA_3DObject&, const Place&) { d.m_scene.LeaveOut(); }

    using Case = void (*)(Drawer&, const CVEKA_3DObject&, const Place&);
    template <class Kind>
    static void DrawAs(Drawer& drawer, const CVEKA_3DObject& object, const Place& place) {
        Draw(drawer, static_cast<const Kind&>(object), place);
    }
    static Case Find(const CVEKA_3DObject& object) {
        static const std::unordered_map<std::type_index, Case> cases{
#define VEKA_CASE(Level, Number, Class, Method) {typeid(Class), DrawAs<Class>},
            VEKA_ALL_OBJECT_KINDS(VEKA_CASE)
#undef VEKA_CASE
        };
        const auto found = cases.find(typeid(object));
        return found == cases.end() ? DrawAs<CVEKA_3DObject> : found->second;
    }
};

Fonts::Fonts(const CVEKA_FontArray& fonts) {
    for (const CVEKA_Font* font : fonts)
        if (font) m_fonts.try_emplace(font->GetFontID(), font);
}

double Fonts::Height(int font) const {
    const CVEKA_Font* found = Find(font);
    return found ? found->GetCharHeight() : CVEKA_Font().GetCharHeight();
}

const CVEKA_Font* Fonts::Find(int font) const {
    const auto found = m_fonts.find(font);
    return found == m_fonts.end() ? nullptr : found->second;
}

void ObjectDrawer::Draw(const CVEKA_3DObjectArray& objects, const Place& place) {
    m_scene.CountPieces(static_cast<std::size_t>(objects.GetSize()));
    if (++m_depth > kDeepest)
        m_scene.LeaveOut();
    else
        for (const CVEKA_3DObject* object : objects)
            if (object) DrawOne(*object, place);
    --m_depth;
}

void ObjectDrawer::Draw(const CVEKA_3DObject& object, const Place& place) {
    ObjectCases::Find(object)(*this, object, place);
}

void ObjectDrawer::DrawOne(const CVEKA_3DObject& object, const Place& place) {
    const SceneBuilder::Pen pen = m_scene.pen;
    // An object inside of another object shows the outer one.
    if (m_depth == 1) (pen.source ? m_scene.pen.definition : m_scene.pen.source) = Source::Of(object);
    Draw(object, place);
    m_scene.pen = pen;
}

Outlines OutlinesOf(const CVEKA_3DObjectArray& objects) {
    Collector collector;
    collector.Add(objects, 0);
    return std::move(collector.outlines);
}

Justification JustificationOf(int number) {
    if (number < 1 || number > 9) return {};
    return {static_cast<Align>((number - 1) / 3), static_cast<Lift>((number - 1) % 3)};
}

}  // namespace drawing
