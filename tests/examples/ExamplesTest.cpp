// The parts in examples/, from which newcomers learn the format.

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "model/CVEKA_Manager.h"
#include "report/ImportReport.h"
#include "support/Parsing.h"

namespace {

using Names = std::set<std::string>;

std::string Text(const CString& text) {
    return std::string(text.View());
}

/// The names of all records of an array, by the getter of the name.
template <class Array, class Record>
Names NamesOf(const Array& array, CString (Record::*name)() const) {
    Names names;
    for (const Record* record : array) names.insert(Text((record->*name)()));
    return names;
}

/// The values of all levels of a name, at any depth.
void CollectValues(const CECadClsLvlArray& levels, const char* name, Names& values) {
    for (const CECadClsLvl* level : levels) {
        if (level->m_strName == name)
            for (const CString& value : level->m_aValues) values.insert(Text(value));
        CollectValues(*level->m_pChildren, name, values);
    }
}

/// Expects that an array has a record of a name.
void ExpectIn(const Names& names, const CString& name) {
    EXPECT_EQ(names.count(Text(name)), 1u) << Text(name);
}

TEST(Examples, AreBalancedAndWholeParts) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(test::ProjectFolder("examples"))) {
        CECadCls tree;
        tree.m_strFilePath = veka::FromPath(entry.path());
        EXPECT_EQ(tree.ReadLevelTree(0), 0) << entry.path();
        const auto parser = test::Import(test::ReadFile(entry.path()));
        const CVEKA_Manager& part = *parser->GetCVEKA_Manager();
        EXPECT_NE(part.GetVEK()->GetPartGeneral()->GetMPN(), "") << entry.path();
        ASSERT_EQ(part.GetVEK()->GetPackages()->GetPackageArr()->GetSize(), 1) << entry.path();
        const CVEKA_Package& package = *part.GetVEK()->GetPackages()->GetPackageArr()->GetAt(0);
        const INT_PTR pins = part.GetVEK()->GetPartGeneral()->GetNumberOfPins();
        EXPECT_EQ(package.GetPKGPins()->GetSize(), pins) << entry.path();
        EXPECT_EQ(part.GetVEK()->GetElectrical()->GetElectricalPins()->GetSize(), pins) << entry.path();
        ASSERT_EQ(part.GetFootprintDBArr()->GetSize(), 1) << entry.path();
        EXPECT_EQ(part.GetFootprintDBArr()->GetAt(0)->GetFootprintName(), package.GetDefaultFootprintName());
        EXPECT_EQ(part.GetFootprintDBArr()->GetAt(0)->GetFPins()->GetSize(), pins) << entry.path();
        ++count;
    }
    EXPECT_GE(count, 3);
}

