#include "parser/ReadTracer.h"

#include <charconv>
#include <cmath>
#include <functional>

namespace veka {

ReadTracer::ReadTracer(std::size_t levels)
    : m_traces(levels), m_contexts{{kNone, kNone, kNone, nullptr, nullptr, nullptr}} {}

CString ReadTracer::Text(int mark) {
    char text[16];
    const auto [end, error] = std::to_chars(text, text + sizeof text, mark);
    return CString(std::string_view(text, static_cast<std::size_t>(end - text)));
}

std::size_t ReadTracer::MarkOf(double number) const {
    if (!(number >= kFirst && number < kFirst + static_cast<double>(m_marks.size()))) return kNone;
    return number == std::floor(number) ? static_cast<std::size_t>(number) - kFirst : kNone;
}

std::size_t ReadTracer::MarkOf(std::string_view text) const {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? MarkOf(number) : kNone;
}

std::size_t ReadTracer::MarkOfFlag(const void* address, std::size_t context) const {
    const auto found = m_written.find(address);
    return found != m_written.end() && m_marks[found->second].context == context ? found->second : kNone;
}

std::size_t ReadTracer::ContextOf(const void* element, const std::type_info& type) const {
    const auto found = m_records.find(element);
    // An element that no level gave can stand where a record of another class was before.
    return found != m_records.end() && *m_contexts[found->second].type == type ? found->second : kNone;
}

void ReadTracer::Enter(const CECadClsLvl* level, const KeywordTable& table) {
    m_traces[Number(level)].tables.push_back(Intern(table));
}

std::uint32_t ReadTracer::Intern(const KeywordTable& table) {
    const auto [place, isNew] = m_tables.try_emplace(table, static_cast<std::uint32_t>(m_tables.size()));
    if (isNew) m_tableOrder.push_back(&place->first);
    return place->second;
}

void ReadTracer::PassedOver(const CECadClsLvl* level, const void* slot, bool holdsSomething) {
    const Slot& first = m_slots[m_slotsHere.at(slot)];
    Trace& trace = m_traces[Number(level)];
    trace.passedOverFor = first.level;
    // Without the first level the second one would be read, whatever comes later.
    const bool isSecond = m_passedOver++ == 0;
    if (isSecond && holdsSomething) m_traces[first.level].blocks = true;
}

int ReadTracer::Add(const CECadClsLvl* level, const CString& value, Loss loss) {
    const std::size_t mark = m_marks.size();
    const std::int32_t place =
        &value == &level->m_strName ? kName : static_cast<std::int32_t>(&value - level->m_aValues.begin());
    m_marks.push_back({Number(level), m_because, m_context, kNone, kNone, place, loss});
    return static_cast<int>(mark) + kFirst;
}

void ReadTracer::Wrote(int number, const void* field) {
    const auto mark = static_cast<std::size_t>(number - kFirst);
    const Context& context = m_contexts[m_context];
    const std::less<> less;
    // A variable beside the record is no field, and another one can have the address later.
    if (less(field, context.begin) || !less(field, context.end)) return;
    const auto [place, isNew] = m_written.try_emplace(field, mark);
    if (isNew) return;
    Mark& former = m_marks[place->second];
    if (former.context == m_context) former.replacedBy = mark;
    place->second = mark;
}

void ReadTracer::MarkOneWord(int number, int& field, bool isTheWord) {
    const auto mark = static_cast<std::size_t>(number - kFirst);
    const std::size_t former = MarkOf(field);
    if (former == kNone) {
        m_marks[mark].group = m_groups.size();
        m_groups.emplace_back();
        field = number;
    } else {
        m_marks[mark].group = m_marks[former].group;
    }
    Group& group = m_groups[m_marks[mark].group];
    if (!isTheWord) return;
    group.wordLevel = group.words == 0 || group.wordLevel == m_marks[mark].level ? m_marks[mark].level : kNone;
    ++group.words;
    group.wordMark = mark;
}

void ReadTracer::Replaced(const CECadClsLvl* level, const void* field, bool displaced) {
    const std::size_t number = m_slots.size();
    const Context& last = m_contexts[m_lastContext];
    const bool brought = m_lastContext != 0 && last.parent == m_context && last.level == Number(level) && last.slot == kNone;
    m_slots.push_back({m_context, Number(level), brought ? m_lastContext : kNone, kNone, displaced});
    if (brought) m_contexts[m_lastContext].slot = number;
    const auto [place, isNew] = m_slotsHere.try_emplace(field, number);
    if (isNew) return;
    if (m_slots[place->second].context == m_context) m_slots[place->second].replacedBy = number;
    place->second = number;
}

void ReadTracer::Begin(const CECadClsLvl* level, const void* record, std::size_t size, const std::type_info& type) {
    const auto* begin = static_cast<const char*>(record);
    m_contexts.push_back({Number(level), m_context, kNone, &type, begin, begin + size});
    m_context = m_contexts.size() - 1;
    m_records[record] = m_context;
}

void ReadTracer::End() {
    m_lastContext = m_context;
    m_context = m_contexts[m_context].parent;
}

}  // namespace veka
