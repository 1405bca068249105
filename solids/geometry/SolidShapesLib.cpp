#include "geometry/SolidShapesLib.h"

#include <BRepAlgoAPI_Cut.hxx>
#include <BRepAlgoAPI_Fuse.hxx>
#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakePolygon.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <BRepOffsetAPI_MakePipeShell.hxx>
#include <BRepOffsetAPI_ThruSections.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRep_Builder.hxx>
#include <GC_MakeArcOfCircle.hxx>
#include <Geom_TrimmedCurve.hxx>
#include <Standard_Failure.hxx>
#include <TopExp_Explorer.hxx>
#include <TopLoc_Location.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>
#include <TopoDS_Vertex.hxx>
#include <TopoDS_Wire.hxx>
#include <algorithm>
#include <cmath>
#include <gp_Ax2.hxx>
#include <gp_Circ.hxx>
#include <gp_Elips.hxx>
#include <gp_Pln.hxx>
#include <gp_Trsf.hxx>
#include <numbers>
#include <stdexcept>

#include "geometry/OutlineCheck.h"
#include "geometry/StepFiles.h"

namespace geometry {

namespace {

// The modeller cannot distinguish larger sizes from infinity, and smaller ones from 0.
constexpr double kSmallest = 1e-5;
constexpr double kLargest = 1e7;

// The modeller takes the square of the pieces of an outline to check it. Up to a few it may; beyond that a
// check of our own is used instead.
constexpr std::size_t kFewPieces = 100;
constexpr std::size_t kMostPieces = 5'000;

[[noreturn]] void Fail(const std::string& reason) {
    throw std::runtime_error(reason);
}

void NeedSize(const char* name, double size) {
    if (!(size > 0)) Fail(std::string(name) + " is not above 0");
    if (size < kSmallest) Fail(std::string(name) + " is too small");
    if (!(size <= kLargest)) Fail(std::string(name) + " is too large");
}

void NeedPlace(const char* name, const vector& place) {
    for (const double value : {place.X, place.Y, place.Z})
        if (!(std::fabs(value) <= kLargest)) Fail(std::string(name) + " is not a place that a body can have");
}

double Length(const vector& v) {
    return std::sqrt(v.X * v.X + v.Y * v.Y + v.Z * v.Z);
}

double Dot(const vector& a, const vector& b) {
    return a.X * b.X + a.Y * b.Y + a.Z * b.Z;
}

vector Scaled(const vector& v, double factor) {
    return {v.X * factor, v.Y * factor, v.Z * factor};
}

vector Cross(const vector& a, const vector& b) {
    return {a.Y * b.Z - a.Z * b.Y, a.Z * b.X - a.X * b.Z, a.X * b.Y - a.Y * b.X};
}

/// A rotation by its rows.
struct Rotation {
    vector x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1};
};

/// About X, then Y, then Z.
Rotation FromAngles(const vector& degrees) {
    const double radians = std::numbers::pi / 180;
    const double sa = std::sin(degrees.X * radians), ca = std::cos(degrees.X * radians);
    const double sb = std::sin(degrees.Y * radians), cb = std::cos(degrees.Y * radians);
    const double sc = std::sin(degrees.Z * radians), cc = std::cos(degrees.Z * radians);
    return {{cc * cb, cc * sb * sa - ca * sc, cc * sb * ca + sc * sa},
            {sc * cb, sc * sb * sa + ca * cc, sc * sb * ca - cc * sa},
            {-sb, cb * sa, cb * ca}};
}

/// Front and up are the first and the last row: so a record's directions turn a body as the angles do that
/// they were made of. Up is used as it is. Of front the part that is perpendicular to up is used. Without two
/// directions nothing is turned.
Rotation FromDirections(const vector& front, const vector& up) {
    const double length = Length(up);
    if (!(length > 0) || !std::isfinite(length)) return {};
    const vector z = Scaled(up, 1 / length);
    const double along = Dot(front, z);
    const vector square{front.X - along * z.X, front.Y - along * z.Y, front.Z - along * z.Z};
    const double squareLength = Length(square);
    if (!(squareLength > 1e-9 * Length(front)) || !std::isfinite(squareLength)) return {};
    const vector x = Scaled(square, 1 / squareLength);
    return {x, Cross(z, x), z};
}

TopoDS_Shape BoxAtOrigin(double width, double height, double depth) {
    return BRepPrimAPI_MakeBox(gp_Pnt(-width / 2, -height / 2, 0), width, height, depth).Shape();
}

TopoDS_Shape Prism(const TopoDS_Wire& border, double depth, const std::vector<TopoDS_Wire>& holes = {}) {
    const gp_Pln plane(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1));
    BRepBuilderAPI_MakeFace face(plane, border);
    for (const TopoDS_Wire& hole : holes) {
        // A hole runs the other way round than a border, and a face that is made of it alone shows which way
        // it runs.
        const TopoDS_Face own = BRepBuilderAPI_MakeFace(plane, hole).Face();
        const bool runsAsABorder =
            TopExp_Explorer(own, TopAbs_WIRE).Current().Orientation() == TopAbs_FORWARD;
        face.Add(runsAsABorder ? TopoDS::Wire(hole.Reversed()) : hole);
    }
    return BRepPrimAPI_MakePrism(face.Face(), gp_Vec(0, 0, depth)).Shape();
}

