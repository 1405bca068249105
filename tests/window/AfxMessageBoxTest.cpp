#include "window/AfxMessageBox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ScriptedUserInterface.h"

namespace {

TEST(AfxMessageBox, ShowsAMessage) {
    test::ScriptedUserInterface user;
    EXPECT_EQ(AfxMessageBox("hello"), IDOK);
    EXPECT_THAT(user.messages, testing::ElementsAre("hello"));
}

TEST(AfxMessageBox, AsksAQuestion) {
    test::ScriptedUserInterface user;
    user.answers = {true, false};
    EXPECT_EQ(AfxMessageBox("sure?", MB_YESNO), IDYES);
    EXPECT_EQ(AfxMessageBox("sure?", MB_YESNO), IDNO);
    EXPECT_EQ(user.questions.size(), 2u);
}

TEST(AfxMessageBox, WritesToStandardErrorAndAnswersNoWithoutAUserInterface) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(AfxMessageBox("hello"), IDOK);
    EXPECT_EQ(AfxMessageBox("sure?", MB_YESNO), IDNO);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "hello\nsure?\n");
}

}  // namespace
