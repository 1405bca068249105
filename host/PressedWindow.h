#pragma once

#include <memory>

#include "window/UserInterface.h"

namespace host {

/// The window of a dialog that nobody sees: it presses OK on what it was opened with, once, and then Cancel.
std::unique_ptr<veka::DialogWindow> MakePressedWindow(veka::DialogEvents& events);

}  // namespace host
