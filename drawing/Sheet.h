#pragma once

#include "drawing/Scene.h"

namespace drawing {

/// A scene as it is seen.
struct View {
    Scene scene;
    Side from =
        Side::Both;  ///< `Top` and `Bottom` show the layers of that side; from `Bottom` it is mirrored
    Theme theme = Theme::Dark;
};

/// Where a scene is on a sheet. Sheets are measured in millimetres from their upper left corner; Y points
/// down.
struct Frame {
    double left = 0, top = 0, width = 0, height = 0;  ///< the ground behind the scene
    double x = 0, y = 0;                              ///< the place of the scene's origin
    bool mirrored = false;                            ///< whether left and right are exchanged
    double titleHeight = 0;                           ///< of a letter; 0 where no title is shown

    Point operator()(Point point) const { return {mirrored ? x - point.x : x + point.x, y - point.y}; }
    /// A text as it is seen. A name stays readable on a mirrored scene. The place is still that of the scene.
    Text Seen(const Text& text, Role role) const;
};

/// Scenes side by side at their real size. A single scene has no title.
class Sheet {
public:
    /// Scenes in which nothing is seen are left out.
    explicit Sheet(std::vector<View> views);

    const std::vector<View>& Views() const { return m_views; }
    const std::vector<Frame>& Frames() const { return m_frames; }
    double Width() const { return m_width; }
    double Height() const { return m_height; }
    bool IsEmpty() const { return m_views.empty(); }
    /// The ground between the scenes.
    Theme GroundTheme() const;

private:
    std::vector<View> m_views;
    std::vector<Frame> m_frames;
    double m_width = 0, m_height = 0;
};

}  // namespace drawing
