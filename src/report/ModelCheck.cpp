#include "report/ModelCheck.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <filesystem>
#include <limits>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "files/Paths.h"
#include "inspect/Shortest.h"
#include "model/CVEKA_Manager.h"
#include "model/objects/Objects.h"
#include "parser/Sections.h"
#include "report/References.h"

namespace veka {

namespace {

constexpr std::size_t kNone = ReadTracer::kNone;

/// A value of the model, and the mark that tells where in the file it is.
struct Seen {
    std::string value;
    std::size_t mark;
    const void* list;  ///< the array that its record is in
};

/// What a field is used for.
struct Use {
    std::vector<std::size_t> names;       ///< numbers of the rows of the named records
    std::vector<std::size_t> references;  ///< numbers of the rows of the references
    bool isFile = false;
};

class ModelChecker {
public:
    ModelChecker(const PositionedText& text, const Arrivals& arrivals, std::string folder,
                 ReportWriter& report)
        : m_text(text), m_tracer(arrivals.Tracer()), m_folder(std::move(folder)), m_report(report) {}

    void Check() {
        std::vector<CECadClsLvl*> roots;
        for (const auto& root : m_text.roots) roots.push_back(root.get());
        CVEK_AsciiParser parser;
        try {
            Sections sections(parser);
            for (CECadClsLvl* root : roots) sections.Read(root);
            sections.MoveIntoModel();
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception&) {
            // The report has it already. What came before the failure is in the model.
        }
        const CVEKA_Manager& model = *parser.GetCVEKA_Manager();
        const CVEKA_Manager& marks = *m_tracer.GetCVEKA_Manager();
        FindUses();
        m_names.resize(AllNamedRecords().size());
        m_references.resize(AllReferences().size());
        Walk(View(model), View(marks), nullptr);
        CheckNames();
        CheckReferences();
        CheckFiles();
        CheckPinCount(model, marks);
        CheckFootprints(model, marks);
    }

private:
    // ---------------------------------------------------------------- Names

    void FindUses() {
        for (std::size_t i = 0; i < AllNamedRecords().size(); ++i)
            if (Use* use = UseOf(AllNamedRecords()[i].record, AllNamedRecords()[i].field))
                use->names.push_back(i);
        for (std::size_t i = 0; i < AllReferences().size(); ++i)
            if (Use* use = UseOf(AllReferences()[i].record, AllReferences()[i].field))
                use->references.push_back(i);
        for (const FileReference& file : AllFileReferences())
            if (Use* use = UseOf(file.record, file.field)) use->isFile = true;
    }
    Use* UseOf(std::string_view record, std::string_view name) {
        for (const RecordDescription* description : AllDescriptions())
            if (record == description->name)
                for (const FieldDescription& field : description->fields)
                    if (name == field.name) return &m_uses[&field];
        return nullptr;
    }

    /// Collects the names and the references of a record, beside the same record with the marks.
    void Walk(const RecordView& record, const RecordView& marks, const void* list) {
        for (const FieldDescription& field : record.description->fields) {
            if (field.kind == FieldKind::Record) {
                Walk(field.Content(record.record), field.Content(marks.record), list);
            } else if (field.kind == FieldKind::Array) {
                const RecordView array = field.Content(record.record),
                                 arrayOfMarks = field.Content(marks.record);
                const INT_PTR size = std::min(array.description->size(array.record),
                                              array.description->size(arrayOfMarks.record));
                for (INT_PTR i = 0; i < size; ++i) {
                    const RecordView element = array.description->at(array.record, i);
                    const RecordView elementOfMarks = array.description->at(arrayOfMarks.record, i);
                    if (element.record && elementOfMarks.record &&
                        element.description == elementOfMarks.description)
                        Walk(element, elementOfMarks, array.record);
                }
            } else if (const auto use = m_uses.find(&field); use != m_uses.end()) {
                Collect(field, record.record, marks.record, use->second, list);
            }
        }
    }
    void Collect(const FieldDescription& field, const void* record, const void* marks, const Use& use,
                 const void* list) {
        if (field.kind == FieldKind::Whole) {
            Add(use, std::to_string(field.Whole(record)),
                m_tracer.MarkOf(static_cast<double>(field.Whole(marks))), list);
        } else if (field.kind == FieldKind::Text) {
            Add(use, std::string(field.Text(record).View()), m_tracer.MarkOf(field.Text(marks).View()), list);
        } else if (field.kind == FieldKind::TextList) {
            const CStringArray& texts = field.Texts(record);
            const CStringArray& textsOfMarks = field.Texts(marks);
            for (INT_PTR i = 0; i < std::min(texts.GetSize(), textsOfMarks.GetSize()); ++i)
                Add(use, std::string(texts[i].View()), m_tracer.MarkOf(textsOfMarks[i].View()), list);
        }
    }
    void Add(const Use& use, const std::string& value, std::size_t mark, const void* list) {
        if (value.empty() || mark == kNone) return;
        for (const std::size_t name : use.names) m_names[name].push_back({value, mark, list});
        for (const std::size_t reference : use.references)
            m_references[reference].push_back({value, mark, list});
        if (use.isFile) m_files.push_back({value, mark, list});
    }

