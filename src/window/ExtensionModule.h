#pragma once

#include <memory>
#include <vector>

#include "platform/Export.h"
#include "window/UserInterface.h"

/// The dialog templates that a library gives to the process that loads it.
struct AFX_EXTENSION_MODULE {
    bool bInitialized = false;
    void* hModule = nullptr;  ///< on Windows the program file with the resources of the module
    std::vector<veka::DialogTemplate> templates;
};

/// Prepares the module of a library. False if the module is prepared already.
VEKA_API bool AfxInitExtensionModule(AFX_EXTENSION_MODULE& module,
                                     std::vector<veka::DialogTemplate> templates);
/// Removes everything that the module has registered.
VEKA_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& module) noexcept;

/// Registers an extension module, so that the whole process finds its dialog templates. Must be made with
/// `new`; `AfxTermExtensionModule` deletes it.
class VEKA_API CDynLinkLibrary {
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& module);
    CDynLinkLibrary(const CDynLinkLibrary&) = delete;
    CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;

    const AFX_EXTENSION_MODULE& Module() const noexcept { return m_module; }

private:
    AFX_EXTENSION_MODULE& m_module;
};

/// The `hModule` of the registered module that has the dialog template with a number, or null.
VEKA_API void* AfxFindResourceHandle(unsigned templateId);

namespace veka {

/// On Windows the loaded program file that contains an address. Null on other systems.
VEKA_API void* ModuleOf(const void* address) noexcept;

/// The template with a number, from any registered module, or null. It is valid as long as the module is
/// registered.
VEKA_API const DialogTemplate* FindDialogTemplate(unsigned id);

}  // namespace veka
