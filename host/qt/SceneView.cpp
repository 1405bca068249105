#include "host/qt/SceneView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "host/qt/ScenePainter.h"

namespace host {

namespace {

using drawing::Box;
using drawing::Point;
using drawing::Shape;

constexpr double kSmallestScale = 1e-5, kLargestScale = 1e4;  // pixels for a millimetre
constexpr double kZoomStep = 1.25;
constexpr double kMargin = 20;          // pixels around a scene that is fitted
constexpr double kNear = 4, kSnap = 8;  // pixels
constexpr double kSmallestLetter = 4;   // pixels; a smaller text cannot be read and is not painted
constexpr int kSlice = 12;              // ms that are painted at a time
constexpr int kPatience = 200;          // ms until a picture that is not whole is shown
constexpr double kMil = 0.0254;

QString Number(double value, int digits) {
    QString text = QString::number(value, 'f', digits);
    if (text.contains('.')) {
        while (text.endsWith('0')) text.chop(1);
        if (text.endsWith('.')) text.chop(1);
    }
    return text == "-0" ? "0" : text;
}

/// Calls a function with each point of a shape that someone might measure from.
template <class Call>
void ForEachPoint(const drawing::Scene& scene, const Shape& shape, Call call) {
    if (const auto* line = std::get_if<drawing::Line>(&shape.form)) {
        call(line->start);
        call(line->end);
    } else if (const auto* arc = std::get_if<drawing::Arc>(&shape.form)) {
        call(arc->center + drawing::Direction(arc->start) * arc->radius);
        call(arc->center + drawing::Direction(arc->start + arc->sweep) * arc->radius);
    } else if (const auto* circle = std::get_if<drawing::Circle>(&shape.form)) {
        call(circle->center);
    } else if (const auto* polygon = std::get_if<drawing::Polygon>(&shape.form)) {
        if (polygon->filled) call(scene.Bounds(shape).Center());
        for (const drawing::Contour& contour : scene.Contours(*polygon))
            for (const drawing::Vertex& vertex : scene.Vertices(contour)) call(vertex.point);
    }
}

}  // namespace

drawing::Theme ThemeOf(const QPalette& palette) {
    constexpr int kHalf = 128;
    return palette.color(QPalette::Window).lightness() < kHalf ? drawing::Theme::Dark : drawing::Theme::Light;
}

QString LengthText(double millimetres) {
    return Number(millimetres, 4) + " mm (" + Number(millimetres / kMil, 2) + " mil)";
}

QString PlaceText(Point point) {
    return "X " + QString::number(point.x, 'f', 3) + "  Y " + QString::number(point.y, 'f', 3) + " mm   (X " +
           QString::number(point.x / kMil, 'f', 1) + "  Y " + QString::number(point.y / kMil, 'f', 1) +
           " mil)";
}

/// What a pass of painting needs.
struct SceneView::Look {
    drawing::Frame frame;
    drawing::Theme theme;
    QColor ground, highlight;
    double pixel;  // in millimetres
    std::vector<QColor> colors;
    std::vector<bool> shown;
    std::vector<QRectF> areas;  // what is to be painted, in device pixels
};

SceneView::SceneView() {
    setFocusPolicy(Qt::WheelFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(80, 80);
    m_goOn.setSingleShot(true);
    connect(&m_goOn, &QTimer::timeout, this, [this] {
        Advance(kSlice * 2);
        update();
    });
}

void SceneView::ShowScene(std::shared_ptr<const drawing::Scene> scene, drawing::Side from,
                          const QString& text) {
    m_scene = std::move(scene);
    m_from = from;
    m_text = text;
    m_layers.clear();
    m_boxes.clear();
    m_highlighted.clear();
    m_measured.clear();
    if (m_scene) {
        for (const drawing::Layer& layer : m_scene->Layers()) m_layers.push_back(layer.shown);
        m_boxes.reserve(m_scene->Shapes().size());
        for (const Shape& shape : m_scene->Shapes()) m_boxes.push_back(m_scene->Bounds(shape));
    }
    m_former = QImage();
    Fit();
}

void SceneView::ShowLayers(std::vector<bool> layers) {
    layers.resize(m_layers.size());
    if (layers == m_layers) return;
    m_layers = std::move(layers);
    Repaint();
}

void SceneView::Highlight(std::vector<std::size_t> shapes) {
    if (shapes == m_highlighted) return;
    m_highlighted = std::move(shapes);
    Repaint();
    Box all;
    const QRectF window = QRectF(rect()).adjusted(0, 0, -1, -1);
    for (const std::size_t shape : m_highlighted) {
        const Box& box = m_boxes[shape];
        if (!IsShown(m_scene->Layers()[m_scene->Shapes()[shape].layer])) continue;
        const Point center = box.Center();
        if (window.contains(ToWidget(center))) return;
        all.Add(box);
    }
    if (all.IsEmpty()) return;
    m_origin += (QRectF(rect()).center() - ToWidget(all.Center())) * devicePixelRatioF();
    m_fitted = false;
}

bool SceneView::IsShown(const drawing::Layer& layer) const {
    return layer.SeenFrom(m_from) && m_layers[static_cast<std::size_t>(&layer - m_scene->Layers().data())];
}

void SceneView::Fit() {
    m_fitted = true;
    const double ratio = devicePixelRatioF();
    const QSizeF room(std::max(1.0, width() - 2 * kMargin), std::max(1.0, height() - 2 * kMargin));
    Box box;
    if (m_scene) box = m_scene->Bounds(m_from, false);
    if (m_scene && box.IsEmpty()) box = m_scene->Bounds(m_from, true);
    if (box.IsEmpty()) box.Add({0, 0}, 1);
    constexpr double kSmallest = 1e-3;
    const double scale = std::min(room.width() / std::max(box.Width(), kSmallest),
                                  room.height() / std::max(box.Height(), kSmallest));
    m_scale = std::clamp(scale * ratio, kSmallestScale, kLargestScale);
    const Point center = box.Center();
    m_origin = {width() * ratio / 2 - (IsMirrored() ? -center.x : center.x) * m_scale,
                height() * ratio / 2 + center.y * m_scale};
    Repaint();
}

void SceneView::Zoom(double factor, QPointF at) {
    const double scale = std::clamp(m_scale * factor, kSmallestScale, kLargestScale);
    if (scale == m_scale) return;
    const QPointF fixed = at * devicePixelRatioF();
    m_origin = fixed + (m_origin - fixed) * (scale / m_scale);
    // A scene that is far away would lose the place of its pixels.
    constexpr double kFar = 1e12;
    m_origin = {std::clamp(m_origin.x(), -kFar, kFar), std::clamp(m_origin.y(), -kFar, kFar)};
    m_scale = scale;
    m_fitted = false;
    Repaint();
}

Point SceneView::ToScene(QPointF point) const {
    const QPointF at = (point * devicePixelRatioF() - m_origin) / m_scale;
    return {IsMirrored() ? -at.x() : at.x(), -at.y()};
}

QPointF SceneView::ToWidget(Point point) const {
    return (m_origin + QPointF(IsMirrored() ? -point.x : point.x, -point.y) * m_scale) / devicePixelRatioF();
}

QRectF SceneView::InPixels(const Box& box) const {
    const double left = IsMirrored() ? -box.right : box.left;
    return {m_origin.x() + left * m_scale, m_origin.y() - box.top * m_scale, box.Width() * m_scale,
            box.Height() * m_scale};
}

void SceneView::Repaint() {
    if (IsPainted() && !m_image.isNull()) {
        m_former = m_image;
        m_formerScale = m_paintedScale;
        m_formerOrigin = m_paintedOrigin;
    }
    m_anew = true;
    m_next = 0;
    m_dirty = QRegion(0, 0, 1, 1);  // the size is known when it is painted
    m_painting.start();
    update();
}

void SceneView::Move(QPoint by) {
    if (by.isNull()) return;
    m_origin += by;
    if (m_anew && !IsPainted()) {
        update();
        return Repaint();
    }
    // What is painted moves, and what was not painted then or comes into sight is to be painted.
    QImage moved(m_image.size(), m_image.format());
    {
        QPainter painter(&moved);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(by, m_image);
    }
    m_dirty.translate(by);
    m_image = std::move(moved);
    const QRegion all(m_image.rect());
    m_dirty = m_dirty.intersected(all).united(all.subtracted(QRegion(m_image.rect().translated(by))));
    constexpr int kMostAreas = 16;
    if (m_dirty.rectCount() > kMostAreas) m_dirty = m_dirty.boundingRect();
    m_next = 0;
    m_fresh = true;
    m_paintedOrigin = m_origin;
    update();
}

void SceneView::Advance(int milliseconds) {
    if (IsPainted()) return;
    QElapsedTimer time;
    time.start();
    const double ratio = devicePixelRatioF();
    const QSize size(std::max(1, static_cast<int>(std::lround(width() * ratio))),
                     std::max(1, static_cast<int>(std::lround(height() * ratio))));
    if (m_anew && m_next == 0) {
        m_image = QImage(size, QImage::Format_RGB32);
        m_dirty = QRegion(m_image.rect());
        m_fresh = true;
        m_paintedScale = m_scale;
        m_paintedOrigin = m_origin;
    }
    Look look;
    look.frame.mirrored = IsMirrored();
    look.theme = Theme();
    look.ground = ToQColor(drawing::Ground(look.theme));
    look.highlight = look.theme == drawing::Theme::Dark ? QColor(255, 236, 90) : QColor(0, 92, 230);
    look.pixel = 1 / m_scale;
    for (const QRect& area : m_dirty) look.areas.emplace_back(area);
    if (m_scene)
        for (const drawing::Layer& layer : m_scene->Layers()) {
            look.colors.push_back(ShapeColor(layer, look.theme));
            look.shown.push_back(IsShown(layer));
        }
    QPainter painter(&m_image);
    painter.setClipRegion(m_dirty);
    if (m_fresh) painter.fillRect(m_image.rect(), look.ground);
    m_fresh = false;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(m_origin);
    painter.scale(m_scale, m_scale);
    if (!m_scene || PaintNext(painter, look, time, milliseconds)) {
        m_dirty = QRegion();
        m_anew = false;
        m_former = QImage();
    }
}

/// Paints shapes until the time is over; true if none is left.
bool SceneView::PaintNext(QPainter& painter, const Look& look, const QElapsedTimer& time, int milliseconds) {
    const std::vector<Shape>& shapes = m_scene->Shapes();
    constexpr std::size_t kOften = 64;  // how many shapes are painted between two looks at the clock
    while (m_next < shapes.size() + m_highlighted.size()) {
        const bool highlighted = m_next >= shapes.size();
        const std::size_t shape = highlighted ? m_highlighted[m_next - shapes.size()] : m_next;
        const std::uint32_t layer = shapes[shape].layer;
        QColor color = highlighted ? look.highlight : look.colors[layer];
        // A name on a highlighted area stays readable.
        constexpr int kSeenThrough = 170;
        if (highlighted && !std::holds_alternative<drawing::Text>(shapes[shape].form))
            color.setAlpha(kSeenThrough);
        if (look.shown[layer]) PaintOne(painter, look, shape, color);
        if (++m_next % kOften == 0 && time.elapsed() >= milliseconds) return false;
    }
    return true;
}

void SceneView::PaintOne(QPainter& painter, const Look& look, std::size_t index, const QColor& color) {
    const QRectF box = InPixels(m_boxes[index]);
    constexpr double kPen = 2;  // the thinnest line is a pixel wide
    const QRectF grown = box.adjusted(-kPen, -kPen, kPen, kPen);
    if (std::none_of(look.areas.begin(), look.areas.end(),
                     [&](const QRectF& area) { return grown.intersects(area); }))
        return;
    const Shape& shape = m_scene->Shapes()[index];
    if (const auto* text = std::get_if<drawing::Text>(&shape.form)) {
        if (text->height * m_scale < kSmallestLetter) return;
    } else if (box.width() < 1 && box.height() < 1) {
        const Point center = m_boxes[index].Center();
        painter.fillRect(QRectF((look.frame.mirrored ? -center.x : center.x) - look.pixel / 2,
                                -center.y - look.pixel / 2, look.pixel, look.pixel),
                         color);
        return;
    }
    PaintShape(painter, *m_scene, shape, look.frame,
               {color, look.ground, std::max(drawing::kHairline, look.pixel)});
}

void SceneView::paintEvent(QPaintEvent*) {
    Advance(kSlice);
    if (!IsPainted()) m_goOn.start(0);
    const double ratio = devicePixelRatioF();
    QPainter painter(this);
    if (m_anew && !IsPainted() && !m_former.isNull() && m_painting.elapsed() < kPatience) {
        painter.fillRect(rect(), ToQColor(drawing::Ground(Theme())));
        painter.scale(1 / ratio, 1 / ratio);
        painter.translate(m_origin);
        painter.scale(m_scale / m_formerScale, m_scale / m_formerScale);
        painter.drawImage(-m_formerOrigin, m_former);
        painter.resetTransform();
    } else {
        painter.drawImage(QRectF(rect()), m_image);
    }
    const QColor ink = ToQColor(drawing::Ink(Theme()));
    painter.setPen(ink);
    if (!m_scene || m_scene->IsEmpty()) {
        painter.drawText(rect().adjusted(10, 10, -10, -10), Qt::AlignCenter | Qt::TextWordWrap, m_text);
        return;
    }
    constexpr double kCross = 6;
    const QPointF origin = ToWidget({0, 0});
    if (QRectF(rect()).contains(origin)) {
        painter.drawLine(origin - QPointF(kCross, 0), origin + QPointF(kCross, 0));
        painter.drawLine(origin - QPointF(0, kCross), origin + QPointF(0, kCross));
    }
    PaintScale(painter);
    if (m_measuring) PaintMeasure(painter);
}

/// A bar of a round length.
void SceneView::PaintScale(QPainter& painter) {
    constexpr double kLongest = 120;  // pixels
    const double most = kLongest / PixelsPerMillimetre();
    const double power = std::pow(10, std::floor(std::log10(most)));
    const double length = most >= 5 * power ? 5 * power : most >= 2 * power ? 2 * power : power;
    const double pixels = length * PixelsPerMillimetre();
    const QPointF left(12, height() - 12), right = left + QPointF(pixels, 0);
    constexpr double kEnd = 4;
    painter.drawLine(left, right);
    for (const QPointF end : {left, right}) painter.drawLine(end - QPointF(0, kEnd), end + QPointF(0, kEnd));
    const QString text = Number(length, 6) + " mm";
    painter.drawText(
        QPointF(left.x() + (pixels - painter.fontMetrics().horizontalAdvance(text)) / 2, left.y() - kEnd - 2),
        text);
}

void SceneView::PaintLabel(QPainter& painter, QPointF at, const QString& text) {
    QRectF box = painter.fontMetrics().boundingRect(text).adjusted(-4, -3, 4, 3);
    box.moveCenter(at);
    const QRectF window(rect());
    box.moveLeft(std::clamp(box.left(), 0.0, std::max(0.0, window.right() - box.width())));
    box.moveTop(std::clamp(box.top(), 0.0, std::max(0.0, window.bottom() - box.height())));
    QColor ground = ToQColor(drawing::Ground(Theme()));
    painter.fillRect(box, ground);
    painter.drawText(box, Qt::AlignCenter, text);
}

void SceneView::PaintMeasure(QPainter& painter) {
    QColor color = Theme() == drawing::Theme::Dark ? QColor(124, 220, 255) : QColor(0, 100, 170);
    painter.setPen(QPen(color, 1.5));
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_measured.empty()) return PaintLabel(painter, QPointF(width() / 2.0, 16), "Click the first point");
    const Point start = m_measured[0];
    const Point end = m_measured.size() > 1 ? m_measured[1] : m_pointer ? Snapped(*m_pointer) : start;
    constexpr double kDot = 3;
    painter.drawLine(ToWidget(start), ToWidget(end));
    for (const Point point : {start, end}) painter.drawEllipse(ToWidget(point), kDot, kDot);
    const Point way = end - start;
    PaintLabel(
        painter, (ToWidget(start) + ToWidget(end)) / 2 + QPointF(0, -16),
        LengthText(drawing::Distance(start, end)) + "   X " + Number(way.x, 4) + "   Y " + Number(way.y, 4));
}

void SceneView::resizeEvent(QResizeEvent* event) {
    if (m_fitted) return Fit();
    const QSizeF by = QSizeF(event->size() - event->oldSize()) * devicePixelRatioF() / 2;
    m_origin += QPointF(by.width(), by.height());
    Repaint();
}

void SceneView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) Repaint();
    QWidget::changeEvent(event);
}

