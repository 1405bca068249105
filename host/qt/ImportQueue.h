#pragma once

#include <QObject>
#include <atomic>
#include <exception>
#include <functional>
#include <mutex>
#include <vector>

#include "host/BatchImport.h"

namespace host {

class QueueView;

/// Imports files as one batch in a thread of its own, while the window goes on to work, and shows in a view
/// what becomes of each file. The questions of the batch are asked in the window's thread.
class ImportQueue : public QObject {
public:
    /// `batch` has the files, the library and `mayReplace`. `waiting` makes what the batch asks each time
    /// that another program writes the library. The view outlives the queue.
    ImportQueue(QueueView& view, Batch batch, std::function<Waiting()> waiting);

    /// Imports all files and returns what became of them. Meanwhile events are handled. Raises what
    /// `ImportBatch` raises.
    BatchTotals Run();
    /// Ends the import after the files that are in hand.
    void Cancel() { m_cancelled = true; }
    bool IsCancelled() const { return m_cancelled; }
    /// A sentence where the index of the library was not written, without a point; empty where it was.
    const std::string& IndexFailure() const { return m_indexFailure; }
    /// The last file whose part the library has; empty where there is none.
    const std::string& LastFile() const { return m_lastFile; }

private:
    void Import();
    void TakeResults();
    /// Asks something in the window's thread, and waits for the answer.
    bool Ask(const std::function<bool()>& question);

    QueueView& m_view;
    Batch m_batch;
    std::function<Waiting()> m_makeWaiting;
    Waiting m_waiting;  // its box is there as long as it
    std::mutex m_mutex;
    std::vector<BatchResult> m_results;  // that the view does not show yet
    std::atomic<bool> m_cancelled = false;
    BatchTotals m_totals;
    std::exception_ptr m_failure;
    std::string m_lastFile, m_indexFailure;
};

}  // namespace host
