#include "report/Arrivals.h"

#include <new>

#include "model/CVEKA_Manager.h"
#include "model/RecordMemory.h"
#include "parser/Sections.h"

namespace veka {

namespace {

constexpr std::size_t kNone = ReadTracer::kNone;

}  // namespace

Arrivals::Arrivals(const PositionedText& text) : m_tracer(std::make_unique<ReadTracer>(text.levels.size())) {
    std::vector<CECadClsLvl*> roots;
    roots.reserve(text.roots.size());
    for (const auto& root : text.roots) roots.push_back(root.get());
    try {
        const RecordMemory::ImportScope import;
        TraceSections(*m_tracer, roots);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& failure) {
        m_failure = failure.what();
    }
    m_marks.resize(m_tracer->Marks().size());
    m_groups.resize(m_tracer->Groups().size());
    m_elements.resize(m_tracer->Contexts().size());
    Walk(View(*m_tracer->GetCVEKA_Manager()), 0);
    FindLevels(text);
}

/// Notes the marks in a record of a context.
void Arrivals::Walk(const RecordView& record, std::size_t context) {
    for (const FieldDescription& field : record.description->fields) {
        switch (field.kind) {
            case FieldKind::Whole:
                MarkArrived(m_tracer->MarkOf(static_cast<double>(field.Whole(record.record))));
                break;
            case FieldKind::Flag:
                MarkArrived(m_tracer->MarkOfFlag(field.In(record.record), context));
                break;
            case FieldKind::Real:
                MarkArrived(m_tracer->MarkOf(field.Real(record.record)));
                break;
            case FieldKind::Text:
                MarkArrived(m_tracer->MarkOf(field.Text(record.record).View()));
                break;
            case FieldKind::TextList:
            case FieldKind::DistinctNames:
                for (const CString& text : field.Texts(record.record))
                    MarkArrived(m_tracer->MarkOf(text.View()));
                break;
            case FieldKind::Record:
                Walk(field.Content(record.record), context);
                break;
            case FieldKind::Array: {
                const RecordView array = field.Content(record.record);
                const INT_PTR size = array.description->size(array.record);
                for (INT_PTR i = 0; i < size; ++i) {
                    const RecordView element = array.description->at(array.record, i);
                    if (!element.record) continue;
                    const std::size_t own = m_tracer->ContextOf(element.record, *element.description->type);
                    if (own != kNone) m_elements[own] = true;
                    Walk(element, own == kNone ? context : own);
                }
                break;
            }
        }
    }
}

void Arrivals::MarkArrived(std::size_t mark) {
    if (mark == kNone) return;
    const std::size_t group = m_tracer->Marks()[mark].group;
    if (group == kNone)
        m_marks[mark] = true;
    else
        m_groups[group] = true;
}

void Arrivals::FindLevels(const PositionedText& text) {
    const auto& marks = m_tracer->Marks();
    const std::size_t levels = text.levels.size();
    m_levels.resize(levels);
    m_firstMark.assign(levels + 1, 0);
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const ReadTracer::Mark& mark = marks[i];
        ++m_firstMark[mark.level + 1];
        if (mark.group != kNone && m_groups[mark.group]) {
            // Of the values of a flag that one word clears, the only such word counts; without one, each
            // value does.
            const ReadTracer::Group& group = m_tracer->Groups()[mark.group];
            m_marks[i] = group.words == 0 || (group.words == 1 && group.wordMark == i);
            // A level that has each of several words counts, although none of them does.
            if (group.wordLevel == mark.level) m_levels[mark.level] = true;
        }
        if (!m_marks[i]) continue;
        m_levels[mark.level] = true;
        if (mark.because != kNone) m_levels[mark.because] = true;
    }
    for (std::size_t i = 0; i < levels; ++i) m_firstMark[i + 1] += m_firstMark[i];
    m_marksOfLevels.resize(marks.size());
    std::vector<std::size_t> next(m_firstMark.begin(), m_firstMark.end() - 1);
    for (std::size_t i = 0; i < marks.size(); ++i) m_marksOfLevels[next[marks[i].level]++] = i;

    m_contextOf.assign(levels, kNone);
    const auto& contexts = m_tracer->Contexts();
    for (std::size_t i = 1; i < contexts.size(); ++i) {
        m_contextOf[contexts[i].level] = i;
        if (m_elements[i]) m_levels[contexts[i].level] = true;
    }
    m_slotOf.assign(levels, kNone);
    const auto& slots = m_tracer->Slots();
    for (std::size_t i = 0; i < slots.size(); ++i) {
        const ReadTracer::Slot& slot = slots[i];
        if (slot.fresh == kNone) m_slotOf[slot.level] = i;
        // What was there before is gone because of this level.
        if (slot.displaced && slot.replacedBy == kNone && ContextArrived(slot.context))
            m_levels[slot.level] = true;
    }
    for (std::size_t i = levels; i-- > 0;) {
        if (m_tracer->Of(i).blocks) m_levels[i] = true;
        if (m_levels[i] && text.levels[i]->parent) m_levels[text.levels[i]->parent->number] = true;
    }
}

bool Arrivals::ContextArrived(std::size_t context) const {
    while (context != 0 && !m_elements[context]) {
        const std::size_t slot = m_tracer->Contexts()[context].slot;
        if (slot == kNone || m_tracer->Slots()[slot].replacedBy != kNone) return false;
        context = m_tracer->Slots()[slot].context;
    }
    return true;
}

std::size_t Arrivals::ReplacerOfContext(std::size_t context) const {
    for (; context != 0; context = m_tracer->Contexts()[context].parent) {
        const std::size_t slot = m_tracer->Contexts()[context].slot;
        if (slot == kNone) continue;
        const std::size_t later = m_tracer->Slots()[slot].replacedBy;
        if (later != kNone) return m_tracer->Slots()[later].level;
    }
    return kNone;
}

std::size_t Arrivals::ReplacerOf(std::size_t number) const {
    const ReadTracer::Mark& mark = m_tracer->Marks()[number];
    if (mark.replacedBy != kNone) return m_tracer->Marks()[mark.replacedBy].level;
    if (const std::size_t slot = m_slotOf[mark.level]; slot != kNone)
        if (const std::size_t later = m_tracer->Slots()[slot].replacedBy; later != kNone)
            return m_tracer->Slots()[later].level;
    return ReplacerOfContext(mark.context);
}

std::size_t Arrivals::ReplacerOfLevel(std::size_t level) const {
    if (m_contextOf[level] == kNone) return kNone;
    const std::size_t slot = m_tracer->Contexts()[m_contextOf[level]].slot;
    if (slot == kNone) return kNone;
    const std::size_t later = m_tracer->Slots()[slot].replacedBy;
    return later == kNone ? kNone : m_tracer->Slots()[later].level;
}

}  // namespace veka
