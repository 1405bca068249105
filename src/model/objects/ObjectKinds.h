#pragma once

/// Every kind that a level can name: the level's name, its parser method, its class.
// clang-format off
#define VEKA_OBJECT_KINDS(KIND) \
    KIND("CUBOID",           CUBOIDObjectParser,           CVEKA_3DOJ_CUBOID)           \
    KIND("HOLECUBOID",       HOLECUBOIDObjectParser,       CVEKA_3DOJ_HOLECUBOID)       \
    KIND("CYLINDER",         CYLINDERObjectParser,         CVEKA_3DOJ_CYLINDER)         \
    KIND("DONUT",            DONUTObjectParser,            CVEKA_3DOJ_DONUT)            \
    KIND("PYRAMID",          PYRAMIDObjectParser,          CVEKA_3DOJ_PYRAMID)          \
    KIND("SPHERE",           SPHEREObjectParser,           CVEKA_3DOJ_SPHERE)           \
    KIND("ELLIPSE",          ELLIPSEObjectParser,          CVEKA_3DOJ_ELLIPSE)          \
    KIND("PILLAR",           PILLARObjectParser,           CVEKA_3DOJ_PILLAR)           \
    KIND("3DSHAPE",          SHAPEObjectParser,            CVEKA_3DOJ_3DSHAPE)          \
    KIND("STEP",             STEPObjectParser,             CVEKA_3DOJ_STEP)             \
    KIND("3DLINE",           LINEObject3DParser,           CVEKA_3DOJ_3DLINE)           \
    KIND("3DARC",            ARC3DObjectParser,            CVEKA_3DOJ_3DARC)            \
    KIND("3DCIRCLE",         CIRCLE3DObjectParser,         CVEKA_3DOJ_3DCIRCLE)         \
    KIND("3DFILLCIRCLE",     FILLCIRCLE3DObjectParser,     CVEKA_3DOJ_3DFILLCIRCLE)     \
    KIND("3DFILLRECT",       FILLRECT3DObjectParser,       CVEKA_3DOJ_3DFILLRECT)       \
    KIND("3DOBLONG",         OBLONG3DObjectParser,         CVEKA_3DOJ_3DOBLONG)         \
    KIND("3DPOLYGON",        POLYGON3DObjectParser,        CVEKA_3DOJ_3DPOLYGON)        \
    KIND("BALL",             BALLObjectParser,             CVEKA_3DOJ_BALL)             \
    KIND("BAR",              BARObjectParser,              CVEKA_3DOJ_BAR)              \
    KIND("BUTT",             BUTTObjectParser,             CVEKA_3DOJ_BUTT)             \
    KIND("CBEND",            CBENDObjectParser,            CVEKA_3DOJ_CBEND)            \
    KIND("DIP",              DIPObjectParser,              CVEKA_3DOJ_DIP)              \
    KIND("DIPA",             DIPAObjectParser,             CVEKA_3DOJ_DIPA)             \
    KIND("DIPB",             DIPBObjectParser,             CVEKA_3DOJ_DIPB)             \
    KIND("FLAT",             FLATObjectParser,             CVEKA_3DOJ_FLAT)             \
    KIND("GULLWING",         GULLWINGObjectParser,         CVEKA_3DOJ_GULLWING)         \
    KIND("GULLWINGA",        GULLWINGAObjectParser,        CVEKA_3DOJ_GULLWINGA)        \
    KIND("JBEND",            JBENDObjectParser,            CVEKA_3DOJ_JBEND)            \
    KIND("JINVERTED",        JINVERTEDObjectParser,        CVEKA_3DOJ_JINVERTED)        \
    KIND("REVERSEBUTT",      REVERSEBUTTObjectParser,      CVEKA_3DOJ_REVERSEBUTT)      \
    KIND("ROUNDBAR",         ROUNDBARObjectParser,         CVEKA_3DOJ_ROUNDBAR)         \
    KIND("ROUNDBARA",        ROUNDBARAObjectParser,        CVEKA_3DOJ_ROUNDBARA)        \
    KIND("ROUNDBARB",        ROUNDBARBObjectParser,        CVEKA_3DOJ_ROUNDBARB)        \
    KIND("ROUNDBARC",        ROUNDBARCObjectParser,        CVEKA_3DOJ_ROUNDBARC)        \
    KIND("KINKDIP",          KINKDIPObjectParser,          CVEKA_3DOJ_KINKDIP)          \
    KIND("KINKDIPA",         KINKDIPAObjectParser,         CVEKA_3DOJ_KINKDIPA)         \
    KIND("ROUNDDIP",         ROUNDDIPObjectParser,         CVEKA_3DOJ_ROUNDDIP)         \
    KIND("ROUNDDIPA",        ROUNDDIPAObjectParser,        CVEKA_3DOJ_ROUNDDIPA)        \
    KIND("WRAPAROUND",       WRAPAROUNDObjectParser,       CVEKA_3DOJ_WRAPAROUND)       \
    KIND("WIRE",             WIREObjectParser,             CVEKA_3DOJ_WIRE)             \
    KIND("USERDEFINED",      USERDEFINEDObjectParser,      CVEKA_3DOJ_USERDEFINED)      \
    KIND("ARC",              ARCObjectParser,              CVEKA_3DOJ_ARC)              \
    KIND("CHAMPEREDRECT",    CHAMPEREDRECTObjectParser,    CVEKA_3DOJ_CHAMPEREDRECT)    \
    KIND("CIRCLE",           CIRCLEObjectParser,           CVEKA_3DOJ_CIRCLE)           \
    KIND("COMPOSITE",        COMPOSITEObjectParser,        CVEKA_3DOJ_COMPOSITE)        \
    KIND("CONTOUR",          CONTOURObjectParser,          CVEKA_3DOJ_CONTOUR)          \
    KIND("FILLCIRCLE",       FILLCIRCLEObjectParser,       CVEKA_3DOJ_FILLCIRCLE)       \
    KIND("FILLRECT",         FILLRECTObjectParser,         CVEKA_3DOJ_FILLRECT)         \
    KIND("LINE",             LINEObjectParser,             CVEKA_3DOJ_LINE)             \
    KIND("OBLONG",           OBLONGObjectParser,           CVEKA_3DOJ_OBLONG)           \
    KIND("POLYGON",          POLYGONObjectParser,          CVEKA_3DOJ_POLYGON)          \
    KIND("POLYLINE",         POLYLINEObjectParser,         CVEKA_3DOJ_POLYLINE)         \
    KIND("RECTANGLE",        RECTANGLEObjectParser,        CVEKA_3DOJ_RECTANGLE)        \
    KIND("ROUNDEDRECTANGLE", ROUNDEDRECTANGLEObjectParser, CVEKA_3DOJ_ROUNDEDRECTANGLE) \
    KIND("TAPERED",          TAPEREDObjectParser,          CVEKA_3DOJ_TAPERED)          \
    KIND("TEXT",             TEXTObjectParser,             CVEKA_3DOJ_TEXT)             \
    KIND("THERMAL",          THERMALObjectParser,          CVEKA_3DOJ_THERMAL)          \
    KIND("VOID",             VOIDObjectParser,             CVEKA_3DOJ_VOID)             \
    KIND("PTEXT",            PROPTEXTObjectParser,         CVEKA_3DOJ_PROPTEXT)         \
    KIND("PINPOINT",         PINPOINTObjectParser,         CVEKA_3DOJ_PINPOINT)
// clang-format on
