#include "parser/CVEK_AsciiParser.h"

#include <exception>
#include <memory>

#include "leveltree/CECadCls.h"
#include "model/CVEKA_Manager.h"
#include "model/RecordMemory.h"
#include "parser/Rows.h"

using namespace veka;

CVEK_AsciiParser::CVEK_AsciiParser() : CVEKA_Manager(new ::CVEKA_Manager) {}

CVEK_AsciiParser::CVEK_AsciiParser(const CVEK_AsciiParser& other) = default;

CVEK_AsciiParser& CVEK_AsciiParser::operator=(const CVEK_AsciiParser& other) = default;

CVEK_AsciiParser::~CVEK_AsciiParser() {
    delete CVEKA_Manager;
}

namespace {

/// One section of the model, which moves into the model in the end.
template <class T>
class Section {
public:
    explicit Section(T& field) : m_field(field) {}
    bool IsRead() const { return m_fresh != nullptr; }
    /// The field of the model.
    const T& Field() const { return m_field; }
    /// Takes what a level gave; a later level replaces an earlier one.
    void Replace(std::unique_ptr<T> fresh) {
        if (!m_fresh) m_fresh = std::move(fresh);
        else if (fresh) *m_fresh = std::move(*fresh);
    }
    void MoveIntoModel() {
        if (m_fresh) m_field = std::move(*m_fresh);
    }

private:
    T& m_field;
    std::unique_ptr<T> m_fresh;
};

/// A form: a level that gives a section of the model. The last level counts.
template <class T>
struct LastLevel {
    Section<T>& section;
    T* (CVEK_AsciiParser::*method)(CECadClsLvl*);
    LastLevel(Section<T>& target, T* (CVEK_AsciiParser::*parser)(CECadClsLvl*)) : section(target), method(parser) {}
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        section.Replace(reader.New(method, from));
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        lister.Record("section", section.Field(), method);
    }
};

/// A form: as `LastLevel`, but the first level counts.
template <class T>
struct FirstLevel : LastLevel<T> {
    using LastLevel<T>::LastLevel;
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        if (!this->section.IsRead()) LastLevel<T>::Read(reader, from);
    }
};

template <class T>
FirstLevel(Section<T>&, T* (CVEK_AsciiParser::*)(CECadClsLvl*)) -> FirstLevel<T>;

/// The sections of a file, on their way into the model.
///
/// A section is read as soon as its level has closed, so that only one level tree is in memory at a time. The model is the
/// same as if the sections were read when the whole file has been read: it changes only then.
class Sections {
public:
    /// Q1: the first level of fonts counts, and the fonts are read before all other sections.
    auto FontRows() {
        return Rows(
            Row("FONTS", FirstLevel(m_fonts, &CVEK_AsciiParser::FontLibParser)));
    }
    auto SectionRows() {
        return Rows(
            Row("VEK", LastLevel(m_vek, &CVEK_AsciiParser::VEKParser)),
            Row("COLORTABLE", LastLevel(m_colors, &CVEK_AsciiParser::COLORTABLEParser)),
            Row("PADS", LastLevel(m_pads, &CVEK_AsciiParser::PADParser)),
            Row("PADSTACKS", LastLevel(m_padStacks, &CVEK_AsciiParser::PadStackParser)),
            Row("FOOTPRINTS", LastLevel(m_footprints, &CVEK_AsciiParser::FOOTPRINTParser)),
            Row("NSHAPE", Element(m_shapes, &CVEK_AsciiParser::NSHAPEParser)),
            Row("PARTITIONS", LastLevel(m_partitions, &CVEK_AsciiParser::PARTITIONParser)));
    }

    explicit Sections(CVEK_AsciiParser& parser) : m_parser(parser), m_model(*parser.GetCVEKA_Manager()) {}

    void Read(CECadClsLvl* level) {
        const FieldReader reader(m_parser);
        const Source source{level, nullptr, 0};
        // After a failure the rest of the file is read all the same: it may hold the fonts, and an error to be shown.
        if (FontRows().Try(reader, source) || m_failure) return;
        try {
            SectionRows().Try(reader, source);
        } catch (...) {
            m_failure = std::current_exception();
        }
    }
    /// Puts the sections into the model, those before a failed one; then raises what failed.
    void MoveIntoModel() {
        m_fonts.MoveIntoModel();
        m_vek.MoveIntoModel();
        m_colors.MoveIntoModel();
        m_pads.MoveIntoModel();
        m_padStacks.MoveIntoModel();
        m_footprints.MoveIntoModel();
        m_shapes.MoveElementTo(*m_model.GetNShapeArr(), 0, m_shapes.GetUpperBound());
        m_partitions.MoveIntoModel();
        if (m_failure) std::rethrow_exception(m_failure);
    }

private:
    CVEK_AsciiParser& m_parser;
    CVEKA_Manager& m_model;
    Section<CVEKA_FontArray> m_fonts{*m_model.GetLibFonts()};
    Section<CVEKA_VEK> m_vek{*m_model.GetVEK()};
    Section<CVEKA_ColorTableArray> m_colors{*m_model.GetColorTable()};
    Section<CVEKA_PadArray> m_pads{*m_model.GetPadArr()};
    Section<CVEKA_PadStackArray> m_padStacks{*m_model.GetPadStackArr()};
    Section<CVEKA_FootprintDBArray> m_footprints{*m_model.GetFootprintDBArr()};
    CVEKA_NSHAPEArray m_shapes;
    Section<CVEKA_PartitionDBArray> m_partitions{*m_model.GetPartitionDBArr()};
    std::exception_ptr m_failure;
};

}  // namespace

void veka::ListSections(KeywordLister& lister) {
    Sections sections(lister);
    lister.List(*lister.GetCVEKA_Manager(), Rows(sections.FontRows(), sections.SectionRows()));
}

int CVEK_AsciiParser::Parser() {
    CECadCls tree;
    tree.m_strFilePath = VEKAsciiFilePath;
    const RecordMemory::ImportScope import;
    Sections sections(*this);
    // Unbalanced levels are no reason to drop what did close.
    tree.ReadTopLevels(0, [&](CECadClsLvl* level) { sections.Read(level); });
    sections.MoveIntoModel();
    return 1;
}