    void CheckNames() {
        for (std::size_t i = 0; i < m_names.size(); ++i) {
            const NamedRecord& named = AllNamedRecords()[i];
            if (!named.unique) continue;
            std::unordered_map<const void*, std::unordered_map<std::string_view, std::size_t>> lists;
            for (const Seen& seen : m_names[i]) {
                const auto [first, isNew] = lists[seen.list].try_emplace(seen.value, seen.mark);
                if (isNew) continue;
                Report(Code::NameTwice, seen.mark,
                       "there are two " + std::string(named.what) + "s " + InQuotes(seen.value) +
                           ": the other one is in line " + LineOf(first->second));
            }
        }
    }

    void CheckReferences() {
        std::vector<std::unordered_set<std::string_view>> known(m_names.size());
        for (std::size_t i = 0; i < m_names.size(); ++i)
            for (const Seen& seen : m_names[i]) known[i].insert(seen.value);
        for (std::size_t i = 0; i < m_references.size(); ++i) {
            const Reference& reference = AllReferences()[i];
            const auto target = static_cast<std::size_t>(reference.target - AllNamedRecords().data());
            // A file can hold one view of a part alone.
            if (reference.code == Code::PinMismatch && known[target].empty()) continue;
            for (const Seen& seen : m_references[i])
                if (!known[target].contains(seen.value))
                    Report(reference.code, seen.mark,
                           "there is no " + std::string(reference.target->what) + " " + InQuotes(seen.value));
        }
    }

    void CheckFiles() {
        if (m_folder.empty()) return;
        constexpr std::size_t kMostFiles = 1000;
        std::unordered_map<std::string_view, bool> looked;
        for (const Seen& seen : m_files) {
            auto known = looked.find(seen.value);
            if (known == looked.end()) {
                if (looked.size() == kMostFiles) return;
                std::error_code error;
                const bool there =
                    std::filesystem::exists(ToPath(CString(m_folder)) / ToPath(CString(seen.value)), error);
                known = looked.emplace(seen.value, there).first;
            }
            if (!known->second)
                Report(Code::NoSuchFile, seen.mark,
                       "the file " + InQuotes(seen.value) + " is not beside the part");
        }
    }

    // ---------------------------------------------------------------- Numbers

    void CheckPinCount(const CVEKA_Manager& model, const CVEKA_Manager& marks) {
        const int said = model.GetVEK()->GetPartGeneral()->GetNumberOfPins();
        const std::size_t mark = m_tracer.MarkOf(marks.GetVEK()->GetPartGeneral()->GetNumberOfPins());
        const INT_PTR pins = model.GetVEK()->GetElectrical()->GetElectricalPins()->GetSize();
        if (mark == kNone || pins == 0 || pins == said) return;
        Report(Code::PinCount, mark,
               "the part has " + std::to_string(pins) + " electrical pins and says that it has " +
                   std::to_string(said));
    }

