#pragma once

#include <QWidget>
#include <atomic>
#include <functional>
#include <memory>
#include <thread>

#include "drawing/Scene.h"
#include "host/SolidViewer.h"

class QAction;
class QLabel;
class QProgressBar;
class QStackedWidget;

namespace host {

class SceneView;
class SolidCanvas;

/// Shows the solids of a part, which can be turned. The solids are made in a thread of their own, once the
/// view is first shown. Where there can be no such view, it says why, and shows the package from above and
/// from the front.
class SolidView : public QWidget {
public:
    SolidView();
    ~SolidView() override;

    /// Is called in the thread of the window when the solids are there or cannot be.
    std::function<void()> onDone;

    /// Shows a part. The view shares the part, because its thread may be busy with it for a while.
    void ShowPart(std::shared_ptr<const CVEKA_Manager> part, std::string file);

protected:
    void showEvent(QShowEvent* event) override;

private:
    /// Solids that are made, and what they are made of.
    struct Job {
        std::shared_ptr<const CVEKA_Manager> part;
        std::string file;
        std::atomic<bool> cancelled = false;
        std::atomic<std::size_t> done = 0, all = 0;
        std::unique_ptr<ViewedSolids> solids;
        std::string failure;
    };

    /// Begins to make the solids, if they are to be seen.
    void Start();
    void Finish(const std::shared_ptr<Job>& job);
    void ShowSolids();
    /// Says why there are no solids, and shows the package as a drawing.
    void ShowDrawings(const QString& why);
    void ShowProgress();

    SolidCanvas* m_canvas;
    QStackedWidget* m_pages;
    QWidget *m_working, *m_drawings;
    QProgressBar* m_progress;
    QLabel *m_why, *m_remarks;
    SceneView *m_above, *m_front;
    QWidget* m_tools;
    QTimer* m_clock;
    std::shared_ptr<Job> m_job, m_running;
    bool m_wanted = false;  // the solids of the job are still to be made
    std::thread m_thread;
};

}  // namespace host
