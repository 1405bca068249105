#include "host/qt/SolidView.h"

#include <QBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTimer>
#include <QToolButton>

#include "drawing/Drawing.h"
#include "host/qt/Elided.h"
#include "host/qt/SceneView.h"
#include "host/qt/SolidCanvas.h"

namespace host {

namespace {

constexpr std::pair<const char*, SolidSide> kSides[] = {
    {"Oblique", SolidSide::Oblique}, {"Top", SolidSide::Top},   {"Bottom", SolidSide::Bottom},
    {"Front", SolidSide::Front},     {"Back", SolidSide::Back}, {"Left", SolidSide::Left},
    {"Right", SolidSide::Right},
};

}  // namespace

SolidView::SolidView()
    : m_canvas(new SolidCanvas),
      m_pages(new QStackedWidget),
      m_working(new QWidget),
      m_drawings(new QWidget),
      m_progress(new QProgressBar),
      m_why(new QLabel),
      m_remarks(new QLabel),
      m_above(new SceneView),
      m_front(new SceneView),
      m_tools(new QWidget),
      m_clock(new QTimer(this)) {
    setObjectName("solids");
    m_progress->setObjectName("solidsProgress");
    m_why->setObjectName("solidsWhy");
    m_above->setObjectName("solidsFromAbove");
    m_front->setObjectName("solidsFromFront");
    for (QLabel* label : {m_why, m_remarks}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }

    auto* tools = new QHBoxLayout(m_tools);
    tools->setContentsMargins(0, 0, 0, 0);
    const auto addButton = [&](const QString& text, bool checkable, auto deed) {
        auto* button = new QToolButton;
        button->setText(text);
        button->setObjectName("solids" + text);
        button->setCheckable(checkable);
        connect(button, &QToolButton::clicked, this, deed);
        tools->addWidget(button);
    };
    for (const auto& side : kSides)
        addButton(side.first, false, [this, from = side.second] { m_canvas->Viewer().LookFrom(from); });
    addButton("Fit", false, [this] { m_canvas->Viewer().Fit(); });
    addButton("Perspective", true, [this](bool on) { m_canvas->Viewer().SetPerspective(on); });
    tools->addStretch(1);
    m_tools->setEnabled(false);

    auto* cancel = new QPushButton("Cancel");
    cancel->setObjectName("solidsCancel");
    connect(cancel, &QPushButton::clicked, this, [this] {
        if (m_job) m_job->cancelled = true;
    });
    auto* working = new QVBoxLayout(m_working);
    working->addStretch(1);
    working->addWidget(new QLabel("The solids are being made ..."));
    working->addWidget(m_progress);
    working->addWidget(cancel, 0, Qt::AlignRight);
    working->addStretch(1);

    auto* drawings = new QVBoxLayout(m_drawings);
    drawings->setContentsMargins(0, 0, 0, 0);
    drawings->addWidget(m_why);
    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(m_above);
    splitter->addWidget(m_front);
    drawings->addWidget(splitter, 1);

    for (QWidget* page : {static_cast<QWidget*>(m_canvas), m_working, m_drawings}) m_pages->addWidget(page);
    m_pages->setCurrentWidget(m_drawings);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 4, 0, 0);
    layout->addWidget(m_tools);
    layout->addWidget(m_pages, 1);
    layout->addWidget(m_remarks);
    m_remarks->hide();

    constexpr int kOften = 100;  // ms
    m_clock->setInterval(kOften);
    connect(m_clock, &QTimer::timeout, this, [this] { ShowProgress(); });
}

SolidView::~SolidView() {
    if (m_job) m_job->cancelled = true;
    if (m_running) m_running->cancelled = true;
    if (m_thread.joinable()) m_thread.join();
}

void SolidView::ShowPart(std::shared_ptr<const CVEKA_Manager> part, std::string file) {
    if (m_job) m_job->cancelled = true;  // nobody wants its solids any more
    m_job = std::make_shared<Job>();
    m_job->part = std::move(part);
    m_job->file = std::move(file);
    m_wanted = true;
    if (isVisible()) Start();
}

void SolidView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!m_wanted) return;
    // The window of the canvas is there once this event is over.
    QTimer::singleShot(0, this, [this] { Start(); });
}

void SolidView::Start() {
    if (!m_wanted || m_running) return;  // what runs is followed by the next one
    m_wanted = false;
    m_remarks->hide();
    try {
        m_pages->setCurrentWidget(m_canvas);
        m_canvas->Viewer();
    } catch (const SolidsError& error) {
        return ShowDrawings(Elided(CString(error.what())));
    }
    m_pages->setCurrentWidget(m_working);
    m_progress->setRange(0, 0);
    m_clock->start();
    if (m_thread.joinable()) m_thread.join();
    m_running = m_job;
    m_thread = std::thread([this, job = m_job] {
        try {
            job->solids = MakeViewedSolids(*job->part, job->file, [&](std::size_t done, std::size_t all) {
                job->done = done;
                job->all = all;
                return !job->cancelled;
            });
        } catch (const std::exception& error) {
            job->failure = error.what();
        }
        QMetaObject::invokeMethod(
            this, [this, job] { Finish(job); }, Qt::QueuedConnection);
    });
}

void SolidView::ShowProgress() {
    if (!m_running || m_running->all == 0) return;
    m_progress->setRange(0, static_cast<int>(m_running->all));
    m_progress->setValue(static_cast<int>(m_running->done));
}

void SolidView::Finish(const std::shared_ptr<Job>& job) {
    m_clock->stop();
    m_thread.join();
    m_running.reset();
    if (job == m_job) return ShowSolids();
    if (isVisible()) Start();
}

void SolidView::ShowSolids() {
    if (!m_job->failure.empty()) return ShowDrawings(Elided(CString(m_job->failure)));
    if (!m_job->solids) return ShowDrawings("The making of the solids was cancelled.");
    if (m_job->solids->count == 0) {
        const std::vector<std::string>& remarks = m_job->solids->remarks;
        return ShowDrawings(
            Elided(CString("The part has no solid" + (remarks.empty() ? "." : ": " + remarks[0]))));
    }
    m_pages->setCurrentWidget(m_canvas);
    m_canvas->Viewer().Show(*m_job->solids);
    m_tools->setEnabled(true);
    QString remarks;
    for (const std::string& remark : m_job->solids->remarks)
        remarks += (remarks.isEmpty() ? "" : "; ") + Elided(CString(remark));
    m_remarks->setText(Elided(remarks));
    m_remarks->setVisible(!remarks.isEmpty());
    if (onDone) onDone();
}

void SolidView::ShowDrawings(const QString& why) {
    m_tools->setEnabled(false);
    m_pages->setCurrentWidget(m_drawings);
    m_why->setText("There are no solids to see: " + why);
    const drawing::Part part(*m_job->part);
    const CVEKA_Package* package = part.DefaultPackage();
    const auto show = [&](SceneView& view, drawing::Looking looking) {
        try {
            std::shared_ptr<const drawing::Scene> scene;
            if (package)
                scene = std::make_shared<const drawing::Scene>(PackageScene(part, *package, looking));
            view.ShowScene(scene, drawing::Side::Both, "There is nothing to draw.");
        } catch (const drawing::DrawingError& error) {
            view.ShowScene(nullptr, drawing::Side::Both, Elided(CString(error.what())));
        }
    };
    show(*m_above, drawing::Looking::FromAbove);
    show(*m_front, drawing::Looking::FromFront);
    if (onDone) onDone();
}

}  // namespace host
