#include "host/qt/FindingsView.h"

#include <QBoxLayout>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStyle>
#include <QTableWidget>
#include <QTextBlock>
#include <algorithm>
#include <stdexcept>

#include "host/CheckFiles.h"
#include "host/qt/Elided.h"
#include "platform/Printable.h"

namespace host {

namespace {

constexpr const char* kColumns[] = {"Severity", "Code", "Line", "What", "Text", "Where"};
constexpr int kAround = 4;  // lines before and after a finding

/// One line of a file as it is shown. A long one is cut; `begin` and `end` are bytes of it, and become
/// letters of the result.
QString Shown(std::string_view line, std::size_t& begin, std::size_t& end) {
    constexpr std::size_t kLongest = 400, kBefore = 100;
    begin = std::min(begin, line.size());
    end = std::clamp(end, begin, line.size());
    const std::size_t first = begin > kBefore && line.size() > kLongest ? begin - kBefore : 0;
    const std::size_t last = std::min(line.size(), first + kLongest);
    const auto letters = [&](std::size_t from, std::size_t to) {
        std::string part(line.substr(from, std::max(from, to) - from));
        std::replace(part.begin(), part.end(), '\t', ' ');
        return QString::fromStdString(veka::Printable(part));
    };
    const QString dots(QChar(0x2026));
    const QString before = (first > 0 ? dots : QString()) + letters(first, std::min(begin, last));
    const QString token = letters(std::min(begin, last), std::min(end, last));
    const QString after = letters(std::min(end, last), last) + (last < line.size() ? dots : QString());
    begin = static_cast<std::size_t>(before.size());
    end = static_cast<std::size_t>(before.size() + token.size());
    return before + token + after;
}

QStyle::StandardPixmap PixmapOf(veka::Severity severity) {
    switch (severity) {
        case veka::Severity::Error:
            return QStyle::SP_MessageBoxCritical;
        case veka::Severity::Warning:
            return QStyle::SP_MessageBoxWarning;
        default:
            return QStyle::SP_MessageBoxInformation;
    }
}

}  // namespace

FindingsView::FindingsView()
    : m_summary(new QLabel),
      m_table(new QTableWidget),
      m_lines(new QPlainTextEdit),
      m_job(std::make_shared<Job>()) {
    setObjectName("report");
    m_summary->setObjectName("reportSummary");
    m_summary->setTextFormat(Qt::PlainText);
    m_table->setObjectName("findings");
    m_table->setColumnCount(static_cast<int>(std::size(kColumns)));
    QStringList names;
    for (const char* name : kColumns) names += name;
    m_table->setHorizontalHeaderLabels(names);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->verticalHeader()->hide();
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_lines->setObjectName("reportLines");
    m_lines->setReadOnly(true);
    m_lines->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_lines->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    connect(m_table, &QTableWidget::currentCellChanged, this, [this](int row, int, int former, int) {
        if (row != former) ShowLines(row);
    });
    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(m_table);
    splitter->addWidget(m_lines);
    splitter->setSizes({300, 180});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 4, 0, 0);
    layout->addWidget(m_summary);
    layout->addWidget(splitter, 1);
}

FindingsView::~FindingsView() {
    if (m_thread.joinable()) m_thread.join();
}

void FindingsView::ShowFile(std::string file, std::string bytes) {
    m_job = std::make_shared<Job>();
    m_job->file = std::move(file);
    m_job->bytes = std::move(bytes);
    m_shown = false;
    m_table->setRowCount(0);
    m_lines->clear();
    m_summary->setText("The report is being made ...");
    if (!m_running) Start();  // else it is started when that one is done
}

void FindingsView::Start() {
    if (m_thread.joinable()) m_thread.join();
    m_running = m_job;
    m_thread = std::thread([this, job = m_job] {
        try {
            constexpr std::size_t kLargest = std::size_t{16} << 20;  // real parts have less than 1 MB
            if (job->bytes.size() > kLargest)
                throw std::length_error("the file is too large; veka-host --check checks it");
            job->report = ReportOn(job->file, job->bytes);
            job->lines.push_back(0);
            for (std::size_t i = 0; i < job->bytes.size(); ++i)
                if (job->bytes[i] == '\n') job->lines.push_back(i + 1);
        } catch (const std::exception& error) {
            job->failure = error.what();
        }
        QMetaObject::invokeMethod(
            this, [this, job] { Finish(job); }, Qt::QueuedConnection);
    });
}

