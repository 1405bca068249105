#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "window/AfxMessageBox.h"
#include "window/UserInterface.h"

namespace test {

/// A dialog's window that a script operates as a user would.
class ScriptedWindow : public veka::DialogWindow {
public:
    ScriptedWindow(const veka::DialogTemplate& dialog, veka::DialogEvents& events,
                   std::function<void(ScriptedWindow&)> script)
        : m_events(events), m_script(std::move(script)), m_caption(dialog.caption) {
        for (const veka::ControlTemplate& control : dialog.controls) m_texts[control.id] = control.caption;
    }

    int Run() override {
        m_events.WindowReady();
        if (m_open) m_script(*this);
        if (m_open) m_events.ButtonClicked(IDCANCEL);
        return m_result;
    }
    void End(int result) override {
        m_open = false;
        m_result = result;
    }
    CString GetText(int control) const override { return m_texts.at(control); }
    void SetText(int control, const CString& text) override {
        m_texts[control] = text;
        m_events.EditChanged(control);
    }
    void SetCaption(const CString& caption) override { m_caption = caption; }
    void* Handle() const noexcept override { return const_cast<ScriptedWindow*>(this); }

    /// Types into an edit field letter by letter, after the text that is there.
    void Type(int control, std::string_view text) {
        for (const char letter : text) SetText(control, m_texts[control] + CString(letter));
    }
    void Clear(int control) { SetText(control, ""); }
    /// Presses a button, unless the dialog has ended.
    void Click(int control) {
        if (m_open) m_events.ButtonClicked(control);
    }
    bool IsOpen() const { return m_open; }
    const CString& Caption() const { return m_caption; }

private:
    veka::DialogEvents& m_events;
    std::function<void(ScriptedWindow&)> m_script;
    CString m_caption;
    std::map<int, CString> m_texts;
    bool m_open = true;
    int m_result = 0;
};

/// A user interface that a test operates; installed as long as it lives.
class ScriptedUserInterface : public veka::UserInterface {
public:
    ScriptedUserInterface() : m_former(veka::InstallUserInterface(this)) {}
    ~ScriptedUserInterface() override { veka::InstallUserInterface(m_former); }

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
    veka::UserInterface* m_former;
};

}  // namespace test
