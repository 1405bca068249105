#pragma once

// clang-format off
/// The kinds of objects that a level can name. A row holds the name of the level, the number of the kind, its
/// class and its parser method. Two kinds share the number 0.
#define VEKA_OBJECT_KINDS(KIND) \
    KIND("CUBOID",            0, CVEKA_3DOJ_CUBOID,           CUBOIDObjectParser)           \
    KIND("HOLECUBOID",        1, CVEKA_3DOJ_HOLECUBOID,       HOLECUBOIDObjectParser)       \
    KIND("CYLINDER",          2, CVEKA_3DOJ_CYLINDER,         CYLINDERObjectParser)         \
    KIND("DONUT",             3, CVEKA_3DOJ_DONUT,            DONUTObjectParser)            \
    KIND("PYRAMID",           4, CVEKA_3DOJ_PYRAMID,          PYRAMIDObjectParser)          \
    KIND("SPHERE",            5, CVEKA_3DOJ_SPHERE,           SPHEREObjectParser)           \
    KIND("ELLIPSE",           6, CVEKA_3DOJ_ELLIPSE,          ELLIPSEObjectParser)          \
    KIND("PILLAR",           36, CVEKA_3DOJ_PILLAR,           PILLARObjectParser)           \
    KIND("3DSHAPE",           0, CVEKA_3DOJ_3DSHAPE,          SHAPEObjectParser)            \
    KIND("STEP",             54, CVEKA_3DOJ_STEP,             STEPObjectParser)             \
    KIND("3DLINE",            8, CVEKA_3DOJ_3DLINE,           LINEObject3DParser)           \
    KIND("3DARC",             9, CVEKA_3DOJ_3DARC,            ARC3DObjectParser)            \
    KIND("3DCIRCLE",         10, CVEKA_3DOJ_3DCIRCLE,         CIRCLE3DObjectParser)         \
    KIND("3DFILLCIRCLE",     11, CVEKA_3DOJ_3DFILLCIRCLE,     FILLCIRCLE3DObjectParser)     \
    KIND("3DFILLRECT",       12, CVEKA_3DOJ_3DFILLRECT,       FILLRECT3DObjectParser)       \
    KIND("3DOBLONG",         13, CVEKA_3DOJ_3DOBLONG,         OBLONG3DObjectParser)         \
    KIND("3DPOLYGON",        14, CVEKA_3DOJ_3DPOLYGON,        POLYGON3DObjectParser)        \
    KIND("BALL",             16, CVEKA_3DOJ_BALL,             BALLObjectParser)             \
    KIND("BAR",              17, CVEKA_3DOJ_BAR,              BARObjectParser)              \
    KIND("BUTT",             18, CVEKA_3DOJ_BUTT,             BUTTObjectParser)             \
    KIND("CBEND",            19, CVEKA_3DOJ_CBEND,            CBENDObjectParser)            \
    KIND("DIP",              20, CVEKA_3DOJ_DIP,              DIPObjectParser)              \
    KIND("DIPA",             21, CVEKA_3DOJ_DIPA,             DIPAObjectParser)             \
    KIND("DIPB",             22, CVEKA_3DOJ_DIPB,             DIPBObjectParser)             \
    KIND("FLAT",             23, CVEKA_3DOJ_FLAT,             FLATObjectParser)             \
    KIND("GULLWING",         24, CVEKA_3DOJ_GULLWING,         GULLWINGObjectParser)         \
    KIND("GULLWINGA",        25, CVEKA_3DOJ_GULLWINGA,        GULLWINGAObjectParser)        \
    KIND("JBEND",            26, CVEKA_3DOJ_JBEND,            JBENDObjectParser)            \
    KIND("JINVERTED",        27, CVEKA_3DOJ_JINVERTED,        JINVERTEDObjectParser)        \
    KIND("REVERSEBUTT",      28, CVEKA_3DOJ_REVERSEBUTT,      REVERSEBUTTObjectParser)      \
    KIND("ROUNDBAR",         29, CVEKA_3DOJ_ROUNDBAR,         ROUNDBARObjectParser)         \
    KIND("ROUNDBARA",        30, CVEKA_3DOJ_ROUNDBARA,        ROUNDBARAObjectParser)        \
    KIND("ROUNDBARB",        31, CVEKA_3DOJ_ROUNDBARB,        ROUNDBARBObjectParser)        \
    KIND("ROUNDBARC",        56, CVEKA_3DOJ_ROUNDBARC,        ROUNDBARCObjectParser)        \
    KIND("KINKDIP",          57, CVEKA_3DOJ_KINKDIP,          KINKDIPObjectParser)          \
    KIND("KINKDIPA",         58, CVEKA_3DOJ_KINKDIPA,         KINKDIPAObjectParser)         \
    KIND("ROUNDDIP",         32, CVEKA_3DOJ_ROUNDDIP,         ROUNDDIPObjectParser)         \
    KIND("ROUNDDIPA",        59, CVEKA_3DOJ_ROUNDDIPA,        ROUNDDIPAObjectParser)        \
    KIND("WRAPAROUND",       33, CVEKA_3DOJ_WRAPAROUND,       WRAPAROUNDObjectParser)       \
    KIND("WIRE",             34, CVEKA_3DOJ_WIRE,             WIREObjectParser)             \
    KIND("USERDEFINED",      35, CVEKA_3DOJ_USERDEFINED,      USERDEFINEDObjectParser)      \
    KIND("ARC",              38, CVEKA_3DOJ_ARC,              ARCObjectParser)              \
    KIND("CHAMPEREDRECT",    42, CVEKA_3DOJ_CHAMPEREDRECT,    CHAMPEREDRECTObjectParser)    \
    KIND("CIRCLE",           39, CVEKA_3DOJ_CIRCLE,           CIRCLEObjectParser)           \
    KIND("COMPOSITE",        45, CVEKA_3DOJ_COMPOSITE,        COMPOSITEObjectParser)        \
    KIND("CONTOUR",          46, CVEKA_3DOJ_CONTOUR,          CONTOURObjectParser)          \
    KIND("FILLCIRCLE",       40, CVEKA_3DOJ_FILLCIRCLE,       FILLCIRCLEObjectParser)       \
    KIND("FILLRECT",         43, CVEKA_3DOJ_FILLRECT,         FILLRECTObjectParser)         \
    KIND("LINE",             37, CVEKA_3DOJ_LINE,             LINEObjectParser)             \
    KIND("OBLONG",           47, CVEKA_3DOJ_OBLONG,           OBLONGObjectParser)           \
    KIND("POLYGON",          48, CVEKA_3DOJ_POLYGON,          POLYGONObjectParser)          \
    KIND("POLYLINE",         49, CVEKA_3DOJ_POLYLINE,         POLYLINEObjectParser)         \
    KIND("RECTANGLE",        41, CVEKA_3DOJ_RECTANGLE,        RECTANGLEObjectParser)        \
    KIND("ROUNDEDRECTANGLE", 44, CVEKA_3DOJ_ROUNDEDRECTANGLE, ROUNDEDRECTANGLEObjectParser) \
    KIND("TAPERED",          51, CVEKA_3DOJ_TAPERED,          TAPEREDObjectParser)          \
    KIND("TEXT",             53, CVEKA_3DOJ_TEXT,             TEXTObjectParser)             \
    KIND("THERMAL",          52, CVEKA_3DOJ_THERMAL,          THERMALObjectParser)          \
    KIND("VOID",             50, CVEKA_3DOJ_VOID,             VOIDObjectParser)             \
    KIND("PTEXT",            60, CVEKA_3DOJ_PROPTEXT,         PROPTEXTObjectParser)         \
    KIND("PINPOINT",         61, CVEKA_3DOJ_PINPOINT,         PINPOINTObjectParser)

/// The same, and the kind that no list of objects names: a level inside another kind does.
#define VEKA_ALL_OBJECT_KINDS(KIND) \
    VEKA_OBJECT_KINDS(KIND) \
    KIND("METALMASKSHAPEDATA", 55, CVEKA_3DOJ_METAKMASKSHAPE, )
// clang-format on

#define VEKA_DECLARE(Level, Number, Class, Method) class Class;
VEKA_ALL_OBJECT_KINDS(VEKA_DECLARE)
#undef VEKA_DECLARE

namespace veka {

/// The number of an object kind by its class: -1 for a base class, which is no kind.
template <class Class>
inline constexpr int kKindNumber = -1;
#define VEKA_NUMBER_OF_KIND(Level, Number, Class, Method) \
    template <>                                           \
    inline constexpr int kKindNumber<Class> = Number;
VEKA_ALL_OBJECT_KINDS(VEKA_NUMBER_OF_KIND)
#undef VEKA_NUMBER_OF_KIND

}  // namespace veka
