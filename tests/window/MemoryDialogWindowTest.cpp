#include "window/MemoryDialogWindow.h"

#include <gtest/gtest.h>

#include <string>

#include "window/AfxMessageBox.h"

namespace {

enum { kLabel = 10, kEdit, kButton, kMissing };

const veka::DialogTemplate& Template() {
    static const veka::DialogTemplate dialog{1,
                                             "Caption",
                                             100,
                                             50,
                                             "Font",
                                             8,
                                             {{kLabel, veka::ControlKind::Label, "Name:", 0, 0, 1, 1},
                                              {kEdit, veka::ControlKind::Edit, "", 0, 0, 1, 1},
                                              {kButton, veka::ControlKind::Button, "Go", 0, 0, 1, 1}}};
    return dialog;
}

/// A window that does what a test says, and that notes its events.
struct Window : private veka::DialogEvents, public veka::MemoryDialogWindow {
    Window() : MemoryDialogWindow(Template(), *this) {}

    void WindowReady() noexcept override {
        told += "ready ";
        if (endAtOnce) End(7);
    }
    void ButtonClicked(int control) noexcept override {
        told += "button " + std::to_string(control) + ' ';
        if (control == kButton || control == IDCANCEL) End(control);
    }
    void EditChanged(int control) noexcept override { told += "edit " + std::to_string(control) + ' '; }
    void Operate() override {
        told += "operate ";
        if (press != 0) Press(press);
    }

    std::string told;
    int press = 0;
    bool endAtOnce = false;
};

TEST(MemoryDialogWindow, StartsWithTheTextsOfItsTemplate) {
    const Window window;
    EXPECT_EQ(window.Caption(), "Caption");
    EXPECT_EQ(window.GetText(kLabel), "Name:");
    EXPECT_EQ(window.GetText(kEdit), "");
    EXPECT_EQ(window.GetText(kMissing), "");
    EXPECT_EQ(window.Handle(), nullptr);
}

TEST(MemoryDialogWindow, TellsOfNewTextsInEditFieldsAlone) {
    Window window;
    window.SetText(kEdit, "x");
    window.SetText(kEdit, "x");
    window.SetText(kLabel, "Path:");
    window.SetText(kMissing, "y");
    window.SetCaption("Other");
    EXPECT_EQ(window.told, "edit 11 ");
    EXPECT_EQ(window.GetText(kEdit), "x");
    EXPECT_EQ(window.GetText(kLabel), "Path:");
    EXPECT_EQ(window.GetText(kMissing), "");
    EXPECT_EQ(window.Caption(), "Other");
}

TEST(MemoryDialogWindow, GivesTheResultWithWhichItWasEnded) {
    Window window;
    window.press = kButton;
    EXPECT_EQ(window.Run(), kButton);
    EXPECT_FALSE(window.IsOpen());
    EXPECT_EQ(window.told, "ready operate button 12 ");
    window.Press(kButton);
    EXPECT_EQ(window.told, "ready operate button 12 ") << "a closed window has no buttons";
    EXPECT_EQ(window.Run(), kButton) << "the window can be opened again";
}

TEST(MemoryDialogWindow, IsCancelledIfItIsLeftOpen) {
    Window window;
    EXPECT_EQ(window.Run(), IDCANCEL);
    EXPECT_EQ(window.told, "ready operate button 2 ");
}

TEST(MemoryDialogWindow, IsNotOperatedIfItEndsBeforeItIsShown) {
    Window window;
    window.endAtOnce = true;
    EXPECT_EQ(window.Run(), 7);
    EXPECT_EQ(window.told, "ready ");
}

}  // namespace
