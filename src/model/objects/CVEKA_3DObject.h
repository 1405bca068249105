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
/// Assigning through this class copies the number, the colour and the point alone, whatever the objects are.
class VEKA_API CVEKA_3DObject {
public:
    CVEKA_3DObject() = default;
    CVEKA_3DObject(const CVEKA_3DObject&) = default;
    CVEKA_3DObject(CVEKA_3DObject&&) = default;
    virtual ~CVEKA_3DObject();
    virtual CVEKA_3DObject& operator=(const CVEKA_3DObject&) = default;
    CVEKA_3DObject& operator=(CVEKA_3DObject&&) = default;
    /// A new object of the same class with all fields; the caller owns it.
    virtual CVEKA_3DObject* Clone() const;
    /// The number of the kind. Two classes share the number 0; the object's class tells them apart.
    virtual int GetType() const;
    virtual void SetType(int type);

    /// The name of a kind by its number, "NONE" for a number without a name. It looks at the argument alone.
    CString GetType(int type) const;

    /// Makes a solid of each object that has a solid form and appends it. Only in builds with the bridge.
    static void AddNewShape(std::vector<std::shared_ptr<geometry::object>>* shapes,
                            const CVEKA_3DObjectArray& objects);

protected:
    /// Sets number, colour and point to their defaults.
    void Init();
    /// Notes that objects of a kind hold objects of their own, and gives an empty list for them.
    template <class Kind>
    Owned<CVEKA_3DObjectArray> Holding();

private:
    friend class CVEKA_3DObjectArray;
    /// A property of the class, which assigning an object of another class must not change.
    struct Holds {
        void (*dropNulls)(CVEKA_3DObject& object) noexcept = nullptr;  // in all lists; null without a list
        Holds() = default;
        Holds(const Holds&) = default;
        Holds& operator=(Holds) { return *this; }
    };

    VEKA_FIELDS_OF(CVEKA_3DObject, void)
    VEKA_DESCRIBE(Type, nullptr, nullptr, "number of the kind; -1 for none")
    int Type = -1;
    Holds m_holds;
    VEKA_OWNED(CVEKA_Color, Color, "display colour")
    VEKA_OWNED(CVEKA_Coordinate, Point, "reference point of the object")
};
