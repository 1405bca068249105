#include "host/Solids.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/Host.h"
#include "support/Parsing.h"
#include "support/TerminalText.h"

namespace {

using host::SolidFile;

const char* const kPart =
    "(VEK (PARTGENERAL (UNIT MM)) (PACKAGES (PACKAGE (NAME P) (BODYGEOMETRY (BODYSHAPE (CUBOID (WIDTH 4) "
    "(HEIGHT 2) "
    "(THICKNESS 1)) (STEP (PATH box.step)))))))";

SolidFile File(SolidFile::Format format, const CString& path) {
    return {format, std::string(path.View()), false, {}};
}

TEST(WriteSolids, EachFileIsTriedEvenIfAnotherFails) {
    const test::TemporaryDirectory directory;
    const auto parser = test::Import(kPart);
    std::vector<SolidFile> files{File(SolidFile::Format::Step, directory / "none/x.step"),
                                 File(SolidFile::Format::Gltf, directory / "x.glb")};
    const std::vector<std::string> remarks = host::WriteSolids(
        *parser->GetCVEKA_Manager(), std::string((directory / "part.veka").View()), {}, files);
    EXPECT_EQ(remarks,
              std::vector<std::string>{"package \"P\", body: step: there is no STEP file \"box.step\" in the "
                                       "part's folders"});
    EXPECT_FALSE(files[0].written);
    EXPECT_EQ(files[0].failures, std::vector<std::string>{"the file cannot be written"});
    EXPECT_TRUE(files[1].written);
    EXPECT_TRUE(files[1].failures.empty());
    EXPECT_TRUE(std::filesystem::exists(directory.Path() / "x.glb"));
}

TEST(WriteSolids, StepFilesAreLookedForBesideThePartAndInTheFolders) {
    const test::TemporaryDirectory directory, models;
    const auto parser = test::Import(kPart);
    const auto remarks = [&](const std::string& part, const std::vector<std::string>& folders) {
        std::vector<SolidFile> files;
        return host::WriteSolids(*parser->GetCVEKA_Manager(), part, folders, files);
    };
    std::vector<SolidFile> box{File(SolidFile::Format::Step, models / "box.step")};
    host::WriteSolids(*parser->GetCVEKA_Manager(), "-", {}, box);
    ASSERT_TRUE(box[0].written);
    const std::string part((directory / "part.veka").View()), beside((models / "part.veka").View());
    EXPECT_EQ(remarks(part, {}).size(), 1u);
    EXPECT_TRUE(remarks(part, {models.Path().string()}).empty());
    EXPECT_TRUE(remarks(beside, {}).empty());
    EXPECT_EQ(remarks("-", {}).size(), 1u) << "standard input is beside nothing";
}

TEST(WriteSolids, WithoutASolidSaysSoForEachFile) {
    const test::TemporaryDirectory directory;
    const auto parser = test::Import("(VEK (PARTGENERAL (UNIT MM)))");
    std::vector<SolidFile> files{File(SolidFile::Format::Step, directory / "x.step")};
    host::WriteSolids(*parser->GetCVEKA_Manager(), "part.veka", {}, files);
    EXPECT_FALSE(files[0].written);
    EXPECT_EQ(files[0].failures, std::vector<std::string>{"there is no solid to write"});
    EXPECT_TRUE(directory.Names().empty());
}

TEST(WriteSolids, WhatIsSaidOfNamesInTheFileControlsNoTerminal) {
    const test::TemporaryDirectory directory;
    const std::string evil = '"' + test::EveryByte("\"") + '"';
    const std::string part(
        directory
            .Write("part.veka", "(VEK (PARTGENERAL (UNIT " + evil + ")) (PACKAGES (PACKAGE (NAME " + evil +
                                    ") (MECHANICALPINS (MECHANICALPIN " + evil + " (PT 1 1) (PINSHAPEID " +
                                    evil + "))) (BODYGEOMETRY (BODYSHAPE (CUBOID (NAME " + evil +
                                    ") (WIDTH 0)) (STEP (NAME " + evil + ") (PATH " + evil + ")))))))")
            .View());
    for (const char* option : {"--step", "--gltf"}) {
        std::istringstream in;
        std::ostringstream out, err;
        EXPECT_NE(host::RunHost({part, option, std::string((directory / "x").View())}, {in, out, err, true},
                                nullptr),
                  0);
        EXPECT_EQ(test::TerminalFault(out.str()), "");
        EXPECT_EQ(test::TerminalFault(err.str()), "");
        EXPECT_NE(err.str().find("there is no STEP file"), std::string::npos) << err.str();
    }
}

}  // namespace
