#pragma once

#include <QPainter>

#include "drawing/Sheet.h"

namespace host {

/// How a scene is painted. The painter's coordinates are millimetres; Y points down.
struct PaintOptions {
    drawing::Theme theme = drawing::Theme::Dark;
    /// Which layers are painted, by their index; all that are shown where it is empty.
    std::vector<bool> layers;
};

/// Paints the layers of a scene that are seen from a side. `frame` says where the scene is.
void PaintScene(QPainter& painter, const drawing::Scene& scene, drawing::Side from,
                const drawing::Frame& frame, const PaintOptions& options);

/// How one shape is painted.
struct ShapeLook {
    QColor color;
    QColor ground;                         ///< what a hole is filled with
    double thinnest = drawing::kHairline;  ///< no line is thinner, in millimetres
};

/// Paints one shape, for example a selected one.
void PaintShape(QPainter& painter, const drawing::Scene& scene, const drawing::Shape& shape,
                const drawing::Frame& frame, const ShapeLook& look);

/// The colour of the shapes of a layer, with its opacity.
QColor ShapeColor(const drawing::Layer& layer, drawing::Theme theme);

/// Paints a whole sheet with its grounds and its titles.
void PaintSheet(QPainter& painter, const drawing::Sheet& sheet);

/// A sheet as an image. Its longer side has at most `longest` pixels.
QImage ImageOf(const drawing::Sheet& sheet, int longest);

QColor ToQColor(drawing::Color color);

}  // namespace host
