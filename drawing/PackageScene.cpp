#include "drawing/PackageScene.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "leads/Lead.h"
#include "model/objects/Objects.h"

namespace drawing {

namespace {

using Outline = std::vector<Vertex>;
using Outlines = std::vector<Outline>;
using veka::Placement;
using veka::Position;

constexpr double kStraight = 1e-9;  // rounding of a direction
constexpr double kStep = 5;         // degrees between two points of an arc

std::string Short(const CString& name) {
    return std::string(name.View().substr(0, 100));
}

double Dot(const Position& a, const Position& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
double Length(const Position& a) {
    return std::hypot(a.x, a.y, a.z);
}
Position Scaled(const Position& a, double factor) {
    return {a.x * factor, a.y * factor, a.z * factor};
}
Position Cross(const Position& a, const Position& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
Position ToPosition(const CVEKA_Coordinate* point) {
    return {point->GetX(), point->GetY(), point->GetZ()};
}

/// The rows of a rotation about X, then Y, then Z.
std::array<Position, 3> FromAngles(const Position& degrees) {
    const Point a = Direction(degrees.x), b = Direction(degrees.y), c = Direction(degrees.z);
    const double ca = a.x, sa = a.y, cb = b.x, sb = b.y, cc = c.x, sc = c.y;
    return {{{cc * cb, cc * sb * sa - ca * sc, cc * sb * ca + sc * sa},
             {sc * cb, sc * sb * sa + ca * cc, sc * sb * ca - cc * sa},
             {-sb, cb * sa, cb * ca}}};
}

/// Front is the first row of a rotation and up is its last one. Of front only what is square to up counts.
std::array<Position, 3> FromDirections(const Position& front, const Position& up) {
    const std::array<Position, 3> none{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    const double length = Length(up);
    if (!(length > 0) || !std::isfinite(length)) return none;
    const Position z = Scaled(up, 1 / length);
    const double along = Dot(front, z);
    const Position square{front.x - along * z.x, front.y - along * z.y, front.z - along * z.z};
    const double squareLength = Length(square);
    if (!(squareLength > 1e-9 * Length(front)) || !std::isfinite(squareLength)) return none;
    const Position x = Scaled(square, 1 / squareLength);
    return {{x, Cross(z, x), z}};
}

/// The place of a solid in its package: turned once about its pivot, then moved to its point.
Placement PlaceOfSolid(const CVEKA_3DOJ_AxisPivot& solid) {
    const Position angles = ToPosition(solid.GetRotate()), pivot = ToPosition(solid.GetPivot()),
                   point = ToPosition(solid.GetPoint());
    const std::array<Position, 3> rows =
        angles == Position{} ? FromDirections(ToPosition(solid.GetFront()), ToPosition(solid.GetUp()))
                             : FromAngles(angles);
    const std::array<double, 3> moves = {pivot.x - Dot(rows[0], pivot) + point.x,
                                         pivot.y - Dot(rows[1], pivot) + point.y,
                                         pivot.z - Dot(rows[2], pivot) + point.z};
    Placement place;
    for (size_t i = 0; i < 3; ++i) place.rows[i] = {rows[i].x, rows[i].y, rows[i].z, moves[i]};
    return place;
}

/// A body between two ends that are square to its Z axis: a prism, a cylinder, a frustum.
struct Loft {
    Outlines lower, upper;  ///< the outline of each end, and behind it its holes
    double from = 0, to = 0;
};

Loft Prism(Outlines outlines, double thickness) {
    Loft loft;
    loft.upper = outlines;
    loft.lower = std::move(outlines);
    loft.to = thickness;
    return loft;
}

bool AreSizes(std::initializer_list<double> sizes) {
    return std::all_of(sizes.begin(), sizes.end(), [](double size) { return size > 0; });
}

Outline EllipseOutline(double width, double height) {
    Outline outline;
    for (double angle = 0; angle < 360; angle += kStep) {
        const Point direction = Direction(angle);
        outline.push_back({{direction.x * width / 2, direction.y * height / 2}, 0});
    }
    return outline;
}

/// The corners of an outline, with arcs as points.
std::vector<Point> Sampled(const Outline& outline) {
    std::vector<Point> points;
    for (size_t i = 0; i < outline.size(); ++i) {
        points.push_back(outline[i].point);
        if (outline[i].bulge == 0) continue;
        const Arc2 arc = ArcOf(outline[i], outline[(i + 1) % outline.size()].point);
        const int steps =
            static_cast<int>(std::clamp(std::ceil(std::fabs(arc.angles.sweep) / kStep), 1.0, 80.0));
        for (int step = 1; step < steps; ++step)
            points.push_back(arc.center +
                             Direction(arc.angles.start + arc.angles.sweep * step / steps) * arc.radius);
    }
    return points;
}

/// The smallest convex outline around points.
Outline Hull(std::vector<Point> points) {
    std::erase_if(points, [](Point p) { return !std::isfinite(p.x) || !std::isfinite(p.y); });
    std::sort(points.begin(), points.end(),
              [](Point a, Point b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (points.size() < 3) return {};
    const auto turn = [](Point a, Point b, Point c) {
        return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
    };
    std::vector<Point> hull(2 * points.size());
    size_t count = 0;
    const auto add = [&](Point point, size_t lowest) {
        while (count >= lowest + 2 && !(turn(hull[count - 2], hull[count - 1], point) > 0)) --count;
        hull[count++] = point;
    };
    for (const Point point : points) add(point, 0);
    const size_t lower = count - 1;
    for (size_t i = points.size() - 1; i > 0; --i) add(points[i - 1], lower);
    Outline outline;
    for (size_t i = 0; i + 1 < count; ++i) outline.push_back({hull[i], 0});
    return outline;
}

/// What a view makes of a position: X to the right, Y up, and Z towards the eye.
struct Projection {
    Position right, up, toEye;

    explicit Projection(Looking looking) {
        if (looking == Looking::FromAbove) {
            right = {1, 0, 0};
            up = {0, 1, 0};
            toEye = {0, 0, 1};
        } else if (looking == Looking::FromFront) {
            right = {1, 0, 0};
            up = {0, 0, 1};
            toEye = {0, -1, 0};
        } else {
            right = {0, 1, 0};
            up = {0, 0, 1};
            toEye = {1, 0, 0};
        }
    }
    Position operator()(const Position& p) const { return {Dot(right, p), Dot(up, p), Dot(toEye, p)}; }
};

/// A plane that is parallel to the picture, as a place in it; none for a plane that is not.
std::optional<Place> FlatPlace(const Placement& place, const Projection& projection) {
    const Position x = projection(place.Turned({1, 0, 0})), y = projection(place.Turned({0, 1, 0}));
    const Position origin = projection(place({0, 0, 0}));
    if (!(std::fabs(x.z) < kStraight && std::fabs(y.z) < kStraight)) return std::nullopt;
    const bool mirrored = x.x * y.y - x.y * y.x < 0;
    const double angle = AngleOf({x.x, x.y});
    const Point at{origin.x, origin.y};
    if (mirrored) return Place(at, angle + 180) * Place::Mirrored();
    return Place(at, angle);
}

class PackageDrawer {
public:
    PackageDrawer(const Part& part, const CVEKA_Package& package, Looking looking)
        : m_part(part),
          m_package(package),
          m_looking(looking),
          m_projection(looking),
          m_scene("Package " + Short(package.GetName()) +
                  (looking == Looking::FromAbove   ? " from above"
                   : looking == Looking::FromFront ? " from the front"
                                                   : " from the side")) {
        // From above the body covers the leads; from the front the leads stand before the body.
        const bool above = looking == Looking::FromAbove;
        m_leads = m_scene.Layer("Leads", Role::Lead, Side::Both, above ? 10 : 40);
        m_mechanical = m_scene.Layer("Mechanical pins", Role::Lead, Side::Both, above ? 11 : 41);
        m_body = m_scene.Layer("Body", Role::Body, Side::Both, 20);
        m_marking = m_scene.Layer("Marking", Role::Marking, Side::Both, 30, {},
                                  package.GetMarkingGeometries()->GetVisible() != 0);
    }

    Scene Draw() {
        if (!m_part.UnitRemark().empty()) m_scene.Remark(m_part.UnitRemark());
        for (const CVEKA_PackagePin* pin : *m_package.GetPKGPins())
            if (pin) {
                m_scene.pen = {m_leads, Role::Lead, Source::Of(*pin), {}};
                DrawPin(*pin->Get3DObjects(), *pin->GetPoint(), pin->GetRotation());
            }
        for (const CVEKA_MechanicalPin* pin : *m_package.GetMechanicalPins())
            if (pin) {
                m_scene.pen = {m_mechanical, Role::Lead, Source::Of(*pin), {}};
                DrawPin(*pin->GetLead(), *pin->GetPoint(), pin->GetRotation());
            }
        DrawBody();
        DrawMarking();
        return m_scene.Finish();
    }

private:
    /// The leads and the solids of a pin. The pen has the pin as its source.
    void DrawPin(const CVEKA_3DObjectArray& objects, const CVEKA_Coordinate& point, double rotation) {
        for (const CVEKA_3DObject* object : veka::ShapesOf(objects)) {
            m_scene.pen.definition = Source::Of(*object);
            if (veka::IsLead(*object))
                DrawLead(*object, point, rotation);
            else
                DrawSolid(*object, veka::PlaceOnPin(*object, point, rotation));
        }
    }
    void DrawLead(const CVEKA_3DObject& object, const CVEKA_Coordinate& point, double rotation) {
        const veka::Lead lead = veka::ReadLead(object);
        if (!lead.failure.empty()) {
            m_scene.LeaveOut();
            m_scene.Remark("a lead is left out: " + lead.failure);
            return;
        }
        const veka::LeadView view = m_looking == Looking::FromAbove   ? veka::LeadView::Top
                                    : m_looking == Looking::FromFront ? veka::LeadView::Front
                                                                      : veka::LeadView::Side;
        const std::vector<veka::LeadPolygon> polygons =
            veka::Outlines(lead, veka::PlaceOfLead(object, point, rotation), view);
        if (polygons.empty()) m_scene.LeaveOut();
        for (const veka::LeadPolygon& polygon : polygons) {
            Outline outline;
            for (const veka::ViewPoint& corner : polygon) outline.push_back({{corner.x, corner.y}, 0});
            m_scene.AddPolygon(m_part.Unit(), {std::move(outline)}, 0, true);
        }
    }

    void DrawBody() {
        // What is nearer to the eye is drawn later.
        struct Near {
            const CVEKA_3DObject* object;
            double distance;
        };
        std::vector<Near> bodies;
        for (const CVEKA_3DObject* object : *m_package.GetBodyGeometry()->Get3DObjects())
            if (object) bodies.push_back({object, Nearness(*object)});
        std::stable_sort(bodies.begin(), bodies.end(),
                         [](const Near& a, const Near& b) { return a.distance < b.distance; });
        for (const Near& body : bodies) {
            m_scene.pen = {m_body, Role::Body, Source::Of(*body.object), {}};
            DrawSolid(*body.object, {});
        }
    }
    void DrawMarking() {
        for (const CVEKA_3DObject* object : *m_package.GetMarkingGeometries()->Get3DObjects()) {
            if (!object) continue;
            m_scene.pen = {m_marking, Role::Marking, Source::Of(*object), {}};
            DrawSolid(*object, {});
        }
    }

    /// How near to the eye the nearest point of a solid is; a solid without a size counts as the farthest.
    double Nearness(const CVEKA_3DObject& object) const {
        const auto* solid = dynamic_cast<const CVEKA_3DOJ_AxisPivot*>(&object);
        double nearest = -kLargest;
        if (!solid) return nearest;
        const Placement place = PlaceOfSolid(*solid);
        const auto take = [&](const Position& position) {
            const double z = m_projection(place(position)).z;
            if (z > nearest && std::isfinite(z)) nearest = z;
        };
        if (const auto* ball = dynamic_cast<const CVEKA_3DOJ_SPHERE*>(solid)) {
            take({0, 0, 0});
            return nearest + (ball->RADIUS > 0 ? ball->RADIUS : 0);
        }
        if (const std::optional<Loft> loft = LoftOf(*solid))
            for (const auto& [outlines, z] : {std::pair{&loft->lower, loft->from}, {&loft->upper, loft->to}})
                for (const Vertex& vertex : outlines->front()) take({vertex.point.x, vertex.point.y, z});
        return nearest;
    }

    /// A solid between two ends; none for what has no such form or no size.
    static std::optional<Loft> LoftOf(const CVEKA_3DObject& object) {
        if (const auto* box = dynamic_cast<const CVEKA_3DOJ_CUBOID*>(&object)) {
            if (!AreSizes({box->WIDTH, box->HEIGHT, box->THICKNESS})) return std::nullopt;
            return Prism({RectangleOutline(box->WIDTH, box->HEIGHT)}, box->THICKNESS);
        }
        if (const auto* frame = dynamic_cast<const CVEKA_3DOJ_HOLECUBOID*>(&object)) {
            if (!AreSizes({frame->WIDTH, frame->HEIGHT, frame->THICKNESS})) return std::nullopt;
            Outlines outlines{RectangleOutline(frame->WIDTH, frame->HEIGHT)};
            if (AreSizes({frame->HOLEWIDTH, frame->HOLEHEIGHT}))
                outlines.push_back(RectangleOutline(std::min(frame->HOLEWIDTH, frame->WIDTH),
                                                    std::min(frame->HOLEHEIGHT, frame->HEIGHT)));
            return Prism(std::move(outlines), frame->THICKNESS);
        }
        if (const auto* cylinder = dynamic_cast<const CVEKA_3DOJ_CYLINDER*>(&object)) {
            if (!AreSizes({cylinder->RADIUS, cylinder->THICKNESS})) return std::nullopt;
            return Prism({CircleOutline(cylinder->RADIUS)}, cylinder->THICKNESS);
        }
        if (const auto* ring = dynamic_cast<const CVEKA_3DOJ_DONUT*>(&object)) {
            if (!AreSizes({ring->OUTERDIAM, ring->THICKNESS}) || ring->INNERDIAM >= ring->OUTERDIAM)
                return std::nullopt;
            Outlines outlines{CircleOutline(ring->OUTERDIAM / 2)};
            if (ring->INNERDIAM > 0) outlines.push_back(CircleOutline(ring->INNERDIAM / 2));
            return Prism(std::move(outlines), ring->THICKNESS);
        }
        if (const auto* ellipse = dynamic_cast<const CVEKA_3DOJ_ELLIPSE*>(&object)) {
            if (!AreSizes({ellipse->WIDTH, ellipse->HEIGHT, ellipse->THICKNESS})) return std::nullopt;
            return Prism({EllipseOutline(ellipse->WIDTH, ellipse->HEIGHT)}, ellipse->THICKNESS);
        }
        if (const auto* frustum = dynamic_cast<const CVEKA_3DOJ_PYRAMID*>(&object)) {
            // An end of 0 by 0 is a tip.
            const auto end = [](double width, double height) {
                return RectangleOutline(std::max(width, 0.0), std::max(height, 0.0));
            };
            const bool lower = AreSizes({frustum->BOTWIDTH, frustum->BOTHEIGHT});
            const bool upper = AreSizes({frustum->TOPWIDTH, frustum->TOPHEIGHT});
            if (!(frustum->THICKNESS > 0) || (!lower && !upper)) return std::nullopt;
            Loft loft;
            loft.lower = {end(frustum->BOTWIDTH, frustum->BOTHEIGHT)};
            loft.upper = {end(frustum->TOPWIDTH, frustum->TOPHEIGHT)};
            loft.to = frustum->THICKNESS;
            return loft;
        }
        if (const auto* pillar = dynamic_cast<const CVEKA_3DOJ_PILLAR*>(&object)) {
            Outlines outlines = OutlinesOf(*pillar->BOUNDARY);
            if (outlines.empty() || !(pillar->THICKNESS > 0)) return std::nullopt;
            for (Outline& hole : OutlinesOf(*pillar->VOIDS)) outlines.push_back(std::move(hole));
            return Prism(std::move(outlines), pillar->THICKNESS);
        }
        if (const auto* block = dynamic_cast<const CVEKA_3DOJ_3DSHAPE*>(&object)) {
            if (!AreSizes({block->W, block->L, block->T})) return std::nullopt;
            return Prism({RectangleOutline(block->W, block->L)}, block->T);
        }
        return std::nullopt;
    }

    /// Draws a solid, or something that lies flat, at a place that the object's own place is added to.
    void DrawSolid(const CVEKA_3DObject& object, const Placement& outer) {
        if (const auto* step = dynamic_cast<const CVEKA_3DOJ_STEP*>(&object)) {
            m_scene.CountPieces(1);
            m_scene.Remark("the STEP file \"" + Short(step->PATH) + "\" is not drawn");
            return;
        }
        if (const auto* solid = dynamic_cast<const CVEKA_3DOJ_AxisPivot*>(&object)) {
            const Placement place = outer.After(PlaceOfSolid(*solid));
            if (const auto* ball = dynamic_cast<const CVEKA_3DOJ_SPHERE*>(&object)) {
                const Position middle = m_projection(place({0, 0, 0}));
                return m_scene.AddCircle(m_part.Unit(), {middle.x, middle.y}, ball->RADIUS, 0, true);
            }
            return DrawLoft(LoftOf(object), place);
        }
        if (const auto* block = dynamic_cast<const CVEKA_3DOJ_3DSHAPE*>(&object)) {
            Placement offset;
            const Position move = ToPosition(block->OFFSET);
            offset.rows[0][3] = move.x;
            offset.rows[1][3] = move.y;
            offset.rows[2][3] = move.z;
            return DrawLoft(LoftOf(object), outer.After(veka::PlaceOfObject(*block)).After(offset));
        }
        DrawFlat(object, outer);
    }

    void DrawLoft(const std::optional<Loft>& loft, const Placement& place) {
        if (!loft || !place.IsFinite()) return m_scene.LeaveOut();
        const Position axis = m_projection(place.Turned({0, 0, 1}));
        const Outlines& nearEnd = axis.z >= 0 ? loft->upper : loft->lower;
        const Outlines& farEnd = axis.z >= 0 ? loft->lower : loft->upper;
        const double nearZ = axis.z >= 0 ? loft->to : loft->from, farZ = axis.z >= 0 ? loft->from : loft->to;
        const std::optional<Place> flat = FlatPlace(place, m_projection);
        const auto same = [](const Outlines& a, const Outlines& b) {
            return a.size() == b.size() && std::equal(a[0].begin(), a[0].end(), b[0].begin(), b[0].end(),
                                                      [](const Vertex& v, const Vertex& w) {
                                                          return v.point == w.point && v.bulge == w.bulge;
                                                      });
        };
        if (flat && same(nearEnd, farEnd)) return AddBody(m_part.Unit() * *flat, nearEnd);
        std::vector<Point> points = Projected(nearEnd[0], nearZ, place), all = points;
        const std::vector<Point> others = Projected(farEnd[0], farZ, place);
        all.insert(all.end(), others.begin(), others.end());
        m_scene.CountPieces(all.size());
        const Outline hull = Hull(std::move(all));
        if (hull.empty()) return m_scene.LeaveOut();
        AddBody(m_part.Unit(), {hull});
        // The edge of the end that faces the eye.
        if (axis.z * (axis.z >= 0 ? 1 : -1) < 0.05) return;
        Outline edge;
        for (const Point point : points) edge.push_back({point, 0});
        AddEdge(m_part.Unit(), {std::move(edge)});
    }
    std::vector<Point> Projected(const Outline& outline, double z, const Placement& place) const {
        std::vector<Point> points;
        for (const Point point : Sampled(outline)) {
            const Position seen = m_projection(place({point.x, point.y, z}));
            points.push_back({seen.x, seen.y});
        }
        return points;
    }
    /// A filled outline with a line around it, so that bodies of one colour can be told apart.
    void AddBody(const Place& place, const Outlines& outlines) {
        m_scene.AddPolygon(place, outlines, 0, true);
        AddEdge(place, outlines);
    }
    void AddEdge(const Place& place, const Outlines& outlines) {
        const SceneBuilder::Pen pen = m_scene.pen;
        m_scene.pen.layer = m_scene.Layer(m_scene.LayerAt(pen.layer).name + " edges", pen.role, Side::Both,
                                          m_scene.RankOfLayer(pen.layer) + 1, Color{140, 146, 154});
        m_scene.AddPolygon(place, outlines, 0, false);
        m_scene.pen = pen;
    }

    /// Something that is drawn in a plane. It is seen from above only.
    void DrawFlat(const CVEKA_3DObject& object, const Placement& outer) {
        m_scene.CountPieces(1);
        if (m_looking != Looking::FromAbove) return;
        const std::optional<Place> flat = FlatPlace(outer, m_projection);
        if (flat) ObjectDrawer(m_scene, m_part.fonts).Draw(object, m_part.Unit() * *flat);
    }

    const Part& m_part;
    const CVEKA_Package& m_package;
    const Looking m_looking;
    const Projection m_projection;
    SceneBuilder m_scene;
    std::uint32_t m_leads, m_mechanical, m_body, m_marking;
};

}  // namespace

Scene PackageScene(const Part& part, const CVEKA_Package& package, Looking looking) {
    return PackageDrawer(part, package, looking).Draw();
}

}  // namespace drawing
