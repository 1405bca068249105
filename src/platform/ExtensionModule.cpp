#include "platform/ExtensionModule.h"

#include <algorithm>
#include <mutex>

namespace {

struct Registry {
    std::mutex mutex;
    std::vector<std::unique_ptr<CDynLinkLibrary>> libraries;
};

// Made by the first registration, so that it outlives every module that registers at load.
Registry& TheRegistry() {
    static Registry registry;
    return registry;
}

}  // namespace

bool AfxInitExtensionModule(AFX_EXTENSION_MODULE& module, std::vector<veka::DialogTemplate> templates) {
    if (module.bInitialized) return false;
    module.templates = std::move(templates);
    module.bInitialized = true;
    return true;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& module) noexcept {
    Registry& registry = TheRegistry();
    const std::lock_guard lock(registry.mutex);
    std::erase_if(registry.libraries, [&](const auto& library) { return &library->Module() == &module; });
    module.bInitialized = false;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& module) : m_module(module) {
    Registry& registry = TheRegistry();
    const std::lock_guard lock(registry.mutex);
    registry.libraries.reserve(registry.libraries.size() + 1);  // so that taking over cannot fail
    registry.libraries.emplace_back(this);
}

const veka::DialogTemplate* veka::FindDialogTemplate(unsigned id) {
    Registry& registry = TheRegistry();
    const std::lock_guard lock(registry.mutex);
    for (const auto& library : registry.libraries)
        for (const DialogTemplate& dialog : library->Module().templates)
            if (dialog.id == id) return &dialog;
    return nullptr;
}
