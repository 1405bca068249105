#include "host/ReadAhead.h"

#include <algorithm>
#include <system_error>

#include "host/CheckFiles.h"

namespace host {

namespace {

// A window this large keeps all threads busy while nobody takes files for some milliseconds. In a small one
// the contents stay in the caches of the processor until they are written.
constexpr size_t kMostFiles = 256;
constexpr size_t kMostBytes = 32 << 20;
constexpr size_t kSpare = 4096;  // bytes of memory that a file may have too many

/// Checks the part that a function reads.
template <class Read>
CheckedFile Checked(const std::string& file, const Reading& reading, Read read) {
    CheckedFile checked;
    checked.file = file;
    try {
        ImportedPart part = read();
        checked.faults = part.faults;
        // In this thread, beside the others.
        if (reading.report) checked.report = ReportOn(file, part.content.bytes, 0);
        RequireSections(part);
        RequirePartNumber(part);
        checked.facts = FactsOf(part);
        checked.content = std::move(part.content);
        // Where the size was not known before, reading takes memory in large blocks.
        if (checked.content.bytes.capacity() > 2 * checked.content.bytes.size() + kSpare)
            checked.content.bytes.shrink_to_fit();
    } catch (...) {
        checked.failure = CurrentFailure(file);
    }
    return checked;
}

}  // namespace

CheckedFile CheckContent(const std::string& file, FileContent content, const Reading& reading) {
    return Checked(file, reading, [&] { return ReadPart(CString(file), std::move(content), reading); });
}

CheckedFile CheckFile(const std::string& file, const Reading& reading) {
    return Checked(file, reading, [&] { return ReadPart(CString(file), reading); });
}

ReadAhead::ReadAhead(std::size_t count, std::function<CheckedFile(std::size_t place)> read, unsigned jobs)
    : m_count(count), m_read(std::move(read)) {
    if (jobs == 0) jobs = std::max(1u, std::thread::hardware_concurrency());
    jobs = static_cast<unsigned>(std::min<size_t>(jobs, count));
    for (unsigned i = 0; i < jobs; ++i) try {
            m_threads.emplace_back([this] { Work(); });
        } catch (const std::system_error&) {
            if (m_threads.empty()) throw;
            break;  // those that there are do the work
        }
}

ReadAhead::ReadAhead(const std::vector<std::string>& files, const Reading& reading, unsigned jobs)
    : ReadAhead(
          files.size(), [&files, reading](std::size_t place) { return CheckFile(files[place], reading); },
          jobs) {}

ReadAhead::~ReadAhead() {
    Stop();
}

void ReadAhead::Stop() {
    const std::lock_guard lock(m_mutex);
    m_stopped = true;
    m_handedOver.notify_all();
    m_ready.notify_all();
}

bool ReadAhead::MayBegin() const {
    return m_window.empty() || (m_window.size() < kMostFiles && m_bytes < kMostBytes);
}

void ReadAhead::Work() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_handedOver.wait(lock, [this] { return m_stopped || MayBegin(); });
        const size_t place = m_front + m_window.size();
        if (m_stopped || place >= m_count) return;
        m_window.emplace_back();
        lock.unlock();
        CheckedFile file = m_read(place);
        lock.lock();
        m_bytes += file.content.bytes.size();
        m_window[place - m_front] = std::move(file);
        if (place == m_front) m_ready.notify_all();
    }
}

ReadAhead::Answer ReadAhead::Next(CheckedFile& file, std::chrono::milliseconds atMost) {
    std::unique_lock lock(m_mutex);
    const auto ended = [this] { return m_window.empty() && (m_stopped || m_front == m_count); };
    const bool ready = m_ready.wait_for(
        lock, atMost, [&] { return ended() || (!m_window.empty() && m_window.front().has_value()); });
    if (!ready) return Answer::NotYet;
    if (m_window.empty()) return Answer::End;
    file = std::move(*m_window.front());
    m_window.pop_front();
    ++m_front;
    m_bytes -= file.content.bytes.size();
    // Where the window is full a thread that wakes for the place of one file would wait again at once.
    if (m_window.empty() || (m_window.size() <= kMostFiles / 2 && m_bytes <= kMostBytes / 2))
        m_handedOver.notify_all();
    return Answer::File;
}

}  // namespace host
