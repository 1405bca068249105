#pragma once

#include <chrono>
#include <filesystem>
#include <functional>

namespace test {

#ifdef _WIN32
constexpr int kKills = 60;  // a process takes long to start
constexpr bool kExchanges = false;
#else
constexpr int kKills = 320;
constexpr bool kExchanges = true;
#endif

/// What a child process does with a directory until it is killed.
using Deed = void (*)(const std::filesystem::path& directory);

/// Kills a child process some time after it began its deed.
void KillAfter(std::chrono::microseconds time, const std::filesystem::path& directory, Deed deed);

/// Does the deed if this process was started for it; for systems whose processes cannot fork. Call it before
/// the tests run.
bool RunAsChild(Deed deed);

constexpr int kNotPossibleHere = 77;

/// Runs something in a child process; returns its exit code, or `kNotPossibleHere` where none can be made.
int InChild(const std::function<int()>& run);

/// Does something in a child process, which is killed at the end.
class ChildBeside {
public:
    explicit ChildBeside(const std::function<void()>& deed);
    ~ChildBeside();
    ChildBeside(const ChildBeside&) = delete;
    ChildBeside& operator=(const ChildBeside&) = delete;
    /// False where there can be no such process, or the deed came to its end.
    bool Runs() const;

private:
    int m_child = -1;
};

// For a child process; false where the system does not allow it.

/// Lets no file grow beyond a size.
bool LimitFiles(unsigned long size);
/// Gives this process a disk of its own, with some kilobytes, at a directory.
bool MountSmallDisk(const std::filesystem::path& where, int kilobytes = 64);
/// Gives up the rights of the superuser.
bool BecomeNobody();

}  // namespace test
