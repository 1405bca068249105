#pragma once

#include <utility>

#include "model/objects/ObjectKinds.h"
#include "platform/CString.h"

class CECadClsLvl;

// The records are declared only, so that a change of one of them does not make every user of the parser compile anew. Who
// reads a record includes its header.
class CVEKA_BOM;
class CVEKA_BodyGeometry;
class CVEKA_CAMLayerArray;
class CVEKA_Color;
class CVEKA_ColorTableArray;
class CVEKA_CommentArray;
class CVEKA_Coordinate;
class CVEKA_DeviceModelArray;
class CVEKA_Electrical;
class CVEKA_ElectricalPinArray;
class CVEKA_FontArray;
class CVEKA_FootprintArray;
class CVEKA_FootprintDBArray;
class CVEKA_FootprintPinArray;
class CVEKA_FootprintSpec;
class CVEKA_History;
class CVEKA_Layer;
class CVEKA_Layers;
class CVEKA_Layout;
class CVEKA_LogicPinArray;
class CVEKA_LogicSymbols;
class CVEKA_Manager;
class CVEKA_Manufacturing;
class CVEKA_MarkingGeometries;
class CVEKA_MechanicalPinArray;
class CVEKA_MountData;
class CVEKA_NSHAPE;
class CVEKA_PKG_Color;
class CVEKA_Package;
class CVEKA_PackagePinArray;
class CVEKA_Packages;
class CVEKA_Packing;
class CVEKA_PadArray;
class CVEKA_PadStackArray;
class CVEKA_Padstack_LayerInfo;
class CVEKA_PartGeneral;
class CVEKA_Partition;
class CVEKA_PartitionDBArray;
class CVEKA_PartitionDBPinArray;
class CVEKA_PartitionPinArray;
class CVEKA_PassiveValue;
class CVEKA_PinGroupArray;
class CVEKA_PowerRailArray;
class CVEKA_Preference;
class CVEKA_PropertyLabelArray;
class CVEKA_RLC;
class CVEKA_Reference_URLArray;
class CVEKA_Symbol;
class CVEKA_Thermal;
class CVEKA_ThermalModel;
class CVEKA_USGKey;
class CVEKA_USGKeyArray;
class CVEKA_VEK;
class CVEKA_3DObject;
class CVEKA_3DObjectArray;
class CVEKA_3DOJ_AxisPivot;
class CVEKA_3DOJ_RotMirror;

/// Reads a file into the model, and holds the model.
///
/// Every other method turns one level into a new record or array, which the caller owns. None of them keeps
/// anything between calls or changes the parser.
class VEKA_API CVEK_AsciiParser {
public:
    /// Makes an empty model.
    CVEK_AsciiParser();
    /// Copies share one model, which each of them deletes: a copy must never be destroyed beside its source.
    CVEK_AsciiParser(const CVEK_AsciiParser& other);
    CVEK_AsciiParser& operator=(const CVEK_AsciiParser& other);
    /// Deletes the model.
    virtual ~CVEK_AsciiParser();

    CString GetVEKAsciiFilePath() const { return VEKAsciiFilePath; }
    void SetVEKAsciiFilePath(CString path) { VEKAsciiFilePath = std::move(path); }
    /// The model; it stays the parser's.
    ::CVEKA_Manager* GetCVEKA_Manager() const noexcept { return CVEKA_Manager; }
    /// Takes a model over. The former one is not deleted: it becomes the caller's.
    void SetCVEKA_Manager(::CVEKA_Manager* manager) noexcept { CVEKA_Manager = manager; }

    /// Reads the file into the model and returns 1, whatever the file is. Exceptions pass through: the model
    /// is then as the last finished section left it.
    int Parser();

    // Values that many sections share.
    CVEKA_Coordinate* PointParser(CECadClsLvl* level);
    CVEKA_Color* ColorParser(CECadClsLvl* level);
    CVEKA_CommentArray* COMMENTParser(CECadClsLvl* level);
    CVEKA_USGKeyArray* USGKeysParser(CECadClsLvl* level);

    // The part.
    CVEKA_VEK* VEKParser(CECadClsLvl* level);
    CVEKA_PartGeneral* PARTGENERALParser(CECadClsLvl* level);
    CVEKA_Preference* PREFERENCEParser(CECadClsLvl* level);
    CVEKA_Layout* LAYOUTParser(CECadClsLvl* level);
    CVEKA_BOM* BOMParser(CECadClsLvl* level);

    CVEKA_History* HISTORYParser(CECadClsLvl* level);
    CVEKA_Reference_URLArray* REFERENCEURLParser(CECadClsLvl* level);
    CVEKA_Layers* LAYERSParser(CECadClsLvl* level);
    CVEKA_Layer* LAYERParser(CECadClsLvl* level);
    CVEKA_Manufacturing* MANUFACTURINGParser(CECadClsLvl* level);

    // The part as a circuit element.
    CVEKA_Electrical* ELECTRICALParser(CECadClsLvl* level);
    CVEKA_DeviceModelArray* DEVICEMODELSParser(CECadClsLvl* level);
    CVEKA_PowerRailArray* POWERRAILSParser(CECadClsLvl* level);
    CVEKA_PassiveValue* PASSIVEVALUEParser(CECadClsLvl* level);
    CVEKA_ElectricalPinArray* ELECTRICALPINSParser(CECadClsLvl* level);
    CVEKA_PinGroupArray* PINGROUPSParser(CECadClsLvl* level);

