#pragma once

#include "host/Desktop.h"

namespace host {

/// Windows of Windows itself.
class Win32Desktop : public Desktop {
public:
    Windows Kind() const override { return Windows::Win32; }
    bool HasDisplay() override;
    std::unique_ptr<veka::UserInterface> MakeUserInterface() override;
    /// Imports and stores one part by the dialog, and says where the part is.
    int RunApplication(const CommandLine& line) override;
};

}  // namespace host
