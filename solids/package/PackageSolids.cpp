#include "package/PackageSolids.h"

#include <cmath>
#include <cstring>
#include <map>
#include <memory>
#include <utility>

#include "leads/Lead.h"
#include "model/objects/CVEKA_3DOJ_AxisPivot.h"

namespace veka {

namespace {

using Body = std::shared_ptr<const geometry::object>;

std::string Quoted(const CString& text) {
    return '"' + std::string(text.View()) + '"';
}

geometry::vector ToVector(const CVEKA_Color& color) {
    return {color.GetRed() / 255.0, color.GetGreen() / 255.0, color.GetBlue() / 255.0};
}

CPCDrawObjArray ToLine(const std::vector<LeadPiece>& pieces) {
    CPCDrawObjArray line;
    const auto degrees = [](LeadPoint point, LeadPoint center) {
        return std::atan2(point.up - center.up, point.along - center.along) / 3.141592653589793 * 180;
    };
    for (const LeadPiece& piece : pieces) {
        if (piece.radius == 0) {
            line.Add(new CPCLineSeg(piece.start.along, piece.start.up, piece.end.along, piece.end.up));
            continue;
        }
        auto arc = std::make_unique<CPCArc>();
        arc->SetCenterPt({piece.center.along, piece.center.up});
        arc->SetRadius(piece.radius);
        arc->SetStartAngle(degrees(piece.start, piece.center));
        arc->SetEndAngle(degrees(piece.end, piece.center));
        arc->SetDirection(piece.clockwise ? 1 : 0);
        line.Add(arc.release());
    }
    return line;
}

geometry::vector Scaled(const geometry::vector& v, double factor) {
    return {v.X * factor, v.Y * factor, v.Z * factor};
}

CPCDrawObjArray Scaled(const CPCDrawObjArray& line, double factor) {
    CPCDrawObjArray scaled;
    const auto point = [factor](const CPointD& p) { return CPointD{p.x * factor, p.y * factor}; };
    for (std::size_t i = 0; i < line.GetSize(); ++i) {
        if (const auto* arc = dynamic_cast<const CPCArc*>(&line[i])) {
            auto copy = std::make_unique<CPCArc>(*arc);
            copy->SetCenterPt(point(arc->GetCenterPt()));
            copy->SetRadius(arc->GetRadius() * factor);
            scaled.Add(copy.release());
        } else {
            const CPointD start = point(line[i].GetStartPt()), end = point(line[i].GetEndPt());
            scaled.Add(new CPCLineSeg(start.x, start.y, end.x, end.y));
        }
    }
    return scaled;
}

/// The body of a lead in its own frame and in the unit of the part.
Body ToBody(const Lead& lead, const geometry::vector& color) {
    std::vector<geometry::sweep> sweeps;
    for (const LeadSweep& sweep : lead.sweeps)
        sweeps.push_back({sweep.round, sweep.width, sweep.thickness, sweep.direction,
                          sweep.round ? ToLine(MiddleLine(sweep)) : CPCDrawObjArray(),
                          sweep.round ? CPCDrawObjArray() : ToLine(SideOutline(sweep))});
    std::vector<geometry::lead::ball> balls;
    for (const LeadBall& ball : lead.balls) balls.push_back({ball.radius, ball.up});
    return std::make_shared<geometry::lead>(geometry::vector{}, geometry::vector{}, geometry::vector{},
                                            std::move(sweeps), std::move(balls), color, false);
}

/// What two leads have in common that have the same body.
std::string Key(const Lead& lead, const geometry::vector& color, bool mirrored) {
    std::string key(mirrored ? "m" : "n");
    const auto add = [&](double value) {
        char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        key.append(bytes, sizeof value);
    };
    for (const double value : {color.X, color.Y, color.Z}) add(value);
    for (const LeadSweep& sweep : lead.sweeps) {
        for (const double value : {sweep.round ? 1.0 : 0.0, sweep.width, sweep.thickness, sweep.bend,
                                   sweep.direction, static_cast<double>(sweep.path.size())})
            add(value);
        for (const LeadPoint& point : sweep.path) {
            add(point.along);
            add(point.up);
        }
    }
    for (const LeadBall& ball : lead.balls) {
        add(ball.radius);
        add(ball.up);
    }
    return key;
}

bool IsMirroring(const Placement& place) {
    const auto& [x, y, z] = place.rows;
    return x[0] * (y[1] * z[2] - y[2] * z[1]) - x[1] * (y[0] * z[2] - y[2] * z[0]) +
               x[2] * (y[0] * z[1] - y[1] * z[0]) <
           0;
}

geometry::placement ToPlacement(const Placement& place, double scale) {
    const auto& [x, y, z] = place.rows;
    return {{x[0], x[1], x[2]},
            {y[0], y[1], y[2]},
            {z[0], z[1], z[2]},
            {x[3] * scale, y[3] * scale, z[3] * scale},
            1};
}

/// Things of the same kind that are left out for the same reason become one remark.
class Remarks {
public:
    void Add(const std::string& where, const std::string& name, const std::string& what) {
        const auto [entry, isNew] = m_index.try_emplace({where, what}, m_entries.size());
        if (isNew) m_entries.push_back({where, name, what, 0});
        ++m_entries[entry->second].count;
    }
    std::vector<std::string> Release() {
        std::vector<std::string> sentences;
        for (const Entry& entry : m_entries) {
            std::string place = entry.where + (entry.name.empty() ? "" : ' ' + entry.name);
            if (entry.count > 1) place += " and " + std::to_string(entry.count - 1) + " more";
            sentences.push_back(place + ": " + entry.what);
        }
        return sentences;
    }

private:
    struct Entry {
        std::string where, name, what;
        std::size_t count;
    };

