#include "host/KiCadLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "files/Paths.h"
#include "host/Host.h"
#include "host/OutputFile.h"
#include "support/Files.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::string Part(const std::string& number, const std::string& footprint = "F",
                 const std::string& width = "2") {
    return "(VEK (PARTGENERAL (MPN \"" + number + "\"))) (PADS (PAD (PADNAME P) (FILLRECT (W " + width +
           ") (H 1)))) (PADSTACKS (PADSTACK (PADSTACKNAME S) (TOP (CON P)))) (FOOTPRINTS (FOOTPRINT "
           "(FOOTPRINTNAME " +
           footprint + ") (FPINS (FPIN 1 1 (LIBPADSTACK S) (PT 0 0)))))";
}

class KiCadLibraryTest : public testing::Test {
protected:
    std::string Place(const std::string& name) const { return (directory / name.c_str()).GetString(); }
    fs::path At(const std::string& name) const { return veka::ToPath(CString(Place(name))); }
    std::string Read(const std::string& name) const { return test::ReadFile(At(name)); }
    std::string Write(const char* name, const std::string& text) {
        return directory.Write(name, text).GetString();
    }
    int Run(std::vector<std::string> arguments) {
        std::istringstream in;
        out.str("");
        err.str("");
        return host::RunHost(arguments, {in, out, err, false}, nullptr);
    }
    std::vector<std::string> Entries(const std::string& name) const {
        std::vector<std::string> entries;
        for (const fs::directory_entry& entry : fs::directory_iterator(At(name)))
            entries.emplace_back(veka::FromPath(entry.path().filename()).View());
        std::sort(entries.begin(), entries.end());
        return entries;
    }

    test::TemporaryDirectory directory;
    std::ostringstream out, err;
};

TEST_F(KiCadLibraryTest, WritesTheSymbolAndTheFootprints) {
    EXPECT_EQ(Run({Write("a.veka", Part("A")), "--kicad", Place("new/lib")}), 0);
    EXPECT_THAT(Read("new/lib.kicad_sym"), HasSubstr("(symbol \"A\""));
    EXPECT_THAT(Read("new/lib.kicad_sym"), HasSubstr("\"Footprint\" \"lib:F\""));
    EXPECT_THAT(Read("new/lib.pretty/F.kicad_mod"), HasSubstr("(footprint \"F\""));
    EXPECT_THAT(out.str(), HasSubstr("Exported 1 part to "));
    EXPECT_EQ(err.str(), "");
    // Nothing is left of the files that were being written.
    EXPECT_THAT(Entries("new/lib.pretty"), ElementsAre("F.kicad_mod"));
}

TEST_F(KiCadLibraryTest, WhatIsThereStaysAndTheSamePartIsReplaced) {
    const std::string place = Place("lib");
    Run({Write("a.veka", Part("A")), Write("b.veka", Part("B", "G")), "--kicad", place});
    std::string symbols = Read("lib.kicad_sym");
    symbols.insert(symbols.find("(in_bom"), "   (mine \"(\")  ");
    std::ofstream(At("lib.kicad_sym"), std::ios::binary) << symbols;
    std::ofstream(At("lib.pretty/mine.kicad_mod"), std::ios::binary) << "mine";
    EXPECT_EQ(Run({Write("b.veka", Part("B", "G", "5")), "--kicad", place}), 0);
    EXPECT_EQ(Read("lib.kicad_sym"), symbols);
    EXPECT_EQ(Read("lib.pretty/mine.kicad_mod"), "mine");
    EXPECT_THAT(Read("lib.pretty/G.kicad_mod"), HasSubstr("(size 5 1)"));
    EXPECT_THAT(err.str(), HasSubstr("the one that was there was different"));
    EXPECT_EQ(Run({Write("a.veka", Part("A")), "--kicad", place}), 0);
    EXPECT_THAT(Read("lib.kicad_sym"), Not(HasSubstr("mine")));
    EXPECT_EQ(err.str(), "");
}

