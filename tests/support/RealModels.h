#pragma once

#include <memory>
#include <vector>

#include "model/CVEKA_Manager.h"
#include "support/Parsing.h"
#include "support/RealParts.h"

namespace test {

/// A real part with the model that the parser makes of the part.
struct RealModel {
    const RealPart& file;
    std::unique_ptr<const CVEK_AsciiParser> parser;

    const CVEKA_Manager& Model() const { return *parser->GetCVEKA_Manager(); }
};

/// All real parts; none where the corpus is missing. A program imports them once, however many tests look at
/// them.
inline const std::vector<RealModel>& RealModels() {
    static const std::vector<RealModel> models = [] {
        std::vector<RealModel> imported;
        for (const RealPart& part : RealParts()) imported.push_back({part, Import(part.text)});
        return imported;
    }();
    return models;
}

}  // namespace test
