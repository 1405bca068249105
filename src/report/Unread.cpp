#include "report/Unread.h"

#include <algorithm>
#include <set>

#include "model/objects/ObjectKinds.h"
#include "parser/KeywordLister.h"
#include "parser/Numbers.h"
#include "report/Suggestions.h"

namespace veka {

namespace {

constexpr std::size_t kNone = ReadTracer::kNone;

constexpr std::string_view kObjectKinds[] = {
#define VEKA_KIND_NAME(Level, Number, Class, Method) Level,
    VEKA_OBJECT_KINDS(VEKA_KIND_NAME)
#undef VEKA_KIND_NAME
};

std::string Ordinal(INT_PTR place) {
    return "number " + std::to_string(place + 1);
}

class Unread {
public:
    Unread(const PositionedText& text, const Arrivals& arrivals, ReportWriter& report)
        : m_text(text), m_arrivals(arrivals), m_tracer(arrivals.Tracer()), m_report(report) {}

    void Find() {
        const std::vector<std::size_t> last = LastWithin();
        if (m_tracer.Failed() != kNone && !m_arrivals.Failure().empty()) ReportFailure();
        for (std::size_t i = 0; i < m_text.levels.size(); ++i) {
            const PositionedLevel& level = *m_text.levels[i];
            // All in a level that was not closed is lost, and the structure says so.
            if (!level.closed || Examine(level)) i = last[m_joined ? m_joined->number : i];
            m_joined = nullptr;
        }
    }

private:
    /// Of each level the last number within it.
    std::vector<std::size_t> LastWithin() const {
        std::vector<std::size_t> last(m_text.levels.size());
        for (std::size_t i = last.size(); i-- > 0;) {
            last[i] = std::max(last[i], i);
            if (const PositionedLevel* parent = m_text.levels[i]->parent)
                last[parent->number] = std::max(last[parent->number], last[i]);
        }
        return last;
    }
    void ReportFailure() {
        const PositionedLevel& failed = *m_text.levels[m_tracer.Failed()];
        m_report.AddLevel(Code::ImportFails, failed, false,
                          "the import ends here with an exception: " + Name(failed) +
                              " is read by the child at its own place alone, which is " +
                              Ordinal(failed.place) + ", and it has children but none there");
        const PositionedLevel* root = &failed;
        while (root->parent) root = root->parent;
        m_failedRoot = root->number;
    }

    /// Reports on a level and its values; true where all within the level is said too.
    bool Examine(const PositionedLevel& level) {
        const ReadTracer::Trace& trace = m_tracer.Of(level.number);
        if (m_failedRoot != kNone && !level.parent && level.number >= m_failedRoot &&
            trace.passedOverFor == kNone && !m_arrivals.Level(level.number) &&
            (level.number == m_failedRoot || (trace.reads == 0 && IsSection(level)))) {
            m_report.AddLevel(
                Code::AfterFailure, level, true,
                level.number == m_failedRoot
                    ? "the section " + Name(level) + " is lost, since the import fails in it"
                    : "the section " + Name(level) + " is not read, since the import has failed before");
            return true;
        }
        if (trace.passedOverFor != kNone) {
            m_report.AddLevel(Code::PassedOver, level, true,
                              "the section " + Name(level) +
                                  " is not read: only the first one counts, that of line " +
                                  LineOf(trace.passedOverFor));
            return true;
        }
        const bool read = trace.reads > trace.unknownObject;
        if (!read && !m_arrivals.Level(level.number)) {
            ReportUnreadLevel(level, trace);
            return true;
        }
        // A level that counts by its mere presence is read by nobody.
        if (m_arrivals.Level(level.number)) {
            ExamineValues(level);
            return false;
        }
        return ExamineLost(level);
    }

    // ---------------------------------------------------------------- Levels that nothing reads

