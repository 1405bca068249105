#include "win32/Win32DialogWindow.h"

#include <gmock/gmock.h>

#include <cstring>

#include "dialog/ImportDialogTemplate.h"
#include "support/Win32Script.h"
#include "win32/DialogResource.h"
#include "window/ExtensionModule.h"

namespace {

using test::Win32Script;
using testing::Contains;
using testing::ElementsAre;

constexpr const wchar_t* kTitle = L"Import ASCII Part Data File";

/// Notes what a window tells, and ends it on OK and Cancel.
class Events : public veka::DialogEvents {
public:
    void WindowReady() noexcept override {
        told.push_back("ready");
        if (endAtOnce) window->End(*endAtOnce);
    }
    void ButtonClicked(int control) noexcept override {
        told.push_back("clicked " + std::to_string(control));
        if (control == IDOK || control == IDCANCEL) window->End(control);
    }
    void EditChanged(int control) noexcept override { told.push_back("changed " + std::to_string(control)); }

    veka::DialogWindow* window = nullptr;
    std::optional<int> endAtOnce;
    std::vector<std::string> told;
};

class Win32DialogWindow : public test::Win32Test {
protected:
    Win32DialogWindow() { events.window = &window; }
    /// Does something in the open window, and closes it.
    void Do(Win32Script::Step step) {
        script.Then(kTitle, std::move(step)).Click(kTitle, IDCANCEL);
        EXPECT_EQ(window.Run(), IDCANCEL);
    }

    const veka::DialogTemplate dialog = veka::ImportDialogTemplate();
    Events events;
    veka::Win32DialogWindow window{dialog, events, nullptr};
};

RECT InPixels(HWND window, int x, int y, int width, int height) {
    RECT numbers{x, y, width, height};  // each rounded on its own
    MapDialogRect(window, &numbers);
    return {numbers.left, numbers.top, numbers.left + numbers.right, numbers.top + numbers.bottom};
}

bool operator==(const RECT& one, const RECT& other) {
    return EqualRect(&one, &other);
}

TEST_F(Win32DialogWindow, TheLibraryHasItAsResource8000) {
    const auto module = static_cast<HMODULE>(AfxFindResourceHandle(8000));
    EXPECT_EQ(module, GetModuleHandleW(L"VEKAsciiDLL.dll"));
    EXPECT_NE(FindResourceW(module, MAKEINTRESOURCEW(8000), RT_DIALOG), nullptr);
}

TEST_F(Win32DialogWindow, TheResourceIsTheTable) {
    const auto module = static_cast<HMODULE>(AfxFindResourceHandle(8000));
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(8000), RT_DIALOG);
    ASSERT_NE(found, nullptr);
    const void* bytes = LockResource(LoadResource(module, found));
    const std::vector<std::uint32_t> made = veka::MakeDialogResource(dialog);
    const size_t size = SizeofResource(module, found);
    ASSERT_LE(size, made.size() * 4);
    EXPECT_GT(size + 4, made.size() * 4);
    EXPECT_EQ(std::memcmp(made.data(), bytes, size), 0);
}