TopoDS_Shape Without(const TopoDS_Shape& body, const TopoDS_Shape& tool) {
    BRepAlgoAPI_Cut cut(body, tool);
    if (!cut.IsDone()) Fail("a part of the body cannot be cut out");
    return cut.Shape();
}

double Distance(const CPointD& a, const CPointD& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

gp_Pnt ToPoint(const CPointD& point) {
    return {point.x, point.y, 0};
}

/// The edge of a piece between two corners.
TopoDS_Edge EdgeOf(const CPCDrawObj& piece, const CPointD& start, const CPointD& end,
                   const TopoDS_Vertex& first, const TopoDS_Vertex& last, const std::string& name) {
    const auto* arc = dynamic_cast<const CPCArc*>(&piece);
    if (!arc) return BRepBuilderAPI_MakeEdge(first, last).Edge();
    NeedSize((name + "'s radius").c_str(), arc->GetRadius());
    const GC_MakeArcOfCircle curve(ToPoint(start), ToPoint(arc->GetMiddlePt()), ToPoint(end));
    if (!curve.IsDone()) Fail(name + " has an arc that is none");
    BRepBuilderAPI_MakeEdge edge(curve.Value(), first, last);
    if (!edge.IsDone()) Fail(name + " does not hold together");
    return edge.Edge();
}

/// The wire of edges that follow each other. It is put together by hand, since the modeller compares each
/// edge with all before it.
TopoDS_Wire WireOf(const std::vector<TopoDS_Edge>& edges) {
    TopoDS_Wire wire;
    BRep_Builder builder;
    builder.MakeWire(wire);
    for (const TopoDS_Edge& edge : edges) builder.Add(wire, edge);
    return wire;
}

/// The closed wire of an outline. Its pieces follow each other; a gap that rounding explains is closed.
TopoDS_Wire OutlineWire(const CPCDrawObjArray& outline, const std::string& name) {
    std::vector<const CPCDrawObj*> pieces;
    double extent = 0;
    for (std::size_t i = 0; i < outline.GetSize(); ++i) {
        const CPointD start = outline[i].GetStartPt(), end = outline[i].GetEndPt();
        for (const double value : {start.x, start.y, end.x, end.y}) {
            if (!(std::fabs(value) <= kLargest)) Fail(name + " has a point that no body can have");
            extent = std::max(extent, std::fabs(value));
        }
        pieces.push_back(&outline[i]);
    }
    const double gap = 1e-4 * extent + 1e-9;
    // A straight piece without a length is none.
    std::erase_if(pieces, [](const CPCDrawObj* piece) {
        return dynamic_cast<const CPCLineSeg*>(piece) &&
               Distance(piece->GetStartPt(), piece->GetEndPt()) < 1e-7;
    });
    if (pieces.empty()) Fail(name + " is empty");
    const auto* first = dynamic_cast<const CPCArc*>(pieces[0]);
    const auto needRadius = [&](const CPCArc& arc) {
        NeedSize((name + "'s radius").c_str(), arc.GetRadius());
    };
    if (pieces.size() == 1 && first && Distance(first->GetStartPt(), first->GetEndPt()) < gap) {
        needRadius(*first);
        const gp_Pnt center(first->GetCenterPt().x, first->GetCenterPt().y, 0);
        return BRepBuilderAPI_MakeWire(
                   BRepBuilderAPI_MakeEdge(gp_Circ(gp_Ax2(center, gp_Dir(0, 0, 1)), first->GetRadius()))
                       .Edge())
            .Wire();
    }
    std::vector<TopoDS_Vertex> corners;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        // Each piece ends where the next one begins.
        const CPointD start = pieces[i]->GetStartPt(), next = pieces[(i + 1) % pieces.size()]->GetStartPt();
        if (Distance(pieces[i]->GetEndPt(), next) > gap) Fail(name + " does not close");
        if (Distance(start, next) < 1e-7) Fail(name + " has a piece without an end");
        corners.push_back(BRepBuilderAPI_MakeVertex(ToPoint(start)).Vertex());
    }
    std::size_t arcs = 0;
    std::vector<TopoDS_Edge> edges;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const std::size_t next = (i + 1) % pieces.size();
        edges.push_back(EdgeOf(*pieces[i], pieces[i]->GetStartPt(), pieces[next]->GetStartPt(), corners[i],
                               corners[next], name));
        if (dynamic_cast<const CPCArc*>(pieces[i])) ++arcs;
    }
    if (pieces.size() < 3 && arcs == 0) Fail(name + " has two points only");
    TopoDS_Wire wire = WireOf(edges);
    wire.Closed(true);
    return wire;
}

