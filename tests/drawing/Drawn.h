#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "drawing/Drawing.h"
#include "drawing/Objects.h"
#include "inspect/Description.h"
#include "model/objects/Objects.h"
#include "platform/Utf8.h"
#include "support/Parsing.h"

namespace test {

using namespace drawing;

/// Objects drawn by themselves.
inline Scene Draw(const std::string& objects, const Place& place = {}) {
    const auto array = Parse(&CVEK_AsciiParser::ObjectsParser, "(X " + objects + ")");
    CVEKA_FontArray none;
    const Fonts fonts(none);
    SceneBuilder builder("test");
    builder.pen.layer = builder.Layer("layer", Role::Copper, Side::Top, 0);
    builder.pen.role = Role::Copper;
    ObjectDrawer(builder, fonts).Draw(*array, place);
    return builder.Finish();
}

/// The only shape of a scene, in its form.
template <class Form>
const Form& One(const Scene& scene) {
    if (scene.Shapes().size() != 1)
        throw std::logic_error(std::to_string(scene.Shapes().size()) + " shapes and not one");
    return std::get<Form>(scene.Shapes()[0].form);
}

/// The points of one contour of the only shape.
inline std::vector<Point> Points(const Scene& scene, size_t contour = 0) {
    std::vector<Point> points;
    for (const Vertex& vertex : scene.Vertices(scene.Contours(One<Polygon>(scene))[contour]))
        points.push_back(vertex.point);
    return points;
}

inline void ExpectPoint(Point point, double x, double y) {
    EXPECT_NEAR(point.x, x, 1e-9);
    EXPECT_NEAR(point.y, y, 1e-9);
}

inline void ExpectBox(const Box& box, double left, double bottom, double right, double top) {
    EXPECT_NEAR(box.left, left, 1e-9);
    EXPECT_NEAR(box.bottom, bottom, 1e-9);
    EXPECT_NEAR(box.right, right, 1e-9);
    EXPECT_NEAR(box.top, top, 1e-9);
}

/// The shapes of a scene that have a role.
inline std::vector<const Shape*> WithRole(const Scene& scene, Role role) {
    std::vector<const Shape*> found;
    for (const Shape& shape : scene.Shapes())
        if (shape.role == role) found.push_back(&shape);
    return found;
}

/// The texts of a scene that have a role, in their order.
inline std::vector<std::string> Texts(const Scene& scene, Role role) {
    std::vector<std::string> texts;
    for (const Shape* shape : WithRole(scene, role))
        if (const auto* text = std::get_if<Text>(&shape->form)) texts.push_back(scene.String(*text));
    return texts;
}

/// Calls `check` with each of the real parts beside the project and the path of its file.
template <class Check>
void ForEachRealPart(Check check) {
    for (const auto& path : CorpusFiles()) {
        SCOPED_TRACE(path.filename());
        CVEK_AsciiParser parser;
        parser.SetVEKAsciiFilePath(veka::FromPath(path));
        parser.Parser();
        check(Part(*parser.GetCVEKA_Manager()), path);
    }
}

}  // namespace test
