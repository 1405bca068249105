#include "export/kicad/Footprint.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "export/kicad/BoardGraphics.h"
#include "export/kicad/Names.h"
#include "export/kicad/Outlines.h"
#include "export/kicad/PadStack.h"
#include "export/kicad/Sexpr.h"
#include "export/kicad/TextLook.h"
#include "export/kicad/Words.h"
#include "model/objects/Objects.h"

namespace kicad {

namespace {

using drawing::Place;
using drawing::Point;
using drawing::Role;
using drawing::Side;

/// What a text of a footprint shows.
enum class Shows { Text, Reference, Value };

/// A text of a footprint.
struct FootprintText {
    drawing::Text text;
    std::string bytes;
    std::string layer;
    Shows shows = Shows::Text;
    double width = 0, pen = 0;
    bool hidden = false;
};

Shows ShownBy(const CString& property) {
    const std::string name = Upper(property.View());
    if (name == "REFDES" || name == "REFERENCE") return Shows::Reference;
    if (name == "PARTNUMBER" || name == "VALUE" || name == "PARTNAME") return Shows::Value;
    return Shows::Text;
}

class FootprintWriter {
public:
    FootprintWriter(const drawing::Part& part, const CVEKA_FootprintDB& footprint, const std::string& model)
        : m_part(part), m_footprint(footprint), m_model(model), m_stacks(part, m_remarks) {}

    Exported Write() {
        const CString original = m_footprint.GetFootprintName();
        const std::string name = NameInKiCad(original.View(), kLongestFootprintName);
        if (!m_part.UnitRemark().empty()) m_remarks.Add(m_part.UnitRemark());
        ReadLayers();
        WritePads();
        std::string pads = m_pads.Take();
        m_out.Line("footprint").Text(name);
        m_out.Open("version").Word("20211014").Close();
        m_out.Open("generator").Word("veka").Close();
        m_out.Line("layer").Text("F.Cu").Close();
        WriteDescription();
        if (name != original.View()) m_out.Line("property").Text("VEKA name").Text(original.View()).Close();
        WriteAttributes();
        WriteTexts();
        for (const LayerScene& layer : m_layers)
            for (const drawing::Shape& shape : layer.scene.Shapes()) WriteShape(layer, shape);
        // The pads are lists inside of a list whose first and last lines are not wanted here.
        AppendLines(pads);
        if (!m_model.empty()) WriteModel();
        m_out.Close();
        if (m_leftOut > 0)
            m_remarks.Add(std::to_string(m_leftOut) + (m_leftOut == 1 ? " thing is" : " things are") +
                          " left out: a board of KiCad holds nothing beyond 2,000 mm");
        return {name, m_out.Take(), m_remarks.Take()};
    }

private:
    /// A drawing layer of the footprint, and its layer in KiCad.
    struct LayerScene {
        std::string layer;
        bool keepOut = false;
        drawing::Scene scene;
    };

    // -- what is drawn
    // ------------------------------------------------------------------------------------------

