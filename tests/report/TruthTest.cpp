// The report is true: a value or a level is said to be not read, or to be replaced, if and only if the model
// does not depend on it. The tests put other values in the place of each value, take each level away, and
// import again.

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <sstream>

#include "inspect/Json.h"
#include "model/CVEKA_Manager.h"
#include "parser/Sections.h"
#include "report/Arrivals.h"
#include "report/ImportReport.h"
#include "report/PositionReader.h"
#include "support/Samples.h"

namespace {

using namespace veka;

// The exceptions from the rule, each with its reason. There are no others.
//
// 1. In these levels the place of a child counts. To take a child away would move the others to other places,
//    so the child makes way for a level that nothing reads.
constexpr std::string_view kCountPlaces[] = {"DATE",      "MECHANICALPINS", "MECHANICALPIN", "PROPERTYLABELS",
                                             "PROPLABEL", "LINE",           "ARC",           "3DLINE",
                                             "3DARC",     "TAPERED"};
// 2. A level that fails the import: without it the import does not fail, and everything else arrives. The
//    report has an error for it.
// 3. A level around others of which one takes away what the other brought: without all of them nothing
//    changes. Each of them is judged by itself.

/// What is put in the place of a value. One of them changes each field that takes a value.
constexpr std::string_view kOthers[] = {"97531", "TRUE", "FALSE", "1", "\x01", "7.25", "RLC"};

class Truth {
public:
    explicit Truth(const std::string& file)
        : m_bytes(file),
          m_text(ReadWithPositions(file)),
          m_report(ReportImport(file, {std::numeric_limits<std::size_t>::max(), {}})) {
        m_model = Model();
        m_last.resize(m_text.levels.size());
        for (std::size_t i = m_last.size(); i-- > 0;) {
            m_last[i] = std::max(m_last[i], i);
            if (const PositionedLevel* parent = m_text.levels[i]->parent)
                m_last[parent->number] = std::max(m_last[parent->number], m_last[i]);
        }
        for (const Finding& finding : m_report.Findings()) {
            const FindingKind kind = Describe(finding.code).kind;
            if (kind != FindingKind::NotRead && kind != FindingKind::Replaced) continue;
            if (finding.whole)
                m_covered.push_back(finding.region);
            else if (finding.code == Code::GivesNothing)
                m_nothing.push_back(finding.region);
        }
    }

    /// Checks values and levels, about `most` of them; all where `most` is 0.
    void Check(unsigned most) {
        std::size_t all = 0;
        for (const PositionedLevel* level : m_text.levels) all += 1 + level->values.size();
        const auto step = static_cast<unsigned>(most == 0 || all <= most ? 1 : all / most + 1);
        test::Random random(static_cast<std::uint32_t>(all));
        for (PositionedLevel* level : m_text.levels) {
            if (!Closed(*level)) continue;
            for (std::size_t i = 0; i < level->values.size(); ++i)
                if (random() % step == 0) CheckValue(*level, i);
            if (random() % step == 0) CheckLevel(*level);
        }
    }
    unsigned Checked() const { return m_checked; }

private:
    /// In a level that was not closed nothing is read, and the structure says so.
    static bool Closed(const PositionedLevel& level) {
        for (const PositionedLevel* around = &level; around; around = around->parent)
            if (!around->closed) return false;
        return true;
    }
    std::string Model() const {
        std::vector<CECadClsLvl*> roots;
        for (const auto& root : m_text.roots)
            if (root.get() != m_without) roots.push_back(root.get());
        CVEK_AsciiParser parser;
        std::ostringstream out;
        try {
            Sections sections(parser);
            for (CECadClsLvl* root : roots) sections.Read(root);
            sections.MoveIntoModel();
        } catch (const std::exception& error) {
            out << "exception\n";
        }
        Json(out).Write(*parser.GetCVEKA_Manager());
        return out.str();
    }
    bool Fails() const { return m_model.starts_with("exception"); }

    void CheckValue(PositionedLevel& level, std::size_t index) {
        ++m_checked;
        CString& value = level.m_aValues[static_cast<INT_PTR>(index)];
        const CString former = value;
        bool counts = false;
        for (const std::string_view other : kOthers) {
            if (former == other || counts) continue;
            value = CString(other);
            counts = Model() != m_model;
        }
        value = former;
        const bool said = Covered(level.values[index]);
        EXPECT_NE(counts, said) << "the value " << former.GetString() << " of " << level.m_strName.GetString()
                                << " in line " << level.values[index].begin.line << Context();
    }

    void CheckLevel(PositionedLevel& level) {
        ++m_checked;
        const bool counts = LevelCounts(level);
        const bool said = Covered(level.region) || Has(m_nothing, level.region);
        if (counts != said) return;
        if (Fails() && said) return;  // exception 2
        if (!counts && !said)
            for (std::size_t i = level.number + 1; i <= m_last[level.number]; ++i)
                if (LevelCounts(*m_text.levels[i])) return;  // exception 3
        ADD_FAILURE() << "the level " << level.m_strName.GetString() << " in line " << level.region.begin.line
                      << (counts ? " counts" : " does not count") << Context();
    }