    void ReportUnreadLevel(const PositionedLevel& level, const ReadTracer::Trace& trace) {
        const ReadTracer::Trace* around = level.parent ? &m_tracer.Of(level.parent->number) : nullptr;
        if (around && around->onlyOneChild) {
            ReportOtherChildren(level);
            return;
        }
        const std::vector<KeywordUse> uses = UsesOf(level);
        if (trace.found && trace.unknownObject == 0) {
            const auto neverRead = [](const KeywordUse& use) {
                return std::string_view(use.form) == "not read";
            };
            if (std::any_of(uses.begin(), uses.end(), neverRead)) {
                m_report.AddLevel(Code::NeverRead, level, true,
                                  Name(level) + " is known here, and nothing of it is read");
                return;
            }
            std::string places;
            for (const KeywordUse& use : uses)
                places += (places.empty() ? "" : " or ") +
                          (use.place >= 0                                            ? Ordinal(use.place)
                           : std::string_view(use.condition) == "as the first child" ? Ordinal(0)
                                                                                     : "");
            m_report.AddLevel(Code::WrongPlace, level, true,
                              Name(level) + " is read only as child " + places + " of " +
                                  (level.parent ? Name(*level.parent) : "the file") + "; this is child " +
                                  Ordinal(level.place));
            return;
        }
        const bool object = trace.unknownObject > 0;
        const Code code = object ? Code::UnknownObject : Code::UnknownLevel;
        std::string sentence;
        if (m_report.Wants(code)) {
            sentence = object ? "there is no object " + Name(level)
                              : "nothing reads " + Name(level) + " " + Where(level);
            sentence += Hint(level, object);
        }
        m_report.AddLevel(code, level, true, sentence);
    }

    /// Children of a level that reads one child alone: one finding for neighbours.
    void ReportOtherChildren(const PositionedLevel& first) {
        const PositionedLevel& parent = *first.parent;
        const PositionedLevel* last = &first;
        INT_PTR count = 1;
        for (; const PositionedLevel* next = parent.Child(first.place + count); ++count) {
            const bool valueBetween =
                std::any_of(parent.values.begin(), parent.values.end(), [&](const Region& value) {
                    return value.begin > first.region.begin && value.end < next->region.end;
                });
            if (m_tracer.Of(next->number).reads > 0 || m_arrivals.Level(next->number) || valueBetween) break;
            last = next;
        }
        m_joined = last;
        m_report.Add(Code::WrongPlace, {first.region.begin, last->region.end}, true, first.number,
                     first.m_strName.View(),
                     Name(first) +
                         (count > 1 ? " and " + std::to_string(count - 1) + " levels behind it are" : " is") +
                         " not read: as " + Name(parent) + " is child " + Ordinal(parent.place) +
                         " of its parent, only its own child " + Ordinal(parent.place) + " is read");
    }

    std::string Where(const PositionedLevel& level) const {
        return level.parent ? "in " + Name(*level.parent) : "at the top level";
    }

    /// What was probably meant by an unknown name.
    std::string Hint(const PositionedLevel& level, bool object) {
        const std::string_view name = level.m_strName.View();
        std::vector<std::string_view> words;
        for (const std::uint32_t table : TablesAround(level))
            for (const KeywordUse& use : m_tracer.Table(table))
                if (*use.keyword && std::string_view(use.keyword) != "*") words.emplace_back(use.keyword);
        if (object) words.insert(words.end(), std::begin(kObjectKinds), std::end(kObjectKinds));
        if (const std::string_view nearest = Nearest(name, words); !nearest.empty())
            return "; probably " + std::string(nearest) + " was meant";
        if (name.empty()) return "";
        std::set<std::string> parents;
        if (m_keywords.empty()) m_keywords = KeywordLister::AllKeywords();
        for (const KeywordRow& row : m_keywords)
            if (row.keyword == name) parents.insert(row.parent.empty() ? "the top level" : row.parent);
        std::string list;
        std::size_t count = 0;
        for (const std::string& parent : parents) {
            if (++count > 3) break;
            // Some levels are inside a level of their own name, and the inner one has other keywords.
            const bool same = level.parent && level.parent->m_strName.View() == parent;
            list += (list.empty() ? "" : ", ") + ((same ? "another " : "") + parent);
        }
        if (parents.size() > 3) list += " and others";
        return list.empty() ? "" : "; it is a keyword in " + list;
    }

