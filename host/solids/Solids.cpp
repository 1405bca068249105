#include "host/Solids.h"

#include <ostream>

#include "geometry/SolidFiles.h"

namespace host {

namespace {

class Collector {
public:
    void Add(const std::string& name, const CVEKA_3DObjectArray& objects) {
        std::vector<std::shared_ptr<geometry::object>> shapes;
        CVEKA_3DObject::AddNewShape(&shapes, objects);
        for (auto& shape : shapes)
            m_solids.push_back(
                {name + " " + shape->GetKind() + " " + std::to_string(++m_number), std::move(shape)});
    }
    const std::vector<geometry::NamedSolid>& Solids() const { return m_solids; }

private:
    std::vector<geometry::NamedSolid> m_solids;
    int m_number = 0;
};

std::string Text(const CString& text) {
    return std::string(text.View());
}

}  // namespace

void WriteSolids(const CVEKA_Manager& part, const std::string& stepPath, const std::string& gltfPath,
                 std::ostream& err) {
    Collector collector;
    for (const CVEKA_Package* package : *part.GetVEK()->GetPackages()->GetPackageArr()) {
        const std::string name = Text(package->GetName());
        collector.Add(name + " body", *package->GetBodyGeometry()->Get3DObjects());
        collector.Add(name + " marking", *package->GetMarkingGeometries()->Get3DObjects());
        for (const CVEKA_PackagePin* pin : *package->GetPKGPins())
            collector.Add(name + " pin " + Text(pin->GetPKGPinName()), *pin->Get3DObjects());
        for (const CVEKA_MechanicalPin* pin : *package->GetMechanicalPins())
            collector.Add(name + " mechanical pin " + Text(pin->GetName()), *pin->GetLead());
    }
    std::vector<std::string> leftOut;
    try {
        if (!stepPath.empty()) leftOut = geometry::WriteStep(stepPath, collector.Solids());
        if (!gltfPath.empty()) leftOut = geometry::WriteGltf(gltfPath, collector.Solids());
    } catch (const std::runtime_error& error) {
        throw SolidsError(error.what());
    }
    for (const std::string& reason : leftOut) err << "veka-host: " << reason << '\n';
}

}  // namespace host
