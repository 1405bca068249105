#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "support/Files.h"
#include "support/ReferenceReader.h"

namespace test {

/// The file of a real part, with what the reference reader reads from the file.
struct RealPart {
    std::filesystem::path path;
    std::string text;
    ReadResult read;
};

/// All real parts; none where the corpus is missing. A program reads them once, however many tests look at
/// them.
inline const std::vector<RealPart>& RealParts() {
    static const std::vector<RealPart> parts = [] {
        std::vector<RealPart> read;
        for (const std::filesystem::path& path : CorpusFiles()) {
            std::string text = ReadFile(path);
            ReadResult result = ReadByReference(text);
            read.push_back({path, std::move(text), std::move(result)});
        }
        return read;
    }();
    return parts;
}

}  // namespace test
