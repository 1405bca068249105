#include "drawing/Svg.h"

#include <array>
#include <charconv>
#include <cmath>

#include "drawing/Characters.h"
#include "platform/Utf8.h"

namespace drawing {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// A number with up to four digits behind the point.
std::string Number(double value) {
    std::array<char, 40> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 4).ptr;
    std::string_view digits(text.data(), static_cast<size_t>(end - text.data()));
    while (digits.back() == '0') digits.remove_suffix(1);
    if (digits.back() == '.') digits.remove_suffix(1);
    return digits == "-0" ? "0" : std::string(digits);
}

std::string Pair(Point point) {
    return Number(point.x) + ' ' + Number(point.y);
}

class Writer {
public:
    Writer(const Sheet& sheet, std::size_t mostBytes) : m_sheet(sheet), m_mostBytes(mostBytes) {}

    std::string Write() {
        const std::string width = Number(m_sheet.Width()), height = Number(m_sheet.Height());
        Append(
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
            "version=\"1.1\" "
            "width=\"" +
            width + "mm\" height=\"" + height + "mm\" viewBox=\"0 0 " + width + ' ' + height + "\">\n");
        std::string title;
        for (const View& view : m_sheet.Views())
            title += (title.empty() ? "" : ", ") + (title.size() < 1000 ? view.scene.Title() : "");
        Append("<title>" + XmlText(title) + "</title>\n");
        PutGround(0, 0, m_sheet.Width(), m_sheet.Height(), m_sheet.GroundTheme());
        for (size_t i = 0; i < m_sheet.Views().size(); ++i) PutView(i);
        Append("</svg>\n");
        return std::move(m_out);
    }

private:
    void Append(std::string_view text) {
        m_out += text;
        if (m_out.size() > m_mostBytes)
            throw TooLarge("the picture would have more than " + std::to_string(m_mostBytes) + " bytes");
    }
    void PutGround(double x, double y, double width, double height, Theme theme) {
        Append("<rect x=\"" + Number(x) + "\" y=\"" + Number(y) + "\" width=\"" + Number(width) +
               "\" height=\"" + Number(height) + "\" fill=\"" + HtmlColor(Ground(theme)) + "\"/>\n");
    }

    void PutView(size_t index) {
        const View& view = m_sheet.Views()[index];
        m_view = &view;
        m_frame = &m_sheet.Frames()[index];
        const std::string id = "view" + std::to_string(index + 1);
        Append("<g id=\"" + id + "\">\n<title>" + XmlText(view.scene.Title()) + "</title>\n");
        if (m_sheet.Views().size() > 1) {
            const double size = m_frame->titleHeight;
            PutGround(m_frame->left, m_frame->top, m_frame->width, m_frame->height, view.theme);
            Append("<text x=\"" + Number(m_frame->left) + "\" y=\"" + Number(m_frame->top - size * 0.7) +
                   "\" font-family=\"sans-serif\" font-size=\"" + Number(size * kFontSize) + "\" fill=\"" +
                   HtmlColor(Ink(m_sheet.GroundTheme())) + "\">" + XmlText(view.scene.Title()) + "</text>\n");
        }
        const std::vector<Shape>& shapes = view.scene.Shapes();
        for (size_t first = 0; first < shapes.size();) {
            size_t end = first;
            while (end < shapes.size() && shapes[end].layer == shapes[first].layer) ++end;
            const Layer& layer = view.scene.Layers()[shapes[first].layer];
            if (layer.shown && layer.SeenFrom(view.from))
                PutLayer(layer, id + "-layer" + std::to_string(shapes[first].layer + 1), first, end);
            first = end;
        }
        Append("</g>\n");
    }

