// Imports side by side. With TSan this shows that they share nothing but the installed user interface.

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "model/CVEKA_Manager.h"
#include "parser/CVEK_AsciiParser.h"
#include "parser/Import.h"
#include "support/Files.h"
#include "support/ModelText.h"
#include "window/UserInterface.h"

namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 5;

void InThreads(const std::function<void()>& run) {
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) threads.emplace_back(run);
    for (std::thread& thread : threads) thread.join();
}

std::string Imported(const CString& path) {
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(path);
    parser.Parser();
    const std::unique_ptr<CVEKA_Manager> clone(parser.GetCVEKA_Manager()->Clone());
    CVEKA_Manager copy;
    copy = *clone;
    CVEKA_Manager moved;
    moved = std::move(*clone);
    return test::AsJson(copy) + test::AsJson(moved);
}

/// Counts the messages of all threads.
class Counting : public veka::UserInterface {
public:
    void ShowMessage(const CString&) override { ++shown; }
    bool AskYesNo(const CString&) override { return false; }
    CString PickFile(const CString&, const CString&, const CString&, void*) override { return {}; }
    CString PickDirectory(const CString&, const CString&, void*) override { return {}; }
    std::unique_ptr<veka::DialogWindow> MakeDialogWindow(const veka::DialogTemplate&, veka::DialogEvents&,
                                                         void*) override {
        return nullptr;
    }

    std::atomic<int> shown = 0;
};

TEST(Threads, ImportSideBySideWithAParserEach) {
    std::vector<CString> paths{veka::FromPath(test::ProjectFolder("tests") / "data/complete.veka")};
    for (const auto& entry : std::filesystem::directory_iterator(test::ProjectFolder("examples")))
        if (entry.path().extension() == ".veka") paths.push_back(veka::FromPath(entry.path()));
    std::vector<std::string> expected;
    for (const CString& path : paths) expected.push_back(Imported(path));
    std::atomic<int> wrong = 0;
    InThreads([&] {
        for (int round = 0; round < kRounds; ++round)
            for (size_t i = 0; i < paths.size(); ++i)
                if (Imported(paths[i]) != expected[i]) ++wrong;
    });
    EXPECT_EQ(wrong, 0);
}

TEST(Threads, ShowTheirMessagesThroughTheOneUserInterface) {
    const test::TemporaryDirectory directory;
    const CString path = directory.Write("part.veka", "(A)\n" + std::string(21, '('));
    Counting counting;
    veka::UserInterface* former = veka::InstallUserInterface(&counting);
    InThreads([&] {
        CVEK_AsciiParser parser;
        parser.SetVEKAsciiFilePath(path);
        parser.Parser();
    });
    veka::InstallUserInterface(former);
    EXPECT_EQ(counting.shown, kThreads);
}

TEST(Threads, ImportsAreWatchedAndCancelledOneByOne) {
    std::string text = "(PADS ";
    for (int i = 0; i < 5'000; ++i) text += "(PAD (PADNAME P)\n(FILLCIRCLE (PT 1 2) (D 0.5)))";
    text += ")";
    std::atomic<int> number = 0;
    std::stop_source stop;
    InThreads([&] {
        const bool cancelled = number++ % 2 == 0;
        CVEK_AsciiParser parser;
        veka::ImportOptions options;
        options.progressInterval = {};
        if (cancelled) {
            options.stop = stop.get_token();
            options.progress = [&](const veka::ImportProgress&) { stop.request_stop(); };
        }
        const veka::ImportResult result = veka::ImportBytes(parser, text, options);
        EXPECT_EQ(result.end == veka::ImportResult::End::Cancelled, cancelled);
        EXPECT_EQ(parser.GetCVEKA_Manager()->GetPadArr()->GetSize(), cancelled ? 0 : 5'000);
    });
}

}  // namespace
