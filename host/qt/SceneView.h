#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QRegion>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "drawing/Sheet.h"

namespace host {

/// The theme of drawings that goes with a palette.
drawing::Theme ThemeOf(const QPalette& palette);

/// Shows a scene. The wheel zooms at the pointer, the middle button or the left one with the space bar moves
/// the scene, F fits it, and a click picks a shape. D begins to measure: two clicks give a distance, and
/// Escape ends.
///
/// The scene is painted into an image, in pieces of some milliseconds, so that a large one does not hold up
/// the window. When the scene is moved, only what comes into sight is painted.
class SceneView : public QWidget {
public:
    SceneView();

    /// Is called with the source of the shape that was clicked; an empty one for a click beside all shapes.
    std::function<void(const drawing::Source& source)> onPick;
    /// Is called with the place of the pointer, in millimetres; nothing when the pointer leaves.
    std::function<void(std::optional<drawing::Point> point)> onPointer;
    /// Is called when measuring begins or ends.
    std::function<void(bool measuring)> onMeasuring;

    /// Shows all of a scene from a side; null shows nothing but the text.
    void ShowScene(std::shared_ptr<const drawing::Scene> scene, drawing::Side from,
                   const QString& text = QString());
    /// Shows some of the layers, by their index.
    void ShowLayers(std::vector<bool> layers);
    /// Paints some shapes, by their index, in another colour, and moves the scene if none of them is in
    /// sight.
    void Highlight(std::vector<std::size_t> shapes);
    const std::vector<std::size_t>& Highlighted() const { return m_highlighted; }
    /// Shows all of the scene.
    void Fit();
    /// Zooms by a factor and keeps a point of the widget where it is.
    void Zoom(double factor, QPointF at);
    /// Begins or ends measuring.
    void Measure(bool on);
    bool IsMeasuring() const { return m_measuring; }
    /// The distance between the two points that were clicked.
    std::optional<double> Distance() const;
    /// The ground that goes with the window's colours.
    drawing::Theme Theme() const { return ThemeOf(palette()); }

    /// A point of the widget in the scene, and back.
    drawing::Point ToScene(QPointF point) const;
    QPointF ToWidget(drawing::Point point) const;
    /// Pixels of the widget for one millimetre.
    double PixelsPerMillimetre() const { return m_scale / devicePixelRatioF(); }
    /// True once the whole scene is painted.
    bool IsPainted() const { return m_dirty.isEmpty(); }

    QSize sizeHint() const override { return {500, 400}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Look;

    bool IsMirrored() const { return m_from == drawing::Side::Bottom; }
    bool IsShown(const drawing::Layer& layer) const;
    QRectF InPixels(const drawing::Box& box) const;
    /// Moves the scene by device pixels.
    void Move(QPoint by);
    /// All is to be painted anew.
    void Repaint();
    /// Paints for some milliseconds.
    void Advance(int milliseconds);
    bool PaintNext(QPainter& painter, const Look& look, const QElapsedTimer& time, int milliseconds);
    void PaintOne(QPainter& painter, const Look& look, std::size_t shape, const QColor& color);
    void PaintScale(QPainter& painter);
    void PaintMeasure(QPainter& painter);
    void PaintLabel(QPainter& painter, QPointF at, const QString& text);
    /// The point that a click at a place of the widget means: one of a shape if one is near.
    drawing::Point Snapped(QPointF point) const;
    void Pick(QPointF point);
    void ShowCursor();

    std::shared_ptr<const drawing::Scene> m_scene;
    drawing::Side m_from = drawing::Side::Both;
    QString m_text;
    std::vector<bool> m_layers;
    std::vector<drawing::Box> m_boxes;  // of the shapes
    std::vector<std::size_t> m_highlighted;

    // Where the scene is: device pixels for a millimetre, and the place of its origin in device pixels.
    double m_scale = 10;
    QPointF m_origin;
    bool m_fitted = true;  // nobody has moved it since

    QImage m_image;             // what is painted so far
    QRegion m_dirty;            // what of it is still to be painted
    bool m_anew = true;         // all of it is
    bool m_fresh = false;       // the ground is still to be painted
    double m_paintedScale = 1;  // where the scene is in the image
    QPointF m_paintedOrigin;
    std::size_t m_next = 0;    // the next shape, or after all of them the next highlighted one
    QImage m_former;           // shown until the image is painted
    double m_formerScale = 0;  // where the scene is in it
    QPointF m_formerOrigin;
    QElapsedTimer m_painting;
    QTimer m_goOn;

    enum class Drag { No, Click, Move };
    Drag m_drag = Drag::No;
    QPointF m_pressed, m_dragged;
    bool m_space = false;

    bool m_measuring = false;
    std::vector<drawing::Point> m_measured;  // up to two points
    std::optional<QPointF> m_pointer;
};

/// A length as a text, for example "1.27 mm (50 mil)".
QString LengthText(double millimetres);
/// A place as a text in mm and in mil.
QString PlaceText(drawing::Point point);

}  // namespace host
