#include "parser/CInvalidAccessException.h"

#include <gtest/gtest.h>

namespace {

TEST(CInvalidAccessException, NamesTheLevelAndThePosition) {
    EXPECT_STREQ(CInvalidAccessException("MECHANICALPIN", 2).what(),
                 "The level \"MECHANICALPIN\" has no child at position 2.");
}

}  // namespace
