#include "export/kicad/Symbol.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "drawing/Gate.h"
#include "export/kicad/Names.h"
#include "export/kicad/PinGraphic.h"
#include "export/kicad/Sexpr.h"
#include "export/kicad/SymbolGraphics.h"
#include "export/kicad/Words.h"
#include "leads/Placement.h"
#include "model/objects/Objects.h"

namespace kicad {

namespace {

using drawing::Align;
using drawing::Lift;
using drawing::Place;
using drawing::Point;

// What KiCad's own symbols have, in millimetres.
constexpr double kTextSize = 1.27;
constexpr double kPinLength = 2.54;
constexpr double kPinStep = 2.54;
constexpr double kNameOffset = 0.508;

/// The letters that KiCad gives to a unit: A for the first one.
std::string LettersOf(std::size_t unit) {
    std::string letters;
    for (++unit; unit > 0; unit = (unit - 1) / 26)
        letters.insert(letters.begin(), static_cast<char>('A' + (unit - 1) % 26));
    return letters;
}

/// False for a label that says nothing but its property, as the import makes labels.
bool IsWhole(const CVEKA_PropertyLabel& label) {
    const CVEKA_Coordinate& point = *label.GetPoint();
    return label.GetVisible() || label.GetFID() != 0 || label.GetJustify() != 0 || point.GetX() != 0 ||
           point.GetY() != 0;
}

/// A property of a symbol.
struct Property {
    std::string name, value;
    bool shown = false;
    std::string label;  ///< the word of the part's labels for it; empty for none
};

class SymbolWriter {
public:
    SymbolWriter(const drawing::Part& part, const std::string& library)
        : m_part(part), m_library(library), m_gates(part) {}

    Exported Write() {
        const CVEKA_PartGeneral& general = *m_part.Vek().GetPartGeneral();
        const std::string name = NameInKiCad(general.GetMPN().View());
        if (!m_part.UnitRemark().empty()) m_remarks.Add(m_part.UnitRemark());
        ReadGates();
        ReadUnplacedPins();
        ReadLabelSwitches();
        // One level below the list of the library.
        m_out.Line("kicad_symbol_lib").Line("symbol").Text(name);
        if (m_hideNumbers) m_out.Open("pin_numbers").Word("hide").Close();
        m_out.Open("pin_names").Open("offset").Length(m_nameOffset).Close();
        if (m_hideNames) m_out.Word("hide");
        m_out.Close();
        m_out.Open("in_bom").Word("yes").Close().Open("on_board").Word("yes").Close();
        WriteProperties();
        for (std::size_t style = 0; style < m_styles.size(); ++style)
            for (std::size_t unit = 0; unit < m_styles[style].size(); ++unit)
                WriteUnit(name, unit, style, m_styles[style][unit]);
        if (!m_unplaced.empty()) WriteUnplacedUnit(name);
        m_out.Close().Close();
        std::string text = m_out.Take();
        const std::size_t first = text.find("  (symbol"), last = text.rfind("\n)");
        return {name, text.substr(first, last - first), m_remarks.Take()};
    }

private:
    // -- what there is to write
    // -----------------------------------------------------------------------------------

