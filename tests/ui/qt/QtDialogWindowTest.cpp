#include "qt/QtDialogWindow.h"

#include <gmock/gmock.h>

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "dialog/ImportDialogTemplate.h"
#include "support/QtScript.h"
#include "window/AfxMessageBox.h"

namespace {

using testing::ElementsAre;

/// Notes what a window tells, and ends it on OK and Cancel.
class Events : public veka::DialogEvents {
public:
    void WindowReady() noexcept override { told.push_back("ready"); }
    void ButtonClicked(int control) noexcept override {
        told.push_back("clicked " + std::to_string(control));
        if (window && (control == IDOK || control == IDCANCEL)) window->End(control);
    }
    void EditChanged(int control) noexcept override { told.push_back("changed " + std::to_string(control)); }

    veka::DialogWindow* window = nullptr;
    std::vector<std::string> told;
};

class QtDialogWindow : public test::QtTest {
protected:
    QtDialogWindow() { events.window = &window; }
    QWidget& Widget() { return *static_cast<QWidget*>(window.Handle()); }
    QWidget* Control(int id) { return Widget().findChild<QWidget*>(QString::number(id)); }
    static void Press(QWidget& dialog, Qt::Key key) {
        QTest::keyClick(dialog.focusWidget() ? dialog.focusWidget() : &dialog, key);
    }

