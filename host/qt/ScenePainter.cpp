#include "host/qt/ScenePainter.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "qt/Text.h"

namespace host {

namespace {

using drawing::Frame;
using drawing::Point;
using drawing::Scene;
using drawing::Shape;

// Fonts have whole sizes, so texts are painted large and scaled down.
constexpr double kFontPixels = 100;

QPointF ToPoint(const Frame& frame, Point point) {
    const Point at = frame(point);
    return {at.x, at.y};
}

/// Adds the way from a corner to the next one to a path.
void AddWay(QPainterPath& path, const Frame& frame, const drawing::Vertex& from, Point to) {
    if (from.bulge == 0) {
        path.lineTo(ToPoint(frame, to));
        return;
    }
    const drawing::Arc2 arc = drawing::ArcOf(from, to);
    const QPointF center = ToPoint(frame, arc.center);
    const QRectF box(center.x() - arc.radius, center.y() - arc.radius, 2 * arc.radius, 2 * arc.radius);
    // Qt counts angles as a scene does, from the right and counter-clockwise.
    const double start = frame.mirrored ? 180 - arc.angles.start : arc.angles.start;
    path.arcTo(box, start, frame.mirrored ? -arc.angles.sweep : arc.angles.sweep);
}

class ShapePainter {
public:
    ShapePainter(QPainter& painter, const Scene& scene, const Frame& frame, const ShapeLook& look)
        : m_painter(painter), m_scene(scene), m_frame(frame), m_look(look) {}

    void Paint(const Shape& shape) {
        m_shape = &shape;
        std::visit([this](const auto& form) { Paint(form); }, shape.form);
    }

private:
    QPen PenOf(double width) const {
        return QPen(m_look.color, std::max(width, m_look.thinnest), Qt::SolidLine, Qt::RoundCap,
                    Qt::RoundJoin);
    }
    /// The pen and the brush of an area.
    void SetArea(double width, bool filled) {
        const bool hollow = filled && drawing::IsHollow(m_shape->role);
        m_painter.setPen(hollow                   ? PenOf(drawing::kHairline * 2)
                         : filled && !(width > 0) ? QPen(Qt::NoPen)
                                                  : PenOf(width));
        m_painter.setBrush(!filled ? QBrush(Qt::NoBrush) : QBrush(hollow ? m_look.ground : m_look.color));
    }
    void Paint(const drawing::Line& line) {
        m_painter.setPen(PenOf(line.width));
        const QPointF start = ToPoint(m_frame, line.start), end = ToPoint(m_frame, line.end);
        if (start == end)
            m_painter.drawPoint(start);
        else
            m_painter.drawLine(start, end);
    }
    void Paint(const drawing::Arc& arc) {
        std::vector<drawing::Vertex> way;
        drawing::AppendArc(way, arc.center, arc.radius, {arc.start, arc.sweep});
        QPainterPath path(ToPoint(m_frame, way[0].point));
        for (size_t i = 0; i < way.size(); ++i)
            AddWay(path, m_frame, way[i],
                   i + 1 < way.size() ? way[i + 1].point
                                      : arc.center + drawing::Direction(arc.start + arc.sweep) * arc.radius);
        m_painter.setPen(PenOf(arc.width));
        m_painter.setBrush(Qt::NoBrush);
        m_painter.drawPath(path);
    }
    void Paint(const drawing::Circle& circle) {
        SetArea(circle.width, circle.filled);
        m_painter.drawEllipse(ToPoint(m_frame, circle.center), circle.radius, circle.radius);
    }
    void Paint(const drawing::Polygon& polygon) {
        QPainterPath path;
        path.setFillRule(Qt::OddEvenFill);
        for (const drawing::Contour& contour : m_scene.Contours(polygon)) {
            const std::span<const drawing::Vertex> vertices = m_scene.Vertices(contour);
            path.moveTo(ToPoint(m_frame, vertices[0].point));
            for (size_t i = 0; i < vertices.size(); ++i)
                AddWay(path, m_frame, vertices[i], vertices[(i + 1) % vertices.size()].point);
            path.closeSubpath();
        }
        SetArea(polygon.width, polygon.filled);
        m_painter.drawPath(path);
    }
    void Paint(const drawing::Text& form) {
        const drawing::Text text = m_frame.Seen(form, m_shape->role);
        const std::string& bytes = m_scene.String(form);
        const drawing::TextBox box = drawing::MeasureText(text, bytes);
        m_painter.save();
        m_painter.translate(ToPoint(m_frame, form.at));
        m_painter.rotate(-text.rotation);
        const double scale = text.height * drawing::kFontSize / kFontPixels;
        m_painter.scale(text.mirrored ? -scale : scale, scale);
        QFont font("sans-serif");
        font.setPixelSize(static_cast<int>(kFontPixels));
        font.setHintingPreference(QFont::PreferNoHinting);
        m_painter.setFont(font);
        m_painter.setPen(m_look.color);
        const QFontMetricsF metrics(font);
        const std::vector<std::string_view> lines = drawing::LinesOf(bytes);
        for (size_t i = 0; i < lines.size(); ++i) {
            const QString line = veka::ToQString(CString(lines[i]));
            const double width = metrics.horizontalAdvance(line);
            const double x = text.align == drawing::Align::Left     ? 0
                             : text.align == drawing::Align::Middle ? -width / 2
                                                                    : -width;
            const double base =
                box.corner.y + box.height - (1 + static_cast<double>(i) * drawing::kLineStep) * text.height;
            m_painter.drawText(QPointF(x, -base / scale), line);
        }
        m_painter.restore();
    }

