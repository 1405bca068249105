#include "geometry/SolidFiles.h"

#include <Message_ProgressRange.hxx>
#include <Quantity_Color.hxx>
#include <RWGltf_CafWriter.hxx>
#include <RWMesh_CoordinateSystemConverter.hxx>
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
#include <filesystem>
#include <random>
#include <stdexcept>

#include "geometry/Quiet.h"
#include "geometry/ShapeBytes.h"

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
    std::vector<std::string> Fill(const std::vector<NamedSolid>& solids,
                                  std::string (*prepare)(const TopoDS_Shape&)) {
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
            // Bodies with the same shape are one part, placed several times.
            const TopoDS_Shape own = shape->Located(TopLoc_Location());
            TDF_Label part;
            const TCollection_ExtendedString name(named.name.c_str(), true);
            if (!shapes->FindShape(own, part)) {
                if (const std::string reason = prepare(own); !reason.empty()) {
                    leftOut.push_back(named.name + " is left out: " + reason);
                    continue;
                }
                part = shapes->AddShape(own, false);
                TDataStd_Name::Set(part, name);
                colors->SetColor(part, ToColor(named.solid->GetColor()), XCAFDoc_ColorSurf);
            }
            TDataStd_Name::Set(shapes->AddComponent(root, part, shape->Location()), name);
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

/// A file that is written under another name and takes its place once it is whole; until then what is there
/// stays.
class NewFile {
public:
    explicit NewFile(const std::string& path) : m_place(path) {
        std::random_device random;
        m_temporary =
            m_place.parent_path() / (".veka-" + std::to_string(random()) + '-' + m_place.filename().string());
    }
    ~NewFile() {
        std::error_code error;
        std::filesystem::remove(m_temporary, error);
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    std::string Name() const { return m_temporary.string(); }
    void Commit() const {
        std::error_code error;
        if (std::filesystem::file_size(m_temporary, error) == 0 || error) Fail();
        std::filesystem::rename(m_temporary, m_place, error);
        if (error) Fail();
    }
    [[noreturn]] void Fail() const { throw std::runtime_error("the file cannot be written"); }

private:
    std::filesystem::path m_place, m_temporary;
};

/// What can be done with a body before it is written; an empty text if that is done.
using Preparation = std::string (*)(const TopoDS_Shape& shape);

template <class Writer>
std::vector<std::string> Write(const std::string& path, const std::vector<NamedSolid>& solids,
                               Preparation prepare, Writer write) {
    try {
        const Quiet quiet;
        Document document;
        std::vector<std::string> leftOut = document.Fill(solids, prepare);
        if (document.IsEmpty())
            throw std::runtime_error("there is no solid to write" +
                                     (leftOut.empty() ? "" : ", " + leftOut[0]));
        const NewFile file(path);
        if (!write(document.Get(), file.Name())) file.Fail();
        file.Commit();
        return leftOut;
    } catch (const Standard_Failure& failure) {
        throw std::runtime_error(std::string("the modeller gave up: ") + failure.GetMessageString());
    }
}

}  // namespace

std::vector<std::string> WriteStep(const std::string& path, const std::vector<NamedSolid>& solids) {
    const auto asItIs = [](const TopoDS_Shape&) { return std::string(); };
    return Write(path, solids, asItIs,
                 [](const Handle(TDocStd_Document) & document, const std::string& name) {
                     STEPCAFControl_Writer writer;
                     writer.SetColorMode(true);
                     writer.SetNameMode(true);
                     return writer.Transfer(document, STEPControl_AsIs) &&
                            writer.Write(name.c_str()) == IFSelect_RetDone;
                 });
}

std::vector<std::string> WriteGltf(const std::string& path, const std::vector<NamedSolid>& solids) {
    return Write(
        path, solids, MakeTriangles, [](const Handle(TDocStd_Document) & document, const std::string& name) {
            RWGltf_CafWriter writer(name.c_str(), true);
            // Millimetres with Z up become metres with Y up.
            writer.ChangeCoordinateSystemConverter().SetInputLengthUnit(0.001);
            writer.ChangeCoordinateSystemConverter().SetInputCoordinateSystem(RWMesh_CoordinateSystem_Zup);
            return writer.Perform(document, TColStd_IndexedDataMapOfStringString(), Message_ProgressRange());
        });
}

}  // namespace geometry