TEST_F(Win32DialogWindow, EachControlHasItsClassNumberAndPlace) {
    Do([&](HWND open) {
        RECT inside;
        GetClientRect(open, &inside);
        EXPECT_TRUE(inside == InPixels(open, 0, 0, 316, 75));
        for (const veka::ControlTemplate& control : dialog.controls) {
            const HWND child = Win32Script::Child(open, control.id);
            RECT place;
            GetWindowRect(child, &place);
            MapWindowPoints(nullptr, open, reinterpret_cast<POINT*>(&place), 2);
            EXPECT_TRUE(place == InPixels(open, control.x, control.y, control.width, control.height))
                << control.id;
            EXPECT_EQ(window.GetText(control.id), control.caption);
            const LONG_PTR style = GetWindowLongPtrW(child, GWL_STYLE);
            const auto isButton = [&](LONG_PTR type) {
                return Win32Script::ClassOf(child) == L"Button" && (style & BS_TYPEMASK) == type;
            };
            switch (control.kind) {
                case veka::ControlKind::DefaultButton:
                    EXPECT_TRUE(isButton(BS_DEFPUSHBUTTON)) << control.id;
                    break;
                case veka::ControlKind::Button:
                    EXPECT_TRUE(isButton(BS_PUSHBUTTON)) << control.id;
                    break;
                case veka::ControlKind::GroupBox:
                    EXPECT_TRUE(isButton(BS_GROUPBOX)) << control.id;
                    break;
                case veka::ControlKind::Label:
                    EXPECT_EQ(Win32Script::ClassOf(child), L"Static") << control.id;
                    break;
                case veka::ControlKind::Edit:
                    EXPECT_EQ(Win32Script::ClassOf(child), L"Edit") << control.id;
                    EXPECT_TRUE(style & ES_AUTOHSCROLL) << control.id;
                    EXPECT_TRUE((style & WS_BORDER) ||
                                (GetWindowLongPtrW(child, GWL_EXSTYLE) & WS_EX_CLIENTEDGE))
                        << control.id;
                    break;
            }
        }
        int children = 0;
        for (HWND child = GetWindow(open, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) ++children;
        EXPECT_EQ(children, 9) << "and there is no other";
    });
}

TEST_F(Win32DialogWindow, ItIsAModalFrameWithACaptionAndASystemMenu) {
    Do([&](HWND open) {
        const LONG_PTR style = GetWindowLongPtrW(open, GWL_STYLE);
        EXPECT_EQ(style & WS_CAPTION, WS_CAPTION);
        EXPECT_TRUE(style & WS_SYSMENU);
        EXPECT_TRUE(style & DS_MODALFRAME);
        EXPECT_FALSE(style & (WS_MAXIMIZEBOX | WS_MINIMIZEBOX | WS_THICKFRAME));
        window.SetCaption("Other \xC3\xA4");
        EXPECT_EQ(Win32Script::TextOf(open), L"Other \u00E4");
        window.SetCaption(dialog.caption);
    });
}

TEST_F(Win32DialogWindow, TabGoesThroughTheControlsInTheOrderOfTheTemplate) {
    std::vector<int> order;
    Do([&](HWND open) {
        EXPECT_EQ(GetFocus(), GetDlgItem(open, IDOK)) << "the first one has the focus";
        HWND control = GetDlgItem(open, IDOK);
        for (int i = 0; i < 7; ++i) {
            order.push_back(GetDlgCtrlID(control));
            control = GetNextDlgTabItem(open, control, FALSE);
        }
    });
    EXPECT_THAT(order, ElementsAre(IDOK, IDCANCEL, IDC_EDIT_VEK_ASCII_PATH, IDC_BTN_VEK_ASCII_PATH,
                                   IDC_EDIT_VEK_DIR_PATH, IDC_BTN_VEK_DIR_PATH, IDOK));
}

TEST_F(Win32DialogWindow, AClickIsTold) {
    script.Click(kTitle, IDC_BTN_VEK_ASCII_PATH).Click(kTitle, IDC_BTN_VEK_DIR_PATH).Click(kTitle, IDOK);
    EXPECT_EQ(window.Run(), IDOK);
    EXPECT_THAT(events.told, ElementsAre("ready", "clicked 8001", "clicked 8006", "clicked 1"));
    EXPECT_EQ(window.Handle(), nullptr) << "it is gone";
    EXPECT_EQ(window.GetText(IDOK), "");
}

TEST_F(Win32DialogWindow, EnterIsOk) {
    script.Then(kTitle, [](HWND open) {
        SetFocus(GetDlgItem(open, IDC_EDIT_VEK_ASCII_PATH));
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 0);
    });
    EXPECT_EQ(window.Run(), IDOK);
}

TEST_F(Win32DialogWindow, EscapeTheCloseBoxAndCancelAreCancel) {
    script.Then(kTitle, [](HWND open) { PostMessageW(open, WM_SYSCOMMAND, SC_CLOSE, 0); });
    EXPECT_EQ(window.Run(), IDCANCEL);
    script.Then(kTitle, [](HWND) { PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 0); });
    EXPECT_EQ(window.Run(), IDCANCEL);
    script.Click(kTitle, IDCANCEL);
    EXPECT_EQ(window.Run(), IDCANCEL);
    EXPECT_THAT(events.told, ElementsAre("ready", "clicked 2", "ready", "clicked 2", "ready", "clicked 2"));
}

