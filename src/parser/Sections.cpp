#include "parser/Sections.h"

#include "parser/Rows.h"
#include "platform/Watch.h"

namespace veka {

namespace {

/// A form: a level that gives a section of the model. The last level counts.
template <class T>
struct LastLevel {
    Section<T>& section;
    T* (CVEK_AsciiParser::*method)(CECadClsLvl*);
    LastLevel(Section<T>& target, T* (CVEK_AsciiParser::*parser)(CECadClsLvl*)) : section(target), method(parser) {}
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        auto fresh = reader.New(method, from);
        reader.Replaces(from, section.Content(), &section);
        section.Replace(std::move(fresh));
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
        if (!this->section.IsRead())
            LastLevel<T>::Read(reader, from);
        else
            reader.PassesOver(from, this->method, &this->section);
    }
};

template <class T>
FirstLevel(Section<T>&, T* (CVEK_AsciiParser::*)(CECadClsLvl*)) -> FirstLevel<T>;

}  // namespace

/// Q1: the first level of fonts counts, and the fonts are read before all other sections.
auto Sections::FontRows() {
    return Rows(
        Row("FONTS", FirstLevel(m_fonts, &CVEK_AsciiParser::FontLibParser)));
}

auto Sections::SectionRows() {
    return Rows(
        Row("VEK", LastLevel(m_vek, &CVEK_AsciiParser::VEKParser)),
        Row("COLORTABLE", LastLevel(m_colors, &CVEK_AsciiParser::COLORTABLEParser)),
        Row("PADS", LastLevel(m_pads, &CVEK_AsciiParser::PADParser)),
        Row("PADSTACKS", LastLevel(m_padStacks, &CVEK_AsciiParser::PadStackParser)),
        Row("FOOTPRINTS", LastLevel(m_footprints, &CVEK_AsciiParser::FOOTPRINTParser)),
        Row("NSHAPE", Element(m_shapes, &CVEK_AsciiParser::NSHAPEParser)),  // Q2
        Row("PARTITIONS", LastLevel(m_partitions, &CVEK_AsciiParser::PARTITIONParser)));
}

template <class Reader>
bool Sections::ReadBy(const Reader& reader, CECadClsLvl* level) {
    const Source source{level, nullptr, 0};
    if (FontRows().Try(reader, source)) return true;
    // After a failure the rest of the file is read all the same: it may hold the fonts, and an error to be shown.
    if (m_failure) return true;
    try {
        return SectionRows().Try(reader, source);
    } catch (...) {
        if (Watch::HasEnded()) throw;
        m_failure = std::current_exception();
        return true;
    }
}

bool Sections::Read(CECadClsLvl* level) {
    return ReadBy(FieldReader(m_parser), level);
}

void Sections::MoveIntoModel() {
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

void ListSections(KeywordLister& lister) {
    Sections sections(lister);
    lister.List(*lister.GetCVEKA_Manager(), Rows(sections.FontRows(), sections.SectionRows()));
}

void TraceSections(ReadTracer& tracer, std::span<CECadClsLvl* const> levels) {
    Sections sections(tracer);
    const TracingReader reader(tracer);
    KeywordCollector top;
    Rows(sections.FontRows(), sections.SectionRows()).Describe(top);
    tracer.EnterTop(top.table);
    for (CECadClsLvl* level : levels) sections.ReadBy(reader, level);
    sections.MoveIntoModel();
}

}  // namespace veka
