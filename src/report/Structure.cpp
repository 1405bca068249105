#include "report/Structure.h"

namespace veka {

namespace {

std::string NameOf(const PositionedLevel& level) {
    return level.m_strName.IsEmpty() ? "a level without a name"
                                     : "the level " + InQuotes(level.m_strName.View());
}

std::string SentenceOf(const TextFault& fault, Code& code) {
    switch (fault.what) {
        case TextFault::What::StrayParenthesis:
            code = Code::StrayParenthesis;
            return "a close parenthesis closes no level; the next open parenthesis ends the reading";
        case TextFault::What::RestAfterStray:
            code = Code::RestNotRead;
            return "the rest of the file is not read, since a close parenthesis before it closed no level";
        case TextFault::What::TooDeep:
            code = Code::RestNotRead;
            return "the rest of the file is not read, since the level is inside of 20 others";
        case TextFault::What::OpenString:
            code = Code::OpenString;
            return "the string never ends, and all behind the quote is lost";
        case TextFault::What::Outside:
            code = Code::TextOutside;
            return "the text " + InQuotes(fault.text) + " stands outside of all levels and is not read" +
                   (fault.text.starts_with("//") ? "; a comment begins at the first byte of a line" : "");
        case TextFault::What::LostToken:
            code = Code::LostToken;
            return "the text " + InQuotes(fault.text) +
                   " is dropped, since a quote follows it directly; put a blank between them";
        case TextFault::What::CommentInString:
            code = Code::CommentInString;
            return "the line is inside of a string, but it begins with two slashes and is dropped as a "
                   "comment";
        case TextFault::What::BlankAdded:
            code = Code::BlankAdded;
            return "the string gets a blank at its end, since its closing quote begins a line";
        case TextFault::What::TabInToken:
            code = Code::TabInValue;
            return "the tab in " + InQuotes(fault.text) + " separates nothing and is a part of the text";
    }
    return {};
}

}  // namespace

void FindStructure(const PositionedText& text, ReportWriter& report) {
    for (const TextFault& fault : text.faults) {
        Code code{};
        std::string sentence = SentenceOf(fault, code);
        report.Add(code, fault.region, true, fault.level, fault.text, std::move(sentence));
    }
    for (std::size_t i = 0; i < text.open.size(); ++i) {
        const PositionedLevel& level = *text.open[i];
        std::string sentence = NameOf(level) + " is not closed, and all in it is lost";
        if (i == 0 && text.suspect != ReadTracer::kNone && text.suspect > level.number) {
            const PositionedLevel& suspect = *text.levels[text.suspect];
            sentence += "; by the indentation the parenthesis that is missing is that of " + NameOf(suspect) +
                        " in line " + std::to_string(suspect.region.begin.line);
        }
        report.AddLevel(Code::NotClosed, level, true, std::move(sentence));
    }
}

}  // namespace veka
