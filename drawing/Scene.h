#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <typeinfo>
#include <variant>
#include <vector>

#include "drawing/Palette.h"
#include "drawing/Plane.h"

/// Drawings of records. A scene is a list of shapes in millimetres. Each shape has a role, a layer and the
/// record that it shows. A scene keeps no record alive: its sources are valid as long as the model is.

namespace drawing {

/// A record that a shape shows: its address and its class.
struct Source {
    const void* record = nullptr;
    const std::type_info* type = nullptr;

    /// The source of a record, by the class that the record really has.
    template <class Record>
    static Source Of(const Record& record) {
        return {dynamic_cast<const void*>(&record), &typeid(record)};
    }
    explicit operator bool() const { return record != nullptr; }
    bool operator==(const Source& other) const {
        return record == other.record && (type == other.type || (type && other.type && *type == *other.type));
    }
};

// The kinds of shapes. A width is that of the pen; 0 is the thinnest line that can be seen.

/// A straight line with round ends.
struct Line {
    Point start, end;
    double width = 0;
};

/// An arc with round ends. The angles are in degrees; `sweep` is above 0 counter-clockwise.
struct Arc {
    Point center;
    double radius = 0, start = 0, sweep = 0, width = 0;
};

/// A circle, or a disc.
struct Circle {
    Point center;
    double radius = 0, width = 0;
    bool filled = false;
};

/// One closed outline of a polygon, among the vertices of the scene.
struct Contour {
    std::uint32_t first = 0, count = 0;
};

/// An area between its outlines, by the even-odd rule: an outline inside of another one is a hole. A filled
/// polygon with a width has a line of that width around it.
struct Polygon {
    std::uint32_t first = 0, count = 0;  ///< its contours among those of the scene
    double width = 0;
    bool filled = false;
};

/// Where the point of a text is: at its left end, its middle or its right end.
enum class Align : std::uint8_t { Left, Middle, Right };
/// At its lower edge, its middle or its upper edge.
enum class Lift : std::uint8_t { Bottom, Middle, Top };

/// A text, in bytes as the file has them.
struct Text {
    Point at;
    double height = 0;       ///< of a capital letter
    double rotation = 0;     ///< degrees
    std::uint32_t text = 0;  ///< among the texts of the scene
    Align align = Align::Left;
    Lift lift = Lift::Bottom;
    bool mirrored = false;
};

/// One shape of a scene.
struct Shape {
    std::variant<Line, Arc, Circle, Polygon, Text> form;
    std::uint32_t layer = 0;  ///< among the layers of the scene
    Role role = Role::Other;
    Source source;      ///< the record that stands at this place: a pin, a drawn object
    Source definition;  ///< what the record looks like, if that is another record: an object of a pad
};

/// Shapes that are shown or hidden together.
struct Layer {
    std::string name;
    Role role = Role::Other;
    Side side = Side::Both;
    std::optional<Color> color;  ///< the colour that the part gives to the layer
    bool shown = true;           ///< whether the layer is shown unless the user says otherwise

    /// True if the layer is seen from a side of the board. `Both` sees every layer.
    bool SeenFrom(Side from) const { return from == Side::Both || side == Side::Both || side == from; }
    /// The colour on the ground of a theme.
    Color ColorOn(Theme theme) const { return color ? Readable(*color, theme) : ColorOf(role, side, theme); }
};

/// The thinnest line that is drawn, in millimetres.
inline constexpr double kHairline = 0.03;

/// A list of shapes with their layers.
class Scene {
public:
    /// What the scene shows, in a few words.
    const std::string& Title() const { return m_title; }
    /// The layers that have shapes. Later ones cover earlier ones.
    const std::vector<Layer>& Layers() const { return m_layers; }
    /// The shapes, in the order of the layers.
    const std::vector<Shape>& Shapes() const { return m_shapes; }
    /// What could not be drawn, one sentence each.
    const std::vector<std::string>& Remarks() const { return m_remarks; }
    bool IsEmpty() const { return m_shapes.empty(); }

    std::span<const Contour> Contours(const Polygon& polygon) const {
        return {m_contours.data() + polygon.first, polygon.count};
    }
    std::span<const Vertex> Vertices(const Contour& contour) const {
        return {m_vertices.data() + contour.first, contour.count};
    }
    /// The bytes of a text.
    const std::string& String(const Text& text) const { return m_texts[text.text]; }

    /// The box of all shapes of the layers that are seen from a side and shown. The width of a text is an
    /// estimate.
    Box Bounds(Side from = Side::Both, bool hiddenToo = true) const;
    Box Bounds(const Shape& shape) const;
    /// The distance of a point from a shape; 0 inside of it.
    double Distance(const Shape& shape, Point point) const;
    /// The uppermost shape within a distance of a point, by its index. `counts` says which layers count.
    std::optional<std::size_t> ShapeAt(Point point, double within,
                                       const std::function<bool(const Layer&)>& counts) const;
    /// The shapes whose source or definition is a record.
    std::vector<std::size_t> ShapesOf(const Source& record) const;

private:
    friend class SceneBuilder;

    std::string m_title;
    std::vector<Layer> m_layers;
    std::vector<Shape> m_shapes;
    std::vector<Contour> m_contours;
    std::vector<Vertex> m_vertices;
    std::vector<std::string> m_texts;
    std::vector<std::string> m_remarks;
};

/// The corners of the box around a text, before it is turned: its lower left corner, seen from its point, and
/// its size. The width is an estimate, because it depends on the font.
struct TextBox {
    Point corner;
    double width = 0, height = 0;
};
TextBox MeasureText(const Text& text, const std::string& bytes);
/// The lines of a text.
std::vector<std::string_view> LinesOf(std::string_view text);
/// From one line of a text to the next one, as a multiple of the height of a capital letter.
inline constexpr double kLineStep = 1.6;
/// The size of a font whose capital letters have the height 1.
inline constexpr double kFontSize = 1.4;

}  // namespace drawing
