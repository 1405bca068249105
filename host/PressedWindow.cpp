#include "host/PressedWindow.h"

#include <map>

#include "window/AfxMessageBox.h"

namespace host {

namespace {

class PressedWindow : public veka::DialogWindow {
public:
    explicit PressedWindow(veka::DialogEvents& events) : m_events(events) {}

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

std::unique_ptr<veka::DialogWindow> MakePressedWindow(veka::DialogEvents& events) {
    return std::make_unique<PressedWindow>(events);
}

}  // namespace host
