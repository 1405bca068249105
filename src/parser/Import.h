#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <stop_token>
#include <string_view>
#include <vector>

#include "leveltree/LevelsRead.h"
#include "parser/CVEK_AsciiParser.h"
#include "platform/CString.h"
#include "platform/Export.h"

namespace veka {

/// How far an import has come.
struct ImportProgress {
    std::uint64_t bytesRead = 0;
    std::uint64_t bytesTotal = 0;  ///< size of the text; 0 if it is unknown
};

/// What an import may cost, who is told how far it has come, and who may cancel it.
struct ImportOptions {
    static constexpr std::uint64_t kNoLimit = UINT64_MAX;
    static constexpr std::chrono::nanoseconds kNoTimeLimit = std::chrono::nanoseconds::max();

    /// Most bytes of the text.
    std::uint64_t byteLimit = kNoLimit;
    /// Most bytes of memory: for levels, records, the line that is read and the search in it. The texts of more
    /// than 14 bytes and the lists that records hold are not counted.
    std::uint64_t memoryLimit = kNoLimit;
    /// Longest time from the call on.
    std::chrono::nanoseconds timeLimit = kNoTimeLimit;
    /// Is called in the thread of the import: at most once in each `progressInterval`, and at the end of the text.
    /// While records are made of a large section it is called with the same numbers again. What it raises ends
    /// the import and passes through. It must not use the parser.
    std::function<void(const ImportProgress&)> progress = {};
    std::chrono::nanoseconds progressInterval = std::chrono::milliseconds(50);
    /// Cancels the import, from any thread.
    std::stop_token stop = {};
};

/// What an import did.
struct ImportResult {
    /// How it ended. Unless it was completed the model is as it was before.
    enum class End {
        Completed,    ///< the text was read; `structure` says whether its levels are whole
        NotOpened,    ///< the file could not be opened
        Cancelled,    ///< by `ImportOptions::stop`
        ByteLimit,    ///< the text has more bytes than `ImportOptions::byteLimit`
        MemoryLimit,  ///< more memory was needed than `ImportOptions::memoryLimit`
        TimeLimit,    ///< more time was needed than `ImportOptions::timeLimit`
    };
    /// A level outside of all others.
    struct Section {
        CString name;
        int line;  ///< of its open parenthesis
    };
    static constexpr std::size_t kMostUnread = 100;

    End end = End::Completed;
    std::uint64_t bytes = 0;     ///< of the text that were read
    int lines = 0;               ///< that were read
    std::uint64_t levels = 0;    ///< that were closed, inside of other levels too
    std::uint64_t sections = 0;  ///< levels that were closed outside of all others
    std::uint64_t parts = 0;     ///< sections named VEK, of which the model has the last
    std::uint64_t unreadSections = 0;  ///< sections that nothing reads
    std::vector<Section> unread;       ///< the first `kMostUnread` of these
    std::uint64_t memory = 0;          ///< the most memory at any time, counted as for `memoryLimit`
    LevelsRead structure;              ///< of a text that was read
    /// The message of the reader, if it stopped at an open parenthesis. It is shown to nobody.
    CString message;

    /// True if the text was read to its end and each level was closed.
    bool IsWhole() const {
        return end == End::Completed && structure.structure == LevelsRead::Structure::Balanced;
    }
};

/// Imports a file into the model of a parser, as `CVEK_AsciiParser::Parser` does, and says what happened. The
/// path becomes that of the parser.
///
/// The model changes only after the last byte has been read; each section is then the old one or the new one. An
/// import that did not complete changes nothing. Exceptions are those of `Parser`, with the same effect.
VEKA_API ImportResult ImportFile(CVEK_AsciiParser& parser, const CString& path, const ImportOptions& options = {});
/// As `ImportFile`, from a text in memory. The path of the parser stays as it is.
VEKA_API ImportResult ImportBytes(CVEK_AsciiParser& parser, std::string_view bytes, const ImportOptions& options = {});

}  // namespace veka
