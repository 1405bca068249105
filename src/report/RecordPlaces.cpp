#include "report/RecordPlaces.h"

#include "report/Arrivals.h"

namespace veka {

namespace {

/// Calls a function with each element of the lists below a record, an element before those within it.
template <class Call>
void ForEachElement(const RecordView& record, const Call& call) {
    for (const FieldDescription& field : record.description->fields) {
        if (field.kind == FieldKind::Record) ForEachElement(field.Content(record.record), call);
        if (field.kind != FieldKind::Array) continue;
        const RecordView array = field.Content(record.record);
        const INT_PTR size = array.description->size(array.record);
        for (INT_PTR i = 0; i < size; ++i) {
            const RecordView element = array.description->at(array.record, i);
            if (!element.record) continue;
            call(element);
            ForEachElement(element, call);
        }
    }
}

}  // namespace

RecordPlaces::RecordPlaces(std::string_view bytes, const CVEKA_Manager& part) {
    const PositionedText text = ReadWithPositions(bytes);
    const Arrivals arrivals(text);
    const ReadTracer& tracer = arrivals.Tracer();
    // A traced import makes the same records in the same order.
    ForEachElement(View(*tracer.GetCVEKA_Manager()), [&](const RecordView& element) {
        const std::size_t context = tracer.ContextOf(element.record, *element.description->type);
        const std::size_t level =
            context == ReadTracer::kNone ? ReadTracer::kNone : tracer.Contexts()[context].level;
        m_elements.push_back({level == ReadTracer::kNone ? Region() : text.levels[level]->region, {}});
    });
    std::size_t count = 0;
    ForEachElement(View(part), [&](const RecordView& element) {
        if (count < m_elements.size()) m_elements[count].record = element;
        ++count;
    });
    if (count != m_elements.size()) m_elements.clear();
}

RecordView RecordPlaces::At(Place place) const {
    RecordView innermost;
    for (const Element& element : m_elements)
        if (element.region.begin <= place && place < element.region.end) innermost = element.record;
    return innermost;
}

}  // namespace veka
