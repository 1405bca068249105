#pragma once

#include "window/UserInterface.h"

namespace veka {

/// Installs a user interface as long as this object lives. Then the former user interface is installed again.
class ScopedUserInterface {
public:
    /// `userInterface` must outlive this object.
    explicit ScopedUserInterface(UserInterface& userInterface) noexcept
        : m_former(InstallUserInterface(&userInterface)) {}
    ~ScopedUserInterface() { InstallUserInterface(m_former); }
    ScopedUserInterface(const ScopedUserInterface&) = delete;
    ScopedUserInterface& operator=(const ScopedUserInterface&) = delete;

private:
    UserInterface* m_former;
};

}  // namespace veka
