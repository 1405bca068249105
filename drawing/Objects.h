#pragma once

#include <map>

#include "drawing/SceneBuilder.h"
#include "model/CVEKA_Manager.h"
#include "model/objects/CVEKA_3DObjectArray.h"

namespace drawing {

/// The fonts of a part by their numbers.
class Fonts {
public:
    explicit Fonts(const CVEKA_FontArray& fonts);
    /// The height of a capital letter in the unit of the part. A font that is not there counts as a new font.
    double Height(int font) const;
    /// The font of a number, or null.
    const CVEKA_Font* Find(int font) const;

private:
    std::map<int, const CVEKA_Font*> m_fonts;
};

/// Draws objects into a scene, with the builder's pen. Where the pen has no source, each object is its own
/// source; where it has one, each object is a definition.
class ObjectDrawer {
public:
    ObjectDrawer(SceneBuilder& scene, const Fonts& fonts) : m_scene(scene), m_fonts(fonts) {}

    /// Draws all objects of an array at a place. Null objects are passed over.
    void Draw(const CVEKA_3DObjectArray& objects, const Place& place);
    /// Draws one object, with the pen as it is.
    void Draw(const CVEKA_3DObject& object, const Place& place);

private:
    friend struct ObjectCases;

    void DrawOne(const CVEKA_3DObject& object, const Place& place);

    SceneBuilder& m_scene;
    const Fonts& m_fonts;
    int m_depth = 0;
};

/// The closed outlines that objects have: of lines and arcs that follow each other, of circles and of
/// rectangles. Other objects have none.
std::vector<std::vector<Vertex>> OutlinesOf(const CVEKA_3DObjectArray& objects);

/// Where the point of a text is, by the number that a file gives. The numbers 1 to 9 are lower left, middle
/// left, upper left, lower middle and so on up to upper right. Any other number means lower left.
struct Justification {
    Align align = Align::Left;
    Lift lift = Lift::Bottom;
};
Justification JustificationOf(int number);

}  // namespace drawing
