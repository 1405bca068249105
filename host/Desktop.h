#pragma once

#include <memory>
#include <stdexcept>

#include "drawing/Sheet.h"
#include "host/CommandLine.h"
#include "window/UserInterface.h"

namespace host {

/// Windows were asked for where there can be none.
struct NoWindows : std::runtime_error {
    using runtime_error::runtime_error;
};

/// Why there is no PNG picture.
extern const char* const kNoPng;

/// The windows that a program was built with.
class Desktop {
public:
    virtual ~Desktop() = default;
    /// Which windows these are: `Qt` or `Win32`.
    virtual Windows Kind() const = 0;
    /// True if windows can be shown here and now.
    virtual bool HasDisplay() = 0;
    /// Starts the window system.
    virtual std::unique_ptr<veka::UserInterface> MakeUserInterface() = 0;
    /// Runs the application, in which parts are imported one after another, until the user closes it; returns
    /// the exit code. The user interface is installed.
    virtual int RunApplication(const CommandLine& line) = 0;
    /// Writes a picture as a PNG file; needs no display. Raises `NoWindows` where these windows cannot, and
    /// `OutputError` where the file cannot be written.
    virtual void WritePng(const drawing::Sheet& sheet, const std::string& path);
};

}  // namespace host
