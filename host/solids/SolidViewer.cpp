#include "host/SolidViewer.h"

#include <AIS_InteractiveContext.hxx>
#include <AIS_Shape.hxx>
#include <Aspect_DisplayConnection.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRep_Builder.hxx>
#include <OpenGl_GraphicDriver.hxx>
#include <Prs3d_LineAspect.hxx>
#include <Standard_Failure.hxx>
#include <TopoDS_Compound.hxx>
#include <V3d_View.hxx>
#include <V3d_Viewer.hxx>
#include <Xw_Window.hxx>
#include <algorithm>
#include <filesystem>
#include <map>
#include <tuple>

#include "model/PartIndex.h"
#include "package/PackageSolids.h"

namespace host {

namespace {

using Rgb = std::tuple<double, double, double>;

/// The shapes of one colour are one, so that thousands of leads are shown as fast as one.
struct Shapes : ViewedSolids {
    struct OfColor {
        TopoDS_Compound shape;
        std::size_t count = 0;
    };
    std::map<Rgb, OfColor> byColor;
};

[[noreturn]] void Fail(const Standard_Failure& failure) {
    const std::string why = failure.GetMessageString() ? failure.GetMessageString() : "";
    throw SolidsError("the viewer of solids cannot be opened" + (why.empty() ? "" : ": " + why));
}

Quantity_Color ToColor(const Rgb& rgb) {
    const auto part = [](double value) { return std::clamp(value, 0.0, 1.0); };
    return {part(std::get<0>(rgb)), part(std::get<1>(rgb)), part(std::get<2>(rgb)), Quantity_TOC_sRGB};
}

V3d_TypeOfOrientation ToOrientation(SolidSide side) {
    switch (side) {
        case SolidSide::Top:
            return V3d_Zpos;
        case SolidSide::Bottom:
            return V3d_Zneg;
        case SolidSide::Front:
            return V3d_Yneg;
        case SolidSide::Back:
            return V3d_Ypos;
        case SolidSide::Left:
            return V3d_Xneg;
        case SolidSide::Right:
            return V3d_Xpos;
        default:
            return V3d_XposYnegZpos;
    }
}

class Viewer : public SolidViewer {
public:
    explicit Viewer(std::uintptr_t window) {
        const Handle(Aspect_DisplayConnection) display = new Aspect_DisplayConnection();
        m_viewer = new V3d_Viewer(new OpenGl_GraphicDriver(display));
        m_viewer->SetDefaultLights();
        m_viewer->SetLightOn();
        m_context = new AIS_InteractiveContext(m_viewer);
        m_context->DefaultDrawer()->SetAutoTriangulation(false);  // the shapes have their triangles
        m_view = m_viewer->CreateView();
        m_view->SetWindow(new Xw_Window(display, static_cast<Aspect_Drawable>(window)));
        m_view->ChangeRenderingParams().NbMsaaSamples = 4;
        m_view->TriedronDisplay(Aspect_TOTP_LEFT_LOWER, Quantity_NOC_GRAY50, 0.08, V3d_ZBUFFER);
        m_view->SetProj(V3d_XposYnegZpos);
    }
    ~Viewer() override {
        m_context->RemoveAll(false);
        m_view->Remove();
    }

