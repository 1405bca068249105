#pragma once

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "host/StoredPart.h"

namespace host {

/// Puts stored parts into the index of their library, in a thread of its own and many at once. A failure
/// never fails an import: the index is a cache, and is made again when it is used the next time. A program
/// without an index does nothing.
class IndexWriter {
public:
    explicit IndexWriter(std::filesystem::path library);
    /// Waits until all parts are in the index.
    ~IndexWriter();
    IndexWriter(const IndexWriter&) = delete;
    IndexWriter& operator=(const IndexWriter&) = delete;

    /// Takes parts over. Waits while many others are still to be written.
    void Put(std::vector<StoredPart> parts);
    /// Waits until all parts are in the index. Returns a sentence where the index was not written, without a
    /// point; empty where it was.
    std::string End();

private:
    using Clock = std::chrono::steady_clock;

    void Work();
    /// Takes the parts that are to be written as soon as there are some, and none at `until`; adds the bytes
    /// of their texts. False where none are left and none will follow.
    bool Take(std::vector<StoredPart>& parts, std::size_t& bytes, Clock::time_point until);

    const std::filesystem::path m_library;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<StoredPart> m_parts;  // to be written
    std::size_t m_bytes = 0;          // of the texts of these
    std::string m_failure;
    bool m_ended = false;
    std::thread m_thread;  // begun with the first part; the last member: the thread uses the others
};

}  // namespace host
