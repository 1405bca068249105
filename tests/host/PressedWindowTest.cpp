#include "host/PressedWindow.h"

#include <gmock/gmock.h>

#include "window/AfxMessageBox.h"

namespace {

using testing::ElementsAre;

/// Ends on the buttons named.
class Events : public veka::DialogEvents {
public:
    void WindowReady() noexcept override {
        window->SetText(5, "text");
        if (atOnce) window->End(9);
    }
    void ButtonClicked(int control) noexcept override {
        clicked.push_back(control);
        if (control == end) window->End(control);
    }
    void EditChanged(int) noexcept override {}

    std::unique_ptr<veka::DialogWindow> window = host::MakePressedWindow(*this);
    std::vector<int> clicked;
    int end = 0;
    bool atOnce = false;
};

TEST(PressedWindow, PressesOkOnce) {
    Events events;
    events.end = IDOK;
    EXPECT_EQ(events.window->Run(), IDOK);
    EXPECT_THAT(events.clicked, ElementsAre(IDOK));
    EXPECT_EQ(events.window->GetText(5), "text");
    EXPECT_EQ(events.window->GetText(6), "");
}

TEST(PressedWindow, PressesCancelWhereOkLeavesItOpen) {
    Events events;
    events.end = IDCANCEL;
    EXPECT_EQ(events.window->Run(), IDCANCEL);
    EXPECT_THAT(events.clicked, ElementsAre(IDOK, IDCANCEL));
}

TEST(PressedWindow, PressesNothingWhereItEndsAtOnce) {
    Events events;
    events.atOnce = true;
    EXPECT_EQ(events.window->Run(), 9);
    EXPECT_THAT(events.clicked, ElementsAre());
}

}  // namespace
