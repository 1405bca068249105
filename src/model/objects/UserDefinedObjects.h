#pragma once

#include "model/objects/ObjectRows.h"

/// A lead of free form: a main shape, a lead shape and metal mask shapes.
class VEKA_API CVEKA_3DOJ_USERDEFINED : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_USERDEFINED, CVEKA_3DObject, 35)
    VEKA_OBJECT_FIELD(long long, Reserved1, None{}, = 0)
    VEKA_OBJECT_FIELD(long long, Reserved2, None{}, = 0)
    VEKA_OBJECT_LIST(DrawObj, None{})          ///< the main shape
    VEKA_OBJECT_LIST(Lead, None{})             ///< the lead shape
    VEKA_OBJECT_LIST(MetalMaskShapes, None{})  ///< metal mask records

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
    VEKA_OBJECT(CVEKA_3DOJ_METAKMASKSHAPE, CVEKA_3DObject, 55)
    VEKA_OBJECT_FIELD(CString, LAYER, Keyword{},
                      = "TOP")  ///< the one text of the objects that is not empty by default
    VEKA_REAL(WIDTH)
    VEKA_REAL(LENGTH)
    VEKA_REAL(ROTATION)
    VEKA_POINT(PT)
    VEKA_REAL(THICKNESS)
    VEKA_OBJECT_FIELD(int, HIGHLIGHT, WordFlag{}, = 0)
    VEKA_OBJECT_LIST(Shapes, OtherChildren{})  ///< may hold null

    /// Copies into `PT`; the base's point is left alone. Null raises `CInvalidArgException`.
    void SetPoint(const CVEKA_Coordinate* point) {
        if (!point) AfxThrowInvalidArgException();
        *PT = *point;
    }
    /// Appends the object itself, which the record takes over; null too.
    void AddShapeObject(CVEKA_3DObject* shape) { Shapes->Add(std::unique_ptr<CVEKA_3DObject>(shape)); }
};
