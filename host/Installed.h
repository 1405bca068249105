#pragma once

#include "window/UserInterface.h"

namespace host {

/// Installs a user interface for as long as it lives.
class Installed {
public:
    explicit Installed(veka::UserInterface& userInterface)
        : m_former(veka::InstallUserInterface(&userInterface)) {}
    ~Installed() { veka::InstallUserInterface(m_former); }
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;

private:
    veka::UserInterface* m_former;
};

}  // namespace host
