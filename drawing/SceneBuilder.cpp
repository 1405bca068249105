#include "drawing/SceneBuilder.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace drawing {

namespace {

bool Fits(double value) {
    return std::fabs(value) <= kLargest;  // false for what is no number
}

bool Fits(Point point) {
    return Fits(point.x) && Fits(point.y);
}

/// A size that something must have to be seen.
bool IsSize(double value) {
    return value > 0 && Fits(value);
}

/// A width of a pen; a width that none can have counts as 0.
double PenWidth(double width) {
    return IsSize(width) ? width : 0;
}

/// The first bytes of a long text, up to the end of a character.
std::string Cut(std::string_view text) {
    if (text.size() <= kLongestText) return std::string(text);
    size_t length = kLongestText;
    while (length > kLongestText - 4 && (text[length] & 0xC0) == 0x80) --length;
    return std::string(text.substr(0, length)) + "\xE2\x80\xA6";
}

}  // namespace

SceneBuilder::SceneBuilder(std::string_view title) {
    m_scene.m_title = Cut(title);
}

std::uint32_t SceneBuilder::Layer(const std::string& name, Role role, Side side, int rank,
                                  std::optional<Color> color, bool shown) {
    const auto [found, isNew] = m_layerOf.try_emplace({Cut(name), role, side}, m_layers.size());
    if (isNew) m_layers.push_back({{Cut(name), role, side, color, shown}, rank});
    return static_cast<std::uint32_t>(found->second);
}

void SceneBuilder::CountPieces(std::size_t pieces) {
    m_pieces += pieces;
    if (m_pieces > kMostPieces)
        throw TooLarge("the drawing has more than " + std::to_string(kMostPieces) + " shapes and corners");
}

void SceneBuilder::Add(const std::variant<Line, Arc, Circle, Polygon, Text>& form) {
    CountPieces(1);
    m_scene.m_shapes.push_back({form, pen.layer, pen.role, pen.source, pen.definition});
}

void SceneBuilder::AddLine(const Place& place, Point start, Point end, double width) {
    const Line line{place(start), place(end), PenWidth(width * place.Scale())};
    if (!Fits(line.start) || !Fits(line.end)) return LeaveOut();
    Add(line);
}

void SceneBuilder::AddArc(const Place& place, Point center, double radius, const ArcAngles& angles,
                          double width) {
    Arc arc;
    arc.center = place(center);
    arc.radius = radius * place.Scale();
    arc.sweep = place.IsMirrored() ? -angles.sweep : angles.sweep;
    arc.width = PenWidth(width * place.Scale());
    const Point start = place(center + Direction(angles.start));
    if (!Fits(arc.center) || !IsSize(arc.radius) || !Fits(arc.sweep) || !Fits(start)) return LeaveOut();
    arc.start = AngleOf(start - arc.center);
    if (std::fabs(arc.sweep) >= 360) return Add(Circle{arc.center, arc.radius, arc.width, false});
    Add(arc);
}

void SceneBuilder::AddCircle(const Place& place, Point center, double radius, double width, bool filled) {
    const double scale = place.Scale();
    const Circle circle{place(center), radius * scale, PenWidth(width * scale), filled};
    if (!Fits(circle.center) || !IsSize(circle.radius)) return LeaveOut();
    Add(circle);
}

void SceneBuilder::AddPolygon(const Place& place, const std::vector<std::vector<Vertex>>& outlines,
                              double width, bool filled) {
    const size_t contours = m_scene.m_contours.size(), vertices = m_scene.m_vertices.size();
    const auto undo = [&] {
        m_scene.m_contours.resize(contours);
        m_scene.m_vertices.resize(vertices);
        LeaveOut();
    };
    for (const std::vector<Vertex>& outline : outlines) {
        if (outline.size() < 2) continue;
        CountPieces(outline.size());
        m_scene.m_contours.push_back({static_cast<std::uint32_t>(m_scene.m_vertices.size()),
                                      static_cast<std::uint32_t>(outline.size())});
        for (const Vertex& vertex : outline) {
            m_scene.m_vertices.push_back(place.Moved(vertex));
            if (!Fits(m_scene.m_vertices.back().point) || !Fits(vertex.bulge)) return undo();
        }
    }
    if (m_scene.m_contours.size() == contours) return undo();
    Add(Polygon{static_cast<std::uint32_t>(contours),
                static_cast<std::uint32_t>(m_scene.m_contours.size() - contours),
                PenWidth(width * place.Scale()), filled});
}