    /// A rectangle along the axes.
    struct Box {
        static constexpr double kInfinity = std::numeric_limits<double>::infinity();
        double left = kInfinity, bottom = kInfinity, right = -kInfinity, top = -kInfinity;
        bool IsEmpty() const { return !(left <= right && bottom <= top); }
        void Add(double x, double y, double halfWidth = 0, double halfHeight = 0) {
            left = std::min(left, x - halfWidth);
            right = std::max(right, x + halfWidth);
            bottom = std::min(bottom, y - halfHeight);
            top = std::max(top, y + halfHeight);
        }
        bool Holds(double x, double y) const { return left <= x && x <= right && bottom <= y && y <= top; }
    };
    /// A pad of a footprint: a rectangle that is certainly covered, or a circle.
    struct PadShape {
        Box box;
        bool circle = false;
        std::size_t pin = 0;
        double Radius() const { return (box.right - box.left) / 2; }
        double X() const { return (box.left + box.right) / 2; }
        double Y() const { return (box.bottom + box.top) / 2; }
    };

    template <class Point>
    static void AddPoint(Box& box, const Point& point, double around = 0) {
        box.Add(point->GetX(), point->GetY(), around, around);
    }
    /// Widens a box by all that objects can cover.
    static void AddObjects(Box& box, const CVEKA_3DObjectArray& objects) {
        for (const CVEKA_3DObject* object : objects) {
            if (const auto* line = dynamic_cast<const CVEKA_3DOJ_LINE*>(object)) {
                AddPoint(box, line->StartPoint);
                AddPoint(box, line->EndPoint);
            } else if (const auto* arc = dynamic_cast<const CVEKA_3DOJ_ARC*>(object)) {
                AddPoint(box, arc->StartPoint);
                AddPoint(box, arc->EndPoint);
                AddPoint(box, arc->CenterPoint, std::fabs(arc->R));
            } else if (const auto* circle = dynamic_cast<const CVEKA_3DOJ_CIRCLE*>(object)) {
                AddPoint(box, circle->PT, std::fabs(circle->D));
            } else if (const auto* disc = dynamic_cast<const CVEKA_3DOJ_FILLCIRCLE*>(object)) {
                AddPoint(box, disc->PT, std::fabs(disc->D));
            } else if (const auto* frame = dynamic_cast<const CVEKA_3DOJ_RECTANGLE*>(object)) {
                AddPoint(box, frame->PT, std::fabs(frame->W) + std::fabs(frame->H));
            } else if (const auto* area = dynamic_cast<const CVEKA_3DOJ_FILLRECT*>(object)) {
                AddPoint(box, area->PT, std::fabs(area->W) + std::fabs(area->H));
            } else if (const auto* polyline = dynamic_cast<const CVEKA_3DOJ_POLYLINE*>(object)) {
                AddObjects(box, *polyline->Elements);
            } else if (const auto* polygon = dynamic_cast<const CVEKA_3DOJ_POLYGON*>(object)) {
                AddObjects(box, *polygon->BOUNDARY);
            } else if (const auto* group = dynamic_cast<const CVEKA_3DOJ_COMPOSITE*>(object)) {
                AddObjects(box, *group->Elements);
            } else if (const auto* contour = dynamic_cast<const CVEKA_3DOJ_CONTOUR*>(object)) {
                AddObjects(box, *contour->Elements);
            }
        }
    }

    static bool IsQuarterTurn(double degrees) { return std::fabs(std::remainder(degrees, 90.0)) < 1e-9; }
    static bool IsOddQuarterTurn(double degrees) { return std::fabs(std::remainder(degrees, 180.0)) > 1; }

