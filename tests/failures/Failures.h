#pragma once

#include <cstddef>

/// Memory and disks that fail when a test says so. The program's allocations and reads come here: those by
/// `new`, and those of the library by `realloc` and `read`.
namespace test {

/// Lets one allocation fail, counted from the moment that this is made; the next ones succeed again.
class FailingAllocation {
public:
    explicit FailingAllocation(std::size_t number);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    /// True once the allocation has failed.
    bool Happened() const;
};

/// Lets one read of a file fail, and all that follow, as long as it lives; counted from 1.
class FailingRead {
public:
    explicit FailingRead(std::size_t number);
    ~FailingRead();
    FailingRead(const FailingRead&) = delete;
    FailingRead& operator=(const FailingRead&) = delete;
};

}  // namespace test
