#ifdef _WIN32

#include <windows.h>

#include <fstream>
#include <string>
#include <thread>

#include "support/Children.h"

namespace test {

namespace {

constexpr const wchar_t* kDirectory = L"VEKA_TEST_CHILD";
constexpr const char* kBegun = "begun";

}  // namespace

void KillAfter(std::chrono::microseconds time, const std::filesystem::path& directory, Deed) {
    std::filesystem::remove(directory / kBegun);
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    SetEnvironmentVariableW(kDirectory, directory.c_str());
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION child{};
    const bool made =
        CreateProcessW(program, nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &child);
    SetEnvironmentVariableW(kDirectory, nullptr);
    if (!made) throw std::runtime_error("no child process");
    while (!std::filesystem::exists(directory / kBegun)) std::this_thread::yield();
    std::this_thread::sleep_for(time);
    TerminateProcess(child.hProcess, 1);
    WaitForSingleObject(child.hProcess, INFINITE);
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
}

bool RunAsChild(Deed deed) {
    wchar_t directory[MAX_PATH];
    const DWORD length = GetEnvironmentVariableW(kDirectory, directory, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return false;
    std::ofstream(std::filesystem::path(directory) / kBegun).put('x');
    deed(directory);
    return true;
}

int InChild(const std::function<int()>&) {
    return kNotPossibleHere;
}

ChildBeside::ChildBeside(const std::function<void()>&) {}

ChildBeside::~ChildBeside() = default;

bool ChildBeside::Runs() const {
    return m_child >= 0;
}

bool LimitFiles(unsigned long) {
    return false;
}

bool MountSmallDisk(const std::filesystem::path&, int) {
    return false;
}

bool BecomeNobody() {
    return false;
}

}  // namespace test

#endif
