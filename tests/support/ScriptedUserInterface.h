#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "window/AfxMessageBox.h"
#include "window/MemoryDialogWindow.h"
#include "window/ScopedUserInterface.h"

namespace test {

/// A dialog's window that a script operates as a user would.
class ScriptedWindow : public veka::MemoryDialogWindow {
public:
    ScriptedWindow(const veka::DialogTemplate& dialog, veka::DialogEvents& events,
                   std::function<void(ScriptedWindow&)> script)
        : MemoryDialogWindow(dialog, events), m_script(std::move(script)) {}

    void* Handle() const noexcept override { return const_cast<ScriptedWindow*>(this); }

    /// Types text at the end of an edit field, letter by letter.
    void Type(int control, std::string_view text) {
        for (const char letter : text) SetText(control, GetText(control) + CString(letter));
    }
    void Clear(int control) { SetText(control, ""); }

private:
    void Operate() override { m_script(*this); }

    std::function<void(ScriptedWindow&)> m_script;
};

/// A script that presses OK.
inline void PressOk(ScriptedWindow& window) {
    window.Press(IDOK);
}

/// A user interface that a test operates; installed as long as it lives.
class ScriptedUserInterface : public veka::UserInterface {
public:
    void ShowMessage(const CString& text) override { messages.emplace_back(text); }
    bool AskYesNo(const CString& text) override {
        questions.emplace_back(text);
        if (beforeAnswer) beforeAnswer();
        if (answers.empty()) return false;
        const bool answer = answers.front();
        answers.pop_front();
        return answer;
    }
    CString PickFile(const CString& description, const CString& extension, const CString& current,
                     void* parent) override {
        pickers.push_back("file|" + std::string(description) + "|" + std::string(extension) + "|" +
                          std::string(current) + (parent ? "|parent" : ""));
        return picked;
    }
    CString PickDirectory(const CString& title, const CString& current, void* owner) override {
        pickers.push_back("directory|" + std::string(title) + "|" + std::string(current) +
                          (owner ? "|owner" : ""));
        return picked;
    }
    std::unique_ptr<veka::DialogWindow> MakeDialogWindow(const veka::DialogTemplate& dialog,
                                                         veka::DialogEvents& events, void*) override {
        return std::make_unique<ScriptedWindow>(dialog, events, script);
    }

    std::function<void(ScriptedWindow&)> script = [](ScriptedWindow&) {};
    std::function<void()> beforeAnswer;
    std::deque<bool> answers;  ///< to questions, in order; then No
    CString picked;            ///< result of every picker
    std::vector<std::string> messages, questions, pickers;

private:
    const veka::ScopedUserInterface m_installed{*this};
};

}  // namespace test