    std::vector<drawing::Gate> GatesOf(const CVEKA_Symbol& symbol) {
        std::vector<drawing::Gate> gates;
        for (const CVEKA_Partition* partition : *symbol.GetPartitions())
            if (partition) gates.push_back(m_gates.Read(*partition));
        return gates;
    }
    /// The numbers of the pins of each gate.
    static std::vector<std::multiset<std::string>> PinsOf(const std::vector<drawing::Gate>& gates) {
        std::vector<std::multiset<std::string>> pins;
        for (const drawing::Gate& gate : gates) {
            pins.emplace_back();
            for (const drawing::GatePin& pin : gate.pins) pins.back().emplace(pin.pin->GetPinName().View());
        }
        return pins;
    }
    void ReadGates() {
        const CVEKA_Symbol* symbol = m_part.DefaultSymbol();
        if (!symbol) return;
        m_styles.push_back(GatesOf(*symbol));
        for (const CVEKA_Symbol* other : *m_part.Vek().GetLogicSymbols()->GetSymbol()) {
            if (!other || other == symbol) continue;
            std::vector<drawing::Gate> gates = GatesOf(*other);
            if (m_styles.size() == 1 && PinsOf(gates) == PinsOf(m_styles[0]))
                m_styles.push_back(std::move(gates));
            else
                m_remarks.Add("the symbol " + QuotedName(other->GetSymbolName().View()) +
                              " is not exported: a symbol of KiCad has one other body, with the same pins");
        }
        for (std::size_t i = 0; i < m_styles[0].size(); ++i)
            if (m_styles[0][i].partition->GetPatitionName() != LettersOf(i).c_str() && m_styles[0].size() > 1)
                m_remarks.Add(
                    "KiCad names the units of a symbol by letters; the names of the gates are not exported");
        for (const std::vector<drawing::Gate>& gates : m_styles)
            for (const drawing::Gate& gate : gates) RemarkOnMissing(gate);
    }
    void RemarkOnMissing(const drawing::Gate& gate) {
        if (gate.MissesLibrary())
            m_remarks.Add("there is no library partition " +
                          QuotedName(gate.partition->GetLibPartitionName().View()));
        for (const drawing::GatePin& pin : gate.pins)
            if (pin.MissesShape())
                m_remarks.Add("there is no pin shape " +
                              QuotedName(pin.library->GetLibPinShapeName().View()));
    }
    void ReadUnplacedPins() {
        std::set<std::string> placed;
        for (const std::vector<drawing::Gate>& gates : m_styles)
            for (const drawing::Gate& gate : gates)
                for (const drawing::GatePin& pin : gate.pins) placed.emplace(pin.pin->GetPinName().View());
        for (const CVEKA_ElectricalPin* pin : *m_part.Vek().GetElectrical()->GetElectricalPins())
            if (pin && placed.emplace(pin->GetName().View()).second) m_unplaced.push_back(pin);
    }

    /// How the labels of the pins' shapes say that names and numbers are shown. KiCad has one switch for all
    /// pins.
    void ReadLabelSwitches() {
        int names[2] = {0, 0}, numbers[2] = {0, 0};
        for (const std::vector<drawing::Gate>& gates : m_styles)
            for (const drawing::Gate& gate : gates)
                for (const drawing::GatePin& pin : gate.pins) {
                    if (!pin.shape) continue;
                    for (const CVEKA_PropertyLabel* label : *pin.shape->GetPropertyLabels()) {
                        if (!label || !IsWhole(*label)) continue;
                        const std::string property = Upper(label->GetProperty().View());
                        if (property == "PINNAME") ++names[label->GetVisible() ? 1 : 0];
                        if (property == "PINNUMBER") ++numbers[label->GetVisible() ? 1 : 0];
                        const double offset = label->GetPoint()->GetX() * gate.place.Scale() -
                                              GraphicOf(*pin.shape, gate.place).length;
                        if (property == "PINNAME" && label->GetVisible() && offset >= 0 && offset < 10)
                            m_nameOffset = offset;
                    }
                }
        m_hideNames = names[0] > 0 && names[1] == 0;
        m_hideNumbers = numbers[0] > 0 && numbers[1] == 0;
        if ((names[0] > 0 && names[1] > 0) || (numbers[0] > 0 && numbers[1] > 0))
            m_remarks.Add(
                "some pins show their name or number and some do not; KiCad shows those of all pins or of "
                "none");
    }

    // -- properties
    // -----------------------------------------------------------------------------------------------

