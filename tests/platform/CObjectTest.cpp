#include "platform/CObject.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

class Thing : public CObject {};

TEST(CObject, TellsAboutItself) {
    const Thing thing;
    thing.AssertValid();
    EXPECT_STREQ(thing.GetRuntimeClass()->m_lpszClassName, "CObject");
    std::ostringstream out;
    thing.Dump(out);
    EXPECT_EQ(out.str(), "CObject\n");
}

}  // namespace
