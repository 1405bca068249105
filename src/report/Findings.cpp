#include "report/Findings.h"

namespace veka {

namespace {

using enum FindingKind;
using enum Severity;

constexpr std::array<CodeDescription, kCodes> kDescriptions{{
    {Code::UnknownLevel, "VEKA-W001", Warning, NotRead, "unknown-level",
     "No rule reads a level of this name here."},
    {Code::UnknownObject, "VEKA-W002", Warning, NotRead, "unknown-object",
     "There is no kind of object of this name."},
    {Code::NeverRead, "VEKA-W003", Note, NotRead, "never-read",
     "The level is known here, and nothing reads it."},
    {Code::WrongPlace, "VEKA-W004", Warning, NotRead, "wrong-place",
     "The level is read at another place among its neighbours only."},
    {Code::SurplusValue, "VEKA-W005", Warning, NotRead, "surplus-value", "No field takes the value."},
    {Code::UnmetCondition, "VEKA-W006", Warning, NotRead, "unmet-condition",
     "The level is read under a condition only, which is not met."},
    {Code::GivesNothing, "VEKA-W007", Note, NotRead, "gives-nothing",
     "The model is the same without the level."},
    {Code::PassedOver, "VEKA-W008", Warning, NotRead, "passed-over",
     "Only the first section of this name counts."},
    {Code::ImportFails, "VEKA-W009", Error, NotRead, "import-fails",
     "The import ends with an exception, and the section is lost."},
    {Code::AfterFailure, "VEKA-W010", Warning, NotRead, "after-failure",
     "The section comes after the place where the import failed."},
    {Code::LostInCopy, "VEKA-W011", Note, NotRead, "lost-in-copy",
     "The value was read, and the record loses it on its way into the model."},
    {Code::ValueReplaced, "VEKA-W020", Warning, Replaced, "value-replaced",
     "A later value took the field over."},
    {Code::LevelReplaced, "VEKA-W021", Warning, Replaced, "level-replaced",
     "A later level took the place of the level."},
    {Code::NoNumber, "VEKA-W030", Warning, Changed, "no-number",
     "The text does not begin with a number and counts as 0."},
    {Code::TextAfterNumber, "VEKA-W031", Warning, Changed, "text-after-number",
     "The text behind the number is dropped."},
    {Code::NumberWraps, "VEKA-W032", Warning, Changed, "number-wraps",
     "The number does not fit into 32 bits and becomes another one."},
    {Code::OutOfRange, "VEKA-W033", Warning, Changed, "out-of-range", "The number becomes infinite, or 0."},
    {Code::NoFlag, "VEKA-W034", Warning, Changed, "no-flag",
     "The word is neither TRUE nor FALSE and clears the flag."},
    {Code::FlagNeverSet, "VEKA-W035", Warning, Changed, "flag-never-set", "The word does not set the flag."},
    {Code::UnknownTarget, "VEKA-W036", Warning, Changed, "unknown-target",
     "The word is no target of a power rail and counts as none."},
    {Code::OddVersion, "VEKA-W037", Warning, Changed, "odd-version",
     "The numbers of the version are not those of the text."},
    {Code::StrayParenthesis, "VEKA-W040", Error, Structure, "stray-parenthesis",
     "A close parenthesis closes no level."},
    {Code::RestNotRead, "VEKA-W041", Error, Structure, "rest-not-read",
     "The reading ends here, and the rest of the file is not read."},
    {Code::NotClosed, "VEKA-W042", Error, Structure, "not-closed",
     "The level is not closed and is lost with all that is in it."},
    {Code::OpenString, "VEKA-W043", Error, Structure, "open-string", "The string never ends."},
    {Code::TextOutside, "VEKA-W044", Warning, Structure, "text-outside",
     "The text stands outside of all levels and is not read."},
    {Code::LostToken, "VEKA-W045", Warning, Structure, "lost-token",
     "The text directly before a quote is dropped."},
    {Code::CommentInString, "VEKA-W046", Warning, Structure, "comment-in-string",
     "The line of a string is taken for a comment and dropped."},
    {Code::BlankAdded, "VEKA-W047", Note, Structure, "blank-added",
     "A string whose closing quote begins a line gets a blank at its end."},
    {Code::TabInValue, "VEKA-W048", Note, Structure, "tab-in-value",
     "A tab separates no values and is a part of the value."},
    {Code::NoSuchName, "VEKA-W050", Warning, Reference, "no-such-name", "The name leads to no record."},
    {Code::NameTwice, "VEKA-W051", Warning, Reference, "name-twice",
     "Two records of one list have the same name."},
    {Code::PinMismatch, "VEKA-W052", Warning, Reference, "pin-mismatch",
     "The pin has no counterpart of the same name."},
    {Code::NoSuchFile, "VEKA-W053", Warning, Reference, "no-such-file", "The file is not beside the part."},
    {Code::PinCount, "VEKA-W060", Warning, Disagreement, "pin-count",
     "The number of pins is another one than the part has."},
    {Code::NoSuchDefault, "VEKA-W061", Warning, Disagreement, "no-such-default",
     "The default package, footprint or symbol is not there."},
    {Code::PinOutside, "VEKA-W062", Warning, Disagreement, "pin-outside",
     "The pin stands outside of every outline."},
    {Code::PadsOverlap, "VEKA-W063", Warning, Disagreement, "pads-overlap",
     "Two pads of one footprint overlap on one layer."},
}};

}  // namespace

const std::array<CodeDescription, kCodes>& AllCodes() {
    return kDescriptions;
}

const CodeDescription& Describe(Code code) {
    return kDescriptions[static_cast<std::size_t>(code)];
}

const char* NameOf(Severity severity) {
    constexpr std::array<const char*, 3> names{"note", "warning", "error"};
    return names[static_cast<std::size_t>(severity)];
}

const char* NameOf(FindingKind kind) {
    constexpr std::array<const char*, 6> names{"not-read",  "replaced",  "changed",
                                               "structure", "reference", "disagreement"};
    return names[static_cast<std::size_t>(kind)];
}

}  // namespace veka
