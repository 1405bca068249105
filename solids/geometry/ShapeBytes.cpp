#include "geometry/ShapeBytes.h"

#include <BRepBndLib.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <BinTools.hxx>
#include <Bnd_Box.hxx>
#include <Poly_Triangulation.hxx>
#include <TopExp_Explorer.hxx>
#include <TopLoc_Location.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>
#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>

namespace geometry {

namespace {

// Begins the bytes, so that nothing else is taken for a shape.
constexpr char kMark[] = "veka-shape 1\n";

// A body's triangles leave its surface by a part of its size, and its edges turn by an angle at most: so
// their number does not depend on the size.
constexpr double kDeflection = 0.001;
constexpr double kAngle = 0.3;
constexpr int kMostTriangles = 2'000'000;

/// What all bytes of a shape begin with. The modeller prints to standard output where its own mark is
/// missing, so both are compared here.
const std::string& Beginning() {
    static const std::string beginning = [] {
        TopoDS_Compound empty;
        BRep_Builder().MakeCompound(empty);
        const std::string bytes = ToBytes(empty);
        return bytes.substr(0, bytes.find('\n', sizeof kMark) + 1);
    }();
    return beginning;
}

}  // namespace

std::string ToBytes(const TopoDS_Shape& shape) {
    std::ostringstream out(std::ios::binary);
    out << kMark;
    BinTools::Write(shape, out, false, false, BinTools_FormatVersion_CURRENT);
    if (!out) throw std::runtime_error("the shape cannot be written");
    return std::move(out).str();
}

TopoDS_Shape FromBytes(const std::string& bytes) {
    if (!bytes.starts_with(Beginning())) throw std::runtime_error("it has no shape");
    std::istringstream in(bytes.substr(sizeof kMark - 1), std::ios::binary);
    TopoDS_Shape shape;
    BinTools::Read(shape, in);
    if (shape.IsNull()) throw std::runtime_error("it has no shape");
    return shape;
}

std::string MakeTriangles(const TopoDS_Shape& shape) {
    Bnd_Box box;
    BRepBndLib::Add(shape, box);
    if (box.IsVoid() || box.IsOpen()) return "it has no size that triangles can have";
    const double size = std::sqrt(box.SquareExtent());
    const BRepMesh_IncrementalMesh mesher(shape, std::max(size * kDeflection, 1e-6), false, kAngle, false);
    int triangles = 0;
    for (TopExp_Explorer faces(shape, TopAbs_FACE); faces.More(); faces.Next()) {
        TopLoc_Location place;
        const Handle(Poly_Triangulation) mesh =
            BRep_Tool::Triangulation(TopoDS::Face(faces.Current()), place);
        if (mesh.IsNull() || mesh->NbTriangles() == 0) return "a face of it has no triangles";
        triangles += mesh->NbTriangles();
        if (triangles > kMostTriangles) return "it takes more than 2,000,000 triangles";
    }
    return triangles == 0 ? "it has no face" : "";
}

}  // namespace geometry
