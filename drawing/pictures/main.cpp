// Draws the leads of a part data file, each with its letters as dimensions, into one SVG file each:
//   veka-lead-pictures FILE DIRECTORY

#include <filesystem>
#include <fstream>
#include <iostream>

#include "drawing/Drawing.h"
#include "model/objects/LeadObjects.h"
#include "parser/CVEK_AsciiParser.h"

namespace {

/// Draws a lead into the file of a name; false if nothing is drawn.
bool Draw(const CVEKA_3DObject& lead, const std::filesystem::path& folder, const CString& name) {
    const drawing::Scene scene = drawing::LeadScene(lead);
    if (scene.IsEmpty()) {
        std::cerr << name << " is not drawn\n";
        return false;
    }
    std::ofstream out(folder / (std::string(name.View()) + ".svg"), std::ios::binary);
    out << drawing::WriteSvg(scene, drawing::Side::Both, drawing::Theme::Light);
    return static_cast<bool>(out.flush());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(argv[1]);
    parser.Parser();
    for (const CVEKA_Package* package : *parser.GetCVEKA_Manager()->GetVEK()->GetPackages()->GetPackageArr())
        for (const CVEKA_PackagePin* pin : *package->GetPKGPins())
            for (const CVEKA_3DObject* object : *pin->Get3DObjects())
                if (!Draw(*object, argv[2], pin->GetPKGPinName())) return 1;
    // The import turns this form into a flat lead.
    CVEKA_3DOJ_WRAPAROUND wrap;
    wrap.H = 1.2;
    wrap.L = 0.8;
    wrap.W = 1.6;
    wrap.T = 0.2;
    return Draw(wrap, argv[2], "WRAPAROUND") ? 0 : 1;
}