    void ReadLayers() {
        for (const CVEKA_CAMLayer* layer : *m_footprint.GetCAMLayers()) {
            if (!layer) continue;
            const drawing::Part::LayerLook look =
                m_part.LookOf(layer->GetArtworkLayerNo(), layer->GetLayerName());
            LayerScene read;
            read.keepOut = look.role == Role::KeepOut;
            read.layer = BoardLayer(layer->GetLayerName().View(), look.role, look.side);
            if (read.layer.empty()) {
                read.layer = "Dwgs.User";
                if (!read.keepOut)
                    m_remarks.Add("KiCad has no layer for " + QuotedName(look.name) +
                                  "; what is drawn there is on " + read.layer);
            }
            drawing::SceneBuilder scene("");
            scene.pen = {scene.Layer(read.layer, look.role, look.side, 0), look.role, {}, {}};
            // A text that is not visible has a place all the same.
            drawing::ObjectDrawer drawer(scene, m_part.fonts);
            drawer.Draw(*layer->GetCamLayerDrawObjs(), m_part.Unit());
            read.scene = scene.Finish();
            for (const std::string& remark : read.scene.Remarks()) m_remarks.Add(remark);
            for (const drawing::Shape& shape : read.scene.Shapes())
                if (const auto* text = std::get_if<drawing::Text>(&shape.form))
                    AddText(read, shape, *text, false);
            AddHiddenTexts(*layer, read.layer);
            m_layers.push_back(std::move(read));
        }
    }
    void AddHiddenTexts(const CVEKA_CAMLayer& layer, const std::string& name) {
        for (const CVEKA_3DObject* object : *layer.GetCamLayerDrawObjs()) {
            const auto* hidden = dynamic_cast<const CVEKA_3DOJ_PROPTEXT*>(object);
            if (!hidden || hidden->Visible) continue;
            CVEKA_3DOJ_PROPTEXT shown(*hidden);
            shown.Visible = true;
            drawing::SceneBuilder scene("");
            scene.pen = {
                scene.Layer(name, Role::Other, Side::Both, 0), Role::Other, drawing::Source::Of(*hidden), {}};
            drawing::ObjectDrawer(scene, m_part.fonts).Draw(shown, m_part.Unit());
            LayerScene read;
            read.layer = name;
            read.scene = scene.Finish();
            for (const drawing::Shape& shape : read.scene.Shapes())
                if (const auto* text = std::get_if<drawing::Text>(&shape.form))
                    AddText(read, shape, *text, true);
        }
    }
    void AddText(const LayerScene& layer, const drawing::Shape& shape, const drawing::Text& text,
                 bool hidden) {
        const TextLook look = LookOfText(m_part, layer.scene, shape);
        FootprintText found{text,       look.bytes, layer.layer, ShownBy(look.property),
                            look.width, look.pen,   hidden};
        if (Holds(text.at) && Holds(text.height))
            m_texts.push_back(std::move(found));
        else
            ++m_leftOut;
    }

    void WriteShape(const LayerScene& layer, const drawing::Shape& shape) {
        if (std::holds_alternative<drawing::Text>(shape.form)) return;
        const drawing::Box box = layer.scene.Bounds(shape);
        if (!Holds(Point{box.left, box.bottom}) || !Holds(Point{box.right, box.top})) {
            ++m_leftOut;
            return;
        }
        if (layer.keepOut && WriteKeepOut(layer.scene, shape)) return;
        if (IsOpening(layer, shape)) return;
        BoardGraphics(m_out, layer.scene, layer.layer).Write(AsDrawn(shape));
    }
    /// A point is a line without a length: a disc on a courtyard would be an area that the part takes.
    static drawing::Shape AsDrawn(drawing::Shape shape) {
        const auto* disc = std::get_if<drawing::Circle>(&shape.form);
        if (disc && shape.source.type && *shape.source.type == typeid(CVEKA_3DOJ_PINPOINT))
            shape.form = drawing::Line{disc->center, disc->center, 2 * disc->radius};
        return shape;
    }
    /// True for an area on a mask or in the stencil, which KiCad's footprints have as pads. It is written
    /// with them.
    static bool IsOpening(const LayerScene& layer, const drawing::Shape& shape) {
        if (layer.keepOut || !(layer.layer.ends_with(".Mask") || layer.layer.ends_with(".Paste")))
            return false;
        if (IsGroup(shape)) return true;
        const bool drawn = shape.source.type && *shape.source.type == typeid(CVEKA_3DOJ_POLYGON);
        return !drawn && ShapeOf(layer.scene, shape).has_value();
    }
    static bool IsGroup(const drawing::Shape& shape) {
        return shape.source.type && *shape.source.type == typeid(CVEKA_3DOJ_COMPOSITE);
    }

