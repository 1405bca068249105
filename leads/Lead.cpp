#include "leads/Lead.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "model/objects/LeadObjects.h"
#include "model/objects/UserDefinedObjects.h"

namespace veka {

namespace {

// What lies outside is no size of a body for the modeller, whatever the unit.
constexpr double kSmallest = 1e-5;
constexpr double kLargest = 1e7;

/// Keeps the first reason why a lead is impossible.
class Check {
public:
    /// A size that must be there.
    void Size(const char* letter, double value) {
        if (!(value > 0)) return Fail(letter, " is not above 0");
        if (value < kSmallest) return Fail(letter, " is too small");
        if (!(value <= kLargest)) Fail(letter, " is too large");
    }
    /// A size that may be 0.
    void SizeOrNone(const char* letter, double value) {
        if (!(value >= 0)) return Fail(letter, " is below 0 or no number");
        if (!(value <= kLargest)) Fail(letter, " is too large");
    }
    void That(bool holds, const char* sentence) {
        if (!holds) Fail(sentence, "");
    }
    const std::string& Failure() const { return m_failure; }

private:
    void Fail(const char* what, const char* why) {
        if (m_failure.empty()) m_failure = std::string(what) + why;
    }

    std::string m_failure;
};

using Path = std::vector<LeadPoint>;

LeadSweep Strip(double width, double thickness, Path path) {
    return {false, width, thickness, std::move(path), thickness, 0};
}

LeadSweep SquareBar(double size, Path path) {
    return Strip(size, size, std::move(path));
}

LeadSweep Oval(double width, double thickness, Path path) {
    return {true, width, thickness, std::move(path), thickness, 0};
}

LeadSweep RoundBar(double diameter, Path path) {
    return Oval(diameter, diameter, std::move(path));
}

/// Appends the end of a through-hole lead to a sweep that comes down on the axis: down to the depth Z and
/// there, if the lead is clinched, bent into the board's plane.
template <class Record>
void AddEnd(Lead& lead, Check& check, LeadSweep sweep, const Record& r) {
    if (!r.CLINCH || r.CLINCHLENGTH == 0) {
        sweep.path.push_back({0, -r.Z});
        lead.sweeps.push_back(std::move(sweep));
        return;
    }
    check.Size("CLINCHLENGTH", r.CLINCHLENGTH);
    check.That(std::isfinite(r.CLINCHROTATE), "CLINCHROTATE is no number");
    const double level = sweep.thickness / 2 - r.Z, last = sweep.path.back().up;
    check.That(last - level >= sweep.thickness, "Z leaves no room for the clinch");
    const double turn = std::fmod(r.CLINCHROTATE, 360.0);
    const bool straight =
        std::all_of(sweep.path.begin(), sweep.path.end(), [](const LeadPoint& p) { return p.along == 0; });
    if (straight || turn == 0) {
        sweep.direction = turn;
        sweep.path.insert(sweep.path.end(), {{0, level}, {r.CLINCHLENGTH, level}});
        lead.sweeps.push_back(std::move(sweep));
        return;
    }
    // The clinched end has a plane of its own. Both sweeps overlap, so that they become one body.
    const double above = std::min(last - level, 2 * sweep.thickness);
    LeadSweep end = sweep;
    end.direction = turn;
    end.path = {{0, level + above}, {0, level}, {r.CLINCHLENGTH, level}};
    if (last - level > above) sweep.path.push_back({0, level + above / 2});
    lead.sweeps.push_back(std::move(sweep));
    lead.sweeps.push_back(std::move(end));
}

/// Appends the part of a lead below a step; above it the lead has another width. Equal widths make no step.
void AddBelow(Lead& lead, LeadSweep below) {
    LeadSweep& above = lead.sweeps.back();
    if (above.width == below.width && above.thickness == below.thickness)
        above.path.back() = below.path.back();
    else
        lead.sweeps.push_back(std::move(below));
}

// The forms. Each checks its letters and then draws the middle line from the body to the board.

void Read(const CVEKA_3DOJ_BALL& r, Lead& lead, Check& check) {
    check.Size("H", r.H);
    lead.balls.push_back({r.H / 2, r.H / 2});
}

void Read(const CVEKA_3DOJ_BAR& r, Lead& lead, Check& check) {
    check.SizeOrNone("H", r.H);
    check.SizeOrNone("Z", r.Z);
    check.Size("T", r.T);
    check.That(r.H + r.Z >= kSmallest, "H and Z are both 0");
    AddEnd(lead, check, SquareBar(r.T, {{0, r.H}}), r);
}

void Read(const CVEKA_3DOJ_BUTT& r, Lead& lead, Check& check) {
    check.Size("H", r.H);
    check.Size("T", r.T);
    check.Size("W", r.W);
    check.SizeOrNone("Z", r.Z);
    check.Size("BL", r.BL);
    check.That(r.BL > r.T / 2, "BL is not above half of T");
    check.That(r.H + r.Z > r.T / 2, "H and Z together are not above half of T");
    lead.sweeps.push_back(Strip(r.W, r.T, {{-r.BL, r.H}, {0, r.H}, {0, -r.Z}}));
}

void Read(const CVEKA_3DOJ_CBEND& r, Lead& lead, Check& check) {
    check.Size("H", r.H);
    check.Size("L", r.L);
    check.Size("W", r.W);
    check.Size("Z", r.Z);
    check.That(r.H > 2 * r.Z, "H is not above twice Z");
    check.That(r.L > r.Z, "L is not above Z");
    const double back = (r.L - r.Z) / 2, low = r.Z / 2, high = r.H - r.Z / 2;
    lead.sweeps.push_back(Strip(r.W, r.Z, {{-r.L / 2, high}, {back, high}, {back, low}, {-r.L / 2, low}}));
}

/// The sizes of a lead that comes out at the height H1, goes down to H2 and from there through the board.
template <class Record>
void CheckStepDown(const Record& r, Check& check) {
    check.Size("H1", r.H1);
    check.SizeOrNone("H2", r.H2);
    check.Size("T", r.T);
    check.Size("W1", r.W1);
    check.Size("W2", r.W2);
    check.SizeOrNone("Z", r.Z);
    check.That(r.H1 - r.H2 > r.T / 2, "H1 is not above H2 by half of T");
    check.That(r.H2 + r.Z >= kSmallest, "H2 and Z are both 0");
}

void Read(const CVEKA_3DOJ_DIP& r, Lead& lead, Check& check) {
    CheckStepDown(r, check);
    check.That(r.W1 > r.T / 2, "W1 is not above half of T");
    lead.sweeps.push_back(Strip(r.W1, r.T, {{-r.W1, r.H1}, {0, r.H1}, {0, r.H2}}));
    AddBelow(lead, Strip(r.W2, r.T, {{0, r.H2}, {0, -r.Z}}));
}

void Read(const CVEKA_3DOJ_DIPA& r, Lead& lead, Check& check) {
    check.Size("H1", r.H1);
    check.SizeOrNone("H2", r.H2);
    check.Size("T1", r.T1);
    check.Size("T2", r.T2);
    check.SizeOrNone("Z", r.Z);
    check.That(r.H1 - r.H2 >= kSmallest, "H1 is not above H2");
    check.That(r.H2 + r.Z >= kSmallest, "H2 and Z are both 0");
    lead.sweeps.push_back(SquareBar(r.T1, {{0, r.H1}, {0, r.H2}}));
    AddEnd(lead, check, SquareBar(r.T2, {{0, r.H2}}), r);
}

void Read(const CVEKA_3DOJ_DIPB& r, Lead& lead, Check& check) {
    check.Size("H1", r.H1);
    check.SizeOrNone("H2", r.H2);
    check.Size("W1", r.W1);
    check.Size("W2", r.W2);
    check.Size("S", r.S);
    check.Size("T", r.T);
    check.SizeOrNone("Z", r.Z);
    check.That(r.H1 - r.H2 > r.T / 2, "H1 is not above H2 by half of T");
    check.That(r.H2 + r.Z >= kSmallest, "H2 and Z are both 0");
    check.That(r.S > r.T / 2, "S is not above half of T");
    lead.sweeps.push_back(Strip(r.W1, r.T, {{-r.S, r.H1}, {0, r.H1}, {0, r.H2}}));
    AddBelow(lead, Strip(r.W2, r.T, {{0, r.H2}, {0, -r.Z}}));
}

void Read(const CVEKA_3DOJ_FLAT& r, Lead& lead, Check& check) {
    check.Size("L", r.L);
    check.Size("W", r.W);
    check.Size("T", r.T);
    lead.sweeps.push_back(Strip(r.W, r.T, {{-r.L / 2, r.T / 2}, {r.L / 2, r.T / 2}}));
}

/// A gull wing with a shoulder of some length; one that reaches beyond the heel ends above it.
template <class Record>
void ReadGullWing(const Record& r, double shoulder, Lead& lead, Check& check) {
    check.Size("H", r.H);
    check.Size("B", r.B);
    check.Size("W", r.W);
    check.Size("BL", r.BL);
    check.Size("T", r.T);
    check.That(r.H > r.T, "H is not above T");
    check.That(r.BL > r.B / 2, "BL is not above half of B");
    const double heel = -r.B / 2;
    lead.sweeps.push_back(
        Strip(r.W, r.T,
              {{-r.BL, r.H}, {std::min(shoulder - r.BL, heel), r.H}, {heel, r.T / 2}, {r.B / 2, r.T / 2}}));
}

void Read(const CVEKA_3DOJ_GULLWING& r, Lead& lead, Check& check) {
    check.SizeOrNone("M", r.M);
    ReadGullWing(r, r.M, lead, check);
}

void Read(const CVEKA_3DOJ_GULLWINGA& r, Lead& lead, Check& check) {
    ReadGullWing(r, r.BL, lead, check);
}

/// A lead that goes down at `down` and curls to the other side of the pin.
template <class Record>
void ReadCurl(const Record& r, double down, Lead& lead, Check& check) {
    check.Size("H1", r.H1);
    check.SizeOrNone("H2", r.H2);
    check.Size("D", r.D);
    check.Size("W1", r.W1);
    check.Size("W2", r.W2);
    check.SizeOrNone("BL", r.BL);
    check.Size("T", r.T);
    check.That(r.D > 2 * r.T, "D is not above twice T");
    // The curl begins at half of D, and the lead has one width there.
    const double step = std::max(r.H2, r.D / 2);
    check.That(r.H1 - step > r.T / 2, "H1 is not above H2 and the bend");
    check.That(down + r.BL > r.T / 2, "BL is not above half of D");
    lead.sweeps.push_back(Strip(r.W1, r.T, {{-r.BL, r.H1}, {down, r.H1}, {down, step}}));
    LeadSweep curl = Strip(r.W2, r.T, {{down, step}, {down, r.T / 2}, {-down, r.T / 2}, {-down, r.D / 2}});
    curl.bend = std::fabs(down);
    lead.sweeps.push_back(std::move(curl));
}

void Read(const CVEKA_3DOJ_JBEND& r, Lead& lead, Check& check) {
    ReadCurl(r, (r.D - r.T) / 2, lead, check);
}

void Read(const CVEKA_3DOJ_JINVERTED& r, Lead& lead, Check& check) {
    ReadCurl(r, (r.T - r.D) / 2, lead, check);
}

void Read(const CVEKA_3DOJ_REVERSEBUTT& r, Lead& lead, Check& check) {
    check.Size("H", r.H);
    check.Size("T", r.T);
    check.Size("W", r.W);
    check.Size("B", r.B);
    check.That(r.H > r.T, "H is not above T");
    check.That(r.B > r.T, "B is not above T");
    const double upright = (r.B - r.T) / 2;
    lead.sweeps.push_back(Strip(r.W, r.T, {{upright, r.H}, {upright, r.T / 2}, {-r.B / 2, r.T / 2}}));
}

void Read(const CVEKA_3DOJ_ROUNDBAR& r, Lead& lead, Check& check) {
    check.SizeOrNone("Z", r.Z);
    check.SizeOrNone("BL", r.BL);
    check.SizeOrNone("H", r.H);
    check.Size("T", r.T);
    check.That(r.H + r.BL + r.Z >= kSmallest, "H, BL and Z are all 0");
    AddEnd(lead, check, RoundBar(r.T, {{0, r.H + r.BL}}), r);
}

void Read(const CVEKA_3DOJ_ROUNDBARA& r, Lead& lead, Check& check) {
    check.Size("H1", r.H1);
    check.SizeOrNone("H2", r.H2);
    check.SizeOrNone("Z", r.Z);
    check.SizeOrNone("L", r.L);
    check.Size("T", r.T);
    check.That(r.H1 - r.H2 >= kSmallest, "H1 is not above H2");
    check.That(r.H2 + r.Z >= kSmallest, "H2 and Z are both 0");
    AddEnd(lead, check, RoundBar(r.T, {{-r.L, r.H1}, {0, r.H2}}), r);
}

void Read(const CVEKA_3DOJ_ROUNDBARB& r, Lead& lead, Check& check) {
    check.Size("H1", r.H1);
    check.SizeOrNone("H2", r.H2);
    check.SizeOrNone("L1", r.L1);
    check.SizeOrNone("L2", r.L2);
    check.SizeOrNone("L3", r.L3);
    check.Size("T", r.T);
    check.SizeOrNone("Z", r.Z);
    check.That(r.H1 - r.H2 >= kSmallest, "H1 is not above H2");
    check.That(r.H1 - r.H2 >= r.L2, "H1 is not above H2 by L2");
    check.That(r.H2 + r.Z >= kSmallest, "H2 and Z are both 0");
    const double slope = (r.H1 - r.H2 - r.L2) / 2;
    AddEnd(lead, check,
           RoundBar(r.T, {{r.L3 - r.L1, r.H1}, {r.L3, r.H1 - slope}, {r.L3, r.H2 + slope}, {0, r.H2}}), r);
}

void Read(const CVEKA_3DOJ_ROUNDBARC& r, Lead& lead, Check& check) {
    check.SizeOrNone("H1", r.H1);
    check.SizeOrNone("H2", r.H2);
    check.Size("H", r.H);
    check.SizeOrNone("Z", r.Z);
    check.Size("L", r.L);
    check.Size("T", r.T);
    check.That(r.H >= r.H1, "H is below H1");
    check.That(r.L > r.T, "L is not above T");
    AddEnd(lead, check, RoundBar(r.T, {{-r.L, r.H1}, {-r.L, r.H}, {0, r.H}}), r);
}

/// A straight bar with a kink of some depth at some height.
template <class Record>
void ReadKink(const Record& r, double height, Lead& lead, Check& check) {
    check.Size("H", r.H);
    check.SizeOrNone("D", r.D);
    check.SizeOrNone("Z", r.Z);
    check.Size("T", r.T);
    check.That(height > 0 && height < r.H, "H1 is not between 0 and H");
    const double half = std::min({r.D + r.T / 2, height, r.H - height});
    Path path{{0, r.H}};
    if (r.D > 0) path.insert(path.end(), {{0, height + half}, {r.D, height}, {0, height - half}});
    AddEnd(lead, check, SquareBar(r.T, std::move(path)), r);
}

void Read(const CVEKA_3DOJ_KINKDIP& r, Lead& lead, Check& check) {
    check.Size("H", r.H);
    ReadKink(r, r.H / 2, lead, check);
}

void Read(const CVEKA_3DOJ_KINKDIPA& r, Lead& lead, Check& check) {
    ReadKink(r, r.H1, lead, check);
}

void Read(const CVEKA_3DOJ_ROUNDDIP& r, Lead& lead, Check& check) {
    check.Size("BL", r.BL);
    CheckStepDown(r, check);
    check.That(r.BL > r.T / 2, "BL is not above half of T");
    lead.sweeps.push_back(Oval(r.W1, r.T, {{-r.BL, r.H1}, {0, r.H1}, {0, r.H2}}));
    AddBelow(lead, Oval(r.W2, r.T, {{0, r.H2}, {0, -r.Z}}));
}

void Read(const CVEKA_3DOJ_ROUNDDIPA& r, Lead& lead, Check& check) {
    check.Size("H", r.H);
    check.Size("H1", r.H1);
    check.Size("H2", r.H2);
    check.SizeOrNone("H3", r.H3);
    check.SizeOrNone("L1", r.L1);
    check.SizeOrNone("L2", r.L2);
    check.Size("T", r.T);
    check.Size("W1", r.W1);
    check.Size("W2", r.W2);
    check.Size("W3", r.W3);
    check.SizeOrNone("Z", r.Z);
    check.That(r.L1 + r.L2 > r.T / 2, "L1 and L2 together are not above half of T");
    check.That(r.H - r.H1 > r.T / 2, "H is not above H1 by half of T");
    check.That(r.H1 - r.H2 >= kSmallest, "H1 is not above H2");
    check.That(r.H2 - r.H3 >= kSmallest, "H2 is not above H3");
    check.That(r.H3 + r.Z >= kSmallest, "H3 and Z are both 0");
    lead.sweeps.push_back(Oval(r.W1, r.T, {{-r.L1 - r.L2, r.H}, {-r.L2, r.H}, {0, r.H1}, {0, r.H2}}));
    AddBelow(lead, Oval(r.W2, r.T, {{0, r.H2}, {0, r.H3}}));
    AddBelow(lead, Oval(r.W3, r.T, {{0, r.H3}, {0, -r.Z}}));
}

void Read(const CVEKA_3DOJ_WRAPAROUND& r, Lead& lead, Check& check) {
    check.Size("H", r.H);
    check.Size("L", r.L);
    check.Size("W", r.W);
    lead.sweeps.push_back(Strip(r.W, r.H, {{-r.L / 2, r.H / 2}, {r.L / 2, r.H / 2}}));
}

void Read(const CVEKA_3DOJ_WIRE& r, Lead& lead, Check& check) {
    check.Size("T", r.T);
    check.Size("L", r.L);
    lead.sweeps.push_back(RoundBar(r.T, {{0, 0}, {0, -r.L}}));
}

/// Reads an object of a class; false for an object of another class. Without a lead to fill it only compares.
template <class Record>
bool ReadIf(const CVEKA_3DObject& object, Lead* lead, Check* check) {
    const auto* record = dynamic_cast<const Record*>(&object);
    if (record && lead) Read(*record, *lead, *check);
    return record != nullptr;
}

// By the class, since the number of an object can be set.
template <class... Records>
bool ReadFirst(const CVEKA_3DObject& object, Lead* lead, Check* check) {
    return (ReadIf<Records>(object, lead, check) || ...);
}

bool ReadAny(const CVEKA_3DObject& object, Lead* lead, Check* check) {
    // Nearly every object that is no lead is told by its base.
    if (!dynamic_cast<const CVEKA_3DOJ_RotMirror*>(&object)) return false;
    return ReadFirst<CVEKA_3DOJ_GULLWING, CVEKA_3DOJ_BALL, CVEKA_3DOJ_FLAT, CVEKA_3DOJ_ROUNDBAR,
                     CVEKA_3DOJ_DIP, CVEKA_3DOJ_BAR, CVEKA_3DOJ_BUTT, CVEKA_3DOJ_CBEND, CVEKA_3DOJ_DIPA,
                     CVEKA_3DOJ_DIPB, CVEKA_3DOJ_GULLWINGA, CVEKA_3DOJ_JBEND, CVEKA_3DOJ_JINVERTED,
                     CVEKA_3DOJ_REVERSEBUTT, CVEKA_3DOJ_ROUNDBARA, CVEKA_3DOJ_ROUNDBARB, CVEKA_3DOJ_ROUNDBARC,
                     CVEKA_3DOJ_KINKDIP, CVEKA_3DOJ_KINKDIPA, CVEKA_3DOJ_ROUNDDIP, CVEKA_3DOJ_ROUNDDIPA,
                     CVEKA_3DOJ_WRAPAROUND, CVEKA_3DOJ_WIRE>(object, lead, check);
}

}  // namespace

bool IsLead(const CVEKA_3DObject& object) {
    return ReadAny(object, nullptr, nullptr);
}

Lead ReadLead(const CVEKA_3DObject& object) {
    Lead lead;
    Check check;
    if (!ReadAny(object, &lead, &check)) lead.failure = "the object is no lead";
    if (!check.Failure().empty()) lead = {{}, {}, check.Failure()};
    return lead;
}

std::vector<const CVEKA_3DObject*> ShapesOf(const CVEKA_3DObjectArray& objects) {
    std::vector<const CVEKA_3DObject*> shapes, open;
    const auto push = [&](const CVEKA_3DObjectArray& array) {
        for (INT_PTR i = array.GetSize(); i-- > 0;) open.push_back(array[i]);
    };
    push(objects);
    while (!open.empty()) {
        const CVEKA_3DObject* object = open.back();
        open.pop_back();
        if (const auto* user = dynamic_cast<const CVEKA_3DOJ_USERDEFINED*>(object)) {
            push(*user->Lead);
            push(*user->DrawObj);
        } else if (object) {
            shapes.push_back(object);
        }
    }
    return shapes;
}

Placement PlaceOfLead(const CVEKA_3DObject& lead, const CVEKA_Coordinate& pinPoint, double pinRotation) {
    const Placement pin = PlaceOnPin(lead, pinPoint, pinRotation);
    const auto* turned = dynamic_cast<const CVEKA_3DOJ_RotMirror*>(&lead);
    return turned ? pin.After(PlaceOfObject(*turned)) : pin;
}

}  // namespace veka