void SceneView::wheelEvent(QWheelEvent* event) {
    constexpr double kNotch = 120;
    const double notches = std::clamp(event->angleDelta().y() / kNotch, -10.0, 10.0);
    if (notches != 0) Zoom(std::pow(kZoomStep, notches), event->position());
    event->accept();
}

void SceneView::mousePressEvent(QMouseEvent* event) {
    m_pressed = m_dragged = event->position();
    if (event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && m_space))
        m_drag = Drag::Move;
    else if (event->button() == Qt::LeftButton)
        m_drag = Drag::Click;
    ShowCursor();
}

void SceneView::mouseMoveEvent(QMouseEvent* event) {
    m_pointer = event->position();
    if (m_drag == Drag::Move) {
        const QPoint by = ((event->position() - m_dragged) * devicePixelRatioF()).toPoint();
        m_dragged += QPointF(by) / devicePixelRatioF();
        m_fitted = false;
        Move(by);
    }
    if (onPointer && m_scene) onPointer(ToScene(event->position()));
    if (m_measuring) update();
}

void SceneView::mouseReleaseEvent(QMouseEvent* event) {
    const Drag drag = m_drag;
    m_drag = Drag::No;
    ShowCursor();
    const QPointF way = event->position() - m_pressed;
    if (drag != Drag::Click || event->button() != Qt::LeftButton || !m_scene ||
        std::hypot(way.x(), way.y()) > kNear)
        return;
    if (!m_measuring) return Pick(event->position());
    if (m_measured.size() > 1) m_measured.clear();
    m_measured.push_back(Snapped(event->position()));
    update();
}

