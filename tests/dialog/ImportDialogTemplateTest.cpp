#include "dialog/ImportDialogTemplate.h"

#include <gtest/gtest.h>

#include <sstream>

#include "dialog/CVEK_AsciiFile_Import_Dlg.h"
#include "support/Files.h"
#include "window/AfxMessageBox.h"
#include "window/ExtensionModule.h"

namespace {

TEST(ImportDialogTemplate, IsTheDialogInItsTabOrder) {
    const veka::DialogTemplate dialog = veka::ImportDialogTemplate();
    EXPECT_EQ(dialog.id, 8000u);
    EXPECT_EQ(dialog.width, 316);
    EXPECT_EQ(dialog.height, 75);
    EXPECT_STREQ(dialog.caption, "Import ASCII Part Data File");
    EXPECT_STREQ(dialog.fontName, "MS Shell Dlg");
    EXPECT_EQ(dialog.fontSize, 8);
    const int order[] = {IDOK, IDCANCEL, 8002, 8003, 8000, 8001, 8004, 8005, 8006};
    ASSERT_EQ(dialog.controls.size(), std::size(order));
    for (size_t i = 0; i < std::size(order); ++i) EXPECT_EQ(dialog.controls[i].id, order[i]);
}

/// A text as a resource script has it.
std::string Quoted(const char* text) {
    return "\"" + std::string(text) + "\"";
}

/// A control as a resource script has it.
std::string Statement(const veka::ControlTemplate& control) {
    std::string start, end;
    switch (control.kind) {
        case veka::ControlKind::DefaultButton:
            start = "DEFPUSHBUTTON " + Quoted(control.caption) + ", ";
            break;
        case veka::ControlKind::Button:
            start = "PUSHBUTTON " + Quoted(control.caption) + ", ";
            break;
        case veka::ControlKind::GroupBox:
            start = "GROUPBOX " + Quoted(control.caption) + ", ";
            break;
        case veka::ControlKind::Label:
            start = "LTEXT " + Quoted(control.caption) + ", ";
            break;
        case veka::ControlKind::Edit:
            start = "EDITTEXT ";
            end = ", ES_AUTOHSCROLL";
            break;
    }
    std::ostringstream text;
    text << "    " << start << control.id << ", " << control.x << ", " << control.y << ", " << control.width
         << ", " << control.height << end << "\n";
    return text.str();
}

TEST(ImportDialogTemplate, TheResourceScriptIsTheSameDialog) {
    const veka::DialogTemplate dialog = veka::ImportDialogTemplate();
    std::ostringstream script;
    script << dialog.id << " DIALOGEX 0, 0, " << dialog.width << ", " << dialog.height << "\n"
           << "STYLE DS_SETFONT | DS_MODALFRAME | DS_FIXEDSYS | WS_POPUP | WS_CAPTION | WS_SYSMENU\n"
           << "CAPTION " << Quoted(dialog.caption) << "\n"
           << "FONT " << dialog.fontSize << ", " << Quoted(dialog.fontName) << ", 400, 0, 0x1\n"
           << "BEGIN\n";
    for (const veka::ControlTemplate& control : dialog.controls) script << Statement(control);
    script << "END\n";
    const std::string file = test::ReadFile(test::ProjectFolder("src") / "dialog/ImportDialog.rc");
    ASSERT_NE(file.find("\n\n"), std::string::npos);
    EXPECT_EQ(file.substr(file.find("\n\n") + 2), script.str());
}

TEST(ImportDialogTemplate, NoControlLeavesTheDialog) {
    const veka::DialogTemplate dialog = veka::ImportDialogTemplate();
    for (const veka::ControlTemplate& control : dialog.controls) {
        EXPECT_LE(control.x + control.width, dialog.width);
        EXPECT_LE(control.y + control.height, dialog.height);
    }
}

// The tests link the library into their program.
const int kOfThisProgram = 0;

TEST(ImportDialogTemplate, IsRegisteredWhenTheLibraryIsLoaded) {
    const CVEK_AsciiFile_Import_Dlg dialog;  // the library is linked for its sake
    EXPECT_NE(veka::FindDialogTemplate(8000), nullptr);
    EXPECT_EQ(AfxFindResourceHandle(8000), veka::ModuleOf(&kOfThisProgram));
}

}  // namespace
