#pragma once

#include "model/Record.h"
#include "model/library/DistinctNames.h"

class CVEKA_Pad;

/// The pads of a padstack on one class of layers, by their names.
class VEKA_API CVEKA_Padstack_LayerInfo {
    VEKA_RECORD(CVEKA_Padstack_LayerInfo)
    VEKA_TEXT(Con, GetCon, SetCon)
    VEKA_TEXT(UnCon, GetUnCon, SetUnCon)
    VEKA_TEXT(Anti, GetAnti, SetAnti)
    VEKA_TEXT(Thermal, GetThermal, SetThermal)
    VEKA_FLAG(TearDrop, GetTearDrop, SetTearDrop)
    VEKA_TEXT(Solder, GetSolder, SetSolder)
    VEKA_TEXT(Metal, GetMetal, SetMetal)
    VEKA_DESCRIBE(StandardizationPadNames, &VekaSelf::GetStandardizationPadNames, nullptr)
    DistinctNames StandardizationPadNames;

public:
    /// The distinct names used here, in the order of their first appearance.
    void GetStandardizationPadNames(CStringArray& names) const {
        names.Copy(StandardizationPadNames.Names());
    }
    /// Adds a name that is not there yet.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): by value for every host that calls it
    void AddStandardizationPadName(CString name) { StandardizationPadNames.Add(name); }

private:
    friend class CVEKA_PadStack;
};

/// What a pin looks like through the layers of a board. Footprint pins refer to it by its name.
class VEKA_API CVEKA_PadStack {
    VEKA_RECORD(CVEKA_PadStack)
    VEKA_TEXT(PadstackName, GetPadstackName, SetPadstackName)
    VEKA_TEXT(Type, GetType, SetType)
    VEKA_TEXT(Drill_ShapeName, GetDrill_ShapeName, SetDrill_ShapeName)
    VEKA_FLAG(Drill_Plating, GetDrill_Plating, SetDrill_Plating)
    VEKA_NUMBER(double, Drill_PlateThickness, 0, GetDrill_PlateThickness, SetDrill_PlateThickness)
    VEKA_OWNED(CVEKA_Padstack_LayerInfo, Top, GetTop, SetTop)
    VEKA_OWNED(CVEKA_Padstack_LayerInfo, InnerSignal, GetInnerSignal, SetInnerSignal)
    VEKA_OWNED(CVEKA_Padstack_LayerInfo, InnerPlane, GetInnerPlane, SetInnerPlane)
    VEKA_OWNED(CVEKA_Padstack_LayerInfo, Bottom, GetBottom, SetBottom)
    VEKA_DESCRIBE(StandardizationPadNames, &VekaSelf::GetStandardizationPadNames, nullptr)
    DistinctNames StandardizationPadNames;

public:
    /// The distinct names used here, in the order of their first appearance.
    void GetStandardizationPadNames(CStringArray& names) const {
        names.Copy(StandardizationPadNames.Names());
    }
    /// Adds a name that is not there yet.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): by value for every host that calls it
    void AddStandardizationPadName(CString name) { StandardizationPadNames.Add(name); }
    /// Adds the names of a layer, in their order. Null raises `CInvalidArgException`.
    void AddStandardizationPadName(CVEKA_Padstack_LayerInfo* layer);

private:
    friend class CVEKA_PadStackArray;
};

/// The padstacks of a library, with the distinct names that they use. `Append` appends the names as they
/// stand, so that one can then be there twice.
class VEKA_API CVEKA_PadStackArray : public CExPtrArray<CVEKA_PadStack*, CVEKA_PadStack*> {
public:
    CVEKA_PadStackArray() = default;
    CVEKA_PadStackArray(const CVEKA_PadStackArray& other);
    CVEKA_PadStackArray(CVEKA_PadStackArray&& other) noexcept;
    ~CVEKA_PadStackArray() override;
    virtual CVEKA_PadStackArray& operator=(const CVEKA_PadStackArray& other);
    virtual CVEKA_PadStackArray* Clone() const;
    virtual void Copy(const CVEKA_PadStackArray& other);
    virtual void Append(const CVEKA_PadStackArray& other);
    CVEKA_PadStackArray& operator=(CVEKA_PadStackArray&& other) noexcept;

    const CRuntimeClass* GetRuntimeClass() const override;

    /// The distinct names used here, in the order of their first appearance.
    void GetStandardizationPadNames(CStringArray& names) const {
        names.Copy(StandardizationPadNames.Names());
    }
    /// Adds the names of a padstack, in their order. Null raises `CInvalidArgException`.
    void AddStandardizationPadName(CVEKA_PadStack* padStack);
    /// Adds the name of a pad. Null raises `CInvalidArgException`.
    void AddStandardizationPadName(CVEKA_Pad* pad);

protected:
    /// Deletes all elements and empties the list.
    void Init();

private:
    DistinctNames StandardizationPadNames;
};