/// The wire of a line that is open, such as the middle line of a bar.
TopoDS_Wire OpenWire(const CPCDrawObjArray& line, const std::string& name) {
    if (line.GetSize() == 0) Fail(name + " is empty");
    std::vector<TopoDS_Vertex> corners;
    for (std::size_t i = 0; i < line.GetSize(); ++i)
        corners.push_back(BRepBuilderAPI_MakeVertex(ToPoint(line[i].GetStartPt())).Vertex());
    const CPointD last = line[line.GetSize() - 1].GetEndPt();
    corners.push_back(BRepBuilderAPI_MakeVertex(ToPoint(last)).Vertex());
    std::vector<TopoDS_Edge> edges;
    for (std::size_t i = 0; i < line.GetSize(); ++i) {
        const CPointD end = i + 1 < line.GetSize() ? line[i + 1].GetStartPt() : last;
        edges.push_back(EdgeOf(line[i], line[i].GetStartPt(), end, corners[i], corners[i + 1], name));
    }
    return WireOf(edges);
}

/// From a plane with X and Y to the upright plane in a direction, where Y is up.
gp_Trsf ToUpright(double direction) {
    const double angle = direction / 180 * std::numbers::pi, c = std::cos(angle), s = std::sin(angle);
    gp_Trsf place;
    place.SetValues(c, 0, s, 0,   //
                    s, 0, -c, 0,  //
                    0, 1, 0, 0);
    return place;
}

TopoDS_Wire SectionAt(const gp_Pnt& point, const gp_Dir& along, const sweep& s) {
    // The plane of the sweep is that of X and Y here, so its width is along Z.
    const bool wide = s.width >= s.thickness;
    const gp_Dir across(0, 0, 1);
    const gp_Ax2 axes(point, along, wide ? across : across.Crossed(along));
    const double large = std::max(s.width, s.thickness) / 2, small = std::min(s.width, s.thickness) / 2;
    const TopoDS_Edge edge = large - small < 1e-9 * large
                                 ? BRepBuilderAPI_MakeEdge(gp_Circ(axes, large)).Edge()
                                 : BRepBuilderAPI_MakeEdge(gp_Elips(axes, large, small)).Edge();
    return BRepBuilderAPI_MakeWire(edge).Wire();
}

TopoDS_Shape SweepOf(const sweep& s) {
    NeedSize("the width of a section", s.width);
    NeedSize("the thickness of a section", s.thickness);
    TopoDS_Shape shape;
    if (s.round) {
        const TopoDS_Wire line = OpenWire(s.middle, "the line of a bar");
        const CPointD start = s.middle[0].GetStartPt();
        const gp_Pnt from = ToPoint(start);
        const auto* arc = dynamic_cast<const CPCArc*>(&s.middle[0]);
        const CPointD next = arc ? arc->GetCenterPt() : s.middle[0].GetEndPt();
        const gp_Dir towards(next.x - start.x, next.y - start.y, 0);
        const gp_Dir along = !arc          ? towards
                             : arc->IsCW() ? gp_Dir(0, 0, 1).Crossed(towards)
                                           : towards.Crossed(gp_Dir(0, 0, 1));
        BRepOffsetAPI_MakePipeShell pipe(line);
        pipe.SetMode(gp_Dir(0, 0, 1));  // the width of the section stays across the plane
        pipe.SetTransitionMode(BRepBuilderAPI_RightCorner);
        pipe.Add(SectionAt(from, along, s));
        pipe.Build();
        if (!pipe.IsDone() || !pipe.MakeSolid()) Fail("a bar cannot follow its line");
        shape = pipe.Shape();
    } else {
        gp_Trsf middle;
        middle.SetTranslation(gp_Vec(0, 0, -s.width / 2));
        shape = Prism(OutlineWire(s.outline, "the outline"), s.width).Moved(TopLoc_Location(middle));
    }
    return BRepBuilderAPI_Transform(shape, ToUpright(s.direction), true).Shape();
}

}  // namespace

