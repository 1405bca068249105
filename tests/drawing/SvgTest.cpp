#include "drawing/Svg.h"

#include <gmock/gmock.h>

#include <fstream>

#include "drawing/Drawn.h"

namespace {

using namespace test;
using testing::HasSubstr;
using testing::Not;

/// The names of elements that are open at the end, or the first thing that no XML has; empty for a text that
/// is well formed, as far as these files go.
std::string XmlFault(std::string_view text) {
    std::vector<std::string> open;
    size_t roots = 0;
    for (size_t i = 0; i < text.size();) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte < 0x20 && byte != '\n' && byte != '\t') return "a control character";
        if (text[i] == '&') {
            const size_t end = text.find(';', i);
            const std::string_view name = text.substr(i, end - i);
            if (name != "&amp" && name != "&lt" && name != "&gt" && name != "&quot") return "a bad entity";
        }
        if (text[i] != '<') {
            if (byte >= 0x80) {
                const size_t length = veka::Utf8Length(text.substr(i));
                if (length == 0) return "no UTF-8";
                i += length;
                continue;
            }
            ++i;
            continue;
        }
        const size_t end = text.find('>', i);
        if (end == std::string_view::npos) return "an open tag";
        const std::string_view tag = text.substr(i + 1, end - i - 1);
        if (tag.find('<') != std::string_view::npos) return "a tag in a tag";
        if (std::count(tag.begin(), tag.end(), '"') % 2 != 0) return "an open attribute";
        i = end + 1;
        if (tag[0] == '?') continue;
        const std::string name(tag.substr(tag[0] == '/', tag.find_first_of(" /", 1) - (tag[0] == '/')));
        if (tag[0] == '/') {
            if (open.empty() || open.back() != tag.substr(1)) return "a wrong end of " + std::string(tag);
            open.pop_back();
        } else if (tag.back() != '/') {
            if (open.empty() && ++roots > 1) return "two roots";
            open.push_back(name);
        }
    }
    return open.empty() ? "" : "open: " + open.back();
}

TEST(WriteSvg, WritesMillimetresForMillimetres) {
    const std::string svg = WriteSvg(Draw("(FILLCIRCLE (D 10) (PT 3 4))"), Side::Top, Theme::Dark);
    EXPECT_EQ(XmlFault(svg), "");
    EXPECT_THAT(svg, HasSubstr("width=\"11mm\" height=\"11mm\" viewBox=\"0 0 11 11\""));
    EXPECT_THAT(svg, HasSubstr("<circle cx=\"5.5\" cy=\"5.5\" r=\"5\"/>"));
    EXPECT_THAT(svg, HasSubstr("<title>layer</title>"));
    EXPECT_THAT(svg, HasSubstr("fill=\"" + HtmlColor(ColorOf(Role::Copper, Side::Top, Theme::Dark)) + "\""));
}

TEST(WriteSvg, YPointsDownInTheFile) {
    const std::string svg =
        WriteSvg(Draw("(LINE (PT 0 0) (PT 0 10) (LW 1)) (LINE (PT 0 0) (PT 10 0) (LW 1))"));
    EXPECT_THAT(svg, HasSubstr("<path d=\"M1 11L1 1\" stroke-width=\"1\"/>"));
    EXPECT_THAT(svg, HasSubstr("<path d=\"M1 11L11 11\" stroke-width=\"1\"/>"));
}

TEST(WriteSvg, AnArcKeepsItsDirectionAndItsSize) {
    const std::string small = WriteSvg(Draw("(ARC (PT 10 0) (PT 0 10) (PT 0 0) (DIR CCW))"));
    EXPECT_THAT(small, HasSubstr("M10.5 10.5A10 10 0 0 0 0.5 0.5\""));
    const std::string large = WriteSvg(Draw("(ARC (PT 10 0) (PT 0 10) (PT 0 0) (DIR CW))"));
    EXPECT_THAT(large, HasSubstr("A10 10 0 0 1 ")) << "in two pieces, neither of them large";
    const std::string bottom = WriteSvg(
        Draw("(ARC (PT 10 0) (PT 0 10) (PT 0 0) (DIR CCW)) (LINE (PT 0 0) (PT 0 0))", Place::Mirrored()),
        Side::Both);
    EXPECT_THAT(bottom, HasSubstr("A10 10 0 0 1 "));
}

TEST(WriteSvg, HolesAreCutOut) {
    const std::string svg =
        WriteSvg(Draw("(POLYGON (BOUNDARY (LINE (PT 0 0) (PT 10 0)) (LINE (PT 10 0) (PT 10 10)) (LINE (PT 10 "
                      "10) (PT 0 10)) (LINE "
                      "(PT 0 10) (PT 0 0))) (VOID (CIRCLE (PT 5 5) (D 2))))"));
    EXPECT_THAT(svg, HasSubstr("fill-rule=\"evenodd\""));
    EXPECT_THAT(svg, HasSubstr("M0.5 10.5L10.5 10.5L10.5 0.5L0.5 0.5z"));
    EXPECT_THAT(svg, HasSubstr("M4.5 5.5A1 1 0 0 0 6.5 5.5A1 1 0 0 0 4.5 5.5z"));
}

