// Turns solid records into solids.

#include <cmath>
#include <memory>

#include "bridge/MakeDrawObjArray.h"
#include "geometry/SolidShapesLib.h"
#include "model/objects/PlaneShapes.h"
#include "model/objects/SolidObjects.h"

namespace {

using Vector = Math::Vector<double>;
using Solid = std::unique_ptr<geometry::object>;

Vector ToVector(const CVEKA_Coordinate* point) {
    return {point->GetX(), point->GetY(), point->GetZ()};
}

Vector ToVector(const CVEKA_Color* color) {
    return {color->GetRed() / 255.0, color->GetGreen() / 255.0, color->GetBlue() / 255.0};
}

CPointD ToPoint(const CVEKA_Coordinate* point) {
    return {point->GetX(), point->GetY()};
}

/// Degrees of a point seen from a centre, from 0 to 360.
double Angle(const CPointD& point, const CPointD& center) {
    double angle = std::atan2(point.y - center.y, point.x - center.x) / 3.141592653589793 * 180;
    if (angle < 0) angle += 360;
    if (angle > 360) angle += -360;
    return angle;
}

/// What all solids but the sphere begin with, and all end with.
struct Placing {
    explicit Placing(const CVEKA_3DOJ_AxisPivot& record)
        : point(ToVector(record.GetPoint())),
          front(ToVector(record.GetFront())),
          up(ToVector(record.GetUp())),
          color(ToVector(record.GetColor())) {}

    template <class Shape, class... Sizes>
    Solid Make(const Sizes&... sizes) const {
        return std::make_unique<Shape>(point, front, up, sizes..., color, false);
    }

    Vector point, front, up, color;
};

Solid Make(const CVEKA_3DOJ_CUBOID& r, const Placing& p) {
    return p.Make<geometry::cuboid>(r.WIDTH, r.HEIGHT, r.THICKNESS);
}
Solid Make(const CVEKA_3DOJ_HOLECUBOID& r, const Placing& p) {
    return p.Make<geometry::hole_cuboid>(r.WIDTH, r.HEIGHT, r.HOLEWIDTH, r.HOLEHEIGHT, r.THICKNESS);
}
Solid Make(const CVEKA_3DOJ_CYLINDER& r, const Placing& p) {
    return p.Make<geometry::cylinder>(r.RADIUS, r.THICKNESS);
}
// Inner before outer, and bottom before top: the other way round than in the records.
Solid Make(const CVEKA_3DOJ_DONUT& r, const Placing& p) {
    return p.Make<geometry::donut>(r.INNERDIAM, r.OUTERDIAM, r.THICKNESS);
}
Solid Make(const CVEKA_3DOJ_PYRAMID& r, const Placing& p) {
    return p.Make<geometry::pyramid>(r.BOTWIDTH, r.BOTHEIGHT, r.TOPWIDTH, r.TOPHEIGHT, r.THICKNESS);
}
Solid Make(const CVEKA_3DOJ_SPHERE& r, const Placing& p) {
    return std::make_unique<geometry::sphere>(p.point, r.RADIUS, p.color, false);
}
Solid Make(const CVEKA_3DOJ_ELLIPSE& r, const Placing& p) {
    return p.Make<geometry::ellipse>(r.WIDTH, r.HEIGHT, r.THICKNESS);
}
Solid Make(const CVEKA_3DOJ_PILLAR& r, const Placing& p) {
    const std::unique_ptr<CPCDrawObjArray> outline(MakeDrawObjArray(*r.BOUNDARY));
    CPCPolygonArray voids;
    for (const CVEKA_3DObject* object : *r.VOIDS) {
        const auto* hole = dynamic_cast<const CVEKA_3DOJ_VOID*>(object);
        if (!hole) continue;
        auto polygon = std::make_unique<CPCPolygon>();
        const std::unique_ptr<CPCDrawObjArray> boundary(MakeDrawObjArray(*hole->Elements));
        polygon->GetBoundary() = *boundary;
        voids.Add(polygon.release());
    }
    return p.Make<geometry::pillar>(*outline, voids, r.THICKNESS);
}
Solid Make(const CVEKA_3DOJ_STEP& r, const Placing& p) {
    return std::make_unique<geometry::step>(r.PATH.GetString(), p.point, p.front, p.up, p.color, false);
}

/// The solid of an object, if the object is of a class; by the class, since two classes share the number 0.
template <class Record>
Solid MakeIf(const CVEKA_3DObject* object) {
    const auto* record = dynamic_cast<const Record*>(object);
    if (!record) return nullptr;
    Solid solid = Make(*record, Placing(*record));
    solid->pivot = ToVector(record->GetPivot());
    solid->SetAngle(record->GetRotate()->GetX(), record->GetRotate()->GetY(), record->GetRotate()->GetZ());
    return solid;
}

template <class... Records>
Solid MakeFirst(const CVEKA_3DObject* object) {
    Solid solid;
    (void)((solid = MakeIf<Records>(object)) || ...);
    return solid;
}

}  // namespace

CPCDrawObjArray* MakeDrawObjArray(const CVEKA_3DObjectArray& objects) {
    auto outline = std::make_unique<CPCDrawObjArray>();
    for (const CVEKA_3DObject* object : objects) {
        if (const auto* line = dynamic_cast<const CVEKA_3DOJ_LINE*>(object)) {
            const CPointD start = ToPoint(line->StartPoint), end = ToPoint(line->EndPoint);
            outline->Add(new CPCLineSeg(start.x, start.y, end.x, end.y));
        } else if (const auto* record = dynamic_cast<const CVEKA_3DOJ_ARC*>(object)) {
            const CPointD start = ToPoint(record->StartPoint), center = ToPoint(record->CenterPoint);
            auto arc = std::make_unique<CPCArc>();
            arc->SetCenterPt(center);
            arc->SetRadius(std::hypot(start.x - center.x, start.y - center.y));
            arc->SetStartAngle(Angle(start, center));
            arc->SetEndAngle(Angle(ToPoint(record->EndPoint), center));
            arc->SetDirection(record->DIR == "CCW" ? 0 : 1);  // anything else means clockwise
            outline->Add(arc.release());
        }
    }
    return outline.release();
}

void CVEKA_3DObject::AddNewShape(std::vector<std::shared_ptr<geometry::object>>* shapes,
                                 const CVEKA_3DObjectArray& objects) {
    for (INT_PTR i = 0; i < objects.GetSize(); ++i) {
        if (Solid solid = MakeFirst<CVEKA_3DOJ_CUBOID, CVEKA_3DOJ_HOLECUBOID, CVEKA_3DOJ_CYLINDER,
                                    CVEKA_3DOJ_DONUT, CVEKA_3DOJ_PYRAMID, CVEKA_3DOJ_SPHERE,
                                    CVEKA_3DOJ_ELLIPSE, CVEKA_3DOJ_PILLAR, CVEKA_3DOJ_STEP>(objects[i]))
            shapes->push_back(std::move(solid));
    }
}
