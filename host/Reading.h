#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

#include "parser/Import.h"

namespace host {

/// What a file from a stranger may cost; 0 is no limit.
struct Limits {
    std::uint64_t size = 256;     ///< of a file, in MB
    std::uint64_t memory = 2048;  ///< that an import takes besides the file, in MB
    std::chrono::nanoseconds time = std::chrono::seconds(60);
};

/// How a file is read.
struct Reading {
    Limits limits;
    /// Called at intervals while a part is imported; false ends the import.
    std::function<bool(const veka::ImportProgress&)> goOn = nullptr;
    /// Ctrl-C ends the import, and not the program.
    bool interruptible = false;
    /// A report of the file is made, too. The report takes about as long as the import.
    bool report = false;
};

}  // namespace host
