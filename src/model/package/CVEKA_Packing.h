#pragma once

#include "model/Record.h"

/// The tape of a reel. Q17: a copy has the source's `T2` as its `T1` too. So both are equal in every imported
/// model, since the parser's result is copied into the model, and hosts rely on that.
class VEKA_API CVEKA_Packing_ReelInfo {
    VEKA_RECORD_OPERATIONS(CVEKA_Packing_ReelInfo)
public:
    CVEKA_Packing_ReelInfo(const CVEKA_Packing_ReelInfo& other) { *this = other; }
    virtual CVEKA_Packing_ReelInfo& operator=(const CVEKA_Packing_ReelInfo& other);
    virtual CVEKA_Packing_ReelInfo* Clone() const { return new CVEKA_Packing_ReelInfo(*this); }

    VEKA_FIELDS_OF(CVEKA_Packing_ReelInfo, void)
    VEKA_TEXT(TapeType, "kind of the tape")
    VEKA_NUMBER(int, NoofPartsCount, 0, "number of parts on the reel")
    VEKA_NUMBER(double, P, 0, "dimension P of the tape")
    VEKA_NUMBER(double, A, 0, "dimension A of the tape")
    VEKA_NUMBER(double, B, 0, "dimension B of the tape")
    VEKA_NUMBER(double, W, 0, "dimension W of the tape")
    VEKA_NUMBER(double, T1, 0, "dimension T1 of the tape; T2 in every copy")
    VEKA_NUMBER(double, T2, 0, "dimension T2 of the tape")

public:
    /// Sets `T1` to `T2`, as each copy has it.
    void BecomeACopy() noexcept { T1 = T2; }
};

/// Delivery on a reel.
class VEKA_API CVEKA_Packing_Reel {
    VEKA_RECORD(CVEKA_Packing_Reel)
    VEKA_NUMBER(int, Type, 0, "code of the kind of reel")
    VEKA_NUMBER(double, Angle, 0, "angle of the part on the tape, in degrees")
    VEKA_OWNED(CVEKA_Packing_ReelInfo, ReelInfo, "the tape")
};

/// The layout of a tray.
class VEKA_API CVEKA_Packing_TrayInfo {
    VEKA_RECORD(CVEKA_Packing_TrayInfo)
    VEKA_NUMBER(int, NoofPartXCount, 0, "number of parts along X")
    VEKA_NUMBER(int, NoofPartYCount, 0, "number of parts along Y")
    VEKA_NUMBER(double, A, 0, "dimension A of the tray")
    VEKA_NUMBER(double, B, 0, "dimension B of the tray")
    VEKA_NUMBER(double, C, 0, "dimension C of the tray")
    VEKA_NUMBER(double, D, 0, "dimension D of the tray")
    VEKA_NUMBER(double, E, 0, "dimension E of the tray")
    VEKA_NUMBER(double, E1, 0, "dimension E1 of the tray")
    VEKA_NUMBER(double, F, 0, "dimension F of the tray")
    VEKA_NUMBER(double, G, 0, "dimension G of the tray")
    VEKA_NUMBER(double, Gap, 0, "dimension GAP of the tray")
};

/// Delivery in a tray.
class VEKA_API CVEKA_Packing_Tray {
    VEKA_RECORD(CVEKA_Packing_Tray)
    VEKA_NUMBER(int, Type, 0, "code of the kind of tray")
    VEKA_NUMBER(double, Angle, 0, "angle of the part in the tray, in degrees")
    VEKA_OWNED(CVEKA_Packing_TrayInfo, TrayInfo, "layout of the tray")
};

/// How parts are delivered.
class VEKA_API CVEKA_Packing {
    VEKA_RECORD(CVEKA_Packing)
    VEKA_TEXT(PDFFileName, "file of the packing document")
    VEKA_NUMBER(int, PageNumber, 0, "page of the packing document")
    VEKA_NUMBER(int, PackingType, -1, "code of the packing; -1 if the file gives none")
    VEKA_OWNED(CVEKA_Packing_Reel, Reel, "delivery on a reel")
    VEKA_OWNED(CVEKA_Packing_Tray, Tray, "delivery in a tray")
};
