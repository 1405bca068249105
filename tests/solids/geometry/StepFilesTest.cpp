#include "geometry/StepFiles.h"

#include <gtest/gtest.h>

#include <TopoDS_Shape.hxx>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <thread>

#include "geometry/ShapeBytes.h"
#include "geometry/SolidFiles.h"
#include "support/Children.h"
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

TEST(StepFiles, WithoutAShapeGiveAReason) {
    const Folders folders;
    const geometry::step_files files({folders.part});
    int number = 0;
    for (const char* content :
         {"", "garbage", "ISO-10303-21;\nHEADER;\nENDSEC;\nDATA;\nENDSEC;\nEND-ISO-10303-21;\n"}) {
        const std::string name = "broken" + std::to_string(number++) + ".step";
        folders.Write(folders.Place(name.c_str()), content);
        EXPECT_NE(FailureOf(files, name), "") << content;
    }
}

/// STEP files of different bodies, small and large.
std::vector<std::string> WholeFiles() {
    const geometry::vector zero, x{1, 0, 0}, z{0, 0, 1};
    CPCDrawObjArray outline;
    outline.Add(new CPCLineSeg(-2, -1, 2, -1));
    outline.Add(new CPCLineSeg(2, -1, 2, 1));
    auto arc = std::make_unique<CPCArc>();
    arc->SetRadius(std::sqrt(5));
    arc->SetStartAngle(std::atan2(1, 2) * 180 / 3.14159265358979);
    arc->SetEndAngle(std::atan2(1, -2) * 180 / 3.14159265358979);
    outline.Add(arc.release());
    outline.Add(new CPCLineSeg(-2, 1, -2, -1));
    const std::vector<geometry::NamedSolid> solids{
        {"box", std::make_shared<geometry::cuboid>(zero, zero, zero, 2, 3, 4, zero, false)},
        {"ring", std::make_shared<geometry::donut>(zero, x, z, 1, 2, 1, x, false)},
        {"ball", std::make_shared<geometry::sphere>(x, 2, z, false)},
        {"prism", std::make_shared<geometry::pillar>(z, x, z, outline, CPCPolygonArray(), 3, x, false)}};
    std::vector<std::string> files{Box()};
    const test::TemporaryDirectory directory;
    const std::string path(static_cast<const char*>(directory / "whole.step"));
    for (std::size_t count : {std::size_t{2}, solids.size()}) {
        geometry::WriteStep(path, {solids.end() - static_cast<std::ptrdiff_t>(count), solids.end()});
        files.push_back(test::ReadFile(path));
    }
    return files;
}

/// A place of a text behind one of its bytes `before`, at random.
std::size_t PlaceBehind(const std::string& text, char before, std::minstd_rand& random) {
    const std::size_t found = text.find(before, random() % text.size());
    return found == std::string::npos ? text.size() : found + 1;
}

/// A STEP file with a few of the faults that files have: bytes, numbers, references and lines that are wrong,
/// and an end that is missing.
std::string Broken(std::string text, std::minstd_rand& random) {
    for (unsigned faults = 1 + random() % 4; faults > 0 && !text.empty(); --faults) {
        const std::size_t at = random() % text.size();
        const auto replaceNumber = [&](char before, const std::string& number) {
            const std::size_t begin = PlaceBehind(text, before, random);
            const std::size_t end = std::min(text.find_first_not_of("0123456789.+-E", begin), text.size());
            if (begin < text.size()) text.replace(begin, end - begin, number);
        };
        switch (random() % 8) {
            case 0:
                text[at] = static_cast<char>(random());
                break;
            case 1:
                text.erase(at, random() % 40);
                break;
            case 2:
                text.insert(at, text.substr(random() % text.size(), random() % 40));
                break;
            case 3:
                text.resize(at);
                break;
            case 4: {
                const char* const numbers[] = {"0.",   "-1.",         "1.E308", "1.E-308",
                                               "1.E9", "99999999999", "NAN"};
                replaceNumber(random() % 2 ? ',' : '(', numbers[random() % std::size(numbers)]);
                break;
            }
            case 5:  // refers to another entity, perhaps to itself
                replaceNumber('#', std::to_string(random() % 300));
                break;
            case 6: {  // a line twice, so that its entity is defined twice
                const std::size_t begin = PlaceBehind(text, '\n', random);
                text.insert(begin, text.substr(begin, PlaceBehind(text, '\n', random) % 200));
                break;
            }
            default: {
                const std::size_t begin = PlaceBehind(text, '\n', random);
                text.erase(begin, text.find('\n', begin) - begin);
                break;
            }
        }
    }
    return text;
}

