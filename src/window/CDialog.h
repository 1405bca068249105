#pragma once

#include <exception>
#include <memory>

#include "platform/CStringArray.h"
#include "platform/Export.h"
#include "window/AfxMessageBox.h"
#include "window/UserInterface.h"

#ifdef _WIN32
// Macros of the system's headers, which would give the library's functions other names than it was built
// with.
#pragma push_macro("SetWindowText")
#pragma push_macro("SetDlgItemText")
#pragma push_macro("GetDlgItemText")
#undef SetWindowText
#undef SetDlgItemText
#undef GetDlgItemText
#endif

/// A window as the logic sees it: a caption, and controls with texts. While there is no window, setting
/// does nothing and every text is empty.
class VEKA_API CWnd {
public:
    CWnd() = default;
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    /// The window system's own window, or null.
    virtual void* GetSafeHwnd() const noexcept;
};

/// Direction and place of a data exchange between fields and controls.
struct CDataExchange {
    class CDialog* m_pDlgWnd;
    bool m_bSaveAndValidate;  ///< true from the controls to the fields
};

/// Base of modal dialogs. An exception that leaves one of its handlers ends the dialog and reaches the
/// caller of `DoModal`.
class VEKA_API CDialog : public CWnd, private veka::DialogEvents {
public:
    /// A dialog from a template of a registered extension module. The parent is not owned.
    explicit CDialog(unsigned templateId, CWnd* parent = nullptr) noexcept;
    ~CDialog() override;

    /// Shows the dialog and returns IDOK or IDCANCEL; -1 if there is no user interface or no template.
    virtual INT_PTR DoModal();
    /// Ends the running dialog with a result.
    void EndDialog(int result);

    /// Carries the controls into the fields, or with false the fields into the controls. What that
    /// changes in the controls is not reported as a change of their text.
    bool UpdateData(bool saveAndValidate = true);
    void SetWindowText(const CString& caption);
    void SetDlgItemText(int control, const CString& text);
    CString GetDlgItemText(int control) const;
    void* GetSafeHwnd() const noexcept override;
#ifdef _WIN32
    // What the system's headers make of the three names in a program that includes them.
    void SetWindowTextA(const CString& caption) {
        SetWindowText(caption);
    }
    void SetWindowTextW(const CString& caption) {
        SetWindowText(caption);
    }
    void SetDlgItemTextA(int control, const CString& text) {
        SetDlgItemText(control, text);
    }
    void SetDlgItemTextW(int control, const CString& text) {
        SetDlgItemText(control, text);
    }
    CString GetDlgItemTextA(int control) const {
        return GetDlgItemText(control);
    }
    CString GetDlgItemTextW(int control) const {
        return GetDlgItemText(control);
    }
#endif

protected:
    /// Fills the controls; a nonzero result leaves the focus to the window.
    virtual int OnInitDialog();
    virtual void DoDataExchange(CDataExchange* exchange);
    /// A button other than Cancel was pressed; OK ends the dialog unless overridden.
    virtual void OnClicked(int control);
    /// The text of an edit field changed.
    virtual void OnEditChange(int control);
    /// Reads the controls into the fields and ends with OK.
    virtual void OnOK();
    /// Ends with Cancel.
    virtual void OnCancel();

private:
    template <class Handler>
    void Guarded(Handler handler) noexcept;
    void WindowReady() noexcept override;
    void ButtonClicked(int control) noexcept override;
    void EditChanged(int control) noexcept override;

    unsigned m_templateId;
    CWnd* m_parent;
    std::unique_ptr<veka::DialogWindow> m_window;
    std::exception_ptr m_exception;
    bool m_exchanging = false;
};

#ifdef _WIN32
#pragma pop_macro("SetWindowText")
#pragma pop_macro("SetDlgItemText")
#pragma pop_macro("GetDlgItemText")
#endif

/// Exchanges the text of a control with a field.
VEKA_API void DDX_Text(CDataExchange* exchange, int control, CString& field);
