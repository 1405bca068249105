#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "inspect/Description.h"
#include "parser/ReadTracer.h"
#include "report/PositionReader.h"

namespace veka {

/// What of a text arrived in the model of an import: a traced import, and a walk through its model.
class Arrivals {
public:
    explicit Arrivals(const PositionedText& text);

    const ReadTracer& Tracer() const { return *m_tracer; }
    /// The text of the exception that ended the import; empty without one.
    const std::string& Failure() const { return m_failure; }
    /// True if the model would be another one without the level.
    bool Level(std::size_t level) const { return m_levels[level]; }
    bool Mark(std::size_t mark) const { return m_marks[mark]; }
    /// The marks of a level's values and name.
    std::span<const std::size_t> MarksOf(std::size_t level) const {
        return std::span(m_marksOfLevels)
            .subspan(m_firstMark[level], m_firstMark[level + 1] - m_firstMark[level]);
    }
    /// The level that took the field of a mark over, or `ReadTracer::kNone`: the value was lost otherwise.
    std::size_t ReplacerOf(std::size_t mark) const;
    /// The level that took the place of a level, or of a level around it; or `ReadTracer::kNone`.
    std::size_t ReplacerOfLevel(std::size_t level) const;
    /// The record of a level, for records that are in the model; or `ReadTracer::kNone`.
    bool ContextArrived(std::size_t context) const;

private:
    void Walk(const RecordView& record, std::size_t context);
    void MarkArrived(std::size_t mark);
    void FindLevels(const PositionedText& text);
    std::size_t ReplacerOfContext(std::size_t context) const;

    std::unique_ptr<ReadTracer> m_tracer;
    std::string m_failure;
    std::vector<bool> m_marks, m_groups, m_elements, m_levels;
    std::vector<std::size_t> m_firstMark, m_marksOfLevels;
    std::vector<std::size_t> m_contextOf, m_slotOf;  // of each level the last one
};

}  // namespace veka