    void Show(const ViewedSolids& solids) override {
        m_context->RemoveAll(false);
        constexpr std::size_t kMostWithEdges = 500;
        for (const auto& [color, shapes] : dynamic_cast<const Shapes&>(solids).byColor) {
            const Handle(AIS_Shape) shown = new AIS_Shape(shapes.shape);
            shown->SetColor(ToColor(color));
            shown->SetMaterial(Graphic3d_NameOfMaterial_ShinyPlastified);
            shown->SetColor(ToColor(color));
            // The edges of a dark body could not be seen in its own colour.
            shown->Attributes()->SetFaceBoundaryDraw(shapes.count <= kMostWithEdges);
            shown->Attributes()->SetFaceBoundaryAspect(
                new Prs3d_LineAspect(Quantity_NOC_GRAY50, Aspect_TOL_SOLID, 1));
            m_context->Display(shown, AIS_Shaded, -1, false);
        }
        Fit();
    }
    void LookFrom(SolidSide side) override {
        m_view->SetProj(ToOrientation(side));
        Fit();
    }
    void Fit() override {
        m_view->FitAll(0.05, false);
        m_view->ZFitAll();
        m_view->Redraw();
    }
    void SetPerspective(bool on) override {
        m_view->Camera()->SetProjectionType(on ? Graphic3d_Camera::Projection_Perspective
                                               : Graphic3d_Camera::Projection_Orthographic);
        Fit();
    }
    void SetGround(drawing::Theme theme) override {
        const drawing::Color ground = drawing::Ground(theme);
        m_view->SetBackgroundColor(ToColor({ground.red / 255.0, ground.green / 255.0, ground.blue / 255.0}));
    }
    void BeginTurn(int x, int y) override { m_view->StartRotation(x, y); }
    void Turn(int x, int y) override { m_view->Rotation(x, y); }
    void Move(int right, int down) override { m_view->Pan(right, -down); }
    void Zoom(int x, int y, int steps) override {
        constexpr int kStep = 25;
        m_view->StartZoomAtPoint(x, y);
        m_view->ZoomAtPoint(0, 0, std::clamp(steps, -10, 10) * kStep, 0);
    }
    void Resize() override {
        m_view->MustBeResized();
        m_view->Redraw();
    }
    void Redraw() override { m_view->Redraw(); }

private:
    Handle(V3d_Viewer) m_viewer;
    Handle(AIS_InteractiveContext) m_context;
    Handle(V3d_View) m_view;
};

/// Adds the shape of a body, with its triangles; a sentence where it has none.
std::string Add(const geometry::NamedSolid& named, Shapes& shapes) {
    const TopoDS_Shape* shape = named.solid->GetShape();
    if (shape->IsNull()) return named.name + " has no shape: " + named.solid->GetFailure();
    try {
        constexpr double kDeflection = 0.02, kAngle = 0.35;  // millimetres, radians
        const BRepMesh_IncrementalMesh mesh(*shape, kDeflection, false, kAngle, false);
    } catch (const Standard_Failure& failure) {
        return named.name + " cannot be made of triangles: " + failure.GetMessageString();
    }
    const geometry::vector& color = named.solid->GetColor();
    const auto [entry, isNew] = shapes.byColor.try_emplace({color.X, color.Y, color.Z});
    const BRep_Builder builder;
    if (isNew) builder.MakeCompound(entry->second.shape);
    builder.Add(entry->second.shape, *shape);
    ++entry->second.count;
    ++shapes.count;
    return "";
}

}  // namespace

std::unique_ptr<ViewedSolids> MakeViewedSolids(const CVEKA_Manager& part, const std::string& partFile,
                                               const SolidProgress& progress) {
    auto shapes = std::make_unique<Shapes>();
    const CVEKA_Package* package = veka::PartIndex(part).DefaultPackage();
    if (!package) return shapes;
    bool goOn = true;
    const std::string folder = std::filesystem::path(partFile).parent_path().string();
    veka::PackageSolidsOptions options;
    options.unit = part.GetVEK()->GetPartGeneral()->GetUnit();
    options.stepFiles =
        std::make_shared<geometry::step_files>(std::vector<std::string>{folder.empty() ? "." : folder});
    options.progress = [&](std::size_t done, std::size_t all) { return goOn = progress(done, 2 * all); };
    veka::PackageSolids made = veka::MakePackageSolids(*package, options);
    shapes->remarks = std::move(made.remarks);
    for (std::size_t i = 0; i < made.solids.size() && goOn; ++i) {
        if (std::string failure = Add(made.solids[i], *shapes); !failure.empty())
            shapes->remarks.push_back(std::move(failure));
        goOn = progress(made.solids.size() + i + 1, 2 * made.solids.size());
    }
    return goOn ? std::move(shapes) : nullptr;
}

std::unique_ptr<SolidViewer> MakeSolidViewer(std::uintptr_t window) {
    try {
        return std::make_unique<Viewer>(window);
    } catch (const Standard_Failure& failure) {
        Fail(failure);
    }
}

}  // namespace host
