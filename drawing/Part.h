#pragma once

#include "drawing/Objects.h"
#include "drawing/Scene.h"
#include "model/PartIndex.h"

namespace drawing {

/// A part as its drawings need it: what it looks up by name, and its unit. It refers to the part, which must
/// outlive it. Making it costs a walk over the part's library; one serves any number of scenes.
class Part {
public:
    explicit Part(const CVEKA_Manager& manager);

    const CVEKA_Manager& Manager() const { return m_manager; }
    const CVEKA_VEK& Vek() const { return *m_manager.GetVEK(); }
    /// Turns units of the part into millimetres.
    Place Unit() const { return Place::Scaled(m_millimetres); }
    double Millimetres() const { return m_millimetres; }
    /// A sentence, if the part's unit is not known and counts as millimetres.
    const std::string& UnitRemark() const { return m_unitRemark; }

    veka::PartIndex records;
    Fonts fonts;

    /// The package, the footprint and the symbol that the part uses by default; null if there is none.
    const CVEKA_Package* DefaultPackage() const { return records.DefaultPackage(); }
    const CVEKA_FootprintDB* DefaultFootprint() const { return records.DefaultFootprint(DefaultPackage()); }
    const CVEKA_Symbol* DefaultSymbol() const { return records.DefaultSymbol(); }

    /// What a layer of a drawing is, by the part's own layers and by the words of its name.
    struct LayerLook {
        std::string name;
        Role role = Role::Other;
        Side side = Side::Both;
        std::optional<Color> color;
        bool shown = true;
    };
    /// The layer of a number and a name, as the drawing layers of a footprint give them.
    LayerLook LookOf(int artworkNumber, const CString& layerName) const;
    /// The first of the part's layers that has a role on a side, or one that is named after both.
    LayerLook LookOf(Role role, Side side) const;

private:
    const CVEKA_Manager& m_manager;
    double m_millimetres = 1;
    std::string m_unitRemark;
    std::map<int, const CVEKA_Layer*> m_layersByNumber;
    veka::NameIndex<CVEKA_Layer> m_layersByName;
    std::map<std::pair<Role, Side>, const CVEKA_Layer*> m_layersByRole;
};

/// The role and the side that the words of a layer's names mean, in any case: "F.SilkS", "SILKTOP" and
/// "Top Silk" are silk on the top side.
std::pair<Role, Side> RoleOfNames(std::string_view names);

/// The order in which the layers of a board cover each other, seen from the top.
int RankOf(Role role, Side side);

}  // namespace drawing