    void PutLayer(const Layer& layer, const std::string& id, size_t first, size_t end) {
        const std::string color = HtmlColor(layer.ColorOn(m_view->theme));
        const double opacity = OpacityOf(layer.role);
        Append("<g id=\"" + id + '"' + (opacity < 1 ? " opacity=\"" + Number(opacity) + '"' : "") +
               ">\n<title>" + XmlText(layer.name) + "</title>\n");
        const bool hollow = IsHollow(layer.role);
        PutKind(first, end, Kind::Area,
                hollow ? "fill=\"" + HtmlColor(Ground(m_view->theme)) + "\" stroke=\"" + color +
                             "\" stroke-width=\"" + Number(kHairline * 2) + '"'
                       : "fill=\"" + color + '"');
        PutKind(first, end, Kind::RoundedArea,
                "fill=\"" + color + "\" stroke=\"" + color + "\" stroke-linejoin=\"round\"");
        PutKind(first, end, Kind::Stroke,
                "fill=\"none\" stroke=\"" + color + "\" stroke-linecap=\"round\" stroke-linejoin=\"round\"");
        PutKind(first, end, Kind::Text, "fill=\"" + color + "\" font-family=\"sans-serif\"");
        Append("</g>\n");
    }

    // Shapes that are written with the same attributes.
    enum class Kind { Area, RoundedArea, Stroke, Text };
    static Kind KindOf(const Shape& shape) {
        if (std::holds_alternative<drawing::Text>(shape.form)) return Kind::Text;
        if (const auto* circle = std::get_if<Circle>(&shape.form))
            return !circle->filled ? Kind::Stroke : circle->width > 0 ? Kind::RoundedArea : Kind::Area;
        if (const auto* polygon = std::get_if<Polygon>(&shape.form))
            return !polygon->filled ? Kind::Stroke : polygon->width > 0 ? Kind::RoundedArea : Kind::Area;
        return Kind::Stroke;
    }
    void PutKind(size_t first, size_t end, Kind kind, const std::string& attributes) {
        bool open = false;
        for (size_t i = first; i < end; ++i) {
            const Shape& shape = m_view->scene.Shapes()[i];
            if (KindOf(shape) != kind) continue;
            if (!open) Append("<g " + attributes + ">\n");
            open = true;
            m_shape = &shape;
            std::visit([this](const auto& form) { PutForm(form); }, shape.form);
        }
        if (open) Append("</g>\n");
    }

