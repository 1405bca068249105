#pragma once

#include <map>
#include <stdexcept>
#include <string_view>
#include <tuple>

#include "drawing/Scene.h"

namespace drawing {

/// A part of which no drawing can be made; `what()` is one sentence.
struct DrawingError : std::runtime_error {
    using runtime_error::runtime_error;
};

/// A scene that takes more memory than a drawing may.
struct TooLarge : DrawingError {
    using DrawingError::DrawingError;
};

/// The most shapes and corners that a scene may have.
inline constexpr std::size_t kMostPieces = 4'000'000;
/// The most bytes of a text that a scene takes over.
inline constexpr std::size_t kLongestText = 400;
/// Coordinates and sizes beyond this many millimetres are not drawn.
inline constexpr double kLargest = 1e6;

/// Makes a scene, shape by shape. What has no size or no place that can be drawn is left out and counted.
/// Raises `TooLarge`.
class SceneBuilder {
public:
    explicit SceneBuilder(std::string_view title);

    /// The layer of a name, a role and a side, by its index. A new one is put above the layers whose rank is
    /// not higher.
    std::uint32_t Layer(const std::string& name, Role role, Side side, int rank,
                        std::optional<Color> color = {}, bool shown = true);
    const drawing::Layer& LayerAt(std::uint32_t layer) const { return m_layers[layer].layer; }
    int RankOfLayer(std::uint32_t layer) const { return m_layers[layer].rank; }

    /// Where the next shapes go and what they show.
    struct Pen {
        std::uint32_t layer = 0;
        Role role = Role::Other;
        Source source, definition;
    };
    Pen pen;

    void AddLine(const Place& place, Point start, Point end, double width);
    void AddArc(const Place& place, Point center, double radius, const ArcAngles& angles, double width);
    void AddCircle(const Place& place, Point center, double radius, double width, bool filled);
    /// Outlines of fewer than two corners are left out.
    void AddPolygon(const Place& place, const std::vector<std::vector<Vertex>>& outlines, double width,
                    bool filled);
    /// A text of some bytes; `rotation` in degrees. A long text is cut.
    void AddText(const Place& place, Point at, double height, double rotation, std::string_view text,
                 Align align, Lift lift, bool mirrored = false);
    /// A small cross with a name, in place of a record that is missing.
    void AddCross(const Place& place, Point at, double size, std::string_view name);

    /// Counts something that could not be drawn.
    void LeaveOut() {
        CountPieces(1);
        ++m_leftOut;
    }
    /// Counts pieces that are looked at, drawn or not. Raises `TooLarge` when there are too many.
    void CountPieces(std::size_t pieces);
    /// Says something about the whole drawing, once.
    void Remark(const std::string& sentence);
    /// How many shapes there are.
    std::size_t Count() const { return m_scene.m_shapes.size(); }
    /// The box of the shapes from the given one on.
    Box BoundsFrom(std::size_t first) const;

    /// Moves the shapes from the given one on.
    void MoveFrom(std::size_t first, Point by);

    /// The scene, with the layers that have shapes.
    Scene Finish();

private:
    struct RankedLayer {
        drawing::Layer layer;
        int rank = 0;
    };

    void Add(const std::variant<Line, Arc, Circle, Polygon, Text>& form);

    Scene m_scene;
    std::vector<RankedLayer> m_layers;
    std::map<std::tuple<std::string, Role, Side>, std::size_t> m_layerOf;
    std::size_t m_pieces = 0, m_leftOut = 0;
};

}  // namespace drawing