    /// An area that keeps things away, as a rule area; false for what is no area.
    bool WriteKeepOut(const drawing::Scene& scene, const drawing::Shape& shape) {
        std::vector<std::vector<Point>> outlines;
        if (const auto* circle = std::get_if<drawing::Circle>(&shape.form)) {
            std::vector<drawing::Vertex> outline = drawing::CircleOutline(circle->radius);
            for (drawing::Vertex& vertex : outline) vertex.point = vertex.point + circle->center;
            outlines.push_back(Straightened(outline));
        } else if (const auto* polygon = std::get_if<drawing::Polygon>(&shape.form)) {
            for (const drawing::Contour& contour : scene.Contours(*polygon))
                outlines.push_back(Straightened(scene.Vertices(contour)));
        } else {
            m_remarks.Add("a keep-out that is no area is drawn on Dwgs.User");
            return false;
        }
        for (const std::vector<Point>& outline : WithoutHoles(std::move(outlines))) {
            m_out.Line("zone").Open("net").Word("0").Close().Open("net_name").Text("").Close();
            m_out.Open("layers").Text("*.Cu").Close();
            m_out.Open("hatch").Word("edge").Length(0.508).Close();
            m_out.Line("connect_pads").Open("clearance").Word("0").Close().Close();
            m_out.Line("min_thickness").Length(0.254).Close();
            m_out.Line("keepout");
            for (const char* kept : {"tracks", "vias", "copperpour"})
                m_out.Open(kept).Word("not_allowed").Close();
            for (const char* free : {"pads", "footprints"}) m_out.Open(free).Word("allowed").Close();
            m_out.Close();
            m_out.Line("fill").Open("thermal_gap").Length(0.508).Close();
            m_out.Open("thermal_bridge_width").Length(0.508).Close().Close();
            m_out.Line("polygon").Open("pts");
            for (const Point point : outline) m_out.Line("xy").Down(point).Close();
            m_out.Close().Close().Close();
            RequireRoom(m_out.Size());
        }
        return true;
    }

    // -- the pads
    // -----------------------------------------------------------------------------------------------

    void WritePads() {
        m_pads.Line("pads");
        for (const CVEKA_FootprintPin* pin : *m_footprint.GetFPins()) {
            if (!pin) continue;
            const CString stackName = pin->GetLibPadstackName(), name = pin->GetPinName();
            const CVEKA_PadStack* stack = m_part.records.PadStack(stackName.View());
            if (!stack) {
                m_remarks.Add("the pin " + QuotedName(name.View()) + " has no pad: there is no padstack " +
                              QuotedName(stackName.View()));
                continue;
            }
            const Place place =
                m_part.Unit() * Place({pin->GetPoint()->GetX(), pin->GetPoint()->GetY()}, pin->GetRotation());
            // Lengths of a pad are in millimetres already.
            const Place turned(place(Point{}), pin->GetRotation());
            for (const KiCadPad& pad : m_stacks.Of(*stack)) WritePad(pad, name, turned, pin->GetRotation());
        }
        for (const LayerScene& layer : m_layers)
            for (const drawing::Shape& shape : layer.scene.Shapes())
                if (IsOpening(layer, shape) && !IsGroup(shape))
                    WritePad(Opening(*ShapeOf(layer.scene, shape), layer.layer), {}, {}, 0);
        for (const LayerScene& layer : m_layers) WriteGroups(layer);
        m_pads.Close();
    }
    /// The openings of a layer that are made of several shapes.
    void WriteGroups(const LayerScene& layer) {
        const void* last = nullptr;
        for (const drawing::Shape& shape : layer.scene.Shapes()) {
            if (!IsOpening(layer, shape) || !IsGroup(shape) || shape.source.record == last) continue;
            last = shape.source.record;
            drawing::SceneBuilder scene("");
            scene.pen = {scene.Layer(layer.layer, Role::Copper, Side::Both, 0), Role::Copper, {}, {}};
            drawing::ObjectDrawer(scene, m_part.fonts)
                .Draw(*static_cast<const CVEKA_3DOJ_COMPOSITE*>(last), m_part.Unit());
            const drawing::Scene group = scene.Finish();
            if (!group.IsEmpty()) WritePad(Opening(group, layer.layer), {}, {}, 0);
        }
    }
    void WritePad(const KiCadPad& pad, const CString& name, const Place& place, double rotation) {
        const Point at = place(pad.middle);
        if (!Holds(at) || !std::isfinite(rotation)) {
            ++m_leftOut;
            return;
        }
        if (!pad.opening) (pad.drilled ? m_drilled : m_mounted) = true;
        m_pads.Line("pad").Text(pad.opening ? std::string_view() : name.View()).Word(pad.kind);
        m_pads.Open("at").Down(at);
        const double angle = rotation + pad.angle;
        if (std::fmod(angle, 360) != 0) m_pads.Angle(angle);
        m_pads.Close();
        m_pads.Word(pad.body.substr(std::min<std::size_t>(1, pad.body.size()))).Close();
        RequireRoom(m_pads.Size());
    }
    void AppendLines(const std::string& pads) {
        // "(pads", then the lines of the pads, then ")".
        const std::size_t first = pads.find('\n');
        const std::size_t last = pads.rfind("\n)");
        if (first == std::string::npos || last == std::string::npos || last <= first) return;
        m_out.Lines(std::string_view(pads).substr(first, last - first));
    }

