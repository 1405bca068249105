#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "host/Failure.h"
#include "host/ImportedPart.h"
#include "host/PartFacts.h"
#include "report/ImportReport.h"

namespace host {

/// A part data file that was read and imported, without its model.
struct CheckedFile {
    std::string file;  ///< as the user named it
    FileContent content;
    PartFacts facts;
    std::vector<std::string> faults;  ///< a sentence for each thing that is wrong with the file as a whole
    /// Why the file holds no part that can be stored; the rest is then empty.
    std::optional<Failure> failure;
    /// How many findings of each code the file has, where a report was asked for and the file could be read.
    std::optional<veka::ImportReport> report;
};

/// Imports the content of one file that was read. What fails is in the result.
CheckedFile CheckContent(const std::string& file, FileContent content, const Reading& reading);

/// Reads and imports one file. What fails is in the result.
CheckedFile CheckFile(const std::string& file, const Reading& reading);

/// Reads and imports files in several threads, and hands them over in their order. The content of a bounded
/// number of files is in memory at one time, however many files there are.
class ReadAhead {
public:
    enum class Answer { File, NotYet, End };

    /// Reads so many files by a function, which several threads call. `jobs` is the number of threads, 0 one
    /// for each processor.
    ReadAhead(std::size_t count, std::function<CheckedFile(std::size_t place)> read, unsigned jobs);
    /// Reads the files of a list, which must outlive this.
    ReadAhead(const std::vector<std::string>& files, const Reading& reading, unsigned jobs);
    /// Waits for the files that are in hand.
    ~ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    /// Waits at most so long for the next file. After `End` there is none.
    Answer Next(CheckedFile& file, std::chrono::milliseconds atMost);
    /// Begins no other file. Those in hand are still handed over.
    void Stop();

private:
    void Work();
    bool MayBegin() const;

    const std::size_t m_count;
    const std::function<CheckedFile(std::size_t place)> m_read;
    std::mutex m_mutex;
    std::condition_variable m_handedOver, m_ready;
    std::deque<std::optional<CheckedFile>> m_window;  // from the next file to hand over to the last one begun
    size_t m_front = 0;                               // the place of the first file of the window
    size_t m_bytes = 0;                               // of the contents in the window
    bool m_stopped = false;
    std::vector<std::jthread> m_threads;  // the last member: the threads use the others
};

}  // namespace host