object::object() = default;
object::~object() = default;

void object::SetAngle(double x, double y, double z) {
    m_angle = {x, y, z};
    m_shape.reset();
}

const TopoDS_Shape* object::GetShape() const {
    if (m_shape) return m_shape.get();
    m_failure.clear();
    TopoDS_Shape shape;
    try {
        shape = Make();
        if (shape.IsNull() || !(ChecksItself() || BRepCheck_Analyzer(shape).IsValid()))
            Fail("the body crosses itself");
    } catch (const Standard_Failure& failure) {
        m_failure = std::string("the modeller gave up: ") + failure.GetMessageString();
    } catch (const std::exception& failure) {
        m_failure = failure.what();
    }
    m_shape = std::make_unique<TopoDS_Shape>(m_failure.empty() ? shape : TopoDS_Shape());
    return m_shape.get();
}

const std::string& object::GetFailure() const {
    GetShape();
    return m_failure;
}

multi_object::multi_object(const vector& point, const vector& front, const vector& up)
    : m_point(point), m_front(front), m_up(up) {}

TopoDS_Shape multi_object::Make() const {
    NeedPlace("the point", m_point);
    NeedPlace("the pivot", pivot);
    for (const double angle : {m_angle.X, m_angle.Y, m_angle.Z})
        if (!std::isfinite(angle)) Fail("the rotation is no number");
    const Rotation r = m_angle == vector{} ? FromDirections(m_front, m_up) : FromAngles(m_angle);
    gp_Trsf place;
    place.SetValues(r.x.X, r.x.Y, r.x.Z, pivot.X - Dot(r.x, pivot) + m_point.X,  //
                    r.y.X, r.y.Y, r.y.Z, pivot.Y - Dot(r.y, pivot) + m_point.Y,  //
                    r.z.X, r.z.Y, r.z.Z, pivot.Z - Dot(r.z, pivot) + m_point.Z);
    return MakeAtOrigin().Moved(TopLoc_Location(place));
}

type_multi_object::type_multi_object(const char* kind, const vector& point, const vector& front,
                                     const vector& up, const vector& color, bool flag)
    : multi_object(point, front, up), m_kind(kind), m_color(color), m_flag(flag) {}

cuboid::cuboid(const vector& point, const vector& front, const vector& up, double width, double height,
               double depth, const vector& color, bool flag)
    : type_multi_object("cuboid", point, front, up, color, flag),
      Width(width),
      Height(height),
      Depth(depth) {}

TopoDS_Shape cuboid::MakeAtOrigin() const {
    NeedSize("the width", Width);
    NeedSize("the height", Height);
    NeedSize("the depth", Depth);
    return BoxAtOrigin(Width, Height, Depth);
}

hole_cuboid::hole_cuboid(const vector& point, const vector& front, const vector& up, double width,
                         double height, double holeWidth, double holeHeight, double depth,
                         const vector& color, bool flag)
    : type_multi_object("hole_cuboid", point, front, up, color, flag),
      Width(width),
      Height(height),
      HoleWidth(holeWidth),
      HoleHeight(holeHeight),
      Depth(depth) {}

TopoDS_Shape hole_cuboid::MakeAtOrigin() const {
    NeedSize("the width", Width);
    NeedSize("the height", Height);
    NeedSize("the depth", Depth);
    NeedSize("the hole's width", HoleWidth);
    NeedSize("the hole's height", HoleHeight);
    if (HoleWidth >= Width || HoleHeight >= Height) Fail("the hole is not smaller than the box");
    return Without(BoxAtOrigin(Width, Height, Depth), BoxAtOrigin(HoleWidth, HoleHeight, Depth));
}

