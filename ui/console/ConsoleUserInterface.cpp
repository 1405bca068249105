#include "console/ConsoleUserInterface.h"

#include <istream>
#include <optional>
#include <ostream>
#include <string>

#include "platform/Printable.h"
#include "window/AfxMessageBox.h"
#include "window/MemoryDialogWindow.h"

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
class ConsoleDialogWindow : public MemoryDialogWindow {
public:
    ConsoleDialogWindow(const DialogTemplate& dialog, DialogEvents& events, std::istream& in,
                        std::ostream& out)
        : MemoryDialogWindow(dialog, events), m_dialog(dialog), m_in(in), m_out(out) {}

private:
    void Operate() override {
        m_out << Printable(Caption().View()) << '\n';
        while (IsOpen()) Press(FillIn() ? IDOK : IDCANCEL);
    }
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
    std::istream& m_in;
    std::ostream& m_out;
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
