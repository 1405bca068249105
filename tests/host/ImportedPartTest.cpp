#include "host/ImportedPart.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <sstream>

#include "host/Interrupt.h"
#include "support/Files.h"
#include "support/ScriptedUserInterface.h"

namespace {

using host::ImportedPart;
using host::Reading;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StrEq;
using testing::ThrowsMessage;

ImportedPart Read(const std::string& text, const Reading& reading = {}) {
    std::istringstream in(text);
    return host::ReadPart(in, reading);
}

std::vector<std::string> Faults(const std::string& text) {
    return Read(text).faults;
}

TEST(ImportedPart, OfASoundFileHasNoFault) {
    const ImportedPart part = Read("(VEK (PARTGENERAL (MPN A/B)))(FONTS)");
    EXPECT_THAT(part.faults, IsEmpty());
    EXPECT_TRUE(part.HasPart());
    EXPECT_TRUE(part.HasSections());
    EXPECT_EQ(part.Mpn(), "A/B");
    EXPECT_EQ(part.Name(), "A&#47;B");
}

TEST(ImportedPart, OfATruncatedFileTellsTheLevelThatIsOpen) {
    EXPECT_THAT(Faults("(PADS)\n(VEK\n(PACKAGES (PACKAGE\n(NAME P"),
                ElementsAre("it ends inside the level \"NAME\" of line 4, within \"VEK\" of line 2"));
    EXPECT_THAT(Faults("(PADS)\n(VEK"), ElementsAre("it ends inside the level \"VEK\" of line 2"));
    EXPECT_THAT(Faults("(PADS)\n(VEK\n(MPN \"A))\n"),
                ElementsAre("it ends inside a text that begins in line 3"));
}

TEST(ImportedPart, OfAFileWithWrongParenthesesTellsTheLine) {
    EXPECT_THAT(Faults("(VEK)\n))"), ElementsAre("a parenthesis in line 2 closes no level"));
    EXPECT_THAT(
        Faults("(VEK)\n)\n(PADS)"),
        ElementsAre("a parenthesis in line 2 closes no level",
                    "nothing was read from line 3 on: Parser meet unexpected Brace Counting Number, 0 at "
                    "line number 3.!"));
    test::ScriptedUserInterface user;
    EXPECT_THAT(
        Faults("(VEK)\n" + std::string(21, '(')),
        ElementsAre("nothing was read from line 2 on: Parser meet unexpected Brace Counting Number, 21 at "
                    "line number 2.!"));
    EXPECT_THAT(user.messages, IsEmpty()) << "the fault is told once";
}

TEST(ImportedPart, TellsSectionsThatNothingReadsAndPartsThatWereNotKept) {
    EXPECT_THAT(Faults("(VEK)\n(FONT)(VEK)"), ElementsAre("nothing reads the section \"FONT\" of line 2",
                                                          "of 2 parts in the file the last one was kept"));
    EXPECT_THAT(Faults("(VEK)(A)(B)(C)(D)(E)"),
                ElementsAre(HasSubstr("\"A\""), HasSubstr("\"B\""), HasSubstr("\"C\""),
                            "nothing reads 2 more sections"));
}

TEST(ImportedPart, OfAFileThatBreaksOffInItsPartTellsWhyThereIsNone) {
    const auto refused = [](const std::string& text) { host::RequireSections(Read(text)); };
    EXPECT_THAT([&] { refused("(VEK\n(PARTGENERAL (MPN A))"); },
                ThrowsMessage<host::NoPart>(
                    StrEq("\"-\" holds no part: it ends inside the level \"VEK\" of line 1")));
    EXPECT_THAT([&] { refused("%PDF-1.4 )))"); }, ThrowsMessage<host::NoPart>(StrEq("\"-\" holds no part")));
    EXPECT_THAT([] { host::RequirePartNumber(Read("(FONTS)(VEK (PARTGENERAL (MPN A")); },
                ThrowsMessage<host::NoPart>(HasSubstr("inside the level \"MPN\" of line 1, within \"VEK\"")));
}

TEST(ImportedPart, LimitsEndTheImportWithASentence) {
    std::string packages = "(VEK (PACKAGES ";
    for (int i = 0; i < 2'000; ++i) packages += "(PACKAGE)";
    packages += "))";
    Reading reading;
    reading.limits.memory = 1;
    EXPECT_THAT([&] { Read(packages, reading); },
                ThrowsMessage<host::ImportEnded>(StrEq("the import of standard input takes more than 1 MB of "
                                                       "memory; --max-memory raises the limit")));
    reading.limits.memory = 0;
    EXPECT_TRUE(Read(packages, reading).HasPart()) << "0 is no limit";
    reading.limits.time = std::chrono::nanoseconds(1);
    EXPECT_THAT(
        [&] { Read(packages, reading); },
        ThrowsMessage<host::ImportEnded>(HasSubstr("takes longer than 0 s; --max-time raises the limit")));
    reading.limits.time = {};
    EXPECT_TRUE(Read(packages, reading).HasPart());
}

TEST(ImportedPart, AFileThatIsTooLargeIsNotRead) {
    const test::TemporaryDirectory directory;
    const std::string text = "(VEK)" + std::string(1 << 20, '\n');
    const CString file = directory.Write("part.veka", text);
    Reading reading;
    reading.limits.size = 1;
    EXPECT_THAT([&] { host::ReadPart(file, reading); },
                ThrowsMessage<host::SourceError>(
                    HasSubstr("part.veka\" is larger than 1 MB; --max-size raises the limit")));
    EXPECT_THAT([&] { Read(text, reading); },
                ThrowsMessage<host::SourceError>(
                    StrEq("standard input is larger than 1 MB; --max-size raises the limit")));
    reading.limits.size = 0;
    EXPECT_TRUE(host::ReadPart(file, reading).HasPart());
    EXPECT_TRUE(Read(text, reading).HasPart());
}

TEST(ImportedPart, TheUserCanEndTheImport) {
    Reading reading;
    reading.goOn = [](const veka::ImportProgress&) { return false; };
    EXPECT_THAT([&] { Read("(VEK)", reading); },
                ThrowsMessage<host::ImportEnded>(StrEq("the import of standard input was cancelled")));
    std::uint64_t bytes = 0;
    reading.goOn = [&](const veka::ImportProgress& progress) {
        bytes = progress.bytesRead;
        return true;
    };
    EXPECT_TRUE(Read("(VEK)", reading).HasPart());
    EXPECT_EQ(bytes, 5u);
}

TEST(ImportedPart, CtrlCEndsTheImportAndNotTheProgram) {
    host::Interrupt::Forget();
    Reading reading;
    reading.interruptible = true;
    EXPECT_TRUE(Read("(VEK)", reading).HasPart());
    reading.goOn = [](const veka::ImportProgress&) {
        std::raise(SIGINT);
        return true;
    };
    EXPECT_THAT([&] { Read("(VEK)", reading); },
                ThrowsMessage<host::ImportEnded>(HasSubstr("was cancelled")));
    EXPECT_TRUE(host::Interrupt::Happened());
    host::Interrupt::Forget();
}

}  // namespace
