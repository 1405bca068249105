#pragma once

#include <cstddef>
#include <cstdint>

namespace veka {

/// Watches the work of one thread: counts the memory that the work takes, and may end the work.
///
/// Code that can take long, or much memory, tells the watch of its thread. It does so at places that are
/// seldom reached: once for each page of memory or each block of text. So work that nobody watches costs no
/// more than before. What `Check` raises passes through the work and ends it.
class Watch {
public:
    /// Makes a watch, or none, the watch of the thread for as long as the scope lives.
    class Scope {
    public:
        explicit Scope(Watch* watch) noexcept;
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        Watch* m_outer;
    };

    /// To be called now and then by work that takes long. Raises what the watch of the thread raises.
    static void Tick();
    /// To be called before memory is taken. Raises what the watch of the thread raises.
    static void Take(std::size_t bytes);
    /// To be called when memory that was taken is freed.
    static void Free(std::size_t bytes) noexcept;
    /// True if the watch of the thread has ended the work.
    static bool HasEnded() noexcept;

    virtual ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    /// Bytes of memory that the work has now.
    std::int64_t Taken() const noexcept { return m_taken; }
    /// The most bytes of memory that the work had so far.
    std::int64_t MostTaken() const noexcept { return m_mostTaken; }

protected:
    Watch() = default;
    /// Raises an exception if the work is to end. No watch sees what happens in here.
    virtual void Check() = 0;

private:
    void CheckAlone();

    std::int64_t m_taken = 0;
    std::int64_t m_mostTaken = 0;
    bool m_ended = false;
};

/// Calls `Watch::Tick` at one of many steps of a loop; `step` is the number of the step, from 1 on.
inline void TickAtStep(std::size_t step) {
    constexpr std::size_t kSteps = std::size_t{1} << 16;
    if (step % kSteps == 0) [[unlikely]]
        Watch::Tick();
}

/// Counts memory for as long as it lives.
class WatchedMemory {
public:
    WatchedMemory() = default;
    ~WatchedMemory() { Watch::Free(m_bytes); }
    WatchedMemory(const WatchedMemory&) = delete;
    WatchedMemory& operator=(const WatchedMemory&) = delete;

    /// To be called before the memory is taken that takes the place of what was counted. While its content is
    /// copied, there is memory for both.
    void Replace(std::size_t bytes) {
        Watch::Take(bytes);
        Watch::Free(m_bytes);
        m_bytes = bytes;
    }
    /// To be called after memory may have been taken that makes so many bytes in all.
    void Follow(std::size_t bytes) {
        if (bytes != m_bytes) Replace(bytes);
    }

private:
    std::size_t m_bytes = 0;
};

}  // namespace veka
