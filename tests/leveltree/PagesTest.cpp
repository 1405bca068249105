#include "leveltree/Pages.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

namespace {

TEST(Pages, GiveMemoryThatIsApart) {
    veka::Pages pages;
    std::vector<std::pair<unsigned char*, size_t>> pieces;
    for (size_t size = 1; size < 700; ++size) {
        auto* memory = pages.Allocate<unsigned char>(size);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory) % 8, 0u);
        std::memset(memory, static_cast<int>(size % 256), size);
        pieces.emplace_back(memory, size);
    }
    for (const auto& [memory, size] : pieces)
        for (size_t i = 0; i < size; ++i) ASSERT_EQ(memory[i], size % 256);
}

TEST(Pages, GiveMoreThanAPageAtOnce) {
    veka::Pages pages;
    std::memset(pages.Allocate(10), 1, 10);
    std::memset(pages.Allocate(1'000'000), 2, 1'000'000);
    std::memset(pages.Allocate(10), 3, 10);
}

TEST(Pages, CanBeWrittenBehindWhatWasTakenLast) {
    veka::Pages pages;
    for (const size_t size : {size_t{64} * 1024, size_t{1'000'000}, size_t{8}})
        std::memset(pages.Allocate(size), 1, size + veka::Pages::kWritable);
}

TEST(Pages, GrowToManyMegabytes) {
    veka::Pages pages;
    for (int round = 0; round < 2; ++round) {
        std::vector<unsigned char*> pieces;
        for (size_t i = 0; i < 2000; ++i) {
            pieces.push_back(pages.Allocate<unsigned char>(10'000));
            std::memset(pieces.back(), static_cast<int>(i % 256), 10'000);
        }
        for (size_t i = 0; i < pieces.size(); ++i) {
            ASSERT_EQ(pieces[i][0], i % 256);
            ASSERT_EQ(pieces[i][9'999], i % 256);
        }
        pages.Reset();
    }
}

TEST(Pages, EndWithTheirLastUser) {
    std::unique_ptr<veka::Pages, veka::Pages::EndUser> first(new veka::Pages);
    veka::Pages& pages = *first;
    auto* memory = pages.Allocate<char>(100);
    pages.AddUsers(3);
    first.reset();
    pages.EndUsers(2);
    std::memset(memory, 1, 100);
    pages.EndUsers(1);  // a leak or a use after the end is an error of the sanitizer
}

TEST(Pages, UseTheirMemoryAgain) {
    veka::Pages pages;
    void* first = pages.Allocate(100);
    void* second = pages.Allocate(100'000);
    pages.Reset();
    EXPECT_EQ(pages.Allocate(100), first);
    EXPECT_EQ(pages.Allocate(100'000), second);
    pages.Reset();
    std::memset(pages.Allocate(200'000), 1, 200'000);
    std::memset(pages.Allocate(100'000), 1, 100'000);
}

}  // namespace
