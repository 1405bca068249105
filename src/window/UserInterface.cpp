#include "window/UserInterface.h"

#include <atomic>

namespace veka {

namespace {

// Atomic: imports in several threads use it.
std::atomic<UserInterface*> g_installed{nullptr};

}  // namespace

DialogEvents::~DialogEvents() = default;
DialogWindow::~DialogWindow() = default;
UserInterface::~UserInterface() = default;

void* DialogWindow::Handle() const noexcept {
    return nullptr;
}

UserInterface* InstallUserInterface(UserInterface* userInterface) noexcept {
    return g_installed.exchange(userInterface);
}

UserInterface* InstalledUserInterface() noexcept {
    return g_installed.load();
}

}  // namespace veka
