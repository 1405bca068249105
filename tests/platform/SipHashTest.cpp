#include "platform/SipHash.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// The hashes of the texts "", "\0", "\0\1", "\0\1\2" and so on, as the authors of SipHash-2-4 published them.
constexpr std::uint64_t kPublished[] = {
    0x726fdb47dd0e0e31, 0x74f839c593dc67fd, 0x0d6c8009d9a94f5a, 0x85676696d7fb7e2d, 0xcf2794e0277187b7,
    0x18765564cd99a68d, 0xcbc9466e58fee3ce, 0xab0200f58b01d137, 0x93f5f5799a932462, 0x9e0082df0ba9e4b0,
    0x7a5dbbc594ddb9f3, 0xf4b32f46226bada7, 0x751e8fbc860ee5fb, 0x14ea5627c0843d90, 0xf723ca908e7af2ee,
    0xa129ca6149be45e5, 0x3f2acc7f57c29bdb, 0x699ae9f52cbe4794, 0x4bc1b3f0968dd39c, 0xbb6dc91da77961bd,
    0xbed65cf21aa2ee98, 0xd0f2cbb02e3b67c7, 0x93536795e3a33e88, 0xa80c038ccd5ccec8, 0xb8ad50c6f649af94,
    0xbce192de8a85b8ea, 0x17d835b85bbb15f3, 0x2f2e6163076bcfad, 0xde4daaaca71dc9a5, 0xa6a2506687956571,
    0xad87a3535c49ef28, 0x32d892fad841c342};

TEST(SipHash, IsThePublishedOneForTextsOfEachLength) {
    const veka::SipKey key{0x0706050403020100, 0x0f0e0d0c0b0a0908};
    std::string text;
    for (const std::uint64_t hash : kPublished) {
        EXPECT_EQ(veka::SipHash(key, text), hash) << text.size() << " bytes";
        text += static_cast<char>(text.size());
    }
}

TEST(SipHash, DependsOnBothHalvesOfTheKey) {
    const std::uint64_t hash = veka::SipHash({1, 2}, "a");
    EXPECT_NE(veka::SipHash({3, 2}, "a"), hash);
    EXPECT_NE(veka::SipHash({1, 3}, "a"), hash);
    EXPECT_EQ(veka::SipHash({1, 2}, "a"), hash);
}

TEST(SipHash, TakesBytesWithTheHighBitAsUnsigned) {
    EXPECT_NE(veka::SipHash({}, "\xFF"), veka::SipHash({}, "\xFF\xFF"));
    EXPECT_NE(veka::SipHash({}, std::string(8, '\xFF')), veka::SipHash({}, std::string(8, '\x7F')));
}

TEST(SipHash, HasOneKeyInAProcess) {
    const veka::SipKey& key = veka::ProcessKey();
    EXPECT_EQ(&key, &veka::ProcessKey());
    EXPECT_TRUE(key.first != 0 || key.second != 0);
}

}  // namespace
