#include "inspect/Json.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "model/CVEKA_Manager.h"
#include "model/objects/Objects.h"

namespace {

using veka::JsonString;

template <class Record>
std::string Text(const Record& record) {
    std::ostringstream out;
    veka::Json(out).Write(record);
    return out.str();
}

TEST(JsonString, Utf8StandsAsItIs) {
    EXPECT_EQ(JsonString("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"),
              "\"a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\"");
}

TEST(JsonString, WhatJsonReservesIsEscaped) {
    EXPECT_EQ(JsonString(std::string_view("a\"b\\c\n\0\x7F", 8)), "\"a\\\"b\\\\c\\u000a\\u0000\\u007f\"");
}

TEST(JsonString, WhatControlsATerminalIsEscaped) {
    EXPECT_EQ(JsonString("\xC2\x9B[2J\xC2\x80\xC2\xA0\xE2\x80\xAE"), "\"\\u009b[2J\\u0080\xC2\xA0\\u202e\"");
}

TEST(JsonString, AByteThatIsNotUtf8StandsAsItsCharacter) {
    EXPECT_EQ(JsonString("\x80"), "\"\xF4\x8F\xBE\x80\"") << "U+10FF80";
    EXPECT_EQ(JsonString("\xFF"), "\"\xF4\x8F\xBF\xBF\"") << "U+10FFFF";
    for (const char* broken : {"\xC3", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80",
                               "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xE2\x82"})
        EXPECT_EQ(JsonString(broken).size(), 2 + 4 * std::string_view(broken).size()) << broken;
}

TEST(JsonString, SuchACharacterInTheTextIsTakenForItsBytes) {
    EXPECT_EQ(JsonString("\xF4\x8F\xBE\x80").size(), 2u + 16u);
    EXPECT_EQ(JsonString("\xF4\x8F\xBD\xBF").size(), 2u + 4u) << "the character before those";
}

TEST(Json, WritesARecordByTheNamesOfItsFields) {
    CVEKA_USGKey key;
    key.SetType("a");
    CStringArray values;
    values.Add("b");
    values.Add("");
    key.SetValue(values);
    EXPECT_EQ(Text(key), "{\"Type\":\"a\",\"Value\":[\"b\",\"\"]}\n");
}

TEST(Json, WritesNumbersSoThatTheyReadBack) {
    CVEKA_Coordinate point;
    point.SetX(0.1);
    point.SetY(std::numeric_limits<double>::infinity());
    point.SetZ(-std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(Text(point), "{\"X\":0.1,\"Y\":\"inf\",\"Z\":\"nan\"}\n");
}

TEST(Json, WritesObjectsWithTheirKind) {
    CVEKA_Pad pad;
    auto wire = std::make_unique<CVEKA_3DOJ_WIRE>();
    wire->L = 2;
    pad.GetCamLayerDrawObjs()->Add(std::move(wire));
    pad.GetCamLayerDrawObjs()->SetSize(2);
    pad.GetCamLayerDrawObjs()->Add(std::make_unique<CVEKA_3DObject>());
    const std::string text = Text(pad);
    EXPECT_NE(text.find("[{\"kind\":\"WIRE\",\"Type\":34,"), std::string::npos) << text;
    EXPECT_NE(text.find("\"T\":0,\"L\":2},null,{\"kind\":\"3DObject\",\"Type\":-1,"), std::string::npos)
        << text;
}

TEST(Json, WritesFlagsAndLists) {
    CVEKA_3DOJ_BAR bar;
    bar.CLINCH = true;
    EXPECT_NE(Text(bar).find("\"CLINCH\":1,"), std::string::npos);
    CVEKA_PadStack stack;
    stack.AddStandardizationPadName("n");
    EXPECT_NE(Text(stack).find("\"StandardizationPadNames\":[\"n\"]"), std::string::npos);
}

}  // namespace
