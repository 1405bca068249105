#include "report/References.h"

#include <string_view>

namespace veka {

namespace {

constexpr NamedRecord kPad{"CVEKA_Pad", "PadName", "pad", true};
constexpr NamedRecord kPadStack{"CVEKA_PadStack", "PadstackName", "padstack", true};
constexpr NamedRecord kFootprint{"CVEKA_FootprintDB", "FootprintName", "footprint", true};
constexpr NamedRecord kPinShape{"CVEKA_NSHAPE", "ShapeName", "pin shape", true};
constexpr NamedRecord kLibraryPartition{"CVEKA_PartitionDB", "PatitionName", "library partition", true};
constexpr NamedRecord kFont{"CVEKA_Font", "FontID", "font", true};
constexpr NamedRecord kColor{"CVEKA_ColorTable", "Index", "colour", true};
constexpr NamedRecord kLayerNumber{"CVEKA_Layer", "ARNNumber", "layer", true};
constexpr NamedRecord kLayerName{"CVEKA_Layer", "ECadLayerName", "layer", true};
constexpr NamedRecord kPackage{"CVEKA_Package", "Name", "package", true};
constexpr NamedRecord kSymbol{"CVEKA_Symbol", "SymbolName", "symbol", true};
constexpr NamedRecord kPartition{"CVEKA_Partition", "PatitionName", "partition", true};
constexpr NamedRecord kElectricalPin{"CVEKA_ElectricalPin", "Name", "electrical pin", true};
constexpr NamedRecord kSignal{"CVEKA_ElectricalPin", "SignalName", "signal", false};
constexpr NamedRecord kPackagePin{"CVEKA_PackagePin", "PKGPinName", "package pin", true};
constexpr NamedRecord kDeviceModel{"CVEKA_DeviceModel", "ModelType", "device model", false};

constexpr NamedRecord kNamed[] = {
    kPad,       kPadStack, kFootprint, kPinShape,  kLibraryPartition, kFont,   kColor,      kLayerNumber,
    kLayerName, kPackage,  kSymbol,    kPartition, kElectricalPin,    kSignal, kPackagePin, kDeviceModel};

constexpr const NamedRecord* Named(const NamedRecord& record) {
    for (const NamedRecord& one : kNamed)
        if (std::string_view(one.record) == record.record && std::string_view(one.field) == record.field)
            return &one;
    return nullptr;
}

constexpr Reference kReferences[] = {
    {"CVEKA_Packages", "DefaultPackageName", Named(kPackage), Code::NoSuchDefault},
    {"CVEKA_Package", "DefaultFootprintName", Named(kFootprint), Code::NoSuchDefault},
    {"CVEKA_LogicSymbols", "DefaultSymbolName", Named(kSymbol), Code::NoSuchDefault},
    {"CVEKA_Footprint", "LibraryFootprintName", Named(kFootprint), Code::NoSuchName},
    {"CVEKA_FootprintPin", "LibPadstackName", Named(kPadStack), Code::NoSuchName},
    {"CVEKA_Padstack_LayerInfo", "Con", Named(kPad), Code::NoSuchName},
    {"CVEKA_Padstack_LayerInfo", "UnCon", Named(kPad), Code::NoSuchName},
    {"CVEKA_Padstack_LayerInfo", "Anti", Named(kPad), Code::NoSuchName},
    {"CVEKA_Padstack_LayerInfo", "Thermal", Named(kPad), Code::NoSuchName},
    {"CVEKA_Padstack_LayerInfo", "Solder", Named(kPad), Code::NoSuchName},
    {"CVEKA_Padstack_LayerInfo", "Metal", Named(kPad), Code::NoSuchName},
    {"CVEKA_Partition", "LibPartitionName", Named(kLibraryPartition), Code::NoSuchName},
    {"CVEKA_PartitionDBPin", "LibPinShapeName", Named(kPinShape), Code::NoSuchName},
    {"CVEKA_3DOJ_TEXT", "FID", Named(kFont), Code::NoSuchName},
    {"CVEKA_3DOJ_PROPTEXT", "FID", Named(kFont), Code::NoSuchName},
    {"CVEKA_PropertyLabel", "FID", Named(kFont), Code::NoSuchName},
    {"CVEKA_CAMLayer", "ArtworkLayerNo", Named(kLayerNumber), Code::NoSuchName},
    {"CVEKA_CAMLayer", "LayerName", Named(kLayerName), Code::NoSuchName},
    {"CVEKA_PinPair", "PinPairFirst", Named(kElectricalPin), Code::NoSuchName},
    {"CVEKA_PinPair", "PinPairSecond", Named(kElectricalPin), Code::NoSuchName},
    {"CVEKA_PinGroup", "Name", Named(kElectricalPin), Code::NoSuchName},
    {"CVEKA_ElectricalPin", "InverterPinName", Named(kElectricalPin), Code::NoSuchName},
    {"CVEKA_ElectricalPin", "SignalPU", Named(kSignal), Code::NoSuchName},
    {"CVEKA_ElectricalPin", "SignalPD", Named(kSignal), Code::NoSuchName},
    {"CVEKA_SignalName", "StrSignalName", Named(kSignal), Code::NoSuchName},
    {"CVEKA_ElectricalPin", "DeviceModelType", Named(kDeviceModel), Code::NoSuchName},
    {"CVEKA_ElectricalPin", "Name", Named(kPackagePin), Code::PinMismatch},
    {"CVEKA_PackagePin", "PKGPinName", Named(kElectricalPin), Code::PinMismatch},
    {"CVEKA_FootprintPin", "PinName", Named(kElectricalPin), Code::PinMismatch},
    {"CVEKA_PartitionPin", "PinName", Named(kElectricalPin), Code::PinMismatch},
};

constexpr FileReference kFiles[] = {
    {"CVEKA_Package", "StepFileName"},
    {"CVEKA_BodyGeometry", "StepFileName"},
    {"CVEKA_MechanicalPin", "StepFileName"},
    {"CVEKA_3DOJ_STEP", "PATH"},
};

}  // namespace

std::span<const NamedRecord> AllNamedRecords() {
    return kNamed;
}

std::span<const Reference> AllReferences() {
    return kReferences;
}

std::span<const FileReference> AllFileReferences() {
    return kFiles;
}

}  // namespace veka