/// The thread is done; with a report that nobody wants any more, the next one is made.
void FindingsView::Finish(const std::shared_ptr<Job>& job) {
    if (m_running != job) return;  // somebody waited for it
    m_thread.join();
    const bool wanted = m_running == m_job;
    m_running.reset();
    if (!wanted) return Start();
    ShowReport();
}

const veka::ImportReport& FindingsView::Report() {
    while (m_running) Finish(m_running);
    return m_job->report;
}

void FindingsView::ShowReport() {
    if (std::exchange(m_shown, true)) return;
    const veka::ImportReport& report = m_job->report;
    QString summary = QString::fromStdString(CountOfFindings(report));
    if (const std::size_t notes = report.Count(veka::Severity::Note); notes > 0)
        summary +=
            (summary.isEmpty() ? "" : ", ") + QString::number(notes) + (notes == 1 ? " note" : " notes");
    if (summary.isEmpty()) summary = "A check of the file finds nothing.";
    if (!m_job->failure.empty()) summary = Elided("There is no report: " + CString(m_job->failure));
    if (report.Dropped() > 0) summary += "; " + QString::number(report.Dropped()) + " of them are not listed";
    m_summary->setText(summary);
    const QSignalBlocker blocker(m_table);
    m_table->setRowCount(static_cast<int>(report.Findings().size()));
    int row = 0;
    for (const veka::Finding& finding : report.Findings()) {
        const veka::CodeDescription& code = veka::Describe(finding.code);
        const QString texts[] = {veka::NameOf(code.severity),
                                 code.id,
                                 QString::number(finding.region.begin.line),
                                 Elided(CString(veka::Printable(finding.sentence))),
                                 Elided(CString(veka::Printable(finding.text))),
                                 Elided(CString(veka::Printable(finding.path)))};
        for (int column = 0; column < m_table->columnCount(); ++column) {
            auto* cell = new QTableWidgetItem(texts[column]);
            if (column == 0) cell->setIcon(style()->standardIcon(PixmapOf(code.severity)));
            cell->setToolTip(texts[column]);
            m_table->setItem(row, column, cell);
        }
        ++row;
    }
    for (int column = 0; column < 3; ++column) m_table->resizeColumnToContents(column);
    m_table->setColumnWidth(3, 380);
    if (onReport) onReport();
}

void FindingsView::ShowLines(int row) {
    m_lines->clear();
    if (row < 0 || row >= static_cast<int>(m_job->report.Findings().size())) return;
    const veka::Finding& finding = m_job->report.Findings()[static_cast<std::size_t>(row)];
    const veka::Region& region = finding.region;
    const int count = static_cast<int>(m_job->lines.size());
    const int first = std::clamp(region.begin.line - kAround, 1, count);
    const int last = std::clamp(region.begin.line + kAround, 1, count);
    QStringList texts;
    QList<QTextEdit::ExtraSelection> marks;
    std::vector<std::pair<int, int>> marked;  // letters of the whole text
    int letters = 0;
    for (int line = first; line <= last; ++line) {
        const std::size_t from = m_job->lines[static_cast<std::size_t>(line) - 1];
        std::size_t to =
            line < count ? m_job->lines[static_cast<std::size_t>(line)] - 1 : m_job->bytes.size();
        if (to > from && m_job->bytes[to - 1] == '\r') --to;
        const std::string_view bytes = std::string_view(m_job->bytes).substr(from, to - from);
        const bool concerned = line >= region.begin.line && line <= region.end.line;
        std::size_t begin = line == region.begin.line ? static_cast<std::size_t>(region.begin.column) - 1 : 0;
        std::size_t end =
            line == region.end.line ? static_cast<std::size_t>(region.end.column) - 1 : bytes.size();
        if (!concerned) begin = end = 0;
        const QString number = QString::number(line).rightJustified(7) + "  ";
        const QString text = number + Shown(bytes, begin, end);
        if (concerned && end > begin)
            marked.emplace_back(letters + number.size() + static_cast<int>(begin),
                                letters + number.size() + static_cast<int>(end));
        texts += text;
        letters += static_cast<int>(text.size()) + 1;
    }
    m_lines->setPlainText(texts.join('\n'));
    for (const auto& [begin, end] : marked) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(m_lines->document());
        mark.cursor.setPosition(begin);
        mark.cursor.setPosition(end, QTextCursor::KeepAnchor);
        mark.format.setBackground(QColor(255, 214, 90));
        mark.format.setForeground(Qt::black);
        marks += mark;
    }
    m_lines->setExtraSelections(marks);
    if (onSelect) onSelect(region.begin);
}

}  // namespace host