TEST_F(KiCadLibraryTest, TwoPartsWithDifferentFootprintsOfOneNameAreTold) {
    EXPECT_EQ(
        Run({Write("a.veka", Part("A")), Write("b.veka", Part("B", "F", "5")), "--kicad", Place("lib")}), 0);
    EXPECT_THAT(err.str(), HasSubstr("another part has a different one of this name"));
}

TEST_F(KiCadLibraryTest, AFileThatIsNoLibraryStays) {
    std::ofstream(At("lib.kicad_sym"), std::ios::binary) << "my notes";
    EXPECT_EQ(Run({Write("a.veka", Part("A")), "--kicad", Place("lib")}), 3);
    EXPECT_EQ(Read("lib.kicad_sym"), "my notes");
    EXPECT_THAT(err.str(), HasSubstr("was left as it is: it is no symbol library"));
}

TEST_F(KiCadLibraryTest, AWholeLibraryIsExported) {
    fs::create_directory(At("parts"));
    ASSERT_EQ(Run({Write("a.veka", Part("A/1")), "--library", Place("parts")}), 0) << err.str();
    ASSERT_EQ(Run({Write("b.veka", Part("B")), "--library", Place("parts")}), 0) << err.str();
    fs::create_directory(At("parts/empty"));
    EXPECT_EQ(Run({"--library", Place("parts"), "--kicad", Place("lib")}), 0) << err.str();
    EXPECT_THAT(out.str(), HasSubstr("Exported 2 parts"));
    EXPECT_THAT(Read("lib.kicad_sym"), HasSubstr("(symbol \"A=2F1\""));
    EXPECT_THAT(Read("lib.kicad_sym"), HasSubstr("(symbol \"B\""));
    EXPECT_EQ(Run({"--library", Place("nowhere"), "--kicad", Place("lib")}), 3);
}

TEST_F(KiCadLibraryTest, APartWithoutANumberIsRefused) {
    EXPECT_EQ(Run({Write("a.veka", Part("")), "--kicad", Place("lib")}), 1);
    EXPECT_FALSE(fs::exists(At("lib.kicad_sym")));
}

TEST_F(KiCadLibraryTest, APlaceThatKiCadCannotNameIsRefused) {
    for (const char* name : {"a:b", "con", ".lib", "a=b"})
        EXPECT_EQ(Run({Write("a.veka", Part("A")), "--kicad", Place(name)}), 3) << name;
    EXPECT_EQ(Run({Write("a.veka", Part("A")), "--kicad", Place("x") + "/"}), 3);
    EXPECT_THAT(err.str(), HasSubstr("KiCad takes no library of the name"));
}

TEST_F(KiCadLibraryTest, HostileNamesStayInTheirFolder) {
    const std::string name = "../../x\\\"y)\n" + std::string(300, 'z');
    EXPECT_EQ(Run({Write("a.veka", "(VEK (PARTGENERAL (MPN \"" + name +
                                       "\"))) (FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME \"" + name + "\")))"),
                   "--kicad", Place("lib")}),
              0)
        << err.str();
    const std::vector<std::string> files = Entries("lib.pretty");
    ASSERT_EQ(files.size(), 1u);
    EXPECT_LE(files[0].size(), 210u);
    EXPECT_THAT(Entries(""), testing::IsSupersetOf({"a.veka", "lib.kicad_sym", "lib.pretty"}));
    EXPECT_LE(Entries("").size(), 4u);
}

TEST_F(KiCadLibraryTest, ThePartFilesOfALibraryAreFound) {
    fs::create_directory(At("parts"));
    ASSERT_EQ(Run({Write("a.veka", Part("A")), "--library", Place("parts")}), 0) << err.str();
    ASSERT_EQ(Run({Write("b.txt", Part("B")), "--library", Place("parts")}), 0) << err.str();
    std::ofstream(At("parts/A/notes.txt")) << "x";
    const std::vector<std::string> files = host::PartFilesOf(Place("parts"));
    ASSERT_EQ(files.size(), 2u);
    EXPECT_THAT(files[0], HasSubstr("a.veka"));
    EXPECT_THAT(files[1], HasSubstr("b.txt"));
}

}  // namespace
