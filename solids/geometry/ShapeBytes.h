#pragma once

#include <string>

class TopoDS_Shape;

namespace geometry {

/// A shape as bytes, for another process of this program. Throws `std::runtime_error` and `Standard_Failure`.
std::string ToBytes(const TopoDS_Shape& shape);

/// The shape of such bytes. Throws `std::runtime_error` and `Standard_Failure` where they hold none.
TopoDS_Shape FromBytes(const std::string& bytes);

/// Makes the triangles of a shape; says why there are none, or an empty text.
std::string MakeTriangles(const TopoDS_Shape& shape);

}  // namespace geometry
