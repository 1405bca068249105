#include "host/SolidOutput.h"

#include <gtest/gtest.h>

#include "host/OutputFile.h"
#include "support/Files.h"
#include "support/Parsing.h"

namespace {

using host::SolidFile;

// These tests run in a program without solids. tests/python writes solids where they are built in.
TEST(SolidOutput, AProgramWithoutSolidsLeavesTheFileAsItIs) {
    if (host::CanWriteSolids()) GTEST_SKIP() << "this program has solids";
    const test::TemporaryDirectory directory;
    const CString path = directory.Write("x.step", "former");
    const auto parser = test::Import("(VEK (PARTGENERAL (MPN A)))");
    EXPECT_THROW(host::WriteSolidOutput(*parser->GetCVEKA_Manager(), "x.veka", {}, SolidFile::Format::Step,
                                        std::string(path.View())),
                 host::SolidsError);
    EXPECT_EQ(test::ReadFile(directory.Path() / "x.step"), "former");
}

TEST(SolidOutput, AFileWithoutADirectoryIsRefused) {
    const test::TemporaryDirectory directory;
    const auto parser = test::Import("(VEK (PARTGENERAL (MPN A)))");
    EXPECT_THROW(host::WriteSolidOutput(*parser->GetCVEKA_Manager(), "x.veka", {}, SolidFile::Format::Step,
                                        std::string((directory / "none/x.step").View())),
                 host::OutputError);
}

}  // namespace