// The references that docs/names.md lists.
TEST(Examples, NameOnlyRecordsThatExist) {
    for (const auto& entry : std::filesystem::directory_iterator(test::ProjectFolder("examples"))) {
        SCOPED_TRACE(entry.path());
        const auto parser = test::Import(test::ReadFile(entry.path()));
        const CVEKA_Manager& library = *parser->GetCVEKA_Manager();
        const CVEKA_VEK& part = *library.GetVEK();
        const CVEKA_Electrical& electrical = *part.GetElectrical();
        const CVEKA_LogicSymbols& logic = *part.GetLogicSymbols();
        const Names pads = NamesOf(*library.GetPadArr(), &CVEKA_Pad::GetPadName);
        const Names padStacks = NamesOf(*library.GetPadStackArr(), &CVEKA_PadStack::GetPadstackName);
        const Names footprints = NamesOf(*library.GetFootprintDBArr(), &CVEKA_FootprintDB::GetFootprintName);
        const Names shapes = NamesOf(*library.GetNShapeArr(), &CVEKA_NSHAPE::GetShapeName);
        const Names partitions = NamesOf(*library.GetPartitionDBArr(), &CVEKA_PartitionDB::GetPatitionName);
        const Names pins = NamesOf(*electrical.GetElectricalPins(), &CVEKA_ElectricalPin::GetName);
        const Names signalNames =
            NamesOf(*electrical.GetElectricalPins(), &CVEKA_ElectricalPin::GetSignalName);

        // From the package to the copper.
        ExpectIn(NamesOf(*part.GetPackages()->GetPackageArr(), &CVEKA_Package::GetName),
                 part.GetPackages()->GetDefaultPackageName());
        for (const CVEKA_Package* package : *part.GetPackages()->GetPackageArr()) {
            ExpectIn(footprints, package->GetDefaultFootprintName());
            for (const CVEKA_Footprint* footprint : *package->GetFootprints())
                ExpectIn(footprints, footprint->GetLibraryFootprintName());
            EXPECT_EQ(NamesOf(*package->GetPKGPins(), &CVEKA_PackagePin::GetPKGPinName), pins);
        }
        Names layers;
        for (const CVEKA_Layer* layer : *part.GetLayers()->GetLayerArr())
            layers.insert(std::to_string(layer->GetARNNumber()) + " " + Text(layer->GetECadLayerName()));
        for (const CVEKA_FootprintDB* footprint : *library.GetFootprintDBArr()) {
            EXPECT_EQ(NamesOf(*footprint->GetFPins(), &CVEKA_FootprintPin::GetPinName), pins);
            for (const CVEKA_FootprintPin* pin : *footprint->GetFPins())
                ExpectIn(padStacks, pin->GetLibPadstackName());
            for (const CVEKA_CAMLayer* layer : *footprint->GetCAMLayers())
                ExpectIn(layers,
                         CString(std::to_string(layer->GetArtworkLayerNo()) + " ") + layer->GetLayerName());
        }
        for (const CVEKA_PadStack* padStack : *library.GetPadStackArr())
            for (const CVEKA_Padstack_LayerInfo* layer : {padStack->GetTop(), padStack->GetInnerSignal(),
                                                          padStack->GetInnerPlane(), padStack->GetBottom()})
                for (const CString& pad : {layer->GetCon(), layer->GetUnCon(), layer->GetAnti(),
                                           layer->GetThermal(), layer->GetSolder(), layer->GetMetal()})
                    if (!pad.IsEmpty()) ExpectIn(pads, pad);

        // From the symbol to the pin shape. The pins of both kinds of partitions have the same order.
        if (logic.GetSymbol()->GetSize() > 0)
            ExpectIn(NamesOf(*logic.GetSymbol(), &CVEKA_Symbol::GetSymbolName), logic.GetDefaultSymbolName());
        for (const CVEKA_Symbol* symbol : *logic.GetSymbol())
            for (const CVEKA_Partition* partition : *symbol->GetPartitions()) {
                ExpectIn(partitions, partition->GetLibPartitionName());
                for (const CVEKA_PartitionDB* drawn : *library.GetPartitionDBArr()) {
                    if (drawn->GetPatitionName() != partition->GetLibPartitionName()) continue;
                    ASSERT_EQ(drawn->GetPins()->GetSize(), partition->GetPins()->GetSize());
                    for (INT_PTR i = 0; i < drawn->GetPins()->GetSize(); ++i) {
                        EXPECT_EQ(drawn->GetPins()->GetAt(i)->GetPartitionPinNo(), i);
                        EXPECT_EQ(drawn->GetPins()->GetAt(i)->GetGatePinName(),
                                  partition->GetPins()->GetAt(i)->GetGatePinName());
                    }
                }
                for (const CVEKA_PartitionPin* pin : *partition->GetPins()) ExpectIn(pins, pin->GetPinName());
            }
        for (const CVEKA_PartitionDB* partition : *library.GetPartitionDBArr())
            for (const CVEKA_PartitionDBPin* pin : *partition->GetPins())
                ExpectIn(shapes, pin->GetLibPinShapeName());
        for (const CVEKA_LogicPin* pin : *logic.GetLogicPinLibs()) {
            const CVEKA_ElectricalPin* named =
                electrical.GetElectricalPins()->GetAt(pin->GetLogicPinNo() - 1);
            ASSERT_NE(named, nullptr);
            EXPECT_EQ(pin->GetLogicPinName(), named->GetSignalName());
        }

        // What else names a pin or a signal, and the fonts of all texts.
        for (const CVEKA_PinGroup* group : *electrical.GetPinGroups()) {
            CStringArray names;
            group->GetName(names);
            for (const CString& name : names) ExpectIn(pins, name);
        }
        for (const CVEKA_PinPair* pair : *electrical.GetPassiveValue()->GetPinPairArr()) {
            ExpectIn(pins, pair->GetPinPairFirst());
            ExpectIn(pins, pair->GetPinPairSecond());
        }
        for (const CVEKA_PowerRail* rail : *electrical.GetPowerRails())
            ExpectIn(signalNames, rail->GetSignalName()->GetStrSignalName());
        CECadCls tree;
        tree.m_strFilePath = veka::FromPath(entry.path());
        tree.ReadLevelTree(0);
        Names fonts;
        CollectValues(*tree.m_pRootLevels, "FID", fonts);
        for (const std::string& font : fonts)
            EXPECT_NE(library.GetLibFonts()->GetFontByID(std::stoi(font)), nullptr) << font;
    }
}

// Newcomers copy these files. An indented comment, for one, is no comment but values that nobody reads.
TEST(Examples, AreCheckedWithoutAFindingButTheTwoThatTheirCommentsName) {
    std::string findings;
    for (const char* name : {"ball-grid.veka", "op-amp.veka", "resistor.veka"})
        for (const veka::Finding& finding :
             veka::ReportImport(test::ReadFile(test::ProjectFolder("examples") / name)).Findings())
            findings += std::string(name) + ' ' + finding.path + '\n';
    EXPECT_EQ(
        findings,
        R"(op-amp.veka VEK > LOGICSYMBOLS > SYMBOL "OPAMP" > PARTITION "A" > PROPERTYLABELS > PROPLABEL > PROPERTY
resistor.veka VEK > PACKAGES > PACKAGE "R0805" > MOUNTDATA > PACKING > REELPACKINGINFO > T1
)");
}

}  // namespace
