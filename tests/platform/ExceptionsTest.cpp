#include "platform/Exceptions.h"

#include <gtest/gtest.h>

namespace {

TEST(Exceptions, TheInvalidArgumentIsThrownByValueAndIsAStandardException) {
    try {
        AfxThrowInvalidArgException();
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "An invalid argument was given.");
        EXPECT_NE(dynamic_cast<const CException*>(&error), nullptr);
    }
    EXPECT_THROW(AfxThrowInvalidArgException(), CInvalidArgException);
}

}  // namespace