    // Packages.
    CVEKA_Packages* PACKAGESParser(CECadClsLvl* level);
    CVEKA_Thermal* PACKAGES_THERMALParser(CECadClsLvl* level);
    CVEKA_ThermalModel* PACKAGES_THERMAL_MODELParser(CECadClsLvl* level);
    CVEKA_PKG_Color* PACKAGES_COLORParser(CECadClsLvl* level);
    CVEKA_FootprintSpec* PACKAGES_FOOTPRINTSPECParser(CECadClsLvl* level);
    CVEKA_Package* PACKAGES_PACKAGEParser(CECadClsLvl* level);
    CVEKA_BodyGeometry* PACKAGES_PACKAGE_BODYGEOMETRYParser(CECadClsLvl* level);
    CVEKA_MarkingGeometries* PACKAGES_PACKAGE_MARKINGGEOMETRIESParser(CECadClsLvl* level);
    CVEKA_MountData* PACKAGES_PACKAGE_MOUNTDATAParser(CECadClsLvl* level);
    CVEKA_PackagePinArray* PACKAGES_PACKAGE_PKGPINSParser(CECadClsLvl* level);
    /// Raises `CInvalidAccessException` for a pin without the child that its position selects.
    CVEKA_MechanicalPinArray* PACKAGES_PACKAGE_MECHANICALPINSParser(CECadClsLvl* level);
    CVEKA_FootprintArray* PACKAGES_PACKAGE_FOOTPRINTSParser(CECadClsLvl* level);

    // Logic symbols.
    CVEKA_LogicSymbols* LOGICSYMBOLSGParser(CECadClsLvl* level);
    CVEKA_LogicPinArray* LOGICSYMBOLS_LOGICPINLIBSParser(CECadClsLvl* level);
    CVEKA_Symbol* LOGICSYMBOLS_SYMBOLParser(CECadClsLvl* level);
    CVEKA_Partition* LOGICSYMBOLS_SYMBOL_PARTITIONParser(CECadClsLvl* level);
    CVEKA_PartitionPinArray* LOGICSYMBOLS_SYMBOL_PARTITION_PARTITIONPINSParser(CECadClsLvl* level);
    /// Property labels, by one method under three names. Raises `CInvalidAccessException` for a label without the child
    /// that its position selects.
    CVEKA_PropertyLabelArray* LOGICSYMBOLS_SYMBOL_PARTITION_PROPERTYLABELSParser(CECadClsLvl* level);
    CVEKA_PropertyLabelArray* NSHAPE_PROPERTYLABELSParser(CECadClsLvl* level);
    CVEKA_PropertyLabelArray* PARTITION_PARTITIONPINS_PROPERTYLABELSParser(CECadClsLvl* level);

    // The library.
    CVEKA_ColorTableArray* COLORTABLEParser(CECadClsLvl* level);
    CVEKA_FontArray* FontLibParser(CECadClsLvl* level);
    CVEKA_PadArray* PADParser(CECadClsLvl* level);
    CVEKA_PadStackArray* PadStackParser(CECadClsLvl* level);
    CVEKA_Padstack_LayerInfo* PadStack_LAYERInfoParser(CECadClsLvl* level);
    CVEKA_FootprintDBArray* FOOTPRINTParser(CECadClsLvl* level);
    CVEKA_FootprintPinArray* FOOTPRINT_FPINSParser(CECadClsLvl* level);
    CVEKA_CAMLayerArray* FOOTPRINT_CAMLAYERSParser(CECadClsLvl* level);
    CVEKA_NSHAPE* NSHAPEParser(CECadClsLvl* level);
    CVEKA_PartitionDBArray* PARTITIONParser(CECadClsLvl* level);
    CVEKA_PartitionDBPinArray* PARTITION_PARTITIONPINSParser(CECadClsLvl* level);

    // Objects.
    /// The objects of a level's children; unknown ones are left out.
    CVEKA_3DObjectArray* ObjectsParser(CECadClsLvl* level);
    /// The object of a level, by the level's name; null for an unknown one.
    CVEKA_3DObject* ObjectParser(CECadClsLvl* level);
    // One method for each kind, whatever the level is called: `CUBOIDObjectParser` and so on.
#define VEKA_DECLARE(Level, Number, Class, Method) Class* Method(CECadClsLvl* level);
    VEKA_OBJECT_KINDS(VEKA_DECLARE)
#undef VEKA_DECLARE

private:
    CVEKA_USGKey* USGKeyParser(CECadClsLvl* level);
    template <class Kind>
    Kind* KindParser(CECadClsLvl* level);
    // Rows that a method has a function of their own for.
    [[gnu::always_inline]] static auto RLCRows(CVEKA_RLC& rlc);
    [[gnu::always_inline]] static auto PackingRows(CVEKA_Packing& packing);
    [[gnu::always_inline]] static auto BaseRows(CVEKA_3DObject& object);
    [[gnu::always_inline]] static auto BaseRows(CVEKA_3DOJ_AxisPivot& solid);
    [[gnu::always_inline]] static auto BaseRows(CVEKA_3DOJ_RotMirror& lead);

    CString VEKAsciiFilePath;
    ::CVEKA_Manager* CVEKA_Manager;  // owned
};