    // ---------------------------------------------------------------- Levels that are read and leave nothing

    bool ExamineLost(const PositionedLevel& level) {
        if (const std::size_t by = m_arrivals.ReplacerOfLevel(level.number); by != kNone) {
            m_report.AddLevel(Code::LevelReplaced, level, true,
                              Name(level) + " is read and then replaced by the later " +
                                  Name(*m_text.levels[by]) + " of line " + LineOf(by));
            return true;
        }
        bool marked = false;
        for (const std::size_t mark : m_arrivals.MarksOf(level.number)) {
            if (m_tracer.Marks()[mark].value == ReadTracer::kName) continue;
            marked = true;
            if (const std::size_t by = m_arrivals.ReplacerOf(mark); by != kNone && by != level.number) {
                m_report.AddLevel(Code::ValueReplaced, level, true,
                                  "the value of " + Name(level) + " is read and then replaced by that of " +
                                      Name(*m_text.levels[by]) + " in line " + LineOf(by));
                return true;
            }
        }
        if (marked && level.m_pChildren->IsEmpty()) {
            m_report.AddLevel(Code::LostInCopy, level, true,
                              "the value of " + Name(level) +
                                  " is read and then lost, since the record keeps no such value when it is "
                                  "copied into the model");
            return true;
        }
        if (!marked && !level.values.empty()) {
            for (const KeywordUse& use : UsesOf(level)) {
                const bool exactly = std::string_view(use.form).find("exactly") != std::string_view::npos;
                if (!exactly && std::string_view(use.condition) != "where the level has a child") continue;
                m_report.AddLevel(
                    Code::UnmetCondition, level, true,
                    "the values of " + Name(level) + " are not read: they are read only " +
                        (exactly ? "where there are exactly as many as there are fields" : use.condition));
                return true;
            }
        }
        m_report.AddLevel(Code::GivesNothing, level, false,
                          level.values.empty() && level.m_pChildren->IsEmpty()
                              ? Name(level) + " is empty and changes nothing"
                              : "nothing of " + Name(level) + " is in the model");
        ExamineValues(level);
        return false;
    }

    // ---------------------------------------------------------------- Values

    /// What became of one value.
    struct Fate {
        bool arrived = false;
        bool marked = false;
        std::size_t mark = kNone;  // one that arrived, or one that did not
        Loss loss = Loss::None;
        bool whole = false;  // arrived somewhere without a loss
    };

    void ExamineValues(const PositionedLevel& level) {
        std::vector<Fate> fates(level.values.size() + 1);  // the last one is that of the name
        for (const std::size_t number : m_arrivals.MarksOf(level.number)) {
            const ReadTracer::Mark& mark = m_tracer.Marks()[number];
            Fate& fate = fates[mark.value == ReadTracer::kName ? level.values.size()
                                                               : static_cast<std::size_t>(mark.value)];
            fate.marked = true;
            if (m_arrivals.Mark(number)) {
                fate.arrived = true;
                fate.mark = number;
                fate.whole = fate.whole || mark.loss == Loss::None;
                if (fate.loss == Loss::None) fate.loss = mark.loss;
            } else if (!fate.arrived) {
                fate.mark = number;
            }
        }
        for (std::size_t i = 0; i < fates.size(); ++i) {
            if (fates[i].arrived && fates[i].loss != Loss::None && !fates[i].whole)
                ReportLoss(level, i, fates[i].loss);
        }
        const bool join = level.m_pChildren->IsEmpty();
        for (std::size_t i = 0; i < level.values.size(); ++i) {
            if (fates[i].arrived) continue;
            std::size_t by = kNone;
            const Code code = CodeOf(fates[i], by);
            std::size_t end = i + 1;
            for (std::size_t other = kNone; join && end < level.values.size() && !fates[end].arrived; ++end)
                if (CodeOf(fates[end], other) != code || other != by) break;
            ReportLost(level, i, end, code, by);
            i = end - 1;
        }
    }

