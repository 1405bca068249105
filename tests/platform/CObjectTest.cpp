#include "platform/CObject.h"

#include <gtest/gtest.h>

#include <sstream>

// The toolkit's archive, which this system has no use for.
class CArchive {};

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

TEST(CObject, WritesNothingIntoAnArchive) {
    Thing thing;
    CArchive archive;
    EXPECT_NO_THROW(thing.Serialize(archive));
}

}  // namespace
