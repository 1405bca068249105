#include "CheckImport.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "CostLimit.h"
#include "files/Paths.h"
#include "model/CVEKA_Manager.h"
#include "model/PartIndex.h"
#include "parser/Import.h"
#include "support/ModelText.h"
#include "support/ReferenceImport.h"
#include "support/ScriptedUserInterface.h"

namespace fuzz {

namespace {

void Require(bool condition, const char* what) {
    if (condition) return;
    std::fprintf(stderr, "not so: %s\n", what);
    std::abort();
}

/// Runs an import; returns what it said, messages and exception.
std::vector<std::string> Run(const std::function<void()>& import) {
    test::ScriptedUserInterface user;
    try {
        import();
    } catch (const std::exception& error) {
        user.messages.emplace_back(error.what());
    }
    return user.messages;
}

/// Imports a text into a model that has a part before. Returns nothing where the import raised.
std::optional<veka::ImportResult> ImportInto(CVEK_AsciiParser& parser, std::string_view text,
                                             const veka::ImportOptions& options) {
    veka::ImportBytes(parser, "(VEK (PARTGENERAL (MPN OLD)))(PADS (PAD (PADNAME OLD)))", {});
    try {
        return veka::ImportBytes(parser, text, options);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}  // namespace

void CheckImport(const CString& path) {
    CVEK_AsciiParser parser, reference;
    const std::unique_ptr<CVEKA_Manager> model(parser.GetCVEKA_Manager());
    const std::unique_ptr<CVEKA_Manager> referenceModel(reference.GetCVEKA_Manager());
    parser.SetVEKAsciiFilePath(path);
    const auto import = [&] {
        const CostLimit limit(std::filesystem::file_size(veka::ToPath(path)));
        parser.Parser();
    };
    Require(Run(import) == Run([&] { test::ImportByReference(path, reference); }),
            "the import says what the reference import says");
    parser.SetCVEKA_Manager(nullptr);
    reference.SetCVEKA_Manager(nullptr);

    const std::string json = test::AsJson(*model);
    Require(json == test::AsJson(*referenceModel), "the import gives what the reference import gives");
    const std::unique_ptr<CVEKA_Manager> clone(model->Clone());
    *referenceModel = *clone;
    CVEKA_Manager moved;
    moved = std::move(*referenceModel);
    Require(json == test::AsJson(moved), "a copy of a clone, moved, is the same");
    Require(json == test::AsJson(*model), "to copy a model does not change it");
}

void CheckLimits(std::string_view text) {
    using End = veka::ImportResult::End;
    CVEK_AsciiParser unlimited, before;
    const std::optional<veka::ImportResult> whole = ImportInto(unlimited, text, {});
    ImportInto(before, "", {});
    const std::string told = test::AsJson(*unlimited.GetCVEKA_Manager());
    const std::string toldBefore = test::AsJson(*before.GetCVEKA_Manager());
    if (!whole) return;  // a level that misses a child
    const veka::PartIndex index(*unlimited.GetCVEKA_Manager());
    veka::FindDeadNames(index);
    veka::JoinPins(index);

    std::minstd_rand random(static_cast<unsigned>(std::hash<std::string_view>()(text)));
    for (int round = 0; round < 4; ++round) {
        std::stop_source stop;
        veka::ImportOptions options;
        options.stop = stop.get_token();
        int calls = static_cast<int>(random() % 8);
        const auto kind = static_cast<unsigned>(random() % 3);
        if (kind == 0) options.memoryLimit = random() % (whole->memory + 2);
        if (kind == 1) options.byteLimit = random() % (text.size() + 2);
        if (kind == 2) {
            options.progressInterval = {};
            options.progress = [&](const veka::ImportProgress& progress) {
                Require(progress.bytesRead <= text.size(), "no more bytes are told than there are");
                if (--calls < 0) stop.request_stop();
            };
        }
        CVEK_AsciiParser parser;
        const std::optional<veka::ImportResult> result = ImportInto(parser, text, options);
        Require(result.has_value(), "no limit makes an import raise");
        const bool completed = result->end == End::Completed;
        if (kind == 0)
            Require(completed == (options.memoryLimit >= whole->memory),
                    "the limit of memory is that of the count");
        if (kind == 1)
            Require(completed == (options.byteLimit >= text.size()), "the limit of bytes is the size");
        Require(test::AsJson(*parser.GetCVEKA_Manager()) == (completed ? told : toldBefore),
                "an import changes all or nothing");
    }
}

}  // namespace fuzz
