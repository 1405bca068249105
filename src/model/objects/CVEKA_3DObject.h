#pragma once

#include <memory>
#include <vector>

#include "model/CVEKA_Color.h"
#include "model/CVEKA_Coordinate.h"

class CVEKA_3DObjectArray;
namespace geometry {
class object;
}

/// Anything that is drawn: the base of solids, leads, lines, texts and pin marks.
///
/// An assignment through this class copies only the number, the colour and the point, whatever the objects
/// are.
class VEKA_API CVEKA_3DObject {
public:
    CVEKA_3DObject() = default;
    /// Copies the number that the source's `GetType` gives, the colour and the point.
    CVEKA_3DObject(const CVEKA_3DObject& other);
    virtual ~CVEKA_3DObject();
    /// Calls `Init`, and then copies as the copy constructor does.
    virtual CVEKA_3DObject& operator=(const CVEKA_3DObject& other);
    /// A new object of the same class with all fields; the caller owns it.
    virtual CVEKA_3DObject* Clone() const;
    /// The number of the kind. Two classes share the number 0; the object's class tells them apart.
    virtual int GetType() const;
    virtual void SetType(int type);

    /// The name of a kind by its number, "NONE" for a number without a name. It does not look at the object.
    CString GetType(int type) const;

    /// Makes a solid of each object that has a solid form and appends it. Only in builds with the bridge.
    static void AddNewShape(std::vector<std::shared_ptr<geometry::object>>* shapes,
                            const CVEKA_3DObjectArray& objects);

protected:
    /// Sets the number through `SetType`, and the colour and the point to their defaults.
    void Init();
    /// An empty list for a field of a kind. Notes that objects of this kind hold lists.
    template <class Kind>
    Owned<CVEKA_3DObjectArray> NewList();

private:
    friend class CVEKA_3DObjectArray;
    using RemoveNulls = void (*)(CVEKA_3DObject& object) noexcept;

    VEKA_FIELDS_OF(CVEKA_3DObject, void)
    VEKA_DESCRIBE(Type, nullptr, nullptr, "number of the kind; -1 for none")
    int Type = -1;
    // Removes the null elements from the lists of an object of the kind for which it was made; null if that
    // kind has no list. A copy as a base class has the function too, so the function checks the class.
    RemoveNulls m_removeNulls = nullptr;
    VEKA_OWNED(CVEKA_Color, Color, "display colour")
    VEKA_OWNED(CVEKA_Coordinate, Point, "reference point of the object")
};
