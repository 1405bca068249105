#include "window/UserInterface.h"

#include <atomic>

namespace veka {

namespace {

// The library's only shared state: imports may run side by side while a window is installed.
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
