#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/ImportedPart.h"

namespace host {

/// What a list of parts says about a part: what it is, and what its file holds. No text is longer than
/// `kLongest` bytes and no list longer than `kMost`, so that a file cannot make a list of parts large.
struct PartFacts {
    static constexpr std::size_t kLongest = 4096;
    static constexpr std::size_t kMost = 256;

    std::string name;      ///< of the part's directory in a library
    std::string fileName;  ///< of the part's file in that directory
    std::string number;    ///< the manufacturer's part number, as it is in the file
    std::string manufacturer, description, functionalType, packageType;
    std::vector<std::string> companyNumbers, families, packages, footprints, symbols;
    int pins = 0;            ///< as the file says
    std::uint64_t size = 0;  ///< of the file in bytes
    std::uint64_t hash = 0;  ///< `ContentHash` of the file
};

/// The facts of a part with a part number, and of the file that it was read from.
PartFacts FactsOf(const ImportedPart& part);

/// A number that finds a change of a file's content by accident. It does not withstand a forger.
std::uint64_t ContentHash(std::string_view content) noexcept;

}  // namespace host
