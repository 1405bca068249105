#pragma once

#include <map>
#include <string>
#include <vector>

#include "drawing/FootprintScene.h"
#include "export/kicad/Exported.h"
#include "export/kicad/PadShape.h"

namespace kicad {

/// One pad of a footprint as KiCad has it, about the point of a pin.
struct KiCadPad {
    std::string kind;       ///< "smd", "thru_hole" and so on, and the shape
    std::string body;       ///< what follows the place
    drawing::Point middle;  ///< of the pad, seen from the pin
    double angle = 0;       ///< of the pad, seen from the pin
    bool opening = false;   ///< true for an opening in a mask or a stencil by itself, which has no number
    bool drilled = false;
};

/// Turns padstacks into pads of KiCad. Each padstack is read once, however many pins use it. The part and the
/// list of remarks must outlive the reader.
class PadStacks {
public:
    PadStacks(const drawing::Part& part, Remarks& remarks) : m_part(part), m_remarks(remarks) {}

    /// The pads of a padstack: that of its copper or its hole, and then openings that are no margin around
    /// it. A pad that KiCad cannot hold is as much like it as possible, and there is a remark. Raises
    /// `drawing::TooLarge`.
    const std::vector<KiCadPad>& Of(const CVEKA_PadStack& stack);

private:
    friend class PadStackReader;

    /// A pad of the part, drawn.
    struct Drawn {
        drawing::Scene scene;
        std::optional<PadShape> shape;    ///< of a pad that KiCad has a shape for
        std::optional<PadShape> outline;  ///< the same, where an outline counts as the area inside of it
    };
    /// The pad, or null where the pad shows nothing.
    const Drawn* Draw(const CVEKA_Pad* pad);

    const drawing::Part& m_part;
    Remarks& m_remarks;
    std::map<const CVEKA_PadStack*, std::vector<KiCadPad>> m_stacks;
    std::map<const CVEKA_Pad*, Drawn> m_drawn;
};

/// An opening in a mask or a stencil of a layer with the shape that KiCad has for it.
KiCadPad Opening(const PadShape& shape, const std::string& layer);
/// An opening that a scene, which is not empty, covers.
KiCadPad Opening(const drawing::Scene& scene, const std::string& layer);

}  // namespace kicad