    // -- texts and data
    // -----------------------------------------------------------------------------------------

    void WriteDescription() {
        const CVEKA_PartGeneral& general = *m_part.Vek().GetPartGeneral();
        std::string description(general.GetPartDescription().View());
        if (!description.empty()) m_out.Line("descr").Text(description).Close();
        const std::string tags = KeysBesides(*m_footprint.GetUSGKeys(), "MOUNT");
        if (!tags.empty()) m_out.Line("tags").Text(tags).Close();
    }
    /// The words of KiCad that the search keys say, or else what the pads say.
    void WriteAttributes() {
        static constexpr std::array<std::string_view, 5> known = {
            "smd", "through_hole", "board_only", "exclude_from_pos_files", "exclude_from_bom"};
        std::vector<std::string> words;
        for (const std::string& value : KeysOfType(*m_footprint.GetUSGKeys(), "MOUNT"))
            if (std::find(known.begin(), known.end(), value) != known.end() &&
                std::find(words.begin(), words.end(), value) == words.end())
                words.push_back(value);
        const bool typed = std::any_of(words.begin(), words.end(), [](const std::string& word) {
            return word == "smd" || word == "through_hole";
        });
        const bool excluded = !words.empty() && !typed;
        if (!typed && !excluded && m_drilled) words.emplace_back("through_hole");
        if (!typed && !excluded && m_mounted && !m_drilled) words.emplace_back("smd");
        if (words.empty()) return;
        m_out.Line("attr");
        for (const std::string& word : words) m_out.Word(word);
        m_out.Close();
    }

