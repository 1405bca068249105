#include "host/IndexWriter.h"

#include <iterator>
#include <system_error>

#include "host/LibraryIndex.h"

namespace host {

namespace {

// What waits to be written.
constexpr std::size_t kMostParts = 4096;
constexpr std::size_t kMostBytes = 16 << 20;

// What one transaction takes. The index writes what a transaction adds as a run, and merges runs later: fewer
// and longer runs cost less.
constexpr std::size_t kPartsAtOnce = 2048;
constexpr std::size_t kBytesAtOnce = 8 << 20;
// No other program can write the index meanwhile.
constexpr auto kLongest = std::chrono::milliseconds(1000);

std::size_t TextBytes(const PartFacts& facts) {
    std::size_t bytes = 0;
    for (const std::string* text : {&facts.name, &facts.fileName, &facts.number, &facts.manufacturer,
                                    &facts.description, &facts.functionalType, &facts.packageType})
        bytes += text->size();
    for (const auto* list :
         {&facts.companyNumbers, &facts.families, &facts.packages, &facts.footprints, &facts.symbols})
        for (const std::string& text : *list) bytes += text.size();
    return bytes;
}

}  // namespace

IndexWriter::IndexWriter(std::filesystem::path library) : m_library(std::move(library)) {}

IndexWriter::~IndexWriter() {
    End();
}

void IndexWriter::Put(std::vector<StoredPart> parts) {
    if (!HasIndex() || parts.empty()) return;
    std::unique_lock lock(m_mutex);
    m_changed.wait(
        lock, [this] { return (m_parts.size() < kMostParts && m_bytes < kMostBytes) || !m_failure.empty(); });
    if (!m_failure.empty()) return;
    for (const StoredPart& part : parts) m_bytes += TextBytes(part.facts);
    std::move(parts.begin(), parts.end(), std::back_inserter(m_parts));
    try {
        if (!m_thread.joinable()) m_thread = std::thread([this] { Work(); });
    } catch (const std::system_error& error) {
        m_failure = error.what();
        m_parts.clear();
    }
    m_changed.notify_all();
}

std::string IndexWriter::End() {
    {
        const std::lock_guard lock(m_mutex);
        m_ended = true;
        m_changed.notify_all();
    }
    if (m_thread.joinable()) m_thread.join();
    return m_failure.empty() ? "" : "the index of the library was not written: " + m_failure;
}

bool IndexWriter::Take(std::vector<StoredPart>& parts, std::size_t& bytes, Clock::time_point until) {
    std::unique_lock lock(m_mutex);
    m_changed.wait_until(lock, until, [this] { return m_ended || !m_parts.empty(); });
    parts = std::exchange(m_parts, {});
    bytes += std::exchange(m_bytes, 0);
    m_changed.notify_all();
    return !m_ended || !parts.empty();
}

void IndexWriter::Work() {
    try {
        std::unique_ptr<LibraryIndex> index;
        std::vector<StoredPart> parts;
        std::size_t added = 0, bytes = 0;  // by this transaction
        Clock::time_point end = Clock::now() + kLongest;
        for (bool more = true; more;) {
            more = Take(parts, bytes, end);
            // Parts are added as they come, so that little is left to do at the end.
            if (!parts.empty()) {
                if (!index) index = OpenIndex(m_library);
                if (added == 0) end = Clock::now() + kLongest;
                index->Add(parts);
                added += parts.size();
            }
            if (more && added < kPartsAtOnce && bytes < kBytesAtOnce && Clock::now() < end) continue;
            if (index) index->Commit();
            added = bytes = 0;
            end = Clock::now() + kLongest;
        }
    } catch (const std::exception& error) {
        const std::lock_guard lock(m_mutex);
        m_failure = error.what();
        m_parts.clear();
        m_changed.notify_all();
    }
}

}  // namespace host