    /// What a pad certainly covers; nothing where that is not sure.
    static std::optional<PadShape> ShapeOf(const CVEKA_Pad& pad, const CVEKA_FootprintPin& pin) {
        if (pad.GetCamLayerDrawObjs()->GetSize() != 1 || pad.GetOffsetX() != 0 || pad.GetOffsetY() != 0)
            return {};
        const CVEKA_3DObject* object = pad.GetCamLayerDrawObjs()->GetAt(0);
        double width = 0, height = 0, rotation = 0;
        bool circle = false, centred = false;
        const auto isZero = [](const auto& point) { return point->GetX() == 0 && point->GetY() == 0; };
        if (const auto* disc = dynamic_cast<const CVEKA_3DOJ_FILLCIRCLE*>(object)) {
            width = height = disc->D;
            circle = true;
            centred = isZero(disc->PT) && isZero(disc->OFFSET);
        } else if (const auto* area = dynamic_cast<const CVEKA_3DOJ_FILLRECT*>(object)) {
            width = area->W, height = area->H, rotation = area->ROTATION;
            centred = isZero(area->PT) && isZero(area->OFFSET);
        } else if (const auto* round = dynamic_cast<const CVEKA_3DOJ_ROUNDEDRECTANGLE*>(object)) {
            // Without the strips of the corners, of which the shape may lack some.
            width = round->W - 2 * round->R, height = round->H, rotation = round->ROTATION;
            centred = isZero(round->PT) && isZero(round->OFFSET);
        } else if (const auto* oblong = dynamic_cast<const CVEKA_3DOJ_OBLONG*>(object)) {
            width = height = std::min(oblong->W, oblong->H);
            circle = true;
            centred = isZero(oblong->PT);
        }
        rotation += pin.GetRotation();
        if (!centred || !(width > 0) || !(height > 0) || (!circle && !IsQuarterTurn(rotation))) return {};
        if (IsOddQuarterTurn(rotation)) std::swap(width, height);
        PadShape shape;
        shape.circle = circle;
        shape.box.Add(pin.GetPoint()->GetX(), pin.GetPoint()->GetY(), width / 2, height / 2);
        return shape;
    }

    static bool Overlap(const PadShape& a, const PadShape& b) {
        const double dx = std::fabs(a.X() - b.X()), dy = std::fabs(a.Y() - b.Y());
        constexpr double kTouch = 1e-9;  // shapes that only touch do not overlap
        if (a.circle && b.circle) return std::hypot(dx, dy) < a.Radius() + b.Radius() - kTouch;
        if (a.circle || b.circle) {
            const PadShape& disc = a.circle ? a : b;
            const PadShape& area = a.circle ? b : a;
            const double gapX = std::max(dx - (area.box.right - area.box.left) / 2, 0.0);
            const double gapY = std::max(dy - (area.box.top - area.box.bottom) / 2, 0.0);
            return std::hypot(gapX, gapY) < disc.Radius() - kTouch;
        }
        return dx < a.Radius() + b.Radius() - kTouch &&
               dy < (a.box.top - a.box.bottom + b.box.top - b.box.bottom) / 2 - kTouch;
    }

    void CheckFootprints(const CVEKA_Manager& model, const CVEKA_Manager& marks) {
        std::unordered_map<std::string_view, const CVEKA_PadStack*> stacks;
        std::unordered_map<std::string_view, const CVEKA_Pad*> pads;
        for (const CVEKA_PadStack* stack : *model.GetPadStackArr())
            stacks.try_emplace(m_texts.emplace_back(stack->GetPadstackName()).View(), stack);
        for (const CVEKA_Pad* pad : *model.GetPadArr())
            pads.try_emplace(m_texts.emplace_back(pad->GetPadName()).View(), pad);
        const CVEKA_FootprintDBArray& footprints = *model.GetFootprintDBArr();
        for (INT_PTR i = 0; i < std::min(footprints.GetSize(), marks.GetFootprintDBArr()->GetSize()); ++i) {
            const CVEKA_FootprintDB& footprint = *footprints.GetAt(i);
            const CVEKA_FootprintPinArray& markPins = *marks.GetFootprintDBArr()->GetAt(i)->GetFPins();
            CheckOutline(footprint, markPins);
            for (const bool top : {true, false}) {
                std::vector<PadShape> shapes;
                for (INT_PTR p = 0; p < footprint.GetFPins()->GetSize(); ++p) {
                    const CVEKA_FootprintPin& pin = *footprint.GetFPins()->GetAt(p);
                    const auto stack = stacks.find(pin.GetLibPadstackName().View());
                    if (stack == stacks.end()) continue;
                    const CVEKA_Padstack_LayerInfo& layer =
                        top ? *stack->second->GetTop() : *stack->second->GetBottom();
                    const auto pad = pads.find(layer.GetCon().View());
                    if (pad == pads.end()) continue;
                    if (std::optional<PadShape> shape = ShapeOf(*pad->second, pin)) {
                        shape->pin = static_cast<std::size_t>(p);
                        shapes.push_back(*shape);
                    }
                }
                CheckOverlaps(footprint, markPins, shapes, top);
            }
        }
    }