    Code CodeOf(const Fate& fate, std::size_t& by) const {
        by = kNone;
        if (!fate.marked) return Code::SurplusValue;
        by = m_arrivals.ReplacerOf(fate.mark);
        return by == kNone ? Code::LostInCopy : Code::ValueReplaced;
    }

    /// Values that did not arrive, all for the same reason.
    void ReportLost(const PositionedLevel& level, std::size_t begin, std::size_t end, Code code,
                    std::size_t by) {
        std::string sentence;
        if (m_report.Wants(code)) {
            const std::string first = InQuotes(level.m_aValues[static_cast<INT_PTR>(begin)].View());
            const bool several = end - begin > 1;
            sentence =
                several ? std::to_string(end - begin) + " values of " + Name(level) + " from " + first + " on"
                        : "the value " + first + " of " + Name(level);
            const char* const verb = several ? " are" : " is";
            if (code == Code::SurplusValue)
                sentence += verb + (" not read" + HowRead(level)) +
                            CommentHint(level.m_aValues[static_cast<INT_PTR>(begin)].View());
            else if (code == Code::ValueReplaced)
                sentence += verb + std::string(" read and then replaced by ") + Name(*m_text.levels[by]) +
                            " in line " + LineOf(by);
            else
                sentence += verb + std::string(
                                       " read and then lost, since the record keeps no such value when it is "
                                       "copied into the model");
        }
        m_report.Add(code, {level.values[begin].begin, level.values[end - 1].end}, true, level.number,
                     level.m_aValues[static_cast<INT_PTR>(begin)].View(), std::move(sentence));
    }

    static std::string CommentHint(std::string_view value) {
        return value.starts_with("//") ? "; a comment begins at the first byte of a line" : "";
    }

    /// How many values the rows take that read a level.
    std::string HowRead(const PositionedLevel& level) const {
        const ReadTracer::Trace& trace = m_tracer.Of(level.number);
        if (trace.reads <= trace.unknownObject) return ": only that the level is there counts";
        std::vector<KeywordUse> uses = UsesOf(level);
        for (const std::uint32_t table : m_tracer.Of(level.number).tables)
            for (const KeywordUse& use : m_tracer.Table(table))
                if (!*use.keyword) uses.push_back(use);
        for (const char* form : {"first value", "last value"})
            for (const KeywordUse& use : uses)
                if (std::string_view(use.form) == form) return std::string(": the ") + form + " counts";
        for (const KeywordUse& use : uses)
            for (const std::string_view form : {"by position", "point", "colour"})
                if (std::string_view(use.form) == form)
                    return ": the level has more values than there are fields";
        return ": the level takes no values of its own";
    }

