#pragma once

#include "model/Record.h"

/// The tape of a reel. A copy has the source's `T2` as its `T1` too: the source's `T1` is lost. That is
/// required; it makes the two equal in every finished model.
class VEKA_API CVEKA_Packing_ReelInfo {
    VEKA_RECORD_OPERATIONS(CVEKA_Packing_ReelInfo)
public:
    CVEKA_Packing_ReelInfo(const CVEKA_Packing_ReelInfo& other) { *this = other; }
    virtual CVEKA_Packing_ReelInfo& operator=(const CVEKA_Packing_ReelInfo& other);
    virtual CVEKA_Packing_ReelInfo* Clone() const { return new CVEKA_Packing_ReelInfo(*this); }

    VEKA_FIELDS_OF(CVEKA_Packing_ReelInfo, void)
    VEKA_TEXT(TapeType, GetTapeType, SetTapeType)
    VEKA_NUMBER(int, NoofPartsCount, 0, GetNoofPartsCount, SetNoofPartsCount)
    VEKA_NUMBER(double, P, 0, GetP, SetP)
    VEKA_NUMBER(double, A, 0, GetA, SetA)
    VEKA_NUMBER(double, B, 0, GetB, SetB)
    VEKA_NUMBER(double, W, 0, GetW, SetW)
    VEKA_NUMBER(double, T1, 0, GetT1, SetT1)
    VEKA_NUMBER(double, T2, 0, GetT2, SetT2)

public:
    /// What a copy loses.
    void VekaLose() noexcept { T1 = T2; }
};

/// Delivery on a reel.
class VEKA_API CVEKA_Packing_Reel {
    VEKA_RECORD(CVEKA_Packing_Reel)
    VEKA_NUMBER(int, Type, 0, GetType, SetType)
    VEKA_NUMBER(double, Angle, 0, GetAngle, SetAngle)
    VEKA_OWNED(CVEKA_Packing_ReelInfo, ReelInfo, GetReelInfo, SetReelInfo)
};

/// The layout of a tray.
class VEKA_API CVEKA_Packing_TrayInfo {
    VEKA_RECORD(CVEKA_Packing_TrayInfo)
    VEKA_NUMBER(int, NoofPartXCount, 0, GetNoofPartXCount, SetNoofPartXCount)
    VEKA_NUMBER(int, NoofPartYCount, 0, GetNoofPartYCount, SetNoofPartYCount)
    VEKA_NUMBER(double, A, 0, GetA, SetA)
    VEKA_NUMBER(double, B, 0, GetB, SetB)
    VEKA_NUMBER(double, C, 0, GetC, SetC)
    VEKA_NUMBER(double, D, 0, GetD, SetD)
    VEKA_NUMBER(double, E, 0, GetE, SetE)
    VEKA_NUMBER(double, E1, 0, GetE1, SetE1)
    VEKA_NUMBER(double, F, 0, GetF, SetF)
    VEKA_NUMBER(double, G, 0, GetG, SetG)
    VEKA_NUMBER(double, Gap, 0, GetGap, SetGap)
};

/// Delivery in a tray.
class VEKA_API CVEKA_Packing_Tray {
    VEKA_RECORD(CVEKA_Packing_Tray)
    VEKA_NUMBER(int, Type, 0, GetType, SetType)
    VEKA_NUMBER(double, Angle, 0, GetAngle, SetAngle)
    VEKA_OWNED(CVEKA_Packing_TrayInfo, TrayInfo, GetTrayInfo, SetTrayInfo)
};

/// How parts are delivered.
class VEKA_API CVEKA_Packing {
    VEKA_RECORD(CVEKA_Packing)
    VEKA_TEXT(PDFFileName, GetPDFFileName, SetPDFFileName)
    VEKA_NUMBER(int, PageNumber, 0, GetPageNumber, SetPageNumber)
    VEKA_NUMBER(int, PackingType, -1, GetPackingType, SetPackingType)  /// -1: the file sets none
    VEKA_OWNED(CVEKA_Packing_Reel, Reel, GetReel, SetReel)
    VEKA_OWNED(CVEKA_Packing_Tray, Tray, GetTray, SetTray)
};