    /// The reference that a title or an ending says is the data sheet, or else the first one.
    std::string DataSheet() const {
        std::string first;
        for (const CVEKA_Reference_URL* reference : *m_part.Vek().GetPartGeneral()->GetReferenceURLArr()) {
            if (!reference || reference->GetFileName().IsEmpty()) continue;
            const std::string title = Upper(reference->GetTitle().View());
            if (title.find("DATASHEET") != title.npos || title.find("DATA SHEET") != title.npos)
                return std::string(reference->GetFileName().View());
            if (first.empty()) first = reference->GetFileName().View();
        }
        return first.empty() ? "~" : first;
    }
    /// The beginning of a reference, which KiCad completes by a number.
    std::string Prefix() const {
        std::string prefix(m_part.Vek().GetPartGeneral()->GetLayout()->GetPrefix().View());
        while (!prefix.empty() && (prefix.back() == '?' || (prefix.back() >= '0' && prefix.back() <= '9')))
            prefix.pop_back();
        // KiCad takes a symbol for one that is no part where its reference begins with "#".
        while (!prefix.empty() && prefix.front() == '#') prefix.erase(0, 1);
        return prefix.empty() ? "U" : prefix;
    }
    std::string FootprintLink(const CVEKA_FootprintDB* footprint) const {
        if (!footprint) return "";
        return m_library + ':' + NameInKiCad(footprint->GetFootprintName().View(), kLongestFootprintName);
    }
    std::vector<Property> Properties() const {
        const CVEKA_PartGeneral& general = *m_part.Vek().GetPartGeneral();
        const std::string mpn(general.GetMPN().View());
        std::vector<Property> properties{
            {"Reference", Prefix(), true, "REFDES"},
            {"Value", mpn.empty() ? "~" : mpn, true, "PARTNUMBER"},
            {"Footprint", FootprintLink(m_part.DefaultFootprint()), false, "FOOTPRINT"},
            {"Datasheet", DataSheet(), false, "DATASHEET"}};
        const auto add = [&](const char* name, std::string value) {
            if (!value.empty()) properties.push_back({name, std::move(value), false, ""});
        };
        add("Manufacturer", std::string(general.GetManufacturer().View()));
        add("MPN", mpn);
        CStringArray list;
        general.GetCPNArr(list);
        int number = 0;
        for (const std::string& element : Elements(list))
            if (const std::string name = "CPN " + std::to_string(++number); !element.empty())
                add(number == 1 ? "CPN" : name.c_str(), element);
        add("ki_keywords", Keywords());
        add("ki_description", std::string(general.GetPartDescription().View()));
        add("ki_fp_filters", Filters());
        return properties;
    }
    std::string Keywords() const {
        const CVEKA_Symbol* symbol = m_part.DefaultSymbol();
        return symbol ? KeysBesides(*symbol->GetUSGKeys(), "LIBRARY") : "";
    }
    /// The footprints that fit, as KiCad's patterns of their names. A blank would end a pattern.
    std::string Filters() const {
        std::string filters;
        const CVEKA_Package* package = m_part.DefaultPackage();
        if (!package) return filters;
        for (const CVEKA_Footprint* footprint : *package->GetFootprints()) {
            if (!footprint) continue;
            const std::string name =
                NameInKiCad(footprint->GetLibraryFootprintName().View(), kLongestFootprintName);
            if (name.find(' ') != name.npos || footprint->GetLibraryFootprintName().IsEmpty()) continue;
            filters += (filters.empty() ? "" : " ") + name;
        }
        return filters;
    }

    void WriteProperties() {
        const drawing::Gate* gate = m_styles.empty() || m_styles[0].empty() ? nullptr : &m_styles[0][0];
        drawing::Box box;
        if (gate) {
            drawing::SceneBuilder scene("");
            drawing::ObjectDrawer(scene, m_part.fonts).Draw(*gate->body, gate->place);
            box = scene.BoundsFrom(0);
            for (const drawing::GatePin& pin : gate->pins) box.Add(pin.place(Point{}));
        }
        if (box.IsEmpty()) box.Add(Point{});
        int id = 0;
        for (const Property& property : Properties()) {
            const CVEKA_PropertyLabel* label = gate ? LabelOf(*gate->partition, property.label) : nullptr;
            Point at{box.Center().x,
                     property.name == "Reference" ? box.top + kTextSize : box.bottom - kTextSize};
            if (!property.shown) at = {};
            double rotation = 0, size = kTextSize;
            Align align = Align::Middle;
            Lift lift = Lift::Middle;
            bool mirrored = false, shown = property.shown;
            if (label) {
                at = gate->place({label->GetPoint()->GetX(), label->GetPoint()->GetY()});
                rotation = label->GetRotation();
                const double height = m_part.fonts.Height(label->GetFID()) * gate->place.Scale();
                if (height > 0 && Holds(height)) size = height;
                const drawing::Justification where = drawing::JustificationOf(label->GetJustify());
                align = where.align;
                lift = where.lift;
                mirrored = veka::IsMirrored(label->GetMirror());
                shown = label->GetVisible();
            }
            if (!Holds(at) || !std::isfinite(rotation)) {
                at = {};
                rotation = 0;
            }
            m_out.Line("property").Text(property.name).Text(property.value);
            m_out.Open("id").Word(std::to_string(id++)).Close();
            m_out.Open("at").Up(at).Angle(rotation).Close();
            WriteEffects(m_out, size, size, align, lift, mirrored, !shown);
            m_out.Close();
        }
    }
    static const CVEKA_PropertyLabel* LabelOf(const CVEKA_Partition& partition, const std::string& property) {
        if (property.empty()) return nullptr;
        for (const CVEKA_PropertyLabel* label : *partition.GetPropertyLabels())
            if (label && IsWhole(*label) && Upper(label->GetProperty().View()) == property) return label;
        return nullptr;
    }

    // -- units
    // ----------------------------------------------------------------------------------------------------