    void ReportLoss(const PositionedLevel& level, std::size_t value, Loss loss) {
        const bool isName = value == level.values.size();
        const CString& text = isName ? level.m_strName : level.m_aValues[static_cast<INT_PTR>(value)];
        const std::string quoted = InQuotes(text.View());
        const std::string of = isName ? "the name of the level" : Name(level);
        Code code = Code::NoNumber;
        std::string sentence;
        switch (loss) {
            case Loss::None:
                return;
            case Loss::NoNumber:
                sentence = quoted + " in " + of + " is no number and counts as 0";
                break;
            case Loss::TextAfterNumber:
                code = Code::TextAfterNumber;
                sentence = "of " + quoted + " in " + of + " only the number at the beginning is read" +
                           NumberHint(text.View());
                break;
            case Loss::Wraps:
                code = Code::NumberWraps;
                sentence = quoted + " in " + of + " does not fit into 32 bits and becomes " +
                           std::to_string(ToInt(text));
                break;
            case Loss::OutOfRange:
                code = Code::OutOfRange;
                sentence = quoted + " in " + of + " is too " +
                           (ToDouble(text) == 0 ? "small and becomes 0" : "large and becomes infinite");
                break;
            case Loss::NoFlag:
                code = Code::NoFlag;
                sentence = quoted + " in " + of + " is neither TRUE nor FALSE and clears the flag";
                break;
            case Loss::NotOne:
                code = Code::FlagNeverSet;
                sentence = quoted + " in " + of + " clears the flag, which only the number 1 sets";
                break;
            case Loss::NotByteOne:
                code = Code::FlagNeverSet;
                sentence = quoted + " in " + of + " clears the flag, which only the one byte of code 1 sets";
                break;
            case Loss::NeverSet:
                code = Code::FlagNeverSet;
                sentence =
                    quoted + " in " + of + " does nothing: only FALSE clears the flag, and no word sets it";
                break;
            case Loss::UnknownTarget:
                code = Code::UnknownTarget;
                sentence = quoted + " in " + of + " is neither RLC nor RL and counts as no target";
                break;
            case Loss::NoPoint:
                code = Code::OddVersion;
                sentence = "the version " + quoted + " has no point, so both of its numbers are 0";
                break;
            case Loss::MinorNumber:
                code = Code::OddVersion;
                sentence = "the minor number of the version " + quoted + " becomes " +
                           std::to_string(ToInt(text.Right(text.Find('.')))) +
                           ": it is read from the end, with as many digits as the major number has";
                break;
        }
        if (isName)
            m_report.Add(code, level.nameRegion, false, level.number, text.View(), std::move(sentence));
        else
            m_report.AddValue(code, level, value, std::move(sentence));
    }

    /// What was probably meant by a number with text behind it.
    static std::string NumberHint(std::string_view text) {
        const std::size_t comma = text.find(',');
        if (comma != std::string_view::npos &&
            text.find_first_not_of("+-0123456789,") == std::string_view::npos)
            return "; a decimal point is a point";
        const std::size_t x = text.find_first_of("xX");
        if (x != std::string_view::npos && text.substr(0, x).ends_with('0'))
            return "; there are no hexadecimal numbers";
        return "";
    }

    // ---------------------------------------------------------------- Words

    static std::string Name(const PositionedLevel& level) {
        return level.m_strName.IsEmpty() ? "the level without a name" : std::string(ShortName(level));
    }
    static std::string ShortName(const PositionedLevel& level) {
        std::string text = InQuotes(level.m_strName.View());
        return text.substr(1, text.size() - 2);
    }
    std::string LineOf(std::size_t level) const {
        return std::to_string(m_text.levels[level]->region.begin.line);
    }

    const std::vector<std::uint32_t>& TablesAround(const PositionedLevel& level) const {
        return level.parent ? m_tracer.Of(level.parent->number).tables : m_tracer.TopTables();
    }
    /// What the rows around a level say on levels of its name.
    std::vector<KeywordUse> UsesOf(const PositionedLevel& level) const {
        std::vector<KeywordUse> uses;
        for (const std::uint32_t table : TablesAround(level))
            for (const KeywordUse& use : m_tracer.Table(table))
                if (level.m_strName == use.keyword) uses.push_back(use);
        return uses;
    }
    bool IsSection(const PositionedLevel& level) const { return !UsesOf(level).empty(); }

    const PositionedText& m_text;
    const Arrivals& m_arrivals;
    const ReadTracer& m_tracer;
    ReportWriter& m_report;
    std::size_t m_failedRoot = kNone;
    const PositionedLevel* m_joined = nullptr;  // the last level of a finding on neighbours
    std::vector<KeywordRow> m_keywords;
};

}  // namespace

void FindUnread(const PositionedText& text, const Arrivals& arrivals, ReportWriter& report) {
    Unread(text, arrivals, report).Find();
}

}  // namespace veka
