#include "win32/PathDialog.h"

#include <windows.h>

#include <shobjidl.h>

#include <filesystem>
#include <iterator>
#include <memory>
#include <system_error>

#include "files/Paths.h"

namespace veka {

namespace {

/// COM for this thread, while it lives. A thread that a host set up otherwise stays as it is.
class Com {
public:
    Com() : m_code(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)) {}
    ~Com() {
        if (SUCCEEDED(m_code)) CoUninitialize();
    }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;

private:
    HRESULT m_code;
};

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, Releaser>;

struct TaskMemory {
    void operator()(wchar_t* text) const { CoTaskMemFree(text); }
};

Owned<IFileOpenDialog> MakeDialog() {
    void* dialog = nullptr;
    CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileOpenDialog, &dialog);
    return Owned<IFileOpenDialog>(static_cast<IFileOpenDialog*>(dialog));
}

Owned<IShellItem> ItemOf(const std::wstring& path) {
    void* item = nullptr;
    if (!path.empty()) SHCreateItemFromParsingName(path.c_str(), nullptr, IID_IShellItem, &item);
    return Owned<IShellItem>(static_cast<IShellItem*>(item));
}

std::wstring Absolute(const std::wstring& path) {
    std::error_code error;
    return path.empty() ? path : std::filesystem::absolute(path, error).native();
}

/// Opens the dialog at a path: in its directory, with its name as the suggestion.
void StartAt(IFileOpenDialog& dialog, const std::wstring& path, bool wantsFile) {
    std::wstring directory = path;
    if (!IsDirectory(directory)) {
        const size_t separator = path.find_last_of(L"\\/");
        directory.resize(separator == std::wstring::npos ? 0 : separator + 1);
        if (wantsFile && separator != std::wstring::npos)
            dialog.SetFileName(path.substr(separator + 1).c_str());
    }
    if (const Owned<IShellItem> item = ItemOf(directory)) dialog.SetFolder(item.get());
}

}  // namespace

std::wstring PickPath(const PathWanted& wanted, const std::wstring& current, void* owner) {
    const Com com;
    const Owned<IFileOpenDialog> dialog = MakeDialog();
    if (!dialog) return {};
    const bool wantsFile = !wanted.type.empty();
    DWORD options = 0;
    dialog->GetOptions(&options);
    options |= FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR | FOS_PATHMUSTEXIST;
    options |= wantsFile ? FOS_FILEMUSTEXIST : FOS_PICKFOLDERS;
    dialog->SetOptions(options);
    if (!wanted.title.empty()) dialog->SetTitle(wanted.title.c_str());
    const COMDLG_FILTERSPEC types[] = {{wanted.type.c_str(), wanted.pattern.c_str()},
                                       {L"All Files (*.*)", L"*.*"}};
    if (wantsFile) {
        dialog->SetFileTypes(static_cast<UINT>(std::size(types)), types);
        dialog->SetDefaultExtension(wanted.extension.c_str());
    }
    StartAt(*dialog, Absolute(current), wantsFile);
    if (FAILED(dialog->Show(static_cast<HWND>(owner)))) return {};

    IShellItem* chosen = nullptr;
    if (FAILED(dialog->GetResult(&chosen))) return {};
    const Owned<IShellItem> item(chosen);
    wchar_t* path = nullptr;
    if (FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &path))) return {};
    return std::unique_ptr<wchar_t, TaskMemory>(path).get();
}

}  // namespace veka