    /// The shape of pins, read at the scale of a place.
    const PinGraphic& GraphicOf(const CVEKA_NSHAPE& shape, const Place& place) {
        const auto [found, isNew] = m_shapes.try_emplace({&shape, place.Scale()});
        if (isNew)
            found->second = ReadPinGraphic(Drawn(*shape.GetPinBodyShape(), Place::Scaled(place.Scale())));
        return found->second;
    }
    drawing::Scene Drawn(const CVEKA_3DObjectArray& objects, const Place& place) {
        drawing::SceneBuilder scene("");
        scene.pen = {
            scene.Layer("", drawing::Role::Body, drawing::Side::Both, 0), drawing::Role::Body, {}, {}};
        drawing::ObjectDrawer(scene, m_part.fonts).Draw(objects, place);
        drawing::Scene drawn = scene.Finish();
        for (const std::string& remark : drawn.Remarks()) m_remarks.Add(remark);
        return drawn;
    }

    void WriteUnit(const std::string& name, std::size_t unit, std::size_t style, const drawing::Gate& gate) {
        m_out.Line("symbol").Text(name + '_' + std::to_string(unit + 1) + '_' + std::to_string(style + 1));
        WriteSymbolGraphics(m_out, m_part, Drawn(*gate.body, gate.place));
        for (const drawing::GatePin& pin : gate.pins) WriteGatePin(gate, pin);
        m_out.Close();
    }

    void WriteGatePin(const drawing::Gate& gate, const drawing::GatePin& pin) {
        const Point at = pin.place(Point{});
        double angle = pin.place.Angle();
        if (!Holds(at) || !std::isfinite(angle)) {
            m_remarks.Add("the pin " + QuotedName(pin.pin->GetPinName().View()) +
                          " has no place that KiCad can hold");
            return;
        }
        PinGraphic graphic;
        if (pin.shape) {
            graphic = GraphicOf(*pin.shape, pin.place);
            if (!graphic.rest.empty())
                WriteSymbolGraphics(m_out, m_part, Drawn(*pin.shape->GetPinBodyShape(), pin.place),
                                    graphic.rest);
        }
        WritePinObjects(gate, pin, graphic);
        if (graphic.backwards) angle += 180;
        double right = std::round(angle / 90) * 90;
        if (std::fabs(right - angle) > 1e-6)
            m_remarks.Add("the pin " + QuotedName(pin.pin->GetPinName().View()) +
                          " is turned; pins of KiCad have right angles");
        double size = pin.pin->GetNameSize() * gate.place.Scale();
        if (!(size > 0) || !Holds(size)) size = kTextSize;
        Pin written;
        written.number = pin.pin->GetPinName().View();
        written.name = pin.pin->GetGatePinName().View();
        written.at = at;
        written.angle = right;
        written.length = Holds(graphic.length) ? graphic.length : 0;
        written.style = graphic.style;
        written.size = size;
        written.type = TypeOf(written.number, pin.pin->GetUsedPin());
        if (pin.library)
            for (const CVEKA_Comment* comment : *pin.library->GetComment()) {
                if (!comment) continue;
                const std::string property = Upper(comment->GetProperty().View());
                if (property == "VISIBILITY" && Upper(comment->GetComment().View()) == "HIDDEN")
                    written.hidden = true;
                if (property == "ALTERNATE") written.alternates.emplace_back(comment->GetComment().View());
            }
        WritePin(written);
    }
    /// What is drawn at a pin, without the marks of the point where the net attaches: KiCad draws its own
    /// ones.
    void WritePinObjects(const drawing::Gate& gate, const drawing::GatePin& pin, const PinGraphic& graphic) {
        drawing::SceneBuilder scene("");
        scene.pen = {scene.Layer("", drawing::Role::Pin, drawing::Side::Both, 0), drawing::Role::Pin, {}, {}};
        drawing::ObjectDrawer drawer(scene, m_part.fonts);
        const auto draw = [&](const CVEKA_3DObjectArray& objects) {
            for (const CVEKA_3DObject* object : objects)
                if (object && typeid(*object) != typeid(CVEKA_3DOJ_PINPOINT))
                    drawer.Draw(*object, gate.place);
        };
        draw(*pin.pin->GetDrawObjs());
        if (pin.library) draw(*pin.library->GetCAMLayerDrawObjs());
        const drawing::Scene drawn = scene.Finish();
        // The circle of an inverted pin is a part of the pin.
        const double way = (graphic.length - graphic.bubble) * (graphic.backwards ? -1 : 1);
        const Point bubble = Place(pin.place(Point{}), pin.place.Angle())({way, 0});
        std::vector<std::size_t> rest;
        for (std::size_t i = 0; i < drawn.Shapes().size(); ++i) {
            const auto* circle = std::get_if<drawing::Circle>(&drawn.Shapes()[i].form);
            const bool isBubble = circle && graphic.bubble > 0 &&
                                  std::fabs(circle->radius - graphic.bubble) < 1e-3 &&
                                  drawing::Distance(circle->center, bubble) < 1e-3;
            if (!isBubble) rest.push_back(i);
        }
        WriteSymbolGraphics(m_out, m_part, drawn, rest);
    }