    QPainter& m_painter;
    const Scene& m_scene;
    const Frame& m_frame;
    const ShapeLook& m_look;
    const Shape* m_shape = nullptr;
};

}  // namespace

QColor ToQColor(drawing::Color color) {
    return {color.red, color.green, color.blue};
}

void PaintShape(QPainter& painter, const Scene& scene, const Shape& shape, const Frame& frame,
                const ShapeLook& look) {
    ShapePainter(painter, scene, frame, look).Paint(shape);
}

QColor ShapeColor(const drawing::Layer& layer, drawing::Theme theme) {
    QColor color = ToQColor(layer.ColorOn(theme));
    color.setAlphaF(static_cast<float>(drawing::OpacityOf(layer.role)));
    return color;
}

void PaintScene(QPainter& painter, const Scene& scene, drawing::Side from, const Frame& frame,
                const PaintOptions& options) {
    const std::vector<Shape>& shapes = scene.Shapes();
    for (size_t first = 0; first < shapes.size();) {
        const size_t index = shapes[first].layer;
        size_t end = first;
        while (end < shapes.size() && shapes[end].layer == index) ++end;
        const drawing::Layer& layer = scene.Layers()[index];
        const bool painted =
            options.layers.empty() ? layer.shown : index < options.layers.size() && options.layers[index];
        if (painted && layer.SeenFrom(from)) {
            const ShapeLook look{ShapeColor(layer, options.theme), ToQColor(drawing::Ground(options.theme))};
            ShapePainter shapePainter(painter, scene, frame, look);
            for (size_t i = first; i < end; ++i) shapePainter.Paint(shapes[i]);
        }
        first = end;
    }
}

void PaintSheet(QPainter& painter, const drawing::Sheet& sheet) {
    painter.fillRect(QRectF(0, 0, sheet.Width(), sheet.Height()),
                     ToQColor(drawing::Ground(sheet.GroundTheme())));
    for (size_t i = 0; i < sheet.Views().size(); ++i) {
        const drawing::View& view = sheet.Views()[i];
        const Frame& frame = sheet.Frames()[i];
        painter.fillRect(QRectF(frame.left, frame.top, frame.width, frame.height),
                         ToQColor(drawing::Ground(view.theme)));
        if (frame.titleHeight > 0) {
            painter.save();
            painter.translate(frame.left, frame.top - frame.titleHeight * 0.7);
            const double scale = frame.titleHeight * drawing::kFontSize / kFontPixels;
            painter.scale(scale, scale);
            QFont font("sans-serif");
            font.setPixelSize(static_cast<int>(kFontPixels));
            painter.setFont(font);
            painter.setPen(ToQColor(drawing::Ink(sheet.GroundTheme())));
            painter.drawText(QPointF(), veka::ToQString(CString(view.scene.Title())));
            painter.restore();
        }
        PaintScene(painter, view.scene, view.from, frame, {view.theme, {}});
    }
}

QImage ImageOf(const drawing::Sheet& sheet, int longest) {
    const double scale = longest / std::max({sheet.Width(), sheet.Height(), 1e-6});
    const auto pixels = [&](double length) {
        return std::clamp(static_cast<int>(std::ceil(length * scale)), 1, longest);
    };
    QImage image(pixels(sheet.Width()), pixels(sheet.Height()), QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    PaintSheet(painter, sheet);
    return image;
}

}  // namespace host
