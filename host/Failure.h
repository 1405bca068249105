#pragma once

#include <string>

#include "host/ExitCode.h"

namespace host {

/// What a failure is to the user.
struct Failure {
    ExitCode code;
    std::string sentence;
};

/// Describes the exception that is being handled; to be called in a catch block. `file` is the one being
/// imported, empty where no name is known.
Failure CurrentFailure(const std::string& file);

}  // namespace host
