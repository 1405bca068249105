#include "tools/Reference.h"

#include <gtest/gtest.h>

#include <sstream>

#include "inspect/Description.h"

namespace {

std::string Reference() {
    std::ostringstream text;
    WriteReference(text);
    return text.str();
}

void ExpectEntry(const std::string& declaration, const std::string& text) {
    const std::string entry = "/** @" + declaration + "\n    @brief " + text + " */\n";
    EXPECT_NE(Reference().find(entry), std::string::npos) << entry;
}

TEST(Reference, DocumentsTheAccessorsOfEachKindOfField) {
    ExpectEntry("fn CString CVEKA_BOM::GetUnit() const", "Currency of the cost.");
    ExpectEntry("fn void CVEKA_BOM::SetUnit(CString value)", "Sets `Unit`: currency of the cost.");
    ExpectEntry("fn double CVEKA_BOM::GetCost() const", "Price of one piece.");
    ExpectEntry("fn void CVEKA_PartGeneral::SetNumberOfPins(int value)",
                "Sets `NumberOfPins`: number of pins.");
    ExpectEntry("fn void CVEKA_PartGeneral::GetCPNArr(CStringArray& list) const",
                "Company part numbers. Fills the list that is given.");
    ExpectEntry("fn void CVEKA_PartGeneral::SetCPNArr(const CStringArray& list)",
                "Replaces `CPN`: company part numbers.");
    ExpectEntry("fn void CVEKA_PadStack::GetStandardizationPadNames(CStringArray& list) const",
                "Distinct names of the padstack and of its pads. Fills the list that is given.");
    ExpectEntry("fn void CVEKA_PartGeneral::SetBOM(const CVEKA_BOM* value)",
                "Copies into `BOM`: entry in the bill of materials. Null raises `CInvalidArgException`.");
}

TEST(Reference, DocumentsBothGettersOfASubRecord) {
    const std::string text = "Entry in the bill of materials. The record keeps the ownership.";
    ExpectEntry("fn CVEKA_BOM* CVEKA_PartGeneral::GetBOM()", text);
    ExpectEntry("fn const CVEKA_BOM* CVEKA_PartGeneral::GetBOM() const", text);
    ExpectEntry("fn CVEKA_PowerRailArray* CVEKA_Electrical::GetPowerRails() const",
                "Supply nets of the part. The record keeps the ownership.");
    EXPECT_EQ(Reference().find("GetPowerRails()\n"), std::string::npos) << "it has one getter only";
}

TEST(Reference, DocumentsPublicFields) {
    ExpectEntry("var double CVEKA_3DOJ_CUBOID::WIDTH", "Size along X.");
    ExpectEntry("var Owned<CVEKA_3DObjectArray> CVEKA_3DOJ_PILLAR::BOUNDARY",
                "Lines and arcs of the outline.");
    ExpectEntry("var bool CVEKA_3DOJ_BAR::CLINCH", "True if the end of the lead is clinched.");
}

TEST(Reference, DocumentsEveryFieldOnce) {
    const std::string reference = Reference();
    for (const veka::RecordDescription* record : veka::AllDescriptions()) {
        for (const veka::FieldDescription& field : record->fields) {
            const std::string name = std::string(field.owner->name) + "::" +
                                     std::string(field.getterName.empty() ? field.name : field.getterName);
            const std::string ending = field.getterName.empty() ? "\n" : "(";
            const std::size_t place = reference.find(name + ending);
            EXPECT_NE(place, std::string::npos) << name;
            const bool two = field.content && field.givesConstant;
            EXPECT_EQ(reference.find(name + ending, place + 1) != std::string::npos, two) << name;
        }
    }
}

}  // namespace
