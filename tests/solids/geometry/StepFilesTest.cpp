#include "geometry/StepFiles.h"

#include <gtest/gtest.h>

#include <TopoDS_Shape.hxx>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

#include "geometry/ShapeBytes.h"
#include "geometry/SolidFiles.h"
#include "support/Files.h"

namespace {

namespace fs = std::filesystem;

std::string Box() {
    const test::TemporaryDirectory directory;
    const std::string path(static_cast<const char*>(directory / "box.step"));
    const geometry::vector zero;
    geometry::WriteStep(
        path, {{"box", std::make_shared<geometry::cuboid>(zero, zero, zero, 2, 3, 4, zero, false)}});
    return test::ReadFile(path);
}

/// A folder with a part's STEP files, and one beside it.
struct Folders {
    test::TemporaryDirectory directory;
    std::string part{static_cast<const char*>(directory / "part")};

    Folders() {
        fs::create_directory(part);
        fs::create_directory(part + "/models");
    }
    std::string Place(const char* name) const { return part + "/" + name; }
    void Write(const std::string& path, const std::string& content) const {
        std::ofstream(path, std::ios::binary) << content;
    }
};

std::string FailureOf(const geometry::step_files& files, const std::string& name) {
    try {
        files.Read(name);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

TEST(StepFiles, AreFoundInTheirFoldersInOrder) {
    const Folders folders;
    folders.Write(folders.Place("models/box.step"), Box());
    const geometry::step_files files({"/nowhere", folders.part});
    EXPECT_FALSE(files.Read("models/box.step").IsNull());
    EXPECT_FALSE(files.Read("models\\box.step").IsNull()) << "as other systems write it";
    EXPECT_FALSE(files.Read(folders.Place("models/box.step")).IsNull()) << "an absolute name inside";
    EXPECT_FALSE(geometry::step_files({"/nowhere", folders.Place("models")}).Read("box.step").IsNull());
}

TEST(StepFiles, OutsideOfTheFoldersAreRefusedByName) {
    const Folders folders;
    const std::string outside(static_cast<const char*>(folders.directory / "secret.step"));
    folders.Write(outside, Box());
    fs::create_symlink(outside, folders.Place("link.step"));
    fs::create_directory_symlink(fs::path(outside).parent_path(), folders.Place("up"));
    const geometry::step_files files({folders.part});
    for (const std::string& name :
         {outside, std::string("../secret.step"), std::string("models/../../secret.step"),
          std::string("link.step"), std::string("up/secret.step"), std::string("..\\secret.step"),
          std::string("../none.step"), std::string("/none.step")})
        EXPECT_EQ(FailureOf(files, name),
                  "the STEP file \"" + name + "\" lies outside of the part's folders and is not read");
    EXPECT_EQ(FailureOf(files, "none.step"), "there is no STEP file \"none.step\" in the part's folders");
    EXPECT_EQ(FailureOf(files, "models"), "there is no STEP file \"models\" in the part's folders");
    EXPECT_EQ(FailureOf(files, std::string("a\0b", 3)).substr(0, 8), "there is");
    EXPECT_EQ(FailureOf(geometry::step_files({}), "x.step"),
              "there is no STEP file \"x.step\" in the part's folders");
}

TEST(StepFiles, BrokenFilesGiveAReasonAndEndNothing) {
    const Folders folders;
    const geometry::step_files files({folders.part});
    const std::string box = Box();
    int number = 0;
    const auto read = [&](const std::string& content) {
        const std::string name = "broken" + std::to_string(number++) + ".step";
        folders.Write(folders.Place(name.c_str()), content);
        return FailureOf(files, name);
    };
    EXPECT_EQ(read(box), "");
    EXPECT_NE(read(""), "");
    EXPECT_NE(read("garbage"), "");
    EXPECT_NE(read("ISO-10303-21;\nHEADER;\nENDSEC;\nDATA;\nENDSEC;\nEND-ISO-10303-21;\n"), "");
    // Whatever comes of it, the program goes on.
    std::minstd_rand random(1);
    for (int round = 0; round < 8; ++round) {
        std::string broken = box;
        for (int change = 0; change < 3; ++change) {
            const size_t at = random() % broken.size();
            switch (random() % 4) {
                case 0:
                    broken[at] = static_cast<char>(random());
                    break;
                case 1:
                    broken.erase(at, random() % 40);
                    break;
                case 2:
                    broken.insert(at, broken.substr(random() % broken.size(), random() % 40));
                    break;
                default:
                    broken.resize(at);
                    break;
            }
            if (broken.empty()) break;
        }
        const std::string failure = read(broken);
        EXPECT_TRUE(failure.empty() || failure.starts_with("the STEP file \"broken")) << failure;
    }
}

TEST(StepFiles, ADirectoryAndAPipeAreNoStepFiles) {
    const Folders folders;
    const geometry::step_files files({folders.part});
    if (std::system(("mkfifo " + folders.Place("pipe.step")).c_str()) != 0)
        GTEST_SKIP() << "there is no mkfifo";
    EXPECT_EQ(FailureOf(files, "pipe.step"), "there is no STEP file \"pipe.step\" in the part's folders");
}

/// A program that stands in for the reader.
std::string Script(const Folders& folders, const std::string& commands) {
    const std::string path(static_cast<const char*>(folders.directory / "reader"));
    folders.Write(path, "#!/bin/sh\n" + commands + "\n");
    fs::permissions(path, fs::perms::owner_all);
    return path;
}

TEST(StepFiles, AReaderThatFailsOrHangsOrLiesGivesAReason) {
    const Folders folders;
    folders.Write(folders.Place("x.step"), "x");
    const auto failure = [&](const std::string& commands, geometry::step_limits limits = {}) {
        const geometry::step_files files({folders.part}, Script(folders, commands), limits);
        return FailureOf(files, "x.step");
    };
    const std::string has = "the STEP file \"x.step\" has no shape: ";
    EXPECT_EQ(failure("kill -SEGV $$"), has + "it is damaged or needs too much memory");
    EXPECT_EQ(failure("exit 1"), has + "it is damaged or needs too much memory");
    EXPECT_EQ(failure("echo hello"), has + "it has no shape");
    EXPECT_NE(failure("printf 'veka-shape 1\\nnonsense'"), "");
    geometry::step_limits limits;
    limits.time = std::chrono::milliseconds(200);
    EXPECT_EQ(failure("exec sleep 60", limits), has + "it takes too long");
    EXPECT_EQ(failure("exec yes", limits).substr(0, has.size() + 3), has + "it ") << "output without an end";
    limits = {};
    limits.file_size = 1000;
    EXPECT_EQ(failure("exec yes", limits), has + "its shape is too large");
    folders.Write(folders.Place("x.step"), std::string(1001, 'x'));
    EXPECT_EQ(failure("exit 0", limits), has + "it is too large");
    const geometry::step_files none({folders.part}, "");
    EXPECT_EQ(FailureOf(none, "x.step"), has + "there is no program veka-step-reader to read it");
    const geometry::step_files missing({folders.part}, "/nowhere/reader");
    EXPECT_EQ(FailureOf(missing, "x.step"), has + "the program that reads STEP files cannot be started");
}

TEST(StepFiles, AllFilesTogetherHaveALimitOnTime) {
    const Folders folders;
    for (const char* name : {"1.step", "2.step", "3.step"}) folders.Write(folders.Place(name), "x");
    geometry::step_limits limits;
    limits.time = std::chrono::milliseconds(150);
    limits.all_time = std::chrono::milliseconds(200);
    const geometry::step_files files({folders.part}, Script(folders, "exec sleep 60"), limits);
    EXPECT_NE(FailureOf(files, "1.step"), "");
    EXPECT_NE(FailureOf(files, "2.step"), "");
    EXPECT_EQ(FailureOf(files, "3.step"),
              "the STEP file \"3.step\" has no shape: the STEP files of this part take too long");
}

TEST(StepFiles, AreReadOnce) {
    const Folders folders;
    folders.Write(folders.Place("x.step"), "x");
    const std::string log(static_cast<const char*>(folders.directory / "log"));
    const geometry::step_files files({folders.part}, Script(folders, "echo run >>" + log + "; exit 1"));
    EXPECT_EQ(FailureOf(files, "x.step"), FailureOf(files, "./x.step").replace(15, 2, ""));
    EXPECT_EQ(test::ReadFile(log), "run\n");
}

TEST(StepReader, WithoutItsLimitsSaysHowItIsUsed) {
    const std::string reader = geometry::step_files::FindReader();
    ASSERT_NE(reader, "") << "the reader stands beside the tests";
    EXPECT_NE(std::system((reader + " 2>/dev/null </dev/null").c_str()), 0);
}

TEST(ShapeBytes, AreTheShapeAgain) {
    const Folders folders;
    folders.Write(folders.Place("box.step"), Box());
    const TopoDS_Shape box = geometry::step_files({folders.part}).Read("box.step");
    EXPECT_EQ(geometry::MakeTriangles(geometry::FromBytes(geometry::ToBytes(box))), "");
    EXPECT_THROW(geometry::FromBytes(""), std::runtime_error);
    EXPECT_THROW(geometry::FromBytes("veka-shape 2\n"), std::runtime_error);
}

}  // namespace
