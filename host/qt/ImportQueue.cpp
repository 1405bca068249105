#include "host/qt/ImportQueue.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <future>
#include <memory>
#include <thread>

#include "files/Paths.h"
#include "host/IndexWriter.h"
#include "host/qt/QueueView.h"

namespace host {

namespace {

constexpr int kShow = 50;  // ms between two looks at the results

}  // namespace

ImportQueue::ImportQueue(QueueView& view, Batch batch, std::function<Waiting()> waiting)
    : m_view(view), m_batch(std::move(batch)), m_makeWaiting(std::move(waiting)) {}

bool ImportQueue::Ask(const std::function<bool()>& question) {
    // The answer comes back by a promise, not by a connection that blocks: TSan sees what a promise orders.
    // Both threads own the promise, because this one can go on before the other has left `set_value`.
    const auto answer = std::make_shared<std::promise<bool>>();
    const auto ask = [answer, &question] {
        try {
            answer->set_value(question());
        } catch (...) {
            answer->set_exception(std::current_exception());  // must not reach the event loop
        }
    };
    QMetaObject::invokeMethod(this, ask, Qt::QueuedConnection);
    return answer->get_future().get();
}

void ImportQueue::Import() try {
    IndexWriter index(veka::ToPath(CString(m_batch.library)));
    Batch batch = m_batch;
    batch.index = [&index](std::vector<StoredPart> stored) { index.Put(std::move(stored)); };
    batch.goOn = [this] { return !m_cancelled; };
    batch.onResult = [this](const BatchResult& result, const BatchTotals&) {
        const std::lock_guard lock(m_mutex);
        m_results.push_back(result);
    };
    batch.waiting = [this](std::chrono::milliseconds waited, const std::string& holder) {
        return Ask([&] {
            if (!m_waiting) m_waiting = m_makeWaiting();
            return !m_cancelled && m_waiting(waited, holder);
        });
    };
    batch.mayReplace = [this](const CheckedFile& file) {
        return !m_cancelled && Ask([&] { return m_batch.mayReplace(file); });
    };
    m_totals = ImportBatch(batch);
    m_indexFailure = index.End();
} catch (...) {
    m_failure = std::current_exception();
}

BatchTotals ImportQueue::Run() {
    m_view.Begin(m_batch.files);
    m_view.onCancel = [this] { Cancel(); };
    bool ended = false;
    QTimer show;
    connect(&show, &QTimer::timeout, this, [this] { TakeResults(); });
    show.start(kShow);
    std::thread thread([&] {
        Import();
        QMetaObject::invokeMethod(
            this, [&ended] { ended = true; }, Qt::QueuedConnection);
    });
    // A loop of events would end with the program, and the thread may wait for an answer.
    while (!ended) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    thread.join();
    m_view.onCancel = nullptr;
    TakeResults();
    if (m_failure) std::rethrow_exception(m_failure);
    return m_totals;
}

void ImportQueue::TakeResults() {
    std::vector<BatchResult> results;
    {
        const std::lock_guard lock(m_mutex);
        results.swap(m_results);
    }
    if (results.empty()) return;
    m_waiting = nullptr;  // nobody is waited for any more
    for (const BatchResult& result : results)
        if (result.reason.empty()) m_lastFile = result.file;
    m_view.Add(results);
}

}  // namespace host