cylinder::cylinder(const vector& point, const vector& front, const vector& up, double radius, double depth,
                   const vector& color, bool flag)
    : type_multi_object("cylinder", point, front, up, color, flag), Radius(radius), Depth(depth) {}

TopoDS_Shape cylinder::MakeAtOrigin() const {
    NeedSize("the radius", Radius);
    NeedSize("the depth", Depth);
    return BRepPrimAPI_MakeCylinder(Radius, Depth).Shape();
}

donut::donut(const vector& point, const vector& front, const vector& up, double innerSize, double outterSize,
             double depth, const vector& color, bool flag)
    : type_multi_object("donut", point, front, up, color, flag),
      InnerSize(innerSize),
      OutterSize(outterSize),
      Depth(depth) {}

TopoDS_Shape donut::MakeAtOrigin() const {
    NeedSize("the inner diameter", InnerSize);
    NeedSize("the outer diameter", OutterSize);
    NeedSize("the depth", Depth);
    if (InnerSize >= OutterSize) Fail("the inner diameter is not smaller than the outer one");
    return Without(BRepPrimAPI_MakeCylinder(OutterSize / 2, Depth).Shape(),
                   BRepPrimAPI_MakeCylinder(InnerSize / 2, Depth).Shape());
}

pyramid::pyramid(const vector& point, const vector& front, const vector& up, double btmWidth,
                 double btmHeight, double topWidth, double topHeight, double depth, const vector& color,
                 bool flag)
    : type_multi_object("pyramid", point, front, up, color, flag),
      BtmWidth(btmWidth),
      BtmHeight(btmHeight),
      TopWidth(topWidth),
      TopHeight(topHeight),
      Depth(depth) {}

TopoDS_Shape pyramid::MakeAtOrigin() const {
    NeedSize("the depth", Depth);
    if (BtmWidth == 0 && BtmHeight == 0 && TopWidth == 0 && TopHeight == 0) Fail("both ends are tips");
    BRepOffsetAPI_ThruSections sections(true, true);
    sections.CheckCompatibility(false);
    const auto addEnd = [&](const char* widthName, double width, const char* heightName, double height,
                            double z) {
        if (width == 0 && height == 0) {
            sections.AddVertex(BRepBuilderAPI_MakeVertex(gp_Pnt(0, 0, z)).Vertex());
            return;
        }
        NeedSize(widthName, width);
        NeedSize(heightName, height);
        const double x = width / 2, y = height / 2;
        sections.AddWire(BRepBuilderAPI_MakePolygon(gp_Pnt(-x, -y, z), gp_Pnt(x, -y, z), gp_Pnt(x, y, z),
                                                    gp_Pnt(-x, y, z), true)
                             .Wire());
    };
    addEnd("the bottom's width", BtmWidth, "the bottom's height", BtmHeight, 0);
    addEnd("the top's width", TopWidth, "the top's height", TopHeight, Depth);
    return sections.Shape();
}

sphere::sphere(const vector& point, double radius, const vector& color, bool flag)
    : type_multi_object("sphere", point, {}, {}, color, flag), Radius(radius) {}

TopoDS_Shape sphere::MakeAtOrigin() const {
    NeedSize("the radius", Radius);
    return BRepPrimAPI_MakeSphere(Radius).Shape();
}

ellipse::ellipse(const vector& point, const vector& front, const vector& up, double width, double height,
                 double depth, const vector& color, bool flag)
    : type_multi_object("ellipse", point, front, up, color, flag),
      Width(width),
      Height(height),
      Depth(depth) {}

TopoDS_Shape ellipse::MakeAtOrigin() const {
    NeedSize("the width", Width);
    NeedSize("the height", Height);
    NeedSize("the depth", Depth);
    const bool wide = Width >= Height;
    const gp_Ax2 axes(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1), wide ? gp_Dir(1, 0, 0) : gp_Dir(0, 1, 0));
    const gp_Elips curve(axes, std::max(Width, Height) / 2, std::min(Width, Height) / 2);
    return Prism(BRepBuilderAPI_MakeWire(BRepBuilderAPI_MakeEdge(curve).Edge()).Wire(), Depth);
}