TEST(WriteSvg, ATextIsATextAndCannotBreakTheFile) {
    const std::string svg =
        WriteSvg(Draw("(TEXT (JUSTIFY 5) (ROTATION 90) (PT 0 0) (VALUE \"<a href='x'>&\x01"
                      "\xB5\x96\xC3\xA4\"))"));
    EXPECT_EQ(XmlFault(svg), "");
    EXPECT_THAT(svg, HasSubstr("text-anchor=\"middle\""));
    EXPECT_THAT(svg, HasSubstr("rotate(-90)"));
    EXPECT_THAT(svg, HasSubstr("&lt;a href='x'&gt;&amp;\xEF\xBF\xBD\xC2\xB5\xE2\x80\x93\xC3\xA4</text>"));
}

TEST(XmlText, HoldsWhatXmlCanHold) {
    EXPECT_EQ(XmlText(std::string_view("a\0b", 3)),
              "a\xEF\xBF\xBD"
              "b");
    EXPECT_EQ(XmlText("\x81\xEF\xBF\xBF\xC2\x85\"\n"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD&quot; ");
    EXPECT_EQ(XmlText("\xF0\x9F\x98\x80"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(XmlText("\xED\xA0\x80").find('\xED'), std::string::npos) << "half a pair is no character";
}

TEST(WriteSvg, TheBottomIsSeenFromBelow) {
    const auto parser = Import(
        "(FOOTPRINTS (FOOTPRINT (CAMLAYERS (LAYER (LNAME TOP) (FILLCIRCLE (D 2) (PT 9 0)))"
        "(LAYER (LNAME BOTTOM) (FILLCIRCLE (D 2) (PT 5 0)) (LINE (PT 0 0) (PT 5 0) (LW 2))"
        " (TEXT (MIRROR Y) (PT 5 0) (VALUE B))))))");
    const Part part(*parser->GetCVEKA_Manager());
    const std::string svg = WriteSvg(FootprintScene(part, *part.DefaultFootprint()), Side::Bottom);
    EXPECT_THAT(svg, Not(HasSubstr("<title>TOP</title>")));
    EXPECT_THAT(svg, HasSubstr("<circle cx=\"1.5\" cy=\"1.5\" r=\"1\"/>"));
    EXPECT_THAT(svg, HasSubstr(">B</text>"));
    EXPECT_THAT(svg, Not(HasSubstr("scale(-1 1)"))) << "a mirrored text can be read from below";
}

TEST(WriteSvg, AHoleHasTheGroundInsideAndALineAround) {
    const auto parser = Import(
        "(PADS (PAD (PADNAME D) (FILLCIRCLE (D 1))))(PADSTACKS (PADSTACK (PADSTACKNAME H) (DRILL (SHAPE D))))"
        "(FOOTPRINTS (FOOTPRINT (FPINS (FPIN 1 \"\" (LIBPADSTACK H)))))");
    const Part part(*parser->GetCVEKA_Manager());
    EXPECT_THAT(WriteSvg(FootprintScene(part, *part.DefaultFootprint()), Side::Top, Theme::Dark),
                HasSubstr("fill=\"" + HtmlColor(Ground(Theme::Dark)) + "\" stroke="));
}

TEST(WriteSvg, AFileThatIsTooLargeIsOneSentence) {
    std::vector<View> views;
    views.push_back({Draw("(FILLCIRCLE (D 1))"), Side::Top, Theme::Dark});
    const Sheet sheet(std::move(views));
    try {
        WriteSvg(sheet, 100);
        FAIL();
    } catch (const TooLarge& error) {
        EXPECT_STREQ(error.what(), "the picture would have more than 100 bytes");
    }
}

TEST(WriteSvg, SeveralScenesHaveTitles) {
    std::vector<View> views;
    for (int i = 0; i < 3; ++i) views.push_back({Draw("(FILLCIRCLE (D 1))"), Side::Top, Theme::Dark});
    const std::string svg = WriteSvg(Sheet(std::move(views)));
    EXPECT_EQ(XmlFault(svg), "");
    EXPECT_THAT(svg, HasSubstr(">test</text>"));
    EXPECT_THAT(svg, HasSubstr("<g id=\"view3\">"));
}

TEST(WriteSvg, ARealPartIsWellFormedAndNotLarge) {
    VEKA_NEEDS_CORPUS();
    ForEachRealPart([](const Part& part, const std::filesystem::path& path) {
        std::vector<View> views;
        views.push_back({FootprintScene(part, *part.DefaultFootprint()), Side::Top, Theme::Dark});
        views.push_back({FootprintScene(part, *part.DefaultFootprint()), Side::Bottom, Theme::Dark});
        views.push_back({SymbolScene(part, *part.DefaultSymbol()), Side::Both, Theme::Light});
        for (const Looking looking : {Looking::FromAbove, Looking::FromFront, Looking::FromSide})
            views.push_back({PackageScene(part, *part.DefaultPackage(), looking), Side::Both, Theme::Light});
        for (const CVEKA_PadStack* stack : PadStacksOf(part, *part.DefaultFootprint()))
            views.push_back({PadStackScene(part, *stack), Side::Both, Theme::Dark});
        const std::string svg = WriteSvg(Sheet(std::move(views)));
        EXPECT_EQ(XmlFault(svg), "");
        EXPECT_LT(svg.size(), 20 * std::filesystem::file_size(path) + 100'000);
        EXPECT_THAT(svg, Not(HasSubstr("nan")));
    });
}

}  // namespace