    /// A unit of its own for the pins that no gate has: a box with the pins on its left side.
    void WriteUnplacedUnit(const std::string& name) {
        const std::size_t unit = m_styles.empty() ? 1 : m_styles[0].size() + 1;
        m_out.Line("symbol").Text(name + '_' + std::to_string(unit) + "_1");
        const auto count = static_cast<double>(m_unplaced.size());
        drawing::SceneBuilder scene("");
        scene.pen = {
            scene.Layer("", drawing::Role::Body, drawing::Side::Both, 0), drawing::Role::Body, {}, {}};
        const double height = kPinStep * (count + 1), width = 4 * kPinStep;
        if (Holds(height)) {
            scene.AddPolygon(Place(Point{width / 2, -kPinStep * (count - 1) / 2}),
                             {drawing::RectangleOutline(width, height)}, 0.254, false);
            WriteSymbolGraphics(m_out, m_part, scene.Finish());
        }
        Point at{-kPinLength, 0};
        for (const CVEKA_ElectricalPin* pin : m_unplaced) {
            Pin written;
            written.number = pin->GetName().View();
            written.name = pin->GetSignalName().View();
            written.at = at;
            written.length = kPinLength;
            written.type = TypeOf(written.number, {});
            at.y -= kPinStep;
            if (!Holds(at)) {
                m_remarks.Add("there are more pins without a gate than KiCad has room for");
                break;
            }
            WritePin(written);
        }
        m_out.Close();
        if (m_styles.empty())
            m_remarks.Add("the part has no symbol; the export has a box with its pins");
        else
            m_remarks.Add("pins that no gate has are a unit of their own");
    }

    struct Pin {
        std::string number, name, style = "line";
        std::string_view type;
        Point at;
        double angle = 0, length = 0, size = kTextSize;
        bool hidden = false;
        std::vector<std::string> alternates;
    };
    std::string_view TypeOf(const std::string& number, const CString& used) {
        const CVEKA_ElectricalPin* pin = m_part.records.ElectricalPin(number);
        const CString word = pin ? pin->GetType() : CString();
        if (word.IsEmpty()) return used == "FALSE" ? "no_connect" : "unspecified";
        const std::string_view type = ElectricalType(word.View());
        if (!type.empty()) return type;
        m_remarks.Add("the type " + QuotedName(word.View()) + " of a pin is not known; the pin has none");
        return "unspecified";
    }
    void WritePin(const Pin& pin) {
        m_out.Line("pin").Word(pin.type).Word(pin.style).Open("at").Up(pin.at).Angle(pin.angle).Close();
        m_out.Open("length").Length(pin.length).Close();
        if (pin.hidden) m_out.Word("hide");
        const auto text = [&](const char* list, const std::string& bytes) {
            m_out.Line(list).Text(bytes.empty() ? "~" : bytes);
            m_out.Open("effects").Open("font").Open("size").Length(pin.size).Length(pin.size);
            m_out.Close().Close().Close().Close();
        };
        text("name", pin.name);
        text("number", pin.number);
        for (const std::string& other : pin.alternates)
            m_out.Line("alternate").Text(other).Word(pin.type).Word(pin.style).Close();
        m_out.Close();
        RequireRoom(m_out.Size());
    }

    const drawing::Part& m_part;
    const std::string& m_library;
    drawing::GateReader m_gates;
    Remarks m_remarks;
    Sexpr m_out;
    std::vector<std::vector<drawing::Gate>> m_styles;  // the gates of each body style
    std::vector<const CVEKA_ElectricalPin*> m_unplaced;
    std::map<std::pair<const CVEKA_NSHAPE*, double>, PinGraphic> m_shapes;
    bool m_hideNames = false, m_hideNumbers = false;
    double m_nameOffset = kNameOffset;
};

}  // namespace

Exported ExportSymbol(const drawing::Part& part, const std::string& library) {
    return SymbolWriter(part, library).Write();
}

}  // namespace kicad
