#pragma once

#include <chrono>
#include <map>
#include <mutex>
#include <string>
#include <vector>

class TopoDS_Shape;

namespace geometry {

/// What reading STEP files may cost.
struct step_limits {
    std::chrono::milliseconds time{20'000};      ///< for one file
    std::chrono::milliseconds all_time{60'000};  ///< for all files
    unsigned long long memory = 2ULL << 30;      ///< bytes that the reading process may use
    unsigned long long file_size = 256ULL
                                   << 20;  ///< bytes of a STEP file, and of the shape that is made of it
};

/// Finds and reads the STEP files that records name. A file is only read if it lies in one of the folders,
/// links resolved; so a record cannot name any other file. It is read by a process of its own with limits on
/// time and memory: a broken file ends that process and not this one. Each file is read once.
///
/// The process is the program `veka-step-reader`. It is looked for beside the running program and in
/// `../libexec/vekasciidll` from there, unless a host names it.
class step_files {
public:
    explicit step_files(std::vector<std::string> folders, std::string reader = FindReader(),
                        const step_limits& limits = {});

    /// The shape of a file that a record names, relative to a folder. Throws `std::runtime_error` with a
    /// sentence that names the file where it is not in a folder or has no shape. May be called in any thread.
    TopoDS_Shape Read(const std::string& name) const;

    /// The path of the program that reads STEP files; empty where there is none.
    static std::string FindReader();

private:
    struct Result {
        std::string bytes, failure;
    };

    /// A file in one of the folders; both paths are without links.
    struct Found {
        std::string folder, path;
    };

    Result ReadNew(const Found& found) const;
    Found Find(const std::string& name) const;

    std::vector<std::string> m_folders;
    std::string m_reader;
    step_limits m_limits;
    mutable std::mutex m_mutex;
    mutable std::map<std::string, Result> m_results;  // by path
    mutable std::chrono::milliseconds m_spent{0};
};

}  // namespace geometry