TEST_F(Win32DialogWindow, AChangeOfAnEditFieldIsToldLetterByLetter) {
    Do([&](HWND open) {
        const HWND edit = Win32Script::Child(open, IDC_EDIT_VEK_ASCII_PATH);
        for (wchar_t c : std::wstring(L"ab")) SendMessageW(edit, WM_CHAR, c, 0);
        EXPECT_EQ(window.GetText(IDC_EDIT_VEK_ASCII_PATH), "ab");
        window.SetText(IDC_EDIT_VEK_DIR_PATH, "c");
    });
    EXPECT_THAT(events.told,
                ElementsAre("ready", "changed 8000", "changed 8000", "changed 8005", "clicked 2"));
}

TEST_F(Win32DialogWindow, ATextOfAnyBytesComesBackFromAControl) {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte)
        if (byte != '\r' && byte != '\n') bytes += static_cast<char>(byte);
    bytes += "\xC3\xA4\xF0\x9F\x98\x80";
    Do([&](HWND) {
        for (int control : {int(IDC_EDIT_VEK_ASCII_PATH), int(IDC_STATIC_FILE_LABEL)}) {
            window.SetText(control, CString(bytes));
            EXPECT_EQ(window.GetText(control), CString(bytes)) << control;
        }
    });
}

TEST_F(Win32DialogWindow, ALongTextFitsAnEditField) {
    const std::string text(100'000, 'x');
    Do([&](HWND open) {
        window.SetText(IDC_EDIT_VEK_ASCII_PATH, CString(text));
        EXPECT_EQ(window.GetText(IDC_EDIT_VEK_ASCII_PATH), CString(text));
        const HWND edit = Win32Script::Child(open, IDC_EDIT_VEK_ASCII_PATH);
        SendMessageW(edit, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
        SendMessageW(edit, WM_CHAR, 'y', 0);
        EXPECT_EQ(window.GetText(IDC_EDIT_VEK_ASCII_PATH), CString(text + "y")) << "typed";
    });
}

TEST_F(Win32DialogWindow, AnUnknownControlIsIgnoredAndHasNoText) {
    Do([&](HWND) {
        window.SetText(4711, "x");
        EXPECT_EQ(window.GetText(4711), "");
    });
}

TEST_F(Win32DialogWindow, AnEndBeforeItIsShownHolds) {
    events.endAtOnce = 7;
    EXPECT_EQ(window.Run(), 7);
    EXPECT_THAT(events.told, ElementsAre("ready"));
}

TEST_F(Win32DialogWindow, ItsOwnDeathIsACancel) {
    script.Then(kTitle, [](HWND open) { DestroyWindow(open); });
    EXPECT_EQ(window.Run(), IDCANCEL);
}

TEST_F(Win32DialogWindow, AParentThatIsNoWindowIsAFailure) {
    veka::Win32DialogWindow lost(dialog, events, reinterpret_cast<void*>(4711));
    EXPECT_EQ(lost.Run(), -1);
}

TEST_F(Win32DialogWindow, ATemplateWithoutAResourceIsShownFromItsTable) {
    veka::DialogTemplate own = dialog;
    own.id = 4711;
    own.caption = "Own";
    veka::Win32DialogWindow one(own, events, nullptr);
    events.window = &one;
    script
        .Then(L"Own",
              [&](HWND open) {
                  EXPECT_EQ(one.GetText(IDC_GROUP_SELECT), "Select File/Directory");
                  RECT inside;
                  GetClientRect(open, &inside);
                  EXPECT_TRUE(inside == InPixels(open, 0, 0, 316, 75));
              })
        .Click(L"Own", IDOK);
    EXPECT_EQ(one.Run(), IDOK);
}

TEST_F(Win32DialogWindow, ItShutsItsParentOutAndStandsInItsMiddle) {
    const HWND parent = CreateWindowW(L"STATIC", L"Parent", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 50, 600,
                                      400, nullptr, nullptr, nullptr, nullptr);
    veka::Win32DialogWindow one(dialog, events, parent);
    events.window = &one;
    script.Then(kTitle, [&](HWND open) {
        EXPECT_FALSE(IsWindowEnabled(parent));
        EXPECT_EQ(GetWindow(open, GW_OWNER), parent);
        RECT own, around;
        GetWindowRect(open, &own);
        GetWindowRect(parent, &around);
        EXPECT_NEAR(own.left + own.right, around.left + around.right, 2);
        EXPECT_NEAR(own.top + own.bottom, around.top + around.bottom, 2);
        Win32Script::Click(open, IDOK);
    });
    EXPECT_EQ(one.Run(), IDOK);
    EXPECT_TRUE(IsWindowEnabled(parent));
    DestroyWindow(parent);
}

}  // namespace