    std::string StrokeOf(double width, bool filled) const {
        if (filled && !(width > 0)) return "";
        return " stroke-width=\"" + Number(std::max(width, kHairline)) + '"';
    }
    void PutForm(const Line& line) {
        Append("<path d=\"M" + Pair((*m_frame)(line.start)) + 'L' + Pair((*m_frame)(line.end)) + '"' +
               StrokeOf(line.width, false) + "/>\n");
    }
    void PutForm(const Arc& arc) {
        std::vector<Vertex> way;
        AppendArc(way, arc.center, arc.radius, {arc.start, arc.sweep});
        std::string path = 'M' + Pair((*m_frame)(way[0].point));
        for (size_t i = 0; i < way.size(); ++i)
            path +=
                Way(way[i], i + 1 < way.size() ? way[i + 1].point
                                               : arc.center + Direction(arc.start + arc.sweep) * arc.radius);
        Append("<path d=\"" + path + '"' + StrokeOf(arc.width, false) + "/>\n");
    }
    void PutForm(const Circle& circle) {
        const Point center = (*m_frame)(circle.center);
        Append("<circle cx=\"" + Number(center.x) + "\" cy=\"" + Number(center.y) + "\" r=\"" +
               Number(circle.radius) + '"' + StrokeOf(circle.width, circle.filled) + "/>\n");
    }
    void PutForm(const Polygon& polygon) {
        Append("<path d=\"");
        for (const Contour& contour : m_view->scene.Contours(polygon)) {
            const std::span<const Vertex> vertices = m_view->scene.Vertices(contour);
            Append('M' + Pair((*m_frame)(vertices[0].point)));
            for (size_t i = 0; i < vertices.size(); ++i) {
                const bool last = i + 1 == vertices.size();
                if (last && vertices[i].bulge == 0) break;  // the last straight way closes by itself
                Append(Way(vertices[i], vertices[last ? 0 : i + 1].point));
            }
            Append("z");
        }
        Append((polygon.count > 1 ? "\" fill-rule=\"evenodd\"" : "\"") +
               StrokeOf(polygon.width, polygon.filled) + "/>\n");
    }
    /// The way from a corner to the next one.
    std::string Way(const Vertex& from, Point to) const {
        const Point end = (*m_frame)(to);
        if (from.bulge == 0) return 'L' + Pair(end);
        const std::string radius = Number(ArcOf(from, to).radius);
        // On a sheet, where Y points down, counter-clockwise is the negative direction.
        const bool positive = (from.bulge > 0) == m_frame->mirrored;
        return 'A' + radius + ' ' + radius + " 0 " + (std::fabs(from.bulge) > 1 + 1e-9 ? "1 " : "0 ") +
               (positive ? "1 " : "0 ") + Pair(end);
    }
    void PutForm(const drawing::Text& form) {
        const drawing::Text text = m_frame->Seen(form, m_shape->role);
        const Point at = (*m_frame)(form.at);
        const std::vector<std::string_view> lines = LinesOf(m_view->scene.String(form));
        const TextBox box = MeasureText(text, m_view->scene.String(form));
        std::string common = " font-size=\"" + Number(text.height * kFontSize) + '"';
        if (text.align != Align::Left)
            common += text.align == Align::Middle ? " text-anchor=\"middle\"" : " text-anchor=\"end\"";
        const bool turned = text.rotation != 0 || text.mirrored;
        if (turned) {
            common += " transform=\"translate(" + Pair(at) + ')';
            if (text.rotation != 0) common += "rotate(" + Number(-text.rotation) + ')';
            if (text.mirrored) common += "scale(-1 1)";
            common += '"';
        }
        for (size_t i = 0; i < lines.size(); ++i) {
            if (lines[i].empty()) continue;
            // The base of a line: the first line is the uppermost one.
            const double base =
                box.corner.y + box.height - (1 + static_cast<double>(i) * kLineStep) * text.height;
            Append("<text x=\"" + Number(turned ? 0 : at.x) + "\" y=\"" + Number((turned ? 0 : at.y) - base) +
                   '"' + common + '>' + XmlText(lines[i]) + "</text>\n");
        }
    }

    const Sheet& m_sheet;
    const std::size_t m_mostBytes;
    const View* m_view = nullptr;
    const Frame* m_frame = nullptr;
    const Shape* m_shape = nullptr;
    std::string m_out;
};

}  // namespace

std::string XmlText(std::string_view bytes) {
    const std::string utf8 = ToUtf8(bytes);
    std::string_view rest = utf8;
    std::string text;
    while (!rest.empty()) {
        const auto byte = static_cast<unsigned char>(rest[0]);
        const std::string_view character = rest.substr(0, veka::Utf8Length(rest));
        rest.remove_prefix(character.size());
        if (byte == '&')
            text += "&amp;";
        else if (byte == '<')
            text += "&lt;";
        else if (byte == '>')
            text += "&gt;";
        else if (byte == '"')
            text += "&quot;";
        else if (byte < 0x20 || byte == 0x7F)
            text += byte == '\t' || byte == '\n' ? " " : kReplacement;
        else if (character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF" ||
                 (byte == 0xC2 && character[1] < '\xA0'))
            text += kReplacement;
        else
            text += character;
    }
    return text;
}

std::string WriteSvg(const Sheet& sheet, std::size_t mostBytes) {
    return Writer(sheet, mostBytes).Write();
}

std::string WriteSvg(Scene scene, Side from, Theme theme) {
    std::vector<View> views;
    views.push_back({std::move(scene), from, theme});
    return WriteSvg(Sheet(std::move(views)));
}

}  // namespace drawing
