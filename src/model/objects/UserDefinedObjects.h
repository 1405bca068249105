#pragma once

#include "model/objects/ObjectRows.h"

/// A lead of free form: a main shape, a lead shape and metal mask shapes.
class VEKA_API CVEKA_3DOJ_USERDEFINED : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_USERDEFINED, CVEKA_3DObject)
    VEKA_OBJECT_FIELD(long long, Reserved1, 0, None{}, "reserved; nothing fills it")
    VEKA_OBJECT_FIELD(long long, Reserved2, 0, None{}, "reserved; nothing fills it")
    VEKA_OBJECT_LIST(DrawObj, None{}, "objects of the main shape")
    VEKA_OBJECT_LIST(Lead, None{}, "objects of the lead shape")
    VEKA_OBJECT_LIST(MetalMaskShapes, None{}, "metal mask shapes, each of class CVEKA_3DOJ_METAKMASKSHAPE")

    /// Copies the objects in; null raises `CInvalidArgException`.
    void SetDrawObj(const CVEKA_3DObjectArray* objects) { Assign(DrawObj, objects); }
    void SetLead(const CVEKA_3DObjectArray* objects) { Assign(Lead, objects); }
    /// Appends the object itself, which the record takes over; null is ignored.
    void AddMetalMaskShape(CVEKA_3DObject* shape) {
        if (shape) MetalMaskShapes->Add(std::unique_ptr<CVEKA_3DObject>(shape));
    }

private:
    static void Assign(Owned<CVEKA_3DObjectArray>& field, const CVEKA_3DObjectArray* objects) {
        if (!objects) AfxThrowInvalidArgException();
        *field = *objects;
    }
};

/// One metal mask shape of a user-defined lead.
class VEKA_API CVEKA_3DOJ_METAKMASKSHAPE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_METAKMASKSHAPE, CVEKA_3DObject)
    VEKA_OBJECT_FIELD(CString, LAYER, "TOP", Keyword{}, "name of the layer; TOP by default")
    VEKA_REAL(WIDTH, "width")
    VEKA_REAL(LENGTH, "length")
    VEKA_REAL(ROTATION, "rotation in degrees")
    VEKA_POINT(PT, "place of the shape")
    VEKA_REAL(THICKNESS, "thickness")
    VEKA_OBJECT_FIELD(int, HIGHLIGHT, 0, WordFlag{}, "1 if the shape is highlighted")
    VEKA_OBJECT_LIST(Shapes, OtherChildren{}, "further objects; null for an unknown one")

    /// Copies into `PT`; the base's point stays as it is. Null raises `CInvalidArgException`.
    void SetPoint(const CVEKA_Coordinate* point) {
        if (!point) AfxThrowInvalidArgException();
        *PT = *point;
    }
    /// Appends the object itself, which the record takes over; null too.
    void AddShapeObject(CVEKA_3DObject* shape) { Shapes->Add(std::unique_ptr<CVEKA_3DObject>(shape)); }
};
