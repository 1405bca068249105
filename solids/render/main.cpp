// Draws a STEP file as a picture: veka-render IN.step OUT.png. Needs a display, that of scripts/screen for
// example.

#include <AIS_InteractiveContext.hxx>
#include <Aspect_DisplayConnection.hxx>
#include <Image_AlienPixMap.hxx>
#include <OpenGl_GraphicDriver.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <TDF_LabelSequence.hxx>
#include <TDocStd_Document.hxx>
#include <V3d_View.hxx>
#include <V3d_Viewer.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XCAFPrs_AISObject.hxx>
#include <Xw_Window.hxx>
#include <iostream>

#include "geometry/Quiet.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: veka-render IN.step OUT.png\n";
        return 2;
    }
    const geometry::Quiet quiet;
    Handle(TDocStd_Document) document;
    XCAFApp_Application::GetApplication()->NewDocument("MDTV-XCAF", document);
    STEPCAFControl_Reader reader;
    reader.SetColorMode(true);
    if (reader.ReadFile(argv[1]) != IFSelect_RetDone || !reader.Transfer(document)) {
        std::cerr << "veka-render: cannot read \"" << argv[1] << "\"\n";
        return 1;
    }
    const Handle(Aspect_DisplayConnection) display = new Aspect_DisplayConnection();
    const Handle(V3d_Viewer) viewer = new V3d_Viewer(new OpenGl_GraphicDriver(display));
    viewer->SetDefaultLights();
    viewer->SetLightOn();
    const Handle(AIS_InteractiveContext) context = new AIS_InteractiveContext(viewer);
    const Handle(V3d_View) view = viewer->CreateView();
    const Handle(Xw_Window) window = new Xw_Window(display, "veka-render", 0, 0, 800, 500);
    window->SetVirtual(true);
    view->SetWindow(window);
    view->SetBackgroundColor(Quantity_NOC_WHITE);

    TDF_LabelSequence labels;
    XCAFDoc_DocumentTool::ShapeTool(document->Main())->GetFreeShapes(labels);
    for (const TDF_Label& label : labels) {
        const Handle(XCAFPrs_AISObject) shape = new XCAFPrs_AISObject(label);
        shape->Attributes()->SetFaceBoundaryDraw(true);
        context->Display(shape, AIS_Shaded, 0, false);
    }
    view->SetProj(V3d_XposYnegZpos);
    view->FitAll(0.05);
    Image_AlienPixMap picture;
    if (!view->ToPixMap(picture, 800, 500) || !picture.Save(argv[2])) {
        std::cerr << "veka-render: cannot write \"" << argv[2] << "\"\n";
        return 1;
    }
}
