#include "tools/PartSchema.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <map>
#include <sstream>

#include "inspect/Json.h"
#include "model/CVEKA_Manager.h"
#include "model/objects/Objects.h"
#include "support/JsonSchema.h"
#include "support/ModelText.h"
#include "support/Parsing.h"
#include "support/ScriptedUserInterface.h"

namespace {

const test::JsonValue& Schema() {
    static const test::JsonValue schema = [] {
        std::ostringstream text;
        WritePartSchema(text);
        return test::ReadJson(text.str());
    }();
    return schema;
}

/// Where a JSON text departs from the schema of a part.
std::string Error(const std::string& json) {
    return test::SchemaError(Schema(), test::ReadJson(json));
}

/// The text with the first `from` replaced by `to`.
std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t place = text.find(from);
    if (place == std::string::npos) throw std::runtime_error("no " + from);
    return text.replace(place, from.size(), to);
}

/// The JSON of a part with a body of one box.
std::string PartWithABox() {
    CVEKA_Manager part;
    auto package = std::make_unique<CVEKA_Package>();
    package->GetBodyGeometry()->Get3DObjects()->Add(std::make_unique<CVEKA_3DOJ_CUBOID>());
    part.GetVEK()->GetPackages()->GetPackageArr()->Add(std::move(package));
    return test::AsJson(part);
}

TEST(PartSchema, APartWithoutContentMatches) {
    EXPECT_EQ(Error(test::AsJson(CVEKA_Manager())), "");
}

TEST(PartSchema, TheCompleteFileAndTheExamplesMatch) {
    std::vector<std::filesystem::path> files{test::ProjectFolder("tests/data/complete.veka")};
    for (const auto& entry : std::filesystem::directory_iterator(test::ProjectFolder("examples")))
        files.push_back(entry.path());
    EXPECT_GT(files.size(), 3u);
    for (const auto& file : files)
        EXPECT_EQ(Error(test::AsJson(*test::Import(test::ReadFile(file))->GetCVEKA_Manager())), "") << file;
}

TEST(PartSchema, EveryFourthRealPartMatches) {
    VEKA_NEEDS_CORPUS();
    const auto files = test::CorpusFiles();
    for (std::size_t i = 0; i < files.size(); i += 4) {
        const auto& file = files[i];
        test::ScriptedUserInterface user;
        EXPECT_EQ(Error(test::AsJson(*test::Import(test::ReadFile(file))->GetCVEKA_Manager())), "") << file;
    }
}

TEST(PartSchema, AnObjectOfAnUnknownKindIsNull) {
    CVEKA_Manager part;
    auto pad = std::make_unique<CVEKA_Pad>();
    pad->GetCamLayerDrawObjs()->SetSize(1);
    part.GetPadArr()->Add(std::move(pad));
    const std::string json = test::AsJson(part);
    EXPECT_NE(json.find("[null]"), std::string::npos);
    EXPECT_EQ(Error(json), "");
}

TEST(PartSchema, NumbersThatJsonDoesNotHaveAreNames) {
    for (const auto& [text, number] :
         std::map<std::string, double>{{"\"inf\"", std::numeric_limits<double>::infinity()},
                                       {"\"-inf\"", -std::numeric_limits<double>::infinity()},
                                       {"\"nan\"", std::numeric_limits<double>::quiet_NaN()},
                                       {"1e+300", 1e300},
                                       {"-0.5", -0.5}}) {
        CVEKA_Manager part;
        part.GetVEK()->GetPartGeneral()->GetBOM()->SetCost(number);
        const std::string json = test::AsJson(part);
        EXPECT_NE(json.find("\"Cost\":" + text), std::string::npos) << json.substr(0, 500);
        EXPECT_EQ(Error(json), "");
    }
}

TEST(PartSchema, AChangedPartDoesNotMatch) {
    const std::string json = PartWithABox();
    EXPECT_EQ(Error(json), "");
    for (const auto& [from, to] : std::vector<std::pair<std::string, std::string>>{
             {"\"Cost\":0", "\"Cost\":\"0\""},
             {"\"Cost\":0", "\"Cost\":\"-nan\""},
             {"\"Cost\":0", "\"Price\":0"},
             {"\"Cost\":0", "\"Cost\":null"},
             {"\"MPN\":\"\"", "\"MPN\":0"},
             {"\"MPN\":\"\"", "\"MPN\":\"\",\"More\":1"},
             {"\"CPN\":[]", "\"CPN\":[1]"},
             {"\"CommentArr\":[]", "\"CommentArr\":[{}]"},
             {"\"NumberOfPins\":0", "\"NumberOfPins\":0.5"},
             {"\"NumberOfPins\":0", "\"NumberOfPins\":2147483648"},
             {"\"NumberOfPins\":0", "\"NumberOfPins\":-2147483649"},
             {"\"kind\":\"CUBOID\"", "\"kind\":\"SPHERE\""},
             {"\"kind\":\"CUBOID\",", ""}})
        EXPECT_NE(Error(Replaced(json, from, to)), "") << to;
}

}  // namespace
