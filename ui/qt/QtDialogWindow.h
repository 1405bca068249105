#pragma once

#include <QPointer>
#include <map>
#include <optional>

#include "qt/DialogUnits.h"
#include "window/UserInterface.h"

class QDialog;
class QWidget;

namespace veka {

/// A dialog as a Qt window, laid out from its template.
///
/// Each control is a widget whose object name is the control's number. The parent, if any, may die first: the
/// dialog then ends with Cancel.
class QtDialogWindow : public DialogWindow {
public:
    /// `events` outlives the window.
    QtDialogWindow(const DialogTemplate& dialog, DialogEvents& events, const DialogUnits& units,
                   QWidget* parent);
    ~QtDialogWindow() override;

    int Run() override;
    void End(int result) override;
    CString GetText(int control) const override;
    void SetText(int control, const CString& text) override;
    void SetCaption(const CString& caption) override;
    /// The window, a `QWidget*`.
    void* Handle() const noexcept override;

private:
    QWidget* Control(int control) const;
    QWidget* MakeControl(const ControlTemplate& control);

    DialogEvents& m_events;
    QPointer<QDialog> m_dialog;
    std::map<int, QWidget*> m_controls;  // the dialog's
    std::optional<int> m_result;
};

}  // namespace veka