    /// True if the model changes without the level. A value can be what the field holds anyway, so other
    /// values are put in the place of its values first.
    bool LevelCounts(PositionedLevel& level) {
        std::vector<CStringArray> former;
        for (std::size_t i = level.number; i <= m_last[level.number]; ++i)
            former.push_back(m_text.levels[i]->m_aValues);
        bool counts = ModelWithout(level) != m_model;
        for (const std::string_view other : kOthers) {
            if (counts) break;
            int number = 0;
            for (std::size_t i = level.number; i <= m_last[level.number]; ++i)
                for (INT_PTR v = 0; v < m_text.levels[i]->m_aValues.GetSize(); ++v)
                    m_text.levels[i]->m_aValues[v] =
                        other == kOthers[0] ? CString(std::to_string(++number + 97531)) : CString(other);
            const std::string with = Model();
            counts = ModelWithout(level) != with;
        }
        for (std::size_t i = level.number; i <= m_last[level.number]; ++i)
            m_text.levels[i]->m_aValues = std::move(former[i - level.number]);
        return counts;
    }
    std::string ModelWithout(PositionedLevel& level) {
        if (!level.parent) {
            m_without = &level;
            std::string model = Model();
            m_without = nullptr;
            return model;
        }
        CECadClsLvlArray& children = *level.parent->m_pChildren;
        const bool placesCount = std::find(std::begin(kCountPlaces), std::end(kCountPlaces),
                                           level.parent->m_strName.View()) != std::end(kCountPlaces);
        CECadClsLvl stranger;
        stranger.m_strName = "\x02";
        if (placesCount)
            children.SetAt(level.place, &stranger);
        else
            children.RemoveAt(level.place);
        std::string model = Model();
        if (placesCount)
            children.SetAt(level.place, &level);
        else
            children.InsertAt(level.place, &level);
        return model;
    }

    static bool Has(const std::vector<Region>& regions, const Region& region) {
        return std::find(regions.begin(), regions.end(), region) != regions.end();
    }
    bool Covered(const Region& region) const {
        for (const Region& covered : m_covered)
            if (covered.Holds(region)) return true;
        return false;
    }
    std::string Context() const {
        std::string context = "; the report says:\n";
        for (const Finding& finding : m_report.Findings()) context += ReportLine("", finding) + '\n';
        return m_bytes.size() < 5000 ? context + "of the file:\n" + m_bytes : context.substr(0, 3000);
    }

    const std::string& m_bytes;
    PositionedText m_text;
    ImportReport m_report;
    std::string m_model;
    const CECadClsLvl* m_without = nullptr;
    std::vector<std::size_t> m_last;
    std::vector<Region> m_covered, m_nothing;
    unsigned m_checked = 0;
};

/// How many values and levels of a file are checked; all of them where the environment asks for it.
unsigned Most(unsigned most) {
    return std::getenv("VEKA_WHOLE_TRUTH") ? 0 : most;
}

void ExpectTheTruth(const std::string& file, unsigned most) {
    Truth truth(file);
    truth.Check(Most(most));
    EXPECT_TRUE(truth.Checked() > 0 || file.find('(') == std::string::npos || most != 0);
}

TEST(Truth, HoldsForTheFilesOfThePage) {
    for (const std::string& file : test::FilesOfThePage()) ExpectTheTruth(file, 0);
}

TEST(Truth, HoldsForTheCompleteFile) {
    ExpectTheTruth(test::ReadFile(test::ProjectFolder("tests") / "data" / "complete.veka"), 0);
}

TEST(Truth, HoldsForTheExamples) {
    for (const auto& entry : std::filesystem::directory_iterator(test::ProjectFolder("examples")))
        ExpectTheTruth(test::ReadFile(entry.path()), 100);
}

TEST(Truth, HoldsForAFlagThatOneWordClears) {
    // One FALSE counts, and of two none does, since the other one clears the flag as well.
    for (const std::string visible :
         {"(VISIBLE)", "(VISIBLE TRUE)", "(VISIBLE FALSE)", "(VISIBLE FALSE FALSE)",
          "(VISIBLE TRUE FALSE TRUE)", "(VISIBLE FALSE) (VISIBLE TRUE)", "(VISIBLE FALSE) (VISIBLE FALSE)",
          "(VISIBLE no FALSE \"\")"})
        ExpectTheTruth("(PADS (PAD (PADNAME P) (PTEXT (FID 1) " + visible + " (VALUE V))))", 0);
}

TEST(Truth, HoldsForGeneratedFiles) {
    for (const std::string& file : test::GeneratedFiles(24)) ExpectTheTruth(file, 20);
}

TEST(Truth, HoldsForTheCorpus) {
    VEKA_NEEDS_CORPUS();
    for (const auto& file : test::CorpusFiles()) ExpectTheTruth(test::ReadFile(file), 3);
}

}  // namespace