// Some of these files make the modeller crash, and some make it hang. `VEKA_ALL_BROKEN_STEP_FILES=1` reads
// all of them.
TEST(StepFiles, ThatAreBrokenEndNothingButTheirReader) {
    const bool all = std::getenv("VEKA_ALL_BROKEN_STEP_FILES") != nullptr;
    const Folders folders;
    const std::vector<std::string> whole = WholeFiles();
    geometry::step_limits limits;
    limits.time = std::chrono::seconds(5);
    std::minstd_rand random(1);
    std::map<std::string, int> outcomes;
    for (int round = 0; round < (all ? 200 : 12); ++round) {
        const std::string name = "broken" + std::to_string(round) + ".step";
        folders.Write(folders.Place(name.c_str()), Broken(whole[random() % whole.size()], random));
        // Each file has the whole time of all files.
        const geometry::step_files files({folders.part}, geometry::step_files::FindReader(), limits);
        const auto start = std::chrono::steady_clock::now();
        const std::string failure = FailureOf(files, name),
                          has = "the STEP file \"" + name + "\" has no shape: ";
        EXPECT_LT(std::chrono::steady_clock::now() - start, limits.time + std::chrono::seconds(20)) << round;
        EXPECT_TRUE(failure.empty() || failure.starts_with(has)) << failure;
        ++outcomes[failure.empty() ? "has a shape" : failure.substr(has.size())];
    }
    for (const auto& [outcome, count] : outcomes) std::printf("%4d %s\n", count, outcome.c_str());
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

/// Puts a link to a directory in the place of another one and the directory back, for as long as it is let.
void ExchangeForLink(const fs::path& directory, const fs::path& target) {
    const fs::path hidden = directory.string() + "-hidden";
    for (;;) {
        std::error_code error;
        fs::rename(directory, hidden, error);
        fs::create_directory_symlink(target, directory, error);
        std::this_thread::sleep_for(std::chrono::microseconds(50));
        fs::remove(directory, error);
        fs::rename(hidden, directory, error);
        std::this_thread::sleep_for(std::chrono::microseconds(50));
    }
}

TEST(StepFiles, ALinkThatAnotherUserPutsInTheWayLeadsNobodyOutside) {
    const Folders folders;
    const fs::path outside = folders.directory.Path() / "outside";
    fs::create_directory(outside);
    for (const fs::path& path : {folders.directory.Path(), outside}) fs::permissions(path, fs::perms(0755));
    fs::permissions(folders.part, fs::perms(0777));
    folders.Write((outside / "x.step").string(), "secret\n");
    folders.Write(folders.Place("models/x.step"), "open\n");
    const std::string log(static_cast<const char*>(folders.directory / "log"));
    const std::string reader = Script(folders, "cat >>" + log);
    const test::ChildBeside attacker([&] {
        if (test::BecomeNobody()) ExchangeForLink(folders.Place("models"), outside);
    });
    if (!attacker.Runs()) GTEST_SKIP() << "This user cannot become another.";
    int started = 0;
    for (int round = 0; round < 20000 && started < 300; ++round)
        if (FailureOf(geometry::step_files({folders.part}, reader), "models/x.step").ends_with("no shape"))
            ++started;
    EXPECT_GT(started, 0);
    const std::string read = test::ReadFile(log);
    EXPECT_EQ(read.find("secret"), std::string::npos);
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
