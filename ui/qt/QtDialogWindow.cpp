#include "qt/QtDialogWindow.h"

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <limits>

#include "qt/Text.h"
#include "window/AfxMessageBox.h"

namespace veka {

namespace {

/// A dialog that reports its Cancel, also by Escape and by the close box, and does not end by itself.
class Dialog : public QDialog {
public:
    Dialog(DialogEvents& events, QWidget* parent)
        : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                              Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
          m_events(events) {}

    void reject() override { m_events.ButtonClicked(IDCANCEL); }

private:
    DialogEvents& m_events;
};

}  // namespace

QtDialogWindow::QtDialogWindow(const DialogTemplate& dialog, DialogEvents& events, const DialogUnits& units,
                               QWidget* parent)
    : m_events(events), m_dialog(new Dialog(events, parent)) {
    // Only the classic style has controls that fit into the low rows of the template.
    QStyle* style = QStyleFactory::create("Windows");
    style->setParent(m_dialog);
    m_dialog->setStyle(style);
    m_dialog->setFont(DialogFont(dialog));
    m_dialog->setFixedSize(units.ToPixels(0, 0, dialog.width, dialog.height).size());
    SetCaption(dialog.caption);

    QWidget* last = nullptr;
    for (const ControlTemplate& control : dialog.controls) {
        QWidget* widget = MakeControl(control);
        widget->setObjectName(QString::number(control.id));
        widget->setStyle(style);
        widget->setGeometry(units.ToPixels(control.x, control.y, control.width, control.height));
        m_controls[control.id] = widget;
        SetText(control.id, control.caption);
        if (widget->focusPolicy() == Qt::NoFocus) continue;
        if (last)
            QWidget::setTabOrder(last, widget);
        else
            widget->setFocus();
        last = widget;
    }
}

QWidget* QtDialogWindow::MakeControl(const ControlTemplate& control) {
    switch (control.kind) {
        case ControlKind::GroupBox: {
            auto* box = new QGroupBox(m_dialog);
            box->lower();  // below the controls that it frames
            return box;
        }
        case ControlKind::Label: {
            auto* label = new QLabel(m_dialog);
            label->setTextFormat(Qt::PlainText);
            label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
            return label;
        }
        case ControlKind::Edit: {
            auto* edit = new QLineEdit(m_dialog);
            edit->setMaxLength(std::numeric_limits<int>::max());
            edit->setAcceptDrops(false);  // a dropped file would leave its URL
            QObject::connect(edit, &QLineEdit::textChanged, edit,
                             [this, id = control.id] { m_events.EditChanged(id); });
            return edit;
        }
        case ControlKind::DefaultButton:
        case ControlKind::Button:
            break;
    }
    auto* button = new QPushButton(m_dialog);
    button->setAutoDefault(false);  // Enter is the default button's, wherever the focus is
    button->setDefault(control.kind == ControlKind::DefaultButton);
    QObject::connect(button, &QPushButton::clicked, button,
                     [this, id = control.id] { m_events.ButtonClicked(id); });
    return button;
}

QtDialogWindow::~QtDialogWindow() {
    delete m_dialog;
}

int QtDialogWindow::Run() {
    m_events.WindowReady();
    // Without an end the loop stops only where the application quits or the parent dies.
    if (!m_result) m_dialog->exec();
    return m_result.value_or(IDCANCEL);
}

void QtDialogWindow::End(int result) {
    m_result = result;
    if (m_dialog) m_dialog->done(result);
}

CString QtDialogWindow::GetText(int control) const {
    QWidget* widget = Control(control);
    if (const auto* edit = qobject_cast<QLineEdit*>(widget)) return FromQString(edit->text());
    if (const auto* button = qobject_cast<QPushButton*>(widget)) return FromQString(button->text());
    if (const auto* label = qobject_cast<QLabel*>(widget)) return FromQString(label->text());
    if (const auto* box = qobject_cast<QGroupBox*>(widget)) return FromQString(box->title());
    return {};
}

void QtDialogWindow::SetText(int control, const CString& text) {
    QWidget* widget = Control(control);
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) edit->setText(ToQString(text));
    if (auto* button = qobject_cast<QPushButton*>(widget)) button->setText(ToQString(text));
    if (auto* label = qobject_cast<QLabel*>(widget)) label->setText(ToQString(text));
    if (auto* box = qobject_cast<QGroupBox*>(widget)) box->setTitle(ToQString(text));
}

void QtDialogWindow::SetCaption(const CString& caption) {
    if (m_dialog) m_dialog->setWindowTitle(ToQString(caption));
}

void* QtDialogWindow::Handle() const noexcept {
    return static_cast<QWidget*>(m_dialog.data());
}

QWidget* QtDialogWindow::Control(int control) const {
    const auto found = m_controls.find(control);
    return m_dialog && found != m_controls.end() ? found->second : nullptr;
}

}  // namespace veka