void SceneView::leaveEvent(QEvent*) {
    m_pointer.reset();
    if (onPointer) onPointer(std::nullopt);
    update();
}

void SceneView::keyPressEvent(QKeyEvent* event) {
    constexpr int kStep = 60;  // pixels
    const int step = static_cast<int>(kStep * devicePixelRatioF());
    const QPointF middle = QRectF(rect()).center();
    const auto move = [this](QPoint by) {
        m_fitted = false;
        Move(by);
    };
    switch (event->key()) {
        case Qt::Key_F:
            return Fit();
        case Qt::Key_D:
            return Measure(!m_measuring);
        case Qt::Key_Escape:
            if (!m_measuring) break;
            return Measure(false);
        case Qt::Key_Space:
            m_space = true;
            return ShowCursor();
        case Qt::Key_Plus:
            return Zoom(kZoomStep, middle);
        case Qt::Key_Minus:
            return Zoom(1 / kZoomStep, middle);
        case Qt::Key_Left:
            return move({step, 0});
        case Qt::Key_Right:
            return move({-step, 0});
        case Qt::Key_Up:
            return move({0, step});
        case Qt::Key_Down:
            return move({0, -step});
        default:
            break;
    }
    QWidget::keyPressEvent(event);
}

void SceneView::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space || event->isAutoRepeat()) return QWidget::keyReleaseEvent(event);
    m_space = false;
    ShowCursor();
}

