#pragma once

#include <cstddef>

namespace fuzz {

/// Ends the program if the time or the memory from here to the end of the scope is too much for an input of a
/// size. The limits are far above what a sanitized program needs, and far below what an input costs whose
/// cost is quadratic. Memory is counted only by clang with AddressSanitizer.
class CostLimit {
public:
    explicit CostLimit(std::size_t inputSize);
    CostLimit(const CostLimit&) = delete;
    CostLimit& operator=(const CostLimit&) = delete;
    ~CostLimit();

private:
    std::size_t m_inputSize;
    double m_start;
};

}  // namespace fuzz