pillar::pillar(const vector& point, const vector& front, const vector& up, const CPCDrawObjArray& bound,
               const CPCPolygonArray& voids, double depth, const vector& color, bool flag)
    : type_multi_object("pillar", point, front, up, color, flag), Bound(bound), Voids(voids), Depth(depth) {}

TopoDS_Shape pillar::MakeAtOrigin() const {
    NeedSize("the depth", Depth);
    if (PieceCount() > kMostPieces) Fail("the outline and its voids have more than 5,000 pieces");
    const TopoDS_Wire border = OutlineWire(Bound, "the outline");
    std::vector<TopoDS_Wire> holes;
    std::vector<std::vector<CPointD>> outlines{CornersOf(Bound)};
    for (std::size_t i = 0; i < Voids.GetSize(); ++i) {
        holes.push_back(OutlineWire(Voids[i].GetBoundary(), "a void"));
        outlines.push_back(CornersOf(Voids[i].GetBoundary()));
    }
    const std::string reason = WhyNoFace(outlines);
    if (reason.empty()) return Prism(border, Depth, holes);
    if (ChecksItself()) Fail(reason);
    TopoDS_Shape body = Prism(border, Depth);
    // Checked before anything is cut out of it: a cut would hide an outline that crosses itself.
    if (!BRepCheck_Analyzer(body).IsValid()) Fail("the outline crosses itself");
    for (const TopoDS_Wire& hole : holes) body = Without(body, Prism(hole, Depth));
    return body;
}

bool pillar::ChecksItself() const {
    return PieceCount() > kFewPieces;
}

std::size_t pillar::PieceCount() const {
    std::size_t count = Bound.GetSize();
    for (std::size_t i = 0; i < Voids.GetSize(); ++i) count += Voids[i].GetBoundary().GetSize();
    return count;
}

lead::lead(const vector& point, const vector& front, const vector& up, std::vector<sweep> sweeps,
           std::vector<ball> balls, const vector& color, bool flag)
    : type_multi_object("lead", point, front, up, color, flag),
      Sweeps(std::move(sweeps)),
      Balls(std::move(balls)) {}

TopoDS_Shape lead::MakeAtOrigin() const {
    TopoDS_Shape body;
    const auto add = [&](const TopoDS_Shape& part) {
        if (body.IsNull()) {
            body = part;
            return;
        }
        BRepAlgoAPI_Fuse fuse(body, part);
        if (!fuse.IsDone()) Fail("the parts of the lead do not join");
        body = fuse.Shape();
    };
    for (const sweep& part : Sweeps) add(SweepOf(part));
    for (const ball& part : Balls) {
        NeedSize("the radius", part.radius);
        add(BRepPrimAPI_MakeSphere(gp_Pnt(0, 0, part.height), part.radius).Shape());
    }
    if (body.IsNull()) Fail("the lead is empty");
    return body;
}

placed::placed(std::shared_ptr<const object> body, const placement& place)
    : m_body(std::move(body)), m_place(place) {}

TopoDS_Shape placed::Make() const {
    const TopoDS_Shape& body = *m_body->GetShape();
    if (body.IsNull()) Fail(m_body->GetFailure());
    const placement& p = m_place;
    const double volume = Dot(p.x, Cross(p.y, p.z));
    if (!(std::fabs(std::fabs(volume) - 1) < 1e-6)) Fail("the rotation is no number");
    NeedPlace("the place", p.move);
    NeedSize("the scale", p.scale);
    gp_Trsf trsf;
    const double s = p.scale;
    trsf.SetValues(s * p.x.X, s * p.x.Y, s * p.x.Z, s * p.move.X,  //
                   s * p.y.X, s * p.y.Y, s * p.y.Z, s * p.move.Y,  //
                   s * p.z.X, s * p.z.Y, s * p.z.Z, s * p.move.Z);
    if (p.scale == 1 && volume > 0) return body.Moved(TopLoc_Location(trsf));
    return BRepBuilderAPI_Transform(body, trsf, true).Shape();
}

step::step(const char* path, const vector& point, const vector& front, const vector& up, const vector& color,
           bool flag)
    : type_multi_object("step", point, front, up, color, flag), Path(path ? path : "") {}

TopoDS_Shape step::MakeAtOrigin() const {
    if (Path.empty()) Fail("no STEP file is named");
    if (!files) Fail("no folder is named to look for the STEP file \"" + Path + "\" in");
    return files->Read(Path);
}

}  // namespace geometry