void SceneView::focusOutEvent(QFocusEvent* event) {
    m_space = false;
    ShowCursor();
    QWidget::focusOutEvent(event);
}

void SceneView::ShowCursor() {
    setCursor(m_drag == Drag::Move ? Qt::ClosedHandCursor
              : m_space            ? Qt::OpenHandCursor
              : m_measuring        ? Qt::CrossCursor
                                   : Qt::ArrowCursor);
}

void SceneView::Measure(bool on) {
    m_measuring = on;
    m_measured.clear();
    ShowCursor();
    if (onMeasuring) onMeasuring(on);
    update();
}

std::optional<double> SceneView::Distance() const {
    if (m_measured.size() < 2) return std::nullopt;
    return drawing::Distance(m_measured[0], m_measured[1]);
}

Point SceneView::Snapped(QPointF point) const {
    const Point at = ToScene(point);
    if (!m_scene) return at;
    Point best = at;
    double within = kSnap / PixelsPerMillimetre();
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        const Shape& shape = m_scene->Shapes()[i];
        if (!m_boxes[i].Grown(within).Contains(at) || !IsShown(m_scene->Layers()[shape.layer])) continue;
        ForEachPoint(*m_scene, shape, [&](Point candidate) {
            const double distance = drawing::Distance(at, candidate);
            if (distance >= within) return;
            within = distance;
            best = candidate;
        });
    }
    return best;
}

void SceneView::Pick(QPointF point) {
    const std::optional<std::size_t> hit =
        m_scene->ShapeAt(ToScene(point), kNear / PixelsPerMillimetre(),
                         [this](const drawing::Layer& layer) { return IsShown(layer); });
    if (onPick) onPick(hit ? m_scene->Shapes()[*hit].source : drawing::Source());
}

}  // namespace host
