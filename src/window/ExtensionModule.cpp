#include "window/ExtensionModule.h"

#include <algorithm>
#include <mutex>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

struct Registry {
    std::mutex mutex;
    std::vector<std::unique_ptr<CDynLinkLibrary>> libraries;
};

// The first registration makes it. So it is destroyed after every module that registered at its load.
Registry& TheRegistry() {
    static Registry registry;
    return registry;
}

struct Found {
    const veka::DialogTemplate* dialog = nullptr;
    void* module = nullptr;
};

Found Find(unsigned templateId) {
    Registry& registry = TheRegistry();
    const std::lock_guard lock(registry.mutex);
    for (const auto& library : registry.libraries)
        for (const veka::DialogTemplate& dialog : library->Module().templates)
            if (dialog.id == templateId) return {&dialog, library->Module().hModule};
    return {};
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

void* AfxFindResourceHandle(unsigned templateId) {
    return Find(templateId).module;
}

void* veka::ModuleOf([[maybe_unused]] const void* address) noexcept {
#ifdef _WIN32
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<LPCWSTR>(address), &module);
    return module;
#else
    return nullptr;
#endif
}

const veka::DialogTemplate* veka::FindDialogTemplate(unsigned id) {
    return Find(id).dialog;
}
