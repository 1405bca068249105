#include "win32/DialogResource.h"

#include <windows.h>

#include "win32/WideText.h"

namespace veka {

namespace {

struct ControlForm {
    std::uint16_t windowClass;  // the system's number for it
    DWORD style;
};

ControlForm FormOf(ControlKind kind) {
    constexpr std::uint16_t kButton = 0x80, kEdit = 0x81, kStatic = 0x82;
    switch (kind) {
        case ControlKind::DefaultButton:
            return {kButton, BS_DEFPUSHBUTTON | WS_TABSTOP};
        case ControlKind::Button:
            return {kButton, BS_PUSHBUTTON | WS_TABSTOP};
        case ControlKind::GroupBox:
            return {kButton, BS_GROUPBOX};
        case ControlKind::Label:
            return {kStatic, SS_LEFT | WS_GROUP};
        case ControlKind::Edit:
            break;
    }
    return {kEdit, ES_LEFT | ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP};
}

/// 16-bit words, one after the other.
class Words {
public:
    void Add(int word) { m_words.push_back(static_cast<std::uint16_t>(word)); }
    void AddLong(DWORD number) {
        Add(static_cast<int>(number & 0xFFFF));
        Add(static_cast<int>(number >> 16));
    }
    void AddPlace(int x, int y, int width, int height) {
        for (int number : {x, y, width, height}) Add(number);
    }
    void AddText(const char* text) {
        for (wchar_t c : ToWide(std::string_view(text))) Add(c);
        Add(0);
    }
    void Align() {
        if (m_words.size() % 2 != 0) Add(0);
    }
    std::vector<std::uint32_t> Release() {
        Align();
        std::vector<std::uint32_t> result;
        for (size_t i = 0; i < m_words.size(); i += 2)
            result.push_back(m_words[i] | (std::uint32_t{m_words[i + 1]} << 16));
        return result;
    }

private:
    std::vector<std::uint16_t> m_words;
};

}  // namespace

std::vector<std::uint32_t> MakeDialogResource(const DialogTemplate& dialog) {
    constexpr int kVersion = 1, kExtended = 0xFFFF, kNumberFollows = 0xFFFF, kAnyCharacterSet = 1;
    Words words;
    words.Add(kVersion);
    words.Add(kExtended);
    words.AddLong(0);  // help
    words.AddLong(0);  // further style
    words.AddLong(DS_SETFONT | DS_MODALFRAME | DS_FIXEDSYS | WS_POPUP | WS_CAPTION | WS_SYSMENU);
    words.Add(static_cast<int>(dialog.controls.size()));
    words.AddPlace(0, 0, dialog.width, dialog.height);
    words.Add(0);  // no menu
    words.Add(0);  // the system's own class of windows
    words.AddText(dialog.caption);
    words.Add(dialog.fontSize);
    words.Add(FW_NORMAL);
    words.Add(kAnyCharacterSet << 8);  // after the byte for italics
    words.AddText(dialog.fontName);
    for (const ControlTemplate& control : dialog.controls) {
        const ControlForm form = FormOf(control.kind);
        words.Align();
        words.AddLong(0);  // help
        words.AddLong(0);  // further style
        words.AddLong(form.style | WS_CHILD | WS_VISIBLE);
        words.AddPlace(control.x, control.y, control.width, control.height);
        words.AddLong(static_cast<DWORD>(control.id));
        words.Add(kNumberFollows);
        words.Add(form.windowClass);
        words.AddText(control.caption);
        words.Add(0);  // no data of its own
    }
    return words.Release();
}

}  // namespace veka
