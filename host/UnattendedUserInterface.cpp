#include "host/UnattendedUserInterface.h"

#include <map>
#include <ostream>

#include "platform/AfxMessageBox.h"

namespace host {

namespace {

class UnattendedWindow : public veka::DialogWindow {
public:
    explicit UnattendedWindow(veka::DialogEvents& events) : m_events(events) {}

    int Run() override {
        m_events.WindowReady();
        if (m_open) m_events.ButtonClicked(IDOK);
        if (m_open) m_events.ButtonClicked(IDCANCEL);
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
    void SetText(int control, const CString& text) override { m_texts[control] = text; }
    void SetCaption(const CString&) override {}

private:
    veka::DialogEvents& m_events;
    std::map<int, CString> m_texts;
    bool m_open = true;
    int m_result = IDCANCEL;
};

}  // namespace

void UnattendedUserInterface::ShowMessage(const CString& text) {
    m_err << "veka-host: " << text.View() << '\n';
}

bool UnattendedUserInterface::AskYesNo(const CString& text) {
    const bool yes =
        m_overwrite == Overwrite::Ask ? ConsoleUserInterface::AskYesNo(text) : m_overwrite == Overwrite::Yes;
    m_saidNo = m_saidNo || !yes;
    return yes;
}

std::unique_ptr<veka::DialogWindow> UnattendedUserInterface::MakeDialogWindow(const veka::DialogTemplate&,
                                                                              veka::DialogEvents& events,
                                                                              void*) {
    return std::make_unique<UnattendedWindow>(events);
}

}  // namespace host
