#include "window/UserInterface.h"

#include <gtest/gtest.h>

#include "support/ScriptedUserInterface.h"

namespace {

TEST(UserInterface, IsTheOneInstalledLast) {
    EXPECT_EQ(veka::InstalledUserInterface(), nullptr);
    {
        test::ScriptedUserInterface first;
        EXPECT_EQ(veka::InstalledUserInterface(), &first);
        {
            test::ScriptedUserInterface second;
            EXPECT_EQ(veka::InstalledUserInterface(), &second);
        }
        EXPECT_EQ(veka::InstalledUserInterface(), &first);
    }
    EXPECT_EQ(veka::InstalledUserInterface(), nullptr);
}

}  // namespace
