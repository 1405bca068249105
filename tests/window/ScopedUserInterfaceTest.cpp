#include "window/ScopedUserInterface.h"

#include <gtest/gtest.h>

#include "support/ScriptedUserInterface.h"

namespace {

TEST(ScopedUserInterface, InstallsTheFormerUserInterfaceAgainAtItsEnd) {
    test::ScriptedUserInterface one, other;
    EXPECT_EQ(veka::InstalledUserInterface(), &other);
    {
        const veka::ScopedUserInterface outer(one);
        EXPECT_EQ(veka::InstalledUserInterface(), &one);
        {
            const veka::ScopedUserInterface inner(other);
            EXPECT_EQ(veka::InstalledUserInterface(), &other);
        }
        EXPECT_EQ(veka::InstalledUserInterface(), &one);
    }
    EXPECT_EQ(veka::InstalledUserInterface(), &other);
}

}  // namespace
