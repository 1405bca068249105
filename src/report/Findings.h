#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "platform/Export.h"
#include "report/Region.h"

namespace veka {

enum class Severity { Note, Warning, Error };

enum class FindingKind {
    NotRead,       ///< a level or a value that no field took
    Replaced,      ///< a value that was read and overwritten by a later one
    Changed,       ///< a value of which only a part arrived
    Structure,     ///< parentheses and strings that are not as they must be
    Reference,     ///< a name that leads nowhere
    Disagreement,  ///< numbers that do not go together
};

/// What a finding says, by its code. The codes are stable: none gets another meaning.
enum class Code {
    UnknownLevel,
    UnknownObject,
    NeverRead,
    WrongPlace,
    SurplusValue,
    UnmetCondition,
    GivesNothing,
    PassedOver,
    ImportFails,
    AfterFailure,
    LostInCopy,
    ValueReplaced,
    LevelReplaced,
    NoNumber,
    TextAfterNumber,
    NumberWraps,
    OutOfRange,
    NoFlag,
    FlagNeverSet,
    UnknownTarget,
    OddVersion,
    StrayParenthesis,
    RestNotRead,
    NotClosed,
    OpenString,
    TextOutside,
    LostToken,
    CommentInString,
    BlankAdded,
    TabInValue,
    NoSuchName,
    NameTwice,
    PinMismatch,
    NoSuchFile,
    PinCount,
    NoSuchDefault,
    PinOutside,
    PadsOverlap,
};

/// A code with its number and what all its findings share.
struct CodeDescription {
    Code code;
    const char* id;  ///< "VEKA-W001"
    Severity severity;
    FindingKind kind;
    const char* name;     ///< a short name of words and hyphens
    const char* meaning;  ///< one sentence
};

inline constexpr std::size_t kCodes = 38;
/// All codes, in the order of their numbers.
VEKA_API const std::array<CodeDescription, kCodes>& AllCodes();
VEKA_API const CodeDescription& Describe(Code code);
/// "error", "warning" or "note".
VEKA_API const char* NameOf(Severity severity);
/// "not-read", "replaced", "changed", "structure", "reference" or "disagreement".
VEKA_API const char* NameOf(FindingKind kind);

/// One thing that the import of a file left out or changed, or that does not go together.
struct Finding {
    Code code{};
    Region region;         ///< the value, or the whole level
    bool whole = false;    ///< true if the finding holds for all that is in the region
    std::string path;      ///< the levels around it, as in `VEK > PACKAGES > PACKAGE "SO8" > NAME`
    std::string text;      ///< the text concerned, cut if it is long
    std::string sentence;  ///< what the reader did with it, and what was probably meant
};

}  // namespace veka
