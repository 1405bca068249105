#include "host/qt/QueueView.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>

#include "qt/Text.h"

namespace host {

namespace {

void SetState(QTreeWidgetItem* item, const CString& state) {
    item->setText(1, veka::ToQString(state));
    item->setToolTip(1, item->text(1));
}

bool IsProblem(const BatchResult& result) {
    return result.state == BatchResult::State::Refused || result.state == BatchResult::State::Failed;
}

/// What a row says about a file: the state, and the reason or the faults.
CString StateOf(const BatchResult& result) {
    std::string text = StateWord(result.state);
    if (!result.reason.empty()) text += ": " + result.reason;
    for (const std::string& fault : result.faults)
        text +=
            (&fault == &result.faults.front() && result.reason.empty() ? ": the file is faulty: " : "; ") +
            fault;
    return CString(text);
}

}  // namespace

QueueView::QueueView() {
    m_bar = new QProgressBar;
    m_bar->setObjectName("queueBar");
    m_bar->setFormat("%v of %m");
    m_count = new QLabel;
    m_count->setObjectName("queueCount");
    m_count->setTextFormat(Qt::PlainText);
    m_cancel = new QPushButton("Cancel");
    m_cancel->setObjectName("queueCancel");
    m_files = new QTreeWidget;
    m_files->setObjectName("files");
    m_files->setRootIsDecorated(false);
    m_files->setUniformRowHeights(true);
    m_files->setHeaderLabels({"File", "State"});
    m_files->header()->resizeSection(0, 420);
    auto* const progress = new QHBoxLayout;
    progress->addWidget(m_bar, 1);
    progress->addWidget(m_count);
    progress->addWidget(m_cancel);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(progress);
    layout->addWidget(m_files, 1);
    for (QWidget* widget : std::initializer_list<QWidget*>{m_bar, m_count, m_cancel}) widget->hide();
    connect(m_cancel, &QPushButton::clicked, this, [this] {
        m_cancel->setEnabled(false);
        m_count->setText("Ends after the files in hand");
        if (onCancel) onCancel();
    });
    connect(m_files, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        const auto found = m_paths.find(item);
        if (found != m_paths.end() && onOpen) onOpen(CString(found->second));
    });
}

void QueueView::Begin(const std::vector<std::string>& files) {
    m_files->clear();
    m_paths.clear();
    m_done = m_problems = 0;
    QList<QTreeWidgetItem*> items;
    for (const std::string& file : files) {
        const CString path(file);
        items.append(new QTreeWidgetItem(QStringList{veka::ToQString(path), "waiting"}));
        m_paths.emplace(items.back(), path);
    }
    m_files->addTopLevelItems(items);
    m_files->scrollToTop();
    m_bar->setRange(0, static_cast<int>(files.size()));
    m_bar->setValue(0);
    m_count->clear();
    m_cancel->setEnabled(true);
    for (QWidget* widget : std::initializer_list<QWidget*>{m_bar, m_count, m_cancel}) widget->show();
}

void QueueView::Add(const std::vector<BatchResult>& results) {
    if (results.empty()) return;
    QTreeWidgetItem* last = nullptr;
    for (const BatchResult& result : results) {
        QTreeWidgetItem* const item = m_files->topLevelItem(m_done);
        if (!item) break;
        last = item;
        ++m_done;
        SetState(item, StateOf(result));
        if (!IsProblem(result)) continue;
        ++m_problems;
        item->setForeground(1, QBrush(QColor(0xB0, 0x20, 0x20)));
    }
    if (last) m_files->scrollToItem(last);
    m_bar->setValue(m_done);
    if (m_cancel->isEnabled() && m_problems > 0)
        m_count->setText(QString("%1 refused or failed").arg(m_problems));
}

void QueueView::End(const CString& total) {
    m_cancel->hide();
    m_count->setText(veka::ToQString(total));
    for (int row = m_done; row < m_files->topLevelItemCount(); ++row)
        SetState(m_files->topLevelItem(row), "not imported");
}

void QueueView::AddRow(const CString& file, const CString& state) {
    auto* const item = new QTreeWidgetItem(m_files, {veka::ToQString(file)});
    m_paths.emplace(item, file);
    SetState(item, state);
}

void QueueView::List(const CString& file, const CString& state) {
    const QList<QTreeWidgetItem*> found = m_files->findItems(veka::ToQString(file), Qt::MatchExactly);
    found.isEmpty() ? AddRow(file, state) : SetState(found[0], state);
}

}  // namespace host
