#include "CheckImport.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "CostLimit.h"
#include "files/Paths.h"
#include "model/CVEKA_Manager.h"
#include "support/PlainImport.h"
#include "support/ScriptedUserInterface.h"
#include "support/Told.h"

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

}  // namespace

void CheckImport(const CString& path) {
    CVEK_AsciiParser parser, plain;
    const std::unique_ptr<CVEKA_Manager> model(parser.GetCVEKA_Manager());
    const std::unique_ptr<CVEKA_Manager> plainModel(plain.GetCVEKA_Manager());
    parser.SetVEKAsciiFilePath(path);
    const auto import = [&] {
        const CostLimit limit(std::filesystem::file_size(veka::ToPath(path)));
        parser.Parser();
    };
    Require(Run(import) == Run([&] { test::ImportPlainly(path, plain); }),
            "the import says what the plain procedure says");
    parser.SetCVEKA_Manager(nullptr);
    plain.SetCVEKA_Manager(nullptr);

    const std::string json = test::AsJson(*model);
    Require(json == test::AsJson(*plainModel), "the import gives what the plain procedure gives");
    const std::unique_ptr<CVEKA_Manager> clone(model->Clone());
    *plainModel = *clone;
    CVEKA_Manager moved;
    moved = std::move(*plainModel);
    Require(json == test::AsJson(moved), "a copy of a clone, moved, is the same");
    Require(json == test::AsJson(*model), "to copy a model does not change it");
}

}  // namespace fuzz
