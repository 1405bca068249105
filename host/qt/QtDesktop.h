#pragma once

#include "host/Desktop.h"

namespace host {

/// Windows by Qt.
class QtDesktop : public Desktop {
public:
    Windows Kind() const override { return Windows::Qt; }
    bool HasDisplay() override;
    std::unique_ptr<veka::UserInterface> MakeUserInterface() override;
    int RunApplication(const CommandLine& line) override;
    void WritePng(const drawing::Sheet& sheet, const std::string& path) override;
};

}  // namespace host
