#include "InputFile.h"

#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>

#include <memory>
#include <string>

#include "platform/UserInterface.h"

namespace fuzz {

namespace {

/// Swallows every message.
class Silent : public veka::UserInterface {
    void ShowMessage(const CString&) override {}
    bool AskYesNo(const CString&) override { return false; }
    CString PickFile(const CString&, const CString&, const CString&, void*) override { return {}; }
    CString PickDirectory(const CString&, const CString&, void*) override { return {}; }
    std::unique_ptr<veka::DialogWindow> MakeDialogWindow(const veka::DialogTemplate&, veka::DialogEvents&,
                                                         void*) override {
        return nullptr;
    }
};

}  // namespace

void SilenceMessages() {
    static Silent silent;
    veka::InstallUserInterface(&silent);
}

CString WriteInput(const std::uint8_t* data, std::size_t size) {
    static const int fd = memfd_create("veka-input", MFD_CLOEXEC);
    if (fd < 0 || ftruncate(fd, 0) != 0) abort();
    for (std::size_t written = 0; written < size;) {
        const ssize_t count = pwrite(fd, data + written, size - written, static_cast<off_t>(written));
        if (count <= 0) abort();
        written += static_cast<std::size_t>(count);
    }
    return CString("/proc/self/fd/" + std::to_string(fd));
}

}  // namespace fuzz
