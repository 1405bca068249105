#include "window/CDialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "support/ScriptedUserInterface.h"
#include "window/ExtensionModule.h"

namespace {

constexpr int kEdit = 10, kButton = 11;

/// A dialog with one edit field and one button besides OK and Cancel.
class Dialog : public CDialog {
public:
    Dialog() : CDialog(4242) {}
    using CDialog::OnOK;

    CString text;
    std::vector<int> clicked, changed;
    bool fail = false;

protected:
    void DoDataExchange(CDataExchange* exchange) override { DDX_Text(exchange, kEdit, text); }
    void OnClicked(int control) override {
        clicked.push_back(control);
        if (fail) throw std::runtime_error("in the handler");
        CDialog::OnClicked(control);
    }
    void OnEditChange(int control) override { changed.push_back(control); }
};

class DialogTest : public testing::Test {
protected:
    DialogTest() {
        AfxInitExtensionModule(module, {{4242,
                                         "caption",
                                         1,
                                         1,
                                         "font",
                                         8,
                                         {{IDOK, veka::ControlKind::DefaultButton, "OK", 0, 0, 1, 1},
                                          {kEdit, veka::ControlKind::Edit, "", 0, 0, 1, 1},
                                          {kButton, veka::ControlKind::Button, "...", 0, 0, 1, 1}}}});
        new CDynLinkLibrary(module);
    }
    ~DialogTest() override { AfxTermExtensionModule(module); }

    AFX_EXTENSION_MODULE module;
    test::ScriptedUserInterface user;
    Dialog dialog;
};

TEST_F(DialogTest, CarriesItsFieldsIntoTheControlsAndBackOnOk) {
    dialog.text = "before";
    user.script = [&](test::ScriptedWindow& window) {
        EXPECT_EQ(window.GetText(kEdit), "before");
        EXPECT_EQ(window.Caption(), "caption");
        EXPECT_NE(dialog.GetSafeHwnd(), nullptr);
        window.SetText(kEdit, "after");
        window.Press(IDOK);
        EXPECT_FALSE(window.IsOpen());
    };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.text, "after");
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
}

TEST_F(DialogTest, CancelEndsItWithoutReadingTheControls) {
    user.script = [&](test::ScriptedWindow& window) {
        window.SetText(kEdit, "after");
        window.Press(IDCANCEL);
    };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.text, "");
    EXPECT_TRUE(dialog.clicked.empty());
}

TEST_F(DialogTest, TellsChangesOfTheUserAloneAndNotThoseOfItsExchange) {
    user.script = [&](test::ScriptedWindow& window) {
        EXPECT_TRUE(dialog.changed.empty());
        window.Type(kEdit, "ab");
        EXPECT_EQ(dialog.changed.size(), 2u);
        dialog.UpdateData(false);
        EXPECT_EQ(dialog.changed.size(), 2u);
    };
    dialog.DoModal();
}

TEST_F(DialogTest, OtherButtonsDoNotEndIt) {
    user.script = [&](test::ScriptedWindow& window) {
        window.Press(kButton);
        EXPECT_TRUE(window.IsOpen());
    };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_THAT(dialog.clicked, testing::ElementsAre(kButton));
}

TEST_F(DialogTest, AnExceptionOfAHandlerEndsItAndReachesTheCaller) {
    dialog.fail = true;
    user.script = [&](test::ScriptedWindow& window) {
        window.Press(kButton);
        EXPECT_FALSE(window.IsOpen());
    };
    EXPECT_THROW(dialog.DoModal(), std::runtime_error);
    dialog.fail = false;
    user.script = test::PressOk;
    EXPECT_EQ(dialog.DoModal(), IDOK) << "and it can be run again";
}

TEST_F(DialogTest, SetsTextsOfItsWindow) {
    user.script = [&](test::ScriptedWindow& window) {
        dialog.SetWindowText("new");
        dialog.SetDlgItemText(kButton, "more");
        EXPECT_EQ(window.Caption(), "new");
        EXPECT_EQ(dialog.GetDlgItemText(kButton), "more");
    };
    dialog.DoModal();
}

TEST_F(DialogTest, DoesNothingWithoutAWindow) {
    dialog.SetWindowText("x");
    dialog.SetDlgItemText(kEdit, "x");
    EXPECT_EQ(dialog.GetDlgItemText(kEdit), "");
    EXPECT_FALSE(dialog.UpdateData());
    dialog.EndDialog(IDOK);
    dialog.OnOK();
}

TEST_F(DialogTest, CannotBeShownWithoutATemplateOrAUserInterface) {
    EXPECT_EQ(CDialog(4243).DoModal(), -1);
    veka::UserInterface* installed = veka::InstallUserInterface(nullptr);
    EXPECT_EQ(dialog.DoModal(), -1);
    veka::InstallUserInterface(installed);
}

TEST_F(DialogTest, APlainDialogEndsOnOk) {
    user.script = [](test::ScriptedWindow& window) {
        window.Type(kEdit, "x");
        window.Press(kButton);
        window.Press(IDOK);
    };
    CWnd parent;
    EXPECT_EQ(CDialog(4242, &parent).DoModal(), IDOK);
}

TEST_F(DialogTest, AfterAnExceptionItsWindowIsNotListenedToAnyMore) {
    dialog.fail = true;
    user.script = [&](test::ScriptedWindow& window) {
        window.Press(kButton);
        window.SetText(kEdit, "typed");
        EXPECT_THAT(dialog.changed, testing::IsEmpty());
    };
    EXPECT_THROW(dialog.DoModal(), std::runtime_error);
}

}  // namespace
