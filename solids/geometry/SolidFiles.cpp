#include "geometry/SolidFiles.h"

#include <BRepMesh_IncrementalMesh.hxx>
#include <Message_ProgressRange.hxx>
#include <Quantity_Color.hxx>
#include <RWGltf_CafWriter.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <Standard_Failure.hxx>
#include <TColStd_IndexedDataMapOfStringString.hxx>
#include <TDF_Label.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <TopLoc_Location.hxx>
#include <TopoDS_Shape.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <algorithm>
#include <stdexcept>

#include "geometry/Quiet.h"

namespace geometry {

namespace {

/// A document with an assembly of bodies; it is closed with its owner.
class Document {
public:
    Document() { XCAFApp_Application::GetApplication()->NewDocument("MDTV-XCAF", m_document); }
    ~Document() { XCAFApp_Application::GetApplication()->Close(m_document); }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// Puts bodies into the document; returns what was left out.
    std::vector<std::string> Fill(const std::vector<NamedSolid>& solids) {
        const Handle(XCAFDoc_ShapeTool) shapes = XCAFDoc_DocumentTool::ShapeTool(m_document->Main());
        const Handle(XCAFDoc_ColorTool) colors = XCAFDoc_DocumentTool::ColorTool(m_document->Main());
        const TDF_Label root = shapes->NewShape();
        std::vector<std::string> leftOut;
        for (const NamedSolid& named : solids) {
            const TopoDS_Shape* shape = named.solid->GetShape();
            if (shape->IsNull()) {
                leftOut.push_back(named.name + " has no shape: " + named.solid->GetFailure());
                continue;
            }
            // A part in its own frame and a component of it: colours get lost in STEP files any other way.
            const TDF_Label part = shapes->AddShape(*shape, false);
            const TCollection_ExtendedString name(named.name.c_str(), true);
            TDataStd_Name::Set(part, name);
            colors->SetColor(part, ToColor(named.solid->GetColor()), XCAFDoc_ColorSurf);
            TDataStd_Name::Set(shapes->AddComponent(root, part, TopLoc_Location()), name);
            ++m_count;
        }
        shapes->UpdateAssemblies();
        return leftOut;
    }
    bool IsEmpty() const { return m_count == 0; }
    const Handle(TDocStd_Document) & Get() const { return m_document; }

private:
    static Quantity_Color ToColor(const vector& color) {
        const auto part = [](double value) { return std::clamp(value, 0.0, 1.0); };
        return {part(color.X), part(color.Y), part(color.Z), Quantity_TOC_sRGB};
    }

    Handle(TDocStd_Document) m_document;
    int m_count = 0;
};

template <class Writer>
std::vector<std::string> Write(const std::string& path, const std::vector<NamedSolid>& solids, Writer write) {
    try {
        const Quiet quiet;
        Document document;
        std::vector<std::string> leftOut = document.Fill(solids);
        if (document.IsEmpty())
            throw std::runtime_error("there is no solid to write" +
                                     (leftOut.empty() ? "" : ", " + leftOut[0]));
        if (!write(document.Get())) throw std::runtime_error("cannot write \"" + path + "\"");
        return leftOut;
    } catch (const Standard_Failure& failure) {
        throw std::runtime_error(std::string("the modeller gave up: ") + failure.GetMessageString());
    }
}

}  // namespace

std::vector<std::string> WriteStep(const std::string& path, const std::vector<NamedSolid>& solids) {
    return Write(path, solids, [&](const Handle(TDocStd_Document) & document) {
        STEPCAFControl_Writer writer;
        writer.SetColorMode(true);
        writer.SetNameMode(true);
        return writer.Transfer(document, STEPControl_AsIs) && writer.Write(path.c_str()) == IFSelect_RetDone;
    });
}

std::vector<std::string> WriteGltf(const std::string& path, const std::vector<NamedSolid>& solids) {
    for (const NamedSolid& named : solids)
        if (!named.solid->GetShape()->IsNull())
            BRepMesh_IncrementalMesh(*named.solid->GetShape(), 0.05, false, 0.3, false);
    return Write(path, solids, [&](const Handle(TDocStd_Document) & document) {
        RWGltf_CafWriter writer(path.c_str(), true);
        return writer.Perform(document, TColStd_IndexedDataMapOfStringString(), Message_ProgressRange());
    });
}

}  // namespace geometry