    std::map<std::pair<std::string, std::string>, std::size_t> m_index;
    std::vector<Entry> m_entries;
};

class Maker {
public:
    Maker(const CVEKA_Package& package, const PackageSolidsOptions& options)
        : m_package(package), m_options(options), m_scale(MillimetersOfUnit(options.unit)) {
        if (m_scale == 0) m_scale = 1;
    }

    PackageSolids Make() {
        const std::string name(m_package.GetName().View());
        Collect("body", {}, *m_package.GetBodyGeometry()->Get3DObjects(), {}, 0);
        Collect("marking", {}, *m_package.GetMarkingGeometries()->Get3DObjects(), {}, 0);
        for (const CVEKA_PackagePin* pin : *m_package.GetPKGPins())
            if (pin)
                Collect("pin", pin->GetPKGPinName(), *pin->Get3DObjects(), *pin->GetPoint(),
                        pin->GetRotation());
        for (const CVEKA_MechanicalPin* pin : *m_package.GetMechanicalPins())
            if (pin)
                Collect("mechanical pin", pin->GetName(), *pin->GetLead(), *pin->GetPoint(),
                        pin->GetRotation());
        for (std::size_t i = 0; i < m_items.size(); ++i) {
            Add(m_items[i]);
            if (m_options.progress && !m_options.progress(i + 1, m_items.size())) break;
        }
        m_result.remarks = m_remarks.Release();
        return std::move(m_result);
    }

private:
    /// An object with the pin that holds it; the body and the marking are about the origin.
    struct Item {
        const char* holder;
        CString name;
        const CVEKA_3DObject* object;
        CVEKA_Coordinate point;
        double rotation;
    };

    void Collect(const char* holder, const CString& name, const CVEKA_3DObjectArray& objects,
                 const CVEKA_Coordinate& point, double rotation) {
        for (const CVEKA_3DObject* object : ShapesOf(objects))
            m_items.push_back({holder, name, object, point, rotation});
    }

    void Add(const Item& item) {
        const std::string kind(item.object->GetType(item.object->GetType()).View());
        const std::string holder = "package " + Quoted(m_package.GetName()) + ", " + item.holder;
        const auto leaveOut = [&](const std::string& what) {
            m_remarks.Add(holder, item.name.IsEmpty() ? std::string() : Quoted(item.name), what);
        };
        const bool isLead = IsLead(*item.object);
        Body body;
        if (isLead) {
            const Lead lead = ReadLead(*item.object);
            if (!lead.failure.empty()) return leaveOut("there is no such " + kind + " lead: " + lead.failure);
            body = BodyOf(lead, *item.object);
        } else {
            body = SolidOf(*item.object);
            if (!body)
                return leaveOut(kind == "NONE" ? "the object has no solid form"
                                               : kind + " has no solid form");
        }
        const Placement place = isLead ? PlaceOfLead(*item.object, item.point, item.rotation)
                                       : PlaceOnPin(*item.object, item.point, item.rotation);
        auto solid = std::make_shared<geometry::placed>(body, ToPlacement(Unmirrored(place), m_scale));
        if (const std::string& failure = solid->GetFailure(); !failure.empty())
            return leaveOut((isLead ? kind + " lead" : std::string(solid->GetKind())) + ": " + failure);
        std::string name(m_package.GetName().View());
        name += std::string(name.empty() ? "" : " ") + item.holder;
        if (!item.name.IsEmpty()) name += ' ' + std::string(item.name.View());
        name += ' ' + std::string(solid->GetKind()) + ' ' + std::to_string(m_result.solids.size() + 1);
        m_result.solids.push_back({std::move(name), std::move(solid)});
    }

    /// The body of a lead in millimetres, made once for all leads that have it.
    Body BodyOf(const Lead& lead, const CVEKA_3DObject& object) {
        const geometry::vector color = ToVector(*object.GetColor());
        const bool mirrored = IsMirroring(PlaceOfLead(object, CVEKA_Coordinate(), 0));
        Body& body = m_leads[Key(lead, color, mirrored)];
        if (!body) {
            body = ToBody(lead, color);
            if (m_scale != 1 || mirrored) body = ScaledBody(body, mirrored);
        }
        return body;
    }

