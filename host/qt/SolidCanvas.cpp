#include "host/qt/SolidCanvas.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>

#include "host/qt/SceneView.h"

namespace host {

SolidCanvas::SolidCanvas() {
    setObjectName("solidCanvas");
    setAttribute(Qt::WA_NativeWindow);
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_PaintOnScreen);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::WheelFocus);
}

SolidViewer& SolidCanvas::Viewer() {
    if (!m_viewer) {
        if (QGuiApplication::platformName() != "xcb")
            throw SolidsError("solids are shown in windows of X11 only");
        m_viewer = MakeSolidViewer(static_cast<std::uintptr_t>(winId()));
        m_viewer->SetGround(ThemeOf(palette()));
    }
    return *m_viewer;
}

void SolidCanvas::paintEvent(QPaintEvent*) {
    if (m_viewer) m_viewer->Redraw();
}

void SolidCanvas::resizeEvent(QResizeEvent*) {
    if (m_viewer) m_viewer->Resize();
}

void SolidCanvas::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange && m_viewer) m_viewer->SetGround(ThemeOf(palette()));
    QWidget::changeEvent(event);
}

void SolidCanvas::mousePressEvent(QMouseEvent* event) {
    m_last = InPixels(event->position());
    if (m_viewer && event->button() == Qt::LeftButton) m_viewer->BeginTurn(m_last.x(), m_last.y());
}

void SolidCanvas::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = InPixels(event->position());
    if (m_viewer && event->buttons().testFlag(Qt::LeftButton))
        m_viewer->Turn(at.x(), at.y());
    else if (m_viewer && event->buttons() & (Qt::MiddleButton | Qt::RightButton))
        m_viewer->Move(at.x() - m_last.x(), at.y() - m_last.y());
    m_last = at;
}

void SolidCanvas::wheelEvent(QWheelEvent* event) {
    constexpr int kNotch = 120;
    const QPoint at = InPixels(event->position());
    if (m_viewer) m_viewer->Zoom(at.x(), at.y(), event->angleDelta().y() / kNotch);
    event->accept();
}

void SolidCanvas::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_F || !m_viewer) return QWidget::keyPressEvent(event);
    m_viewer->Fit();
}

}  // namespace host