    void CheckOutline(const CVEKA_FootprintDB& footprint, const CVEKA_FootprintPinArray& markPins) {
        Box outline;
        for (const CVEKA_CAMLayer* layer : *footprint.GetCAMLayers())
            AddObjects(outline, *layer->GetCamLayerDrawObjs());
        if (outline.IsEmpty()) return;
        for (INT_PTR i = 0; i < std::min(footprint.GetFPins()->GetSize(), markPins.GetSize()); ++i) {
            const CVEKA_FootprintPin& pin = *footprint.GetFPins()->GetAt(i);
            const std::size_t mark = m_tracer.MarkOf(markPins.GetAt(i)->GetPoint()->GetX());
            if (mark == kNone || outline.Holds(pin.GetPoint()->GetX(), pin.GetPoint()->GetY())) continue;
            Report(Code::PinOutside, mark,
                   "the pin " + InQuotes(pin.GetPinName().View()) + " stands at " +
                       Shortest(pin.GetPoint()->GetX()) + ", " + Shortest(pin.GetPoint()->GetY()) +
                       ", outside of all that the footprint draws");
        }
    }

    /// Pins of one name may overlap: a large pad with its vias. Each pad is compared with the next ones from
    /// left to right.
    void CheckOverlaps(const CVEKA_FootprintDB& footprint, const CVEKA_FootprintPinArray& markPins,
                       std::vector<PadShape>& shapes, bool top) {
        constexpr std::size_t kCompared = 64;
        std::sort(shapes.begin(), shapes.end(), [](const PadShape& a, const PadShape& b) {
            return std::pair(a.box.left, a.box.bottom) < std::pair(b.box.left, b.box.bottom);
        });
        for (std::size_t i = 0; i < shapes.size(); ++i) {
            for (std::size_t j = i + 1;
                 j < std::min(shapes.size(), i + 1 + kCompared) && shapes[j].box.left < shapes[i].box.right;
                 ++j) {
                const auto first = static_cast<INT_PTR>(std::max(shapes[i].pin, shapes[j].pin));
                const auto other = static_cast<INT_PTR>(std::min(shapes[i].pin, shapes[j].pin));
                const CString name = footprint.GetFPins()->GetAt(first)->GetPinName();
                const CString otherName = footprint.GetFPins()->GetAt(other)->GetPinName();
                if (name.IsEmpty() || otherName.IsEmpty() || name == otherName ||
                    !Overlap(shapes[i], shapes[j]))
                    continue;
                const std::size_t mark = first < markPins.GetSize()
                                             ? m_tracer.MarkOf(markPins.GetAt(first)->GetPinName().View())
                                             : kNone;
                if (mark == kNone) continue;
                Report(Code::PadsOverlap, mark,
                       "the pads of the pins " + InQuotes(otherName.View()) + " and " +
                           InQuotes(name.View()) + " overlap on the " + (top ? "top" : "bottom") + " layer");
            }
        }
    }

    // ---------------------------------------------------------------- Places

    void Report(Code code, std::size_t number, std::string sentence) {
        const ReadTracer::Mark& mark = m_tracer.Marks()[number];
        const PositionedLevel& level = *m_text.levels[mark.level];
        const bool isName = mark.value == ReadTracer::kName;
        const std::string text(isName ? level.m_strName.View() : level.m_aValues[mark.value].View());
        m_report.Add(code, isName ? level.nameRegion : level.values[static_cast<std::size_t>(mark.value)],
                     false, level.number, text, std::move(sentence));
    }
    std::string LineOf(std::size_t mark) const {
        return std::to_string(m_text.levels[m_tracer.Marks()[mark].level]->region.begin.line);
    }

    const PositionedText& m_text;
    const ReadTracer& m_tracer;
    const std::string m_folder;
    ReportWriter& m_report;
    std::unordered_map<const FieldDescription*, Use> m_uses;
    std::vector<std::vector<Seen>> m_names, m_references;
    std::vector<Seen> m_files;
    std::deque<CString> m_texts;  // what views show
};

}  // namespace

void CheckModel(const PositionedText& text, const Arrivals& arrivals, const std::string& folder,
                ReportWriter& report) {
    ModelChecker(text, arrivals, folder, report).Check();
}

}  // namespace veka
