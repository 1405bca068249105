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
        : memory(static_cast<std::byte*>(RecordMemory::Allocate(bytes))), size(bytes) {
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory) % alignof(void*), 0u);
        std::memset(memory, static_cast<int>(bytes % 256), bytes);
    }
    void Check() const {
        for (std::size_t i = 0; i < size; ++i) ASSERT_EQ(std::to_integer<std::size_t>(memory[i]), size % 256);
    }
    void Free() const { RecordMemory::Free(memory, size); }
};

std::vector<Piece> AllocateMany() {
    std::vector<Piece> pieces;
    for (std::size_t size = 1; size < 3000; ++size) pieces.emplace_back(size % 1200 + 1);
    return pieces;
}

TEST(RecordMemory, IsApartForEachRecord) {
    std::vector<Piece> pieces = AllocateMany();
    {
        const RecordMemory::ImportScope import;
        for (const Piece& piece : AllocateMany()) pieces.push_back(piece);
    }
    for (const Piece& piece : pieces) piece.Check();
    for (const Piece& piece : pieces) piece.Free();
}

TEST(RecordMemory, IsAlignedForAnyTypeOutsideAnImport) {
    for (const Piece& piece : AllocateMany()) {
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(piece.memory) % __STDCPP_DEFAULT_NEW_ALIGNMENT__, 0u);
        piece.Free();
    }
}

TEST(RecordMemory, OfAnImportStandsSideBySide) {
    const RecordMemory::ImportScope import;
    const Piece first(24), second(20), third(24);
    EXPECT_EQ(second.memory - first.memory, 24 + 8);
    EXPECT_EQ(third.memory - second.memory, 24 + 8);
    for (const Piece& piece : {second, third, first}) piece.Free();
}

TEST(RecordMemory, OfAnImportIsAlignedForAClassOfAHostThatNeedsMoreThanARecord) {
    struct alignas(__STDCPP_DEFAULT_NEW_ALIGNMENT__) Wide : CVEKA_Comment {
        long double number = 1;
    };
    const RecordMemory::ImportScope import;
    std::vector<std::unique_ptr<CVEKA_Comment>> records;
    for (int i = 0; i < 1000; ++i) {
        auto wide = std::make_unique<Wide>();
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(wide.get()) % alignof(Wide), 0u);
        records.push_back(std::move(wide));
        records.push_back(std::make_unique<CVEKA_Comment>());
    }
}

TEST(RecordMemory, OfOneRecordIsNotUsedAgainWhileItsPageIsInUse) {
    const RecordMemory::ImportScope import;
    const Piece kept(24), dead(24);
    dead.Free();
    const Piece next(24);
    EXPECT_EQ(next.memory - dead.memory, 24 + 8);
    next.Free();
    kept.Free();
}

TEST(RecordMemory, OfAnImportOutlivesIt) {
    std::optional<RecordMemory::ImportScope> import(std::in_place);
    const std::vector<Piece> pieces = AllocateMany();
    import.reset();
    const Piece later(24);
    for (const Piece& piece : pieces) piece.Check();
    for (const Piece& piece : pieces) piece.Free();
    later.Free();
}

TEST(RecordMemory, OfAnImportCanBeGivenBackBeforeItEndsAndInAnotherThread) {
    const RecordMemory::ImportScope import;
    const std::vector<Piece> pieces = AllocateMany();
    std::thread([&] {
        for (std::size_t i = 0; i < pieces.size(); i += 2) pieces[i].Free();
    }).join();
    for (std::size_t i = 1; i < pieces.size(); i += 2) pieces[i].Free();
}

TEST(RecordMemory, IsThatOfTheLatestImportOfTheThread) {
    const RecordMemory::ImportScope outer;
    const Piece first(24);
    {
        const RecordMemory::ImportScope inner;
        const Piece apart(24);
        EXPECT_NE(apart.memory - first.memory, 24 + 8);
        apart.Free();
    }
    const Piece second(24);
    EXPECT_EQ(second.memory - first.memory, 24 + 8);
    std::thread([&] {
        const Piece other(24);
        EXPECT_NE(other.memory - second.memory, 24 + 8);
        other.Free();
    }).join();
    first.Free();
    second.Free();
}

TEST(RecordMemory, IsWhereARecordIsMadeByNew) {
    const RecordMemory::ImportScope import;
    const Piece before(24);
    const auto record = std::make_unique<CVEKA_Comment>();
    EXPECT_EQ(reinterpret_cast<std::byte*>(record.get()) - before.memory, 24 + 8);
    before.Free();
}

}  // namespace
