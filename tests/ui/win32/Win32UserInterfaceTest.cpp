#include "win32/Win32UserInterface.h"

#include <gmock/gmock.h>

#include "dialog/CVEK_AsciiFile_Import_Dlg.h"
#include "model/CVEKA_Manager.h"
#include "parser/CInvalidAccessException.h"
#include "support/ImportSetup.h"
#include "support/Win32Script.h"
#include "win32/WideText.h"
#include "window/SBUtility.h"

namespace {

using test::Win32Script;

constexpr const wchar_t* kTitle = L"Import ASCII Part Data File";
constexpr const wchar_t* kMessage = L"test_win32";
constexpr const wchar_t* kFilePicker = L"Open";
constexpr const wchar_t* kDirectoryPicker = L"VEK Library Directory";

/// The import dialog with real windows, operated with real buttons and keys.
class Win32ImportDialog : public test::Win32Test, protected test::ImportSetup {
protected:
    Win32ImportDialog() : ImportSetup("a part \xC3\xA4.veka", "A") {}
    /// Expects a message with a text, and answers it with a button.
    void Answer(const CString& text, int button) {
        script.Then(kMessage, [text, button](HWND box) {
            constexpr int kText = 0xFFFF;
            EXPECT_EQ(veka::FromWide(Win32Script::TextOf(Win32Script::Child(box, kText))), text);
            Win32Script::Click(box, button);
        });
    }
    static std::wstring Text(HWND window, int control) {
        return Win32Script::TextOf(Win32Script::Child(window, control));
    }
    static void Type(HWND window, int control, const CString& text) {
        const HWND edit = Win32Script::Child(window, control);
        for (wchar_t c : veka::ToWide(text)) SendMessageW(edit, WM_CHAR, c, 0);
    }
    /// The field of a picker in which a name is typed.
    static HWND NameField(HWND picker) {
        HWND found = nullptr;
        EnumChildWindows(
            picker,
            [](HWND child, LPARAM result) -> BOOL {
                if (Win32Script::ClassOf(child) != L"Edit" || !IsWindowVisible(child)) return TRUE;
                *reinterpret_cast<HWND*>(result) = child;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&found));
        if (!found) throw std::logic_error("the picker has no field");
        return found;
    }
    /// Chooses a path in a picker.
    void Pick(const wchar_t* picker, const CString& path) {
        script.Then(picker, [path](HWND window) {
            SetWindowTextW(NameField(window), veka::ToWide(path).c_str());
            Win32Script::Click(window, IDOK);
        });
    }
    CString Question() const { return "\"" + library + "\\A\"is already exist. Do you want to overwrite"; }
};

TEST_F(Win32ImportDialog, ImportsWithTheButtonsAlone) {
    script.Click(kTitle, 8001);
    Pick(kFilePicker, file);
    script.Then(kTitle, [&](HWND window) {
        EXPECT_EQ(veka::FromWide(Text(window, 8000)), file);
        Win32Script::Click(window, 8006);
    });
    Pick(kDirectoryPicker, library);
    script.Then(kTitle, [&](HWND window) {
        EXPECT_EQ(veka::FromWide(Text(window, 8005)), library);
        Win32Script::Click(window, IDOK);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(MPN(dialog), "A");
}

TEST_F(Win32ImportDialog, ImportsWithTheKeyboardAlone) {
    script.Then(kTitle, [&](HWND window) {
        Type(window, 8000, file);
        Type(window, 8005, library);
        PostMessageW(Win32Script::Child(window, 8005), WM_KEYDOWN, VK_RETURN, 0);
        SetFocus(Win32Script::Child(window, 8005));
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(MPN(dialog), "A");
    EXPECT_EQ(dialog.GetVEKAsciiFilePath(), file);
}

TEST_F(Win32ImportDialog, APathThatIsNoUtf8SurvivesTheEditField) {
    const CString odd = directory.Write("odd \xFF.veka", "(VEK (PARTGENERAL (MPN B)))");
    if (!veka::Exists(veka::ToPath(odd))) GTEST_SKIP() << "This file system has no such names.";
    dialog.SetVEKAsciiFilePath(odd);
    dialog.SetDefaultPartLibDir(library);
    script.Click(kTitle, IDOK);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetVEKAsciiFilePath(), odd);
    EXPECT_EQ(MPN(dialog), "B");
}

TEST_F(Win32ImportDialog, DeletingLetterByLetterLeavesTheFirstLetter) {
    Fill(dialog);
    dialog.SetDefaultPartLibDir("xyz");
    script.Then(kTitle, [&](HWND window) {
        const HWND edit = Win32Script::Child(window, 8005);
        SendMessageW(edit, EM_SETSEL, 3, 3);
        for (int i = 0; i < 3; ++i) SendMessageW(edit, WM_CHAR, VK_BACK, 0);
        EXPECT_EQ(Text(window, 8005), L"");
        EXPECT_EQ(dialog.GetDefaultPartLibDir(), "x");
        Win32Script::Click(window, IDOK);
    });
    Answer("VEK Library Directory Not Exist!", IDOK);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(Win32ImportDialog, AMissingFileIsToldAndEndsWithCancel) {
    script.Click(kTitle, IDOK);
    Answer("VEK Ascii File Path Fail!", IDOK);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(Win32ImportDialog, AMissingXmlFileIsToldAndEndsWithCancel) {
    test::KindDialog xml(1);
    script.Click(L"Import XML Part Data File", IDOK);
    Answer("VEK XML File Path Fail!", IDOK);
    EXPECT_EQ(xml.DoModal(), IDCANCEL);
}

TEST_F(Win32ImportDialog, AMissingDirectoryIsToldAndEndsWithCancel) {
    dialog.SetVEKAsciiFilePath(file);
    script.Click(kTitle, IDOK);
    Answer("VEK Library Directory Not Exist!", IDOK);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(Win32ImportDialog, NoLeavesItOpenAndYesOverwrites) {
    MakeTarget();
    Fill(dialog);
    script.Click(kTitle, IDOK);
    Answer(Question(), IDNO);
    script.Click(kTitle, IDOK);
    Answer(Question(), IDYES);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(MPN(dialog), "A");
}

TEST_F(Win32ImportDialog, CancelInAPickerChangesNothing) {
    Fill(dialog);
    script.Click(kTitle, 8001).Click(kFilePicker, IDCANCEL).Click(kTitle, 8006);
    script.Click(kDirectoryPicker, IDCANCEL);
    script.Then(kTitle, [&](HWND window) {
        EXPECT_EQ(veka::FromWide(Text(window, 8000)), file);
        EXPECT_EQ(veka::FromWide(Text(window, 8005)), library);
        Win32Script::Click(window, IDCANCEL);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.GetVEKAsciiFilePath(), file);
    EXPECT_EQ(dialog.GetDefaultPartLibDir(), library);
}

TEST_F(Win32ImportDialog, TheXmlFormHasItsOwnCaptions) {
    test::KindDialog xml(1);
    script.Then(L"Import XML Part Data File", [&](HWND window) {
        EXPECT_EQ(Text(window, 8003), L"XML Part Data File");
        Win32Script::Click(window, IDCANCEL);
    });
    EXPECT_EQ(xml.DoModal(), IDCANCEL);
}

TEST_F(Win32ImportDialog, ABraceErrorIsToldAndTheImportGoesOn) {
    file = directory.Write("open.veka", "(VEK (PARTGENERAL (MPN C)))\n)(");
    Fill(dialog);
    script.Click(kTitle, IDOK);
    Answer("Parser meet unexpected Brace Counting Number, 0 at line number 2.!", IDOK);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(MPN(dialog), "C");
}

TEST_F(Win32ImportDialog, AnExceptionDuringTheImportLeavesTheLoopAndReachesTheHost) {
    file = directory.Write("bad.veka",
                           "(VEK (PACKAGES (PACKAGE (MECHANICALPINS (X) (MECHANICALPIN M (PT 1))))))");
    Fill(dialog);
    script.Click(kTitle, IDOK);
    EXPECT_THROW(dialog.DoModal(), CInvalidAccessException);
    EXPECT_EQ(Win32Script::OpenWindow(), nullptr);
}

TEST_F(Win32ImportDialog, OpensOverTheWindowOfAHost) {
    const HWND parent = CreateWindowW(L"STATIC", L"Parent", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 600, 400,
                                      nullptr, nullptr, nullptr, nullptr);
    veka::Win32Wnd host(parent);
    CVEK_AsciiFile_Import_Dlg one(&host);
    script.Then(kTitle, [&](HWND window) {
        EXPECT_EQ(GetWindow(window, GW_OWNER), parent);
        EXPECT_EQ(one.GetSafeHwnd(), window);
        Win32Script::Click(window, IDCANCEL);
    });
    EXPECT_EQ(one.DoModal(), IDCANCEL);
    DestroyWindow(parent);
}

TEST_F(Win32ImportDialog, AFileBehindALongPathIsImported) {
    CString deep = directory / "lib";
    for (int i = 0; i < 15; ++i) {
        deep += "\\a rather long name of a directory";
        ASSERT_TRUE(CreateDirectoryW(veka::ToPath(deep).c_str(), nullptr)) << i;
    }
    const CString part = deep + "\\part.veka";
    ASSERT_GT(part.GetLength(), 500);
    ASSERT_TRUE(CopyFileW(veka::ToPath(file).c_str(), veka::ToPath(part).c_str(), TRUE));
    dialog.SetVEKAsciiFilePath(part);
    dialog.SetDefaultPartLibDir(deep);
    script.Click(kTitle, IDOK);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(MPN(dialog), "A");
    EXPECT_TRUE(DeleteFileW(veka::ToPath(part).c_str()));
    for (int i = 0; i < 15; ++i) {
        EXPECT_TRUE(RemoveDirectoryW(veka::ToPath(deep).c_str()));
        deep = deep.Left(deep.ReverseFind('\\'));
    }
}

TEST_F(Win32ImportDialog, ThereIsADesktop) {
    EXPECT_TRUE(veka::HasDesktop());
}

}  // namespace