    /// A body in millimetres, mirrored or not.
    Body ScaledBody(const Body& body, bool mirrored) const {
        geometry::placement place;
        place.scale = m_scale;
        if (mirrored) place.x.X = -1;
        return std::make_shared<geometry::placed>(body, place);
    }

    /// A placement without its mirroring, which is in the body already.
    static Placement Unmirrored(const Placement& place) {
        Placement mirror;
        if (IsMirroring(place)) mirror.rows[0][0] = -1;
        return place.After(mirror);
    }

    /// The solid that the bridge makes of an object, in millimetres; null if it makes none.
    Body SolidOf(const CVEKA_3DObject& object) const {
        if (!dynamic_cast<const CVEKA_3DOJ_AxisPivot*>(&object)) return nullptr;
        CVEKA_3DObjectArray one;
        one.Add(std::unique_ptr<CVEKA_3DObject>(object.Clone()));
        std::vector<std::shared_ptr<geometry::object>> shapes;
        CVEKA_3DObject::AddNewShape(&shapes, one);
        if (shapes.empty()) return nullptr;
        if (const auto* step = dynamic_cast<const geometry::step*>(shapes[0].get()))
            return InMillimeters(*step);
        if (m_scale == 1) return shapes[0];
        const auto* pillar = dynamic_cast<const geometry::pillar*>(shapes[0].get());
        return pillar ? InMillimeters(*pillar) : ScaledBody(shapes[0], false);
    }

    /// The body of a STEP file, whose own sizes are millimetres: only its place is in the unit of the part.
    Body InMillimeters(const geometry::step& step) const {
        auto body =
            std::make_shared<geometry::step>(step.Path.c_str(), Scaled(step.GetPoint(), m_scale),
                                             step.GetFront(), step.GetUp(), step.GetColor(), step.GetFlag());
        body->files = m_options.stepFiles;
        return TurnedAs(step, std::move(body));
    }

    /// A pillar with its numbers in millimetres. Its shape is not scaled as those of other bodies are,
    /// because the modeller takes the square of the faces to copy a shape.
    Body InMillimeters(const geometry::pillar& pillar) const {
        CPCPolygonArray voids;
        for (std::size_t i = 0; i < pillar.Voids.GetSize(); ++i) {
            auto hole = std::make_unique<CPCPolygon>();
            hole->GetBoundary() = Scaled(pillar.Voids[i].GetBoundary(), m_scale);
            voids.Add(hole.release());
        }
        return TurnedAs(pillar, std::make_shared<geometry::pillar>(
                                    Scaled(pillar.GetPoint(), m_scale), pillar.GetFront(), pillar.GetUp(),
                                    Scaled(pillar.Bound, m_scale), voids, pillar.Depth * m_scale,
                                    pillar.GetColor(), pillar.GetFlag()));
    }

    /// A body in millimetres with the angles and the pivot of the body in the unit of the part.
    Body TurnedAs(const geometry::object& source, std::shared_ptr<geometry::object> body) const {
        body->pivot = Scaled(source.pivot, m_scale);
        body->SetAngle(source.GetAngle().X, source.GetAngle().Y, source.GetAngle().Z);
        return body;
    }

    const CVEKA_Package& m_package;
    const PackageSolidsOptions& m_options;
    double m_scale;
    std::vector<Item> m_items;
    std::map<std::string, Body> m_leads;
    Remarks m_remarks;
    PackageSolids m_result;
};

}  // namespace

PackageSolids MakePackageSolids(const CVEKA_Package& package, const PackageSolidsOptions& options) {
    return Maker(package, options).Make();
}

PackageSolids MakePackageSolids(const CVEKA_Manager& part,
                                std::shared_ptr<const geometry::step_files> stepFiles) {
    PackageSolids all;
    PackageSolidsOptions options;
    options.stepFiles = std::move(stepFiles);
    options.unit = part.GetVEK()->GetPartGeneral()->GetUnit();
    if (MillimetersOfUnit(options.unit) == 0)
        all.remarks.push_back(options.unit.IsEmpty()
                                  ? "the part names no unit; its numbers were taken as millimetres"
                                  : "the unit " + Quoted(options.unit) +
                                        " of the part is not known; its numbers were taken as millimetres");
    for (const CVEKA_Package* package : *part.GetVEK()->GetPackages()->GetPackageArr()) {
        if (!package) continue;
        PackageSolids one = MakePackageSolids(*package, options);
        all.solids.insert(all.solids.end(), one.solids.begin(), one.solids.end());
        all.remarks.insert(all.remarks.end(), one.remarks.begin(), one.remarks.end());
    }
    return all;
}

}  // namespace veka
