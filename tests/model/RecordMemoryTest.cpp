#include "model/RecordMemory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include "model/CVEKA_Comment.h"

namespace {

using veka::RecordMemory;

struct Piece {
    std::byte* memory;
    std::size_t size;

    explicit Piece(std::size_t bytes)
        : memory(static_cast<std::byte*>(RecordMemory::Take(bytes))), size(bytes) {
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory) % alignof(void*), 0u);
        std::memset(memory, static_cast<int>(bytes % 256), bytes);
    }
    void Check() const {
        for (std::size_t i = 0; i < size; ++i) ASSERT_EQ(std::to_integer<std::size_t>(memory[i]), size % 256);
    }
    void Give() const { RecordMemory::Give(memory, size); }
};

std::vector<Piece> TakeMany() {
    std::vector<Piece> pieces;
    for (std::size_t size = 1; size < 3000; ++size) pieces.emplace_back(size % 1200 + 1);
    return pieces;
}

TEST(RecordMemory, IsApartForEachRecord) {
    std::vector<Piece> pieces = TakeMany();
    {
        const RecordMemory::Import import;
        for (const Piece& piece : TakeMany()) pieces.push_back(piece);
    }
    for (const Piece& piece : pieces) piece.Check();
    for (const Piece& piece : pieces) piece.Give();
}

TEST(RecordMemory, IsAlignedForAnyTypeOutsideAnImport) {
    for (const Piece& piece : TakeMany()) {
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(piece.memory) % __STDCPP_DEFAULT_NEW_ALIGNMENT__, 0u);
        piece.Give();
    }
}

TEST(RecordMemory, OfAnImportStandsSideBySide) {
    const RecordMemory::Import import;
    const Piece first(24), second(20), third(24);
    EXPECT_EQ(second.memory - first.memory, 24 + 8);
    EXPECT_EQ(third.memory - second.memory, 24 + 8);
    for (const Piece& piece : {second, third, first}) piece.Give();
}

TEST(RecordMemory, OfOneRecordIsNotUsedAgainWhileItsPageIsInUse) {
    const RecordMemory::Import import;
    const Piece kept(24), dead(24);
    dead.Give();
    const Piece next(24);
    EXPECT_EQ(next.memory - dead.memory, 24 + 8);
    next.Give();
    kept.Give();
}

TEST(RecordMemory, OfAnImportOutlivesIt) {
    std::optional<RecordMemory::Import> import(std::in_place);
    const std::vector<Piece> pieces = TakeMany();
    import.reset();
    const Piece later(24);
    for (const Piece& piece : pieces) piece.Check();
    for (const Piece& piece : pieces) piece.Give();
    later.Give();
}

TEST(RecordMemory, OfAnImportCanBeGivenBackBeforeItEndsAndInAnotherThread) {
    const RecordMemory::Import import;
    const std::vector<Piece> pieces = TakeMany();
    std::thread([&] {
        for (std::size_t i = 0; i < pieces.size(); i += 2) pieces[i].Give();
    }).join();
    for (std::size_t i = 1; i < pieces.size(); i += 2) pieces[i].Give();
}

TEST(RecordMemory, IsThatOfTheLatestImportOfTheThread) {
    const RecordMemory::Import outer;
    const Piece first(24);
    {
        const RecordMemory::Import inner;
        const Piece apart(24);
        EXPECT_NE(apart.memory - first.memory, 24 + 8);
        apart.Give();
    }
    const Piece second(24);
    EXPECT_EQ(second.memory - first.memory, 24 + 8);
    std::thread([&] {
        const Piece other(24);
        EXPECT_NE(other.memory - second.memory, 24 + 8);
        other.Give();
    }).join();
    first.Give();
    second.Give();
}

TEST(RecordMemory, IsWhereARecordIsMadeByNew) {
    const RecordMemory::Import import;
    const Piece before(24);
    const auto record = std::make_unique<CVEKA_Comment>();
    EXPECT_EQ(reinterpret_cast<std::byte*>(record.get()) - before.memory, 24 + 8);
    before.Give();
}

}  // namespace