    void WriteTexts() {
        const auto find = [&](Shows shows, std::string_view layer, std::string_view not_) {
            return std::find_if(m_texts.begin(), m_texts.end(), [&](const FootprintText& text) {
                return text.shows == shows && text.layer.ends_with(layer) && text.bytes != not_;
            });
        };
        // A footprint has one reference and one value. Further texts show the same.
        auto reference = find(Shows::Reference, ".SilkS", "");
        if (reference == m_texts.end()) reference = find(Shows::Reference, "", "");
        auto value = find(Shows::Value, ".Fab", "${VALUE}");
        if (value == m_texts.end()) value = find(Shows::Value, "", "${VALUE}");
        WriteText("reference", "REF**", reference == m_texts.end() ? Unseen("F.SilkS") : *reference);
        WriteText("value", m_footprint.GetFootprintName().View(),
                  value == m_texts.end() ? Unseen("F.Fab") : *value);
        for (auto text = m_texts.begin(); text != m_texts.end(); ++text) {
            if (text == reference || text == value) continue;
            WriteText("user",
                      text->shows == Shows::Reference ? "${REFERENCE}"
                      : text->shows == Shows::Value   ? "${VALUE}"
                                                      : std::string_view(text->bytes),
                      *text);
        }
    }
    static FootprintText Unseen(const char* layer) {
        FootprintText text;
        text.layer = layer;
        text.text.height = text.width = 1;
        text.pen = 0.15;
        text.text.align = drawing::Align::Middle;
        text.text.lift = drawing::Lift::Middle;
        text.hidden = true;
        return text;
    }
    void WriteText(const char* kind, std::string_view bytes, const FootprintText& text) {
        m_out.Line("fp_text").Word(kind).Text(bytes);
        m_out.Open("at").Down(text.text.at);
        if (text.text.rotation != 0) m_out.Angle(text.text.rotation);
        m_out.Close().Open("layer").Text(text.layer).Close();
        if (text.hidden) m_out.Word("hide");
        m_out.Line("effects").Open("font").Open("size").Length(text.text.height).Length(text.width).Close();
        m_out.Open("thickness").Length(text.pen).Close().Close();
        std::string words;
        if (text.text.align == drawing::Align::Left) words += " left";
        if (text.text.align == drawing::Align::Right) words += " right";
        if (text.text.lift == drawing::Lift::Top) words += " top";
        if (text.text.lift == drawing::Lift::Bottom) words += " bottom";
        if (text.text.mirrored) words += " mirror";
        if (!words.empty()) m_out.Open("justify").Word(words.substr(1)).Close();
        m_out.Close().Close();
        RequireRoom(m_out.Size());
    }

    /// The solid model. KiCad turns a model clockwise.
    void WriteModel() {
        const double unit = m_part.Millimetres();
        const CVEKA_Coordinate& offset = *m_footprint.GetOffset();
        const auto length = [&](double value) { return Holds(value * unit) ? value * unit : 0; };
        m_out.Line("model").Text(m_model);
        m_out.Line("offset").Open("xyz");
        m_out.Length(length(offset.GetX()))
            .Length(length(offset.GetY()))
            .Length(length(offset.GetZ()))
            .Close()
            .Close();
        m_out.Line("scale").Open("xyz").Word("1").Word("1").Word("1").Close().Close();
        const double turn =
            std::isfinite(m_footprint.GetRotationOffset()) ? -m_footprint.GetRotationOffset() : 0;
        m_out.Line("rotate").Open("xyz").Word("0").Word("0").Angle(turn).Close().Close();
        m_out.Close();
    }

    const drawing::Part& m_part;
    const CVEKA_FootprintDB& m_footprint;
    const std::string& m_model;
    Remarks m_remarks;
    PadStacks m_stacks;
    Sexpr m_out, m_pads;
    std::vector<LayerScene> m_layers;
    std::vector<FootprintText> m_texts;
    bool m_drilled = false, m_mounted = false;
    int m_leftOut = 0;
};

}  // namespace

std::string BoardLayer(std::string_view name, Role role, Side side) {
    static constexpr std::array<std::string_view, 20> known = {
        "F.Cu",      "B.Cu",      "F.Adhes",   "B.Adhes",   "F.Paste",   "B.Paste", "F.SilkS",
        "B.SilkS",   "F.Mask",    "B.Mask",    "F.CrtYd",   "B.CrtYd",   "F.Fab",   "B.Fab",
        "Dwgs.User", "Cmts.User", "Eco1.User", "Eco2.User", "Edge.Cuts", "Margin"};
    if (std::find(known.begin(), known.end(), name) != known.end()) return std::string(name);
    const std::string front = side == Side::Bottom ? "B." : "F.";
    switch (role) {
        case Role::Copper:
            return side == Side::Inner ? "" : front + "Cu";
        case Role::Silk:
            return front + "SilkS";
        case Role::SolderMask:
            return front + "Mask";
        case Role::Paste:
            return front + "Paste";
        case Role::Courtyard:
            return front + "CrtYd";
        case Role::Assembly:
            return front + "Fab";
        default:
            return "";
    }
}

Exported ExportFootprint(const drawing::Part& part, const CVEKA_FootprintDB& footprint,
                         const std::string& model) {
    return FootprintWriter(part, footprint, model).Write();
}

}  // namespace kicad
