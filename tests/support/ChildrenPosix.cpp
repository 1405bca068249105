#ifndef _WIN32

#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <string>
#include <thread>

#include "support/Children.h"

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TEST_WITH_ASAN
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define TEST_WITH_ASAN
#endif
#ifdef TEST_WITH_ASAN
// A child copies the tables of all memory of its parent. ASan keeps up to 256 MB of freed memory unless told
// otherwise. The library of g++'s ASan finds only a function that is visible.
extern "C" [[gnu::visibility("default")]] const char* __asan_default_options() {
    return "quarantine_size_mb=16";
}
#endif

namespace test {

void KillAfter(std::chrono::microseconds time, const std::filesystem::path& directory, Deed deed) {
    const pid_t child = fork();
    if (child == 0) {
        deed(directory);
        _exit(0);
    }
    std::this_thread::sleep_for(time);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

bool RunAsChild(Deed) {
    return false;
}

int InChild(const std::function<int()>& run) {
    const pid_t child = fork();
    if (child == 0) {
        try {
            _exit(run());
        } catch (...) {
            _exit(99);
        }
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

ChildBeside::ChildBeside(const std::function<void()>& deed) : m_child(fork()) {
    if (m_child != 0) return;
    // A test that crashes leaves no child that runs for ever.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    try {
        deed();
    } catch (...) {
    }
    _exit(0);
}

ChildBeside::~ChildBeside() {
    if (m_child <= 0) return;
    kill(m_child, SIGKILL);
    waitpid(m_child, nullptr, 0);
}

bool ChildBeside::Runs() const {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    siginfo_t ended{};
    return m_child > 0 &&
           waitid(P_PID, static_cast<id_t>(m_child), &ended, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           ended.si_pid == 0;
}

bool LimitFiles(unsigned long size) {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{size, size};
    return setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

bool MountSmallDisk(const std::filesystem::path& where, int kilobytes) {
    const std::string user = "0 " + std::to_string(getuid()) + " 1";
    const std::string group = "0 " + std::to_string(getgid()) + " 1";
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
    std::ofstream("/proc/self/uid_map") << user;
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/gid_map") << group;
    const std::string size = "size=" + std::to_string(kilobytes) + 'k';
    return mount("disk", where.c_str(), "tmpfs", 0, size.c_str()) == 0;
}

bool BecomeNobody() {
    return geteuid() != 0 || setuid(65534) == 0;
}

}  // namespace test

#endif
