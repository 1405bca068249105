#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <thread>

#include "report/ImportReport.h"

class QLabel;
class QPlainTextEdit;
class QTableWidget;

namespace host {

/// Shows the report of a file as a table, and below it the lines of the file around the finding that is
/// selected. The report is made in a thread of its own.
class FindingsView : public QWidget {
public:
    FindingsView();
    ~FindingsView() override;

    /// Is called in the thread of the window when a report is there.
    std::function<void()> onReport;
    /// Is called with the place of the finding that the user selects.
    std::function<void(veka::Place place)> onSelect;

    /// Reports on the bytes of a file; files that the part names are looked for beside it.
    void ShowFile(std::string file, std::string bytes);
    /// The report of the file; waits until it is made.
    const veka::ImportReport& Report();

private:
    /// A report that is made, and what it is made of.
    struct Job {
        std::string file, bytes;
        veka::ImportReport report;
        std::string failure;
        std::vector<std::size_t> lines;  ///< where the lines begin
    };

    void Start();
    void Finish(const std::shared_ptr<Job>& job);
    void ShowReport();
    void ShowLines(int row);

    QLabel* m_summary;
    QTableWidget* m_table;
    QPlainTextEdit* m_lines;
    std::shared_ptr<Job> m_job, m_running;
    bool m_shown = true;  // the report of the job is in the table
    std::thread m_thread;
};

}  // namespace host
