#include "console/ConsoleUserInterface.h"

#include <istream>
#include <map>
#include <optional>
#include <ostream>
#include <string>

#include "platform/Printable.h"
#include "window/AfxMessageBox.h"

namespace veka {

namespace {

/// The next line of the input without its line end; no value at the end of the input.
std::optional<std::string> ReadAnswer(std::istream& in) {
    std::string line;
    if (!std::getline(in, line)) return std::nullopt;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return line;
}

/// Asks for a text; an empty answer keeps the current text, and no value means the end of the input.
std::optional<std::string> Ask(std::istream& in, std::ostream& out, std::string_view prompt,
                               std::string_view current) {
    out << Printable(prompt);
    if (!current.empty()) out << " [" << Printable(current) << ']';
    out << ": " << std::flush;
    std::optional<std::string> answer = ReadAnswer(in);
    if (!answer) out << '\n';
    return answer;
}

/// A dialog as a form: it asks for each edit field and then presses OK, until the dialog ends.
class ConsoleDialogWindow : public DialogWindow {
public:
    ConsoleDialogWindow(const DialogTemplate& dialog, DialogEvents& events, std::istream& in,
                        std::ostream& out)
        : m_dialog(dialog), m_events(events), m_in(in), m_out(out), m_caption(dialog.caption) {
        for (const ControlTemplate& control : dialog.controls) m_texts[control.id] = control.caption;
    }

    int Run() override {
        m_open = true;
        m_events.WindowReady();
        if (m_open) m_out << Printable(m_caption.View()) << '\n';
        while (m_open) {
            const bool filled = FillIn();
            if (m_open) m_events.ButtonClicked(filled ? IDOK : IDCANCEL);
        }
        return m_result;
    }
    void End(int result) override {
        m_open = false;
        m_result = result;
    }
    CString GetText(int control) const override {
        const auto found = m_texts.find(control);
        return found == m_texts.end() ? CString() : found->second;
    }
    void SetText(int control, const CString& text) override {
        const auto found = m_texts.find(control);
        if (found == m_texts.end() || found->second == text) return;
        found->second = text;
        m_events.EditChanged(control);
    }
    void SetCaption(const CString& caption) override { m_caption = caption; }

private:
    /// False at the end of the input.
    bool FillIn() {
        CString label;
        for (const ControlTemplate& control : m_dialog.controls) {
            if (control.kind == ControlKind::Label) label = GetText(control.id);
            if (control.kind != ControlKind::Edit) continue;
            const std::optional<std::string> answer =
                Ask(m_in, m_out, label.View(), GetText(control.id).View());
            if (!answer) return false;
            if (!answer->empty()) SetText(control.id, CString(*answer));
        }
        return true;
    }

    const DialogTemplate& m_dialog;
    DialogEvents& m_events;
    std::istream& m_in;
    std::ostream& m_out;
    CString m_caption;
    std::map<int, CString> m_texts;
    bool m_open = false;
    int m_result = IDCANCEL;
};

}  // namespace

void ConsoleUserInterface::ShowMessage(const CString& text) {
    m_out << Printable(text.View()) << '\n';
}

bool ConsoleUserInterface::AskYesNo(const CString& text) {
    for (;;) {
        m_out << Printable(text.View()) << " [y/n]: " << std::flush;
        const std::optional<std::string> answer = ReadAnswer(m_in);
        if (!answer) {
            m_out << '\n';
            return false;
        }
        CString word(*answer);
        word.Trim().MakeLower();
        if (word == "y" || word == "yes") return true;
        if (word == "n" || word == "no") return false;
    }
}

CString ConsoleUserInterface::PickFile(const CString& description, const CString& extension,
                                       const CString& current, void*) {
    const CString prompt = description + " (*." + extension + ")";
    return CString(Ask(m_in, m_out, prompt.View(), current.View()).value_or(""));
}

CString ConsoleUserInterface::PickDirectory(const CString& title, const CString& current, void*) {
    return CString(Ask(m_in, m_out, title.View(), current.View()).value_or(""));
}

std::unique_ptr<DialogWindow> ConsoleUserInterface::MakeDialogWindow(const DialogTemplate& dialog,
                                                                     DialogEvents& events, void*) {
    return std::make_unique<ConsoleDialogWindow>(dialog, events, m_in, m_out);
}

}  // namespace veka
