#pragma once

#include <string>
#include <vector>

#include "leads/Placement.h"
#include "model/objects/CVEKA_3DObjectArray.h"

/// A reading of the lead forms: what metal their letters mean. The records keep the letters and compute
/// nothing from them; `docs/leads.md` tells what each letter means here.
///
/// A lead stands in the frame of its pin: the origin is the pin's point on the board, X points away from the
/// body, and Z points up. All sizes are in the unit of the part. To draw the leads of a pin, or to make
/// solids of them:
///
///     for (const CVEKA_3DObject* object : veka::ShapesOf(*pin->Get3DObjects())) {
///         if (!veka::IsLead(*object)) continue;  // a solid, or something that is drawn
///         const veka::Lead lead = veka::ReadLead(*object);
///         if (!lead.failure.empty()) ...         // a sentence: why there is no such lead
///         const veka::Placement place = veka::PlaceOfLead(*object, *pin->GetPoint(), pin->GetRotation());
///         for (const veka::LeadPolygon& polygon : veka::Outlines(lead, place, veka::LeadView::Top)) ...
///     }
namespace veka {

/// A point of a lead in an upright plane through the lead: how far along the plane, and how high.
struct LeadPoint {
    double along = 0, up = 0;

    bool operator==(const LeadPoint&) const = default;
};

/// A straight piece or an arc of a line in the plane of a lead.
struct LeadPiece {
    LeadPoint start, end;
    LeadPoint center;        ///< of an arc
    double radius = 0;       ///< of an arc; 0 for a straight piece
    bool clockwise = false;  ///< of an arc, where `along` points to the right and `up` points up
};

/// A section that is moved along a path in an upright plane through the Z axis.
struct LeadSweep {
    bool round = false;           ///< the section is an ellipse; otherwise a rectangle
    double width = 0;             ///< of the section, square to the plane
    double thickness = 0;         ///< of the section, in the plane
    std::vector<LeadPoint> path;  ///< corners of the middle line, at least two
    double bend = 0;              ///< radius of the middle line at its corners, as far as there is room
    double direction = 0;         ///< degrees about Z from X to the plane
};

/// A ball on the Z axis.
struct LeadBall {
    double radius = 0;
    double up = 0;  ///< height of its centre
};

/// The metal of a lead: what its sweeps and balls fill together. Either `failure` is empty or everything else
/// is.
struct Lead {
    std::vector<LeadSweep> sweeps;
    std::vector<LeadBall> balls;
    std::string failure;  ///< a sentence, if no lead has these sizes
};

/// True for the twenty-three forms of leads. A user-defined lead is none of them: it holds other objects.
bool IsLead(const CVEKA_3DObject& object);

/// The metal of a lead by its form and its letters. An object that is no lead gives a failure.
Lead ReadLead(const CVEKA_3DObject& object);

/// The objects of an array, and in the place of each user-defined lead the objects of its main shape and its
/// lead shape. Nulls are left out.
std::vector<const CVEKA_3DObject*> ShapesOf(const CVEKA_3DObjectArray& objects);

/// Where a lead stands in its package.
Placement PlaceOfLead(const CVEKA_3DObject& lead, const CVEKA_Coordinate& pinPoint, double pinRotation);

/// The middle line of a sweep with rounded corners. A corner without room for a bend stays sharp.
std::vector<LeadPiece> MiddleLine(const LeadSweep& sweep);

/// The outline of a sweep in its plane, closed and counter-clockwise or clockwise.
std::vector<LeadPiece> SideOutline(const LeadSweep& sweep);

/// From where a lead is seen: from above (X to the right, Y up), from the front (X to the right, Z up; the
/// eye is at -Y) and from the right side (Y to the right, Z up; the eye is at +X).
enum class LeadView { Top, Front, Side };

/// A point of a picture.
struct ViewPoint {
    double x = 0, y = 0;
};

/// A closed polygon; the last point is not the first one again.
using LeadPolygon = std::vector<ViewPoint>;

/// What a lead covers in a view, as polygons that may overlap. An arc is a line through points at most 15
/// degrees apart. Empty for a lead with a failure and for a place that is not finite.
std::vector<LeadPolygon> Outlines(const Lead& lead, const Placement& place, LeadView view);

}  // namespace veka