    const veka::DialogTemplate dialog = veka::ImportDialogTemplate();
    Events events;
    veka::QtDialogWindow window{dialog, events, veka::DialogUnits{6, 13}, nullptr};
};

TEST_F(QtDialogWindow, ItsControlsStandWhereTheTemplatePutsThem) {
    EXPECT_EQ(Widget().size(), QSize(474, 122));
    EXPECT_EQ(Control(IDOK)->geometry(), QRect(308, 88, 75, 23));
    EXPECT_EQ(Control(IDCANCEL)->geometry(), QRect(389, 88, 75, 23));
    EXPECT_EQ(Control(IDC_GROUP_SELECT)->geometry(), QRect(11, 11, 453, 73));
    EXPECT_EQ(Control(IDC_STATIC_FILE_LABEL)->geometry(), QRect(20, 33, 98, 13));
    EXPECT_EQ(Control(IDC_EDIT_VEK_ASCII_PATH)->geometry(), QRect(171, 28, 246, 23));
    EXPECT_EQ(Control(IDC_BTN_VEK_ASCII_PATH)->geometry(), QRect(422, 28, 35, 23));
    EXPECT_EQ(Control(IDC_STATIC_DIR_LABEL)->geometry(), QRect(20, 62, 105, 13));
    EXPECT_EQ(Control(IDC_EDIT_VEK_DIR_PATH)->geometry(), QRect(171, 57, 245, 23));
    EXPECT_EQ(Control(IDC_BTN_VEK_DIR_PATH)->geometry(), QRect(422, 57, 35, 23));
}

TEST_F(QtDialogWindow, ItsSizeIsFixedAndItHasACaptionAndASystemMenu) {
    EXPECT_EQ(Widget().minimumSize(), Widget().maximumSize());
    EXPECT_EQ(Widget().windowTitle(), "Import ASCII Part Data File");
    EXPECT_TRUE(Widget().windowFlags() & Qt::WindowSystemMenuHint);
    EXPECT_TRUE(Widget().windowFlags() & Qt::WindowTitleHint);
    EXPECT_FALSE(Widget().windowFlags() & Qt::WindowMaximizeButtonHint);
}

TEST_F(QtDialogWindow, EachControlIsOfItsKindAndHasItsCaption) {
    for (const veka::ControlTemplate& control : dialog.controls) {
        EXPECT_EQ(window.GetText(control.id), control.caption);
        QWidget* widget = Control(control.id);
        switch (control.kind) {
            case veka::ControlKind::DefaultButton:
                EXPECT_TRUE(qobject_cast<QPushButton*>(widget)->isDefault());
                break;
            case veka::ControlKind::Button:
                EXPECT_FALSE(qobject_cast<QPushButton*>(widget)->isDefault());
                break;
            case veka::ControlKind::GroupBox:
                EXPECT_NE(qobject_cast<QGroupBox*>(widget), nullptr);
                break;
            case veka::ControlKind::Label:
                EXPECT_NE(qobject_cast<QLabel*>(widget), nullptr);
                break;
            case veka::ControlKind::Edit:
                EXPECT_TRUE(qobject_cast<QLineEdit*>(widget)->hasFrame());
                break;
        }
    }
}

TEST_F(QtDialogWindow, TheGroupBoxCoversNothing) {
    Widget().show();
    for (int id :
         {IDC_STATIC_FILE_LABEL, IDC_EDIT_VEK_ASCII_PATH, IDC_BTN_VEK_ASCII_PATH, IDC_EDIT_VEK_DIR_PATH})
        EXPECT_EQ(Widget().childAt(Control(id)->geometry().center()), Control(id)) << id;
}

TEST_F(QtDialogWindow, TabGoesThroughTheControlsInTheOrderOfTheTemplate) {
    std::vector<int> order;
    script.Then([&](QWidget& open) {
        for (int i = 0; i < 7; ++i) {
            order.push_back(open.focusWidget()->objectName().toInt());
            Press(open, Qt::Key_Tab);
        }
        Press(open, Qt::Key_Backtab);
        EXPECT_EQ(open.focusWidget(), Control(IDOK)) << "round and back";
        window.End(IDCANCEL);
    });
    window.Run();
    EXPECT_THAT(order, ElementsAre(IDOK, IDCANCEL, IDC_EDIT_VEK_ASCII_PATH, IDC_BTN_VEK_ASCII_PATH,
                                   IDC_EDIT_VEK_DIR_PATH, IDC_BTN_VEK_DIR_PATH, IDOK));
}

TEST_F(QtDialogWindow, EnterIsOkWhereverTheFocusIs) {
    for (int id : {int(IDOK), int(IDC_EDIT_VEK_ASCII_PATH), int(IDC_BTN_VEK_DIR_PATH)}) {
        Events own;
        veka::QtDialogWindow one(dialog, own, veka::DialogUnits{}, nullptr);
        own.window = &one;
        script.Then([&](QWidget& open) {
            test::QtScript::Child<QWidget>(open, std::to_string(id).c_str())->setFocus();
            Press(open, Qt::Key_Return);
        });
        EXPECT_EQ(one.Run(), IDOK);
        EXPECT_THAT(own.told, ElementsAre("ready", "clicked 1")) << id;
    }
}

TEST_F(QtDialogWindow, SpacePressesTheButtonWithTheFocus) {
    script.Then([&](QWidget& open) {
        Control(IDC_BTN_VEK_ASCII_PATH)->setFocus();
        Press(open, Qt::Key_Space);
        Press(open, Qt::Key_Escape);
    });
    EXPECT_EQ(window.Run(), IDCANCEL);
    EXPECT_THAT(events.told, ElementsAre("ready", "clicked 8001", "clicked 2"));
}

TEST_F(QtDialogWindow, EscapeTheCloseBoxAndCancelAreCancel) {
    for (const auto& end : std::vector<std::function<void(QWidget&)>>{
             [](QWidget& open) { Press(open, Qt::Key_Escape); }, [](QWidget& open) { open.close(); },
             [](QWidget& open) { test::QtScript::Click(open, "2"); }}) {
        Events own;
        veka::QtDialogWindow one(dialog, own, veka::DialogUnits{}, nullptr);
        own.window = &one;
        script.Then(end);
        EXPECT_EQ(one.Run(), IDCANCEL);
        EXPECT_THAT(own.told, ElementsAre("ready", "clicked 2"));
    }
}

TEST_F(QtDialogWindow, AChangeOfAnEditFieldIsToldLetterByLetter) {
    script.Then([&](QWidget&) {
        QTest::keyClicks(Control(IDC_EDIT_VEK_ASCII_PATH), "ab");
        EXPECT_EQ(window.GetText(IDC_EDIT_VEK_ASCII_PATH), "ab");
        window.SetText(IDC_EDIT_VEK_DIR_PATH, "c");
        window.End(IDOK);
    });
    window.Run();
    EXPECT_THAT(events.told, ElementsAre("ready", "changed 8000", "changed 8000", "changed 8005"));
}

TEST_F(QtDialogWindow, ATextOfAnyBytesComesBackFromAControl) {
    const CString bytes("/a b/\xC3\xA4\xFF\xE2\x82/\x01\t\n&&<b>x\xF0\x9F\x98\x80");
    for (const veka::ControlTemplate& control : dialog.controls) {
        window.SetText(control.id, bytes);
        EXPECT_EQ(window.GetText(control.id), bytes) << control.id;
    }
    const CString longText('x', 100000);
    window.SetText(IDC_EDIT_VEK_ASCII_PATH, longText);
    EXPECT_EQ(window.GetText(IDC_EDIT_VEK_ASCII_PATH), longText);
}

TEST_F(QtDialogWindow, AnUnknownControlIsIgnoredAndHasNoText) {
    window.SetText(99, "a");
    EXPECT_EQ(window.GetText(99), "");
}

TEST_F(QtDialogWindow, AnEndBeforeItIsShownHolds) {
    window.End(7);
    EXPECT_EQ(window.Run(), 7);
}

TEST_F(QtDialogWindow, TheDeathOfItsParentIsACancel) {
    auto parent = std::make_unique<QWidget>();
    veka::QtDialogWindow child(dialog, events, veka::DialogUnits{}, parent.get());
    events.window = &child;
    script.Then([&](QWidget& open) {
        EXPECT_EQ(open.parentWidget(), parent.get());
        parent.reset();
    });
    EXPECT_EQ(child.Run(), IDCANCEL);
    child.SetText(IDOK, "x");
    child.SetCaption("x");
    child.End(IDOK);
    EXPECT_EQ(child.GetText(IDOK), "");
    EXPECT_EQ(child.Handle(), nullptr);
}

}  // namespace
