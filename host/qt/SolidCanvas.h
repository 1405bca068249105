#pragma once

#include <QWidget>
#include <memory>

#include "host/SolidViewer.h"

namespace host {

/// The window of the system in which solids are shown: the left button turns, the middle one or the right one
/// moves, and the wheel zooms.
class SolidCanvas : public QWidget {
public:
    SolidCanvas();

    /// The viewer in this window, made on the first call. Raises `SolidsError` where there can be none.
    SolidViewer& Viewer();

    QPaintEngine* paintEngine() const override { return nullptr; }  // the viewer paints

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPoint InPixels(QPointF point) const { return (point * devicePixelRatioF()).toPoint(); }

    std::unique_ptr<SolidViewer> m_viewer;
    QPoint m_last;
};

}  // namespace host
