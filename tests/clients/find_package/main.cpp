// Imports a part, and where it can: makes its solids, and a dialog's user interface.

#include <VEKAsciiDLL.h>

#include <cstring>
#include <iostream>
#ifdef WITH_QT
#include <qt/QtUserInterface.h>
#endif
#ifdef WITH_WIN32
#include <win32/Win32UserInterface.h>
#endif
#ifdef WITH_DRAWING
#include <drawing/Drawing.h>
#endif
#ifdef WITH_SOLIDS
#include <geometry/SolidFiles.h>
#endif

int main(int argc, char** argv) {
    if (argc != 2) return 2;
#ifdef WITH_QT
    veka::QtUserInterface user;
    veka::InstallUserInterface(&user);
#endif
#ifdef WITH_WIN32
    veka::Win32UserInterface user;
    veka::InstallUserInterface(&user);
#endif
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(argv[1]);
    parser.Parser();
    const CVEKA_VEK& part = *parser.GetCVEKA_Manager()->GetVEK();
    std::cout << part.GetPartGeneral()->GetMPN() << " by release " << veka::Version() << '\n';
#ifdef WITH_DRAWING
    const drawing::Part drawn(*parser.GetCVEKA_Manager());
    std::cout << FootprintScene(drawn, *drawn.DefaultFootprint()).Shapes().size() << " shapes\n";
#endif
#ifdef WITH_SOLIDS
    const auto* package = part.GetPackages()->GetPackageArr()->GetAt(0);
    std::vector<std::shared_ptr<geometry::object>> solids;
    CVEKA_3DObject::AddNewShape(&solids, *package->GetBodyGeometry()->Get3DObjects());
    std::cout << solids.size() << " solids\n";
    if (solids.empty()) return 1;
#endif
    veka::InstallUserInterface(nullptr);
    return std::strcmp(veka::Version(), "") == 0;
}
