#pragma once

#include <memory>
#include <vector>

#include "platform/Export.h"
#include "window/UserInterface.h"

/// What a library brings to the process that loads it: its dialog templates.
struct AFX_EXTENSION_MODULE {
    bool bInitialized = false;
    void* hModule = nullptr;  ///< the program file whose resources are the module's, where a system has such
    std::vector<veka::DialogTemplate> templates;
};

/// Makes a library's module ready, once; false if it was ready already.
VEKA_API bool AfxInitExtensionModule(AFX_EXTENSION_MODULE& module,
                                     std::vector<veka::DialogTemplate> templates);
/// Takes everything that the module registered out of the process again.
VEKA_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& module) noexcept;

/// Registers an extension module, so that its dialog templates are found from the whole process. The
/// process owns it: made with `new`, it is deleted by `AfxTermExtensionModule`.
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

/// The loaded program file that an address lies in; null where program files hold no resources.
VEKA_API void* ModuleOf(const void* address) noexcept;

/// The template with a number among all registered modules, or null. It lives as long as its module.
VEKA_API const DialogTemplate* FindDialogTemplate(unsigned id);

}  // namespace veka
