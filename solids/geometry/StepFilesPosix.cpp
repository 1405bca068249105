// Reads STEP files in a process of its own.

#include "geometry/StepFiles.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <Standard_Failure.hxx>
#include <TopoDS_Shape.hxx>
#include <algorithm>
#include <array>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "geometry/Quiet.h"
#include "geometry/ShapeBytes.h"

extern char** environ;

namespace geometry {

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void Fail(const std::string& reason) {
    throw std::runtime_error(reason);
}

/// An open file that is closed with its owner.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : m_number(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return m_number; }
    void Close() {
        if (m_number >= 0) close(m_number);
        m_number = -1;
    }
    /// Closes the file, and owns another one.
    void Open(int number) {
        Close();
        m_number = number;
    }

private:
    int m_number;
};

/// A process that is ended and waited for with its owner.
class Child {
public:
    Child(const std::string& program, const std::vector<std::string>& arguments, int in, int out) {
        std::vector<char*> argv{const_cast<char*>(program.c_str())};
        for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
        argv.push_back(nullptr);
        posix_spawn_file_actions_t files;
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_adddup2(&files, in, 0);
        posix_spawn_file_actions_adddup2(&files, out, 1);
        posix_spawn_file_actions_addopen(&files, 2, "/dev/null", O_WRONLY, 0);
        const int error = posix_spawn(&m_process, program.c_str(), &files, nullptr, argv.data(), environ);
        posix_spawn_file_actions_destroy(&files);
        if (error != 0) Fail("the program that reads STEP files cannot be started");
    }
    ~Child() {
        if (m_process <= 0) return;
        kill(m_process, SIGKILL);
        Wait();
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Waits for its end; true if it ended by itself with code 0.
    bool Wait() {
        int status = 0;
        while (waitpid(m_process, &status, 0) < 0)
            if (errno != EINTR) return false;
        m_process = -1;
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

private:
    pid_t m_process = -1;
};

bool IsBelow(const fs::path& path, const fs::path& folder) {
    const auto [rest, ignored] = std::mismatch(folder.begin(), folder.end(), path.begin(), path.end());
    return rest == folder.end();
}

/// Opens a file below a folder, step by step and without following a link. So another user who may write in
/// the folder cannot lead the way out of it after its links were resolved.
int OpenBelow(const fs::path& folder, const fs::path& path) {
#ifdef O_PATH
    constexpr int kPassing = O_PATH | O_DIRECTORY | O_CLOEXEC;
#else
    constexpr int kPassing = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
#endif
    const fs::path names = path.lexically_relative(folder);
    Descriptor place(open(folder.c_str(), kPassing));
    for (const fs::path& name : names.parent_path())
        place.Open(openat(place.Get(), name.c_str(), kPassing | O_NOFOLLOW));
    return openat(place.Get(), names.filename().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW);
}

std::string Quoted(const std::string& text) {
    return '"' + text + '"';
}

}  // namespace

std::string step_files::FindReader() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    if (error) return {};
    for (const char* place : {"veka-step-reader", "../libexec/vekasciidll/veka-step-reader"}) {
        const fs::path reader = program.parent_path() / place;
        if (fs::is_regular_file(reader, error)) return reader.string();
    }
    return {};
}

step_files::step_files(std::vector<std::string> folders, std::string reader, const step_limits& limits)
    : m_folders(std::move(folders)), m_reader(std::move(reader)), m_limits(limits) {}

step_files::Found step_files::Find(const std::string& name) const {
    if (name.empty()) Fail("no STEP file is named");
    // Files are written on other systems, too.
    std::string path = name;
    std::replace(path.begin(), path.end(), '\\', '/');
    bool outside = fs::path(path).is_absolute();
    for (const std::string& folder : m_folders) {
        std::error_code error;
        const fs::path root = fs::canonical(folder, error);
        if (error) continue;
        const fs::path found = fs::canonical(root / path, error);
        if (error) {
            // What does not exist, and would lie outside, is refused as well.
            outside = outside || !IsBelow((root / path).lexically_normal(), root);
            continue;
        }
        if (!IsBelow(found, root)) {
            outside = true;
            continue;
        }
        if (fs::is_regular_file(found, error)) return {root.string(), found.string()};
    }
    if (outside)
        Fail("the STEP file " + Quoted(name) + " lies outside of the part's folders and is not read");
    Fail("there is no STEP file " + Quoted(name) + " in the part's folders");
}

step_files::Result step_files::ReadNew(const Found& found) const {
    if (m_reader.empty()) Fail("there is no program veka-step-reader to read it");
    const std::chrono::milliseconds time = std::min(m_limits.time, m_limits.all_time - m_spent);
    if (time <= std::chrono::milliseconds(0)) Fail("the STEP files of this part take too long");
    const Descriptor file(OpenBelow(found.folder, found.path));
    struct stat status {};
    if (file.Get() < 0 || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode))
        Fail("it cannot be read");
    if (static_cast<unsigned long long>(status.st_size) > m_limits.file_size) Fail("it is too large");
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) Fail("the system has no pipe left");
    const Descriptor out(ends[0]);
    Descriptor in(ends[1]);
    Child child(m_reader, {std::to_string(time.count() / 1000 + 1), std::to_string(m_limits.memory)},
                file.Get(), in.Get());
    in.Close();
    const Clock::time_point start = Clock::now(), end = start + time;
    Result result;
    std::vector<char> block(1 << 16);
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        if (left.count() <= 0) {
            m_spent += time;
            Fail("it takes too long");
        }
        pollfd waiting{out.Get(), POLLIN, 0};
        if (poll(&waiting, 1, static_cast<int>(left.count())) <= 0) continue;
        const ssize_t got = read(out.Get(), block.data(), block.size());
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        result.bytes.append(block.data(), static_cast<std::size_t>(got));
        if (result.bytes.size() > m_limits.file_size) Fail("its shape is too large");
    }
    m_spent += std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    if (!child.Wait()) Fail("it is damaged or needs too much memory");
    return result;
}

TopoDS_Shape step_files::Read(const std::string& name) const {
    const Found found = Find(name);
    const std::lock_guard lock(m_mutex);
    const auto [entry, isNew] = m_results.try_emplace(found.path);
    Result& result = entry->second;
    if (isNew) try {
            result = ReadNew(found);
        } catch (const std::exception& failure) {
            result.failure = failure.what();
        }
    if (result.failure.empty()) try {
            return FromBytes(result.bytes);
        } catch (const Standard_Failure&) {
            result.failure = "it has no sound shape";
        } catch (const std::exception& failure) {
            result.failure = failure.what();
        }
    Fail("the STEP file " + Quoted(name) + " has no shape: " + result.failure);
}

}  // namespace geometry
