#pragma once

namespace host {

/// What the program ends with.
enum ExitCode : int { kImported = 0, kRefused = 1, kWrongUsage = 2, kFailed = 3 };

}  // namespace host
