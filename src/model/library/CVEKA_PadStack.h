#pragma once

#include "model/Record.h"
#include "model/library/PadNames.h"

class CVEKA_Pad;

/// The pads of a padstack on one class of layers, by their names.
class VEKA_API CVEKA_Padstack_LayerInfo {
    VEKA_RECORD(CVEKA_Padstack_LayerInfo)
    VEKA_TEXT(Con, "name of the pad where the pin is connected")
    VEKA_TEXT(UnCon, "name of the pad where the pin is not connected")
    VEKA_TEXT(Anti, "name of the antipad, which keeps copper away")
    VEKA_TEXT(Thermal, "name of the thermal relief")
    VEKA_FLAG(TearDrop, "1 if the pad gets a teardrop")
    VEKA_TEXT(Solder, "name of the solder mask's pad")
    VEKA_TEXT(Metal, "name of the metal mask's pad")
    VEKA_PAD_NAMES_ROW("distinct names that the fields above were given")

private:
    friend class CVEKA_PadStack;
};

/// What a pin looks like through the layers of a board. Footprint pins refer to it by its name.
class VEKA_API CVEKA_PadStack {
    VEKA_RECORD(CVEKA_PadStack)
    VEKA_TEXT(PadstackName, "name of the padstack")
    VEKA_TEXT(Type, "kind of the padstack, a word of the file")
    VEKA_TEXT(Drill_ShapeName, "name of the shape of the drill")
    VEKA_FLAG(Drill_Plating, "1 if the drilled hole is plated")
    VEKA_NUMBER(double, Drill_PlateThickness, 0, "thickness of the plating")
    VEKA_OWNED(CVEKA_Padstack_LayerInfo, Top, "pads on the top layer")
    VEKA_OWNED(CVEKA_Padstack_LayerInfo, InnerSignal, "pads on the inner signal layers")
    VEKA_OWNED(CVEKA_Padstack_LayerInfo, InnerPlane, "pads on the inner plane layers")
    VEKA_OWNED(CVEKA_Padstack_LayerInfo, Bottom, "pads on the bottom layer")
    VEKA_PAD_NAMES_ROW("distinct names of the padstack and of its pads")

public:
    /// Adds the names of a layer, in their order. Null raises `CInvalidArgException`.
    void AddStandardizationPadName(CVEKA_Padstack_LayerInfo* layer);

private:
    friend class CVEKA_PadStackArray;
};

/// The padstacks of a library, with the distinct names that they use. `Append` appends all
/// names, so that a name can be there twice afterwards.
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

    /// Adds the names of a padstack, in their order. Null raises `CInvalidArgException`.
    void AddStandardizationPadName(CVEKA_PadStack* padStack);
    /// Adds the name of a pad. Null raises `CInvalidArgException`.
    void AddStandardizationPadName(CVEKA_Pad* pad);

protected:
    /// Deletes all elements and empties the list.
    void Init();

    VEKA_PAD_NAMES
};