void SceneBuilder::AddText(const Place& place, Point at, double height, double rotation,
                           std::string_view text, Align align, Lift lift, bool mirrored) {
    if (text.empty()) return;
    const Place whole = place * Place(at, rotation) * (mirrored ? Place::Mirrored() : Place());
    Text shape;
    shape.at = whole(Point{});
    shape.height = height * whole.Scale();
    shape.mirrored = whole.IsMirrored();
    const Point along = whole(Point{1, 0}) - shape.at;
    if (!Fits(shape.at) || !IsSize(shape.height) || !Fits(along)) return LeaveOut();
    shape.rotation = AngleOf(shape.mirrored ? along * -1 : along);
    shape.text = static_cast<std::uint32_t>(m_scene.m_texts.size());
    shape.align = align;
    shape.lift = lift;
    if (!Fits(shape.height * static_cast<double>(std::min(text.size(), kLongestText)))) return LeaveOut();
    m_scene.m_texts.push_back(Cut(text));
    Add(shape);
}

void SceneBuilder::AddCross(const Place& place, Point at, double size, std::string_view name) {
    const Pen former = pen;
    pen.layer = Layer("Missing", Role::Missing, Side::Both, 1000);
    pen.role = Role::Missing;
    const double half = size / 2;
    // Upright, whatever the rotation of what is missing.
    const Place upright{place(at)};
    AddLine(upright, {-half, -half}, {half, half}, size / 10);
    AddLine(upright, {-half, half}, {half, -half}, size / 10);
    AddText(upright, {half * 1.3, 0}, size / 2, 0, name, Align::Left, Lift::Middle);
    pen = former;
}

void SceneBuilder::Remark(const std::string& sentence) {
    std::vector<std::string>& remarks = m_scene.m_remarks;
    if (remarks.size() < 20 && std::find(remarks.begin(), remarks.end(), sentence) == remarks.end())
        remarks.push_back(Cut(sentence));
}

Box SceneBuilder::BoundsFrom(std::size_t first) const {
    Box box;
    for (size_t i = first; i < m_scene.m_shapes.size(); ++i) box.Add(m_scene.Bounds(m_scene.m_shapes[i]));
    return box;
}

void SceneBuilder::MoveFrom(std::size_t first, Point by) {
    for (size_t i = first; i < m_scene.m_shapes.size(); ++i) {
        std::visit(
            [&](auto& form) {
                using Form = std::decay_t<decltype(form)>;
                if constexpr (std::is_same_v<Form, Line>) {
                    form.start = form.start + by;
                    form.end = form.end + by;
                } else if constexpr (std::is_same_v<Form, Text>) {
                    form.at = form.at + by;
                } else if constexpr (std::is_same_v<Form, Polygon>) {
                    for (const Contour& contour : m_scene.Contours(form))
                        for (std::uint32_t v = contour.first; v < contour.first + contour.count; ++v)
                            m_scene.m_vertices[v].point = m_scene.m_vertices[v].point + by;
                } else {
                    form.center = form.center + by;
                }
            },
            m_scene.m_shapes[i].form);
    }
}

Scene SceneBuilder::Finish() {
    if (m_leftOut > 0)
        Remark(std::to_string(m_leftOut) + (m_leftOut == 1 ? " object is" : " objects are") +
               " left out: a size or a place cannot be drawn");
    // The layers in the order of their ranks, without those that have no shapes.
    std::vector<bool> used(m_layers.size());
    for (const Shape& shape : m_scene.m_shapes) used[shape.layer] = true;
    std::vector<std::uint32_t> order(m_layers.size());
    std::iota(order.begin(), order.end(), 0u);
    std::erase_if(order, [&](std::uint32_t layer) { return !used[layer]; });
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return m_layers[a].rank < m_layers[b].rank; });
    std::vector<std::uint32_t> place(m_layers.size());
    m_scene.m_layers.clear();
    for (size_t i = 0; i < order.size(); ++i) {
        place[order[i]] = static_cast<std::uint32_t>(i);
        m_scene.m_layers.push_back(m_layers[order[i]].layer);
    }
    for (Shape& shape : m_scene.m_shapes) shape.layer = place[shape.layer];
    std::stable_sort(m_scene.m_shapes.begin(), m_scene.m_shapes.end(),
                     [](const Shape& a, const Shape& b) { return a.layer < b.layer; });
    Scene scene = std::move(m_scene);
    *this = SceneBuilder("");
    return scene;
}

}  // namespace drawing
