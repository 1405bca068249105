#pragma once

#include <exception>
#include <memory>
#include <span>
#include <utility>

#include "model/CVEKA_Manager.h"
#include "parser/CVEK_AsciiParser.h"

namespace veka {

/// One section of the model, which moves into the model in the end.
template <class T>
class Section {
public:
    explicit Section(T& field) : m_field(field) {}
    bool IsRead() const { return m_fresh != nullptr; }
    /// The field of the model.
    const T& Field() const { return m_field; }
    /// What the levels gave so far.
    const T& Content() const { return m_fresh ? *m_fresh : m_field; }
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

/// The sections of a file, on their way into the model.
///
/// A section is read as soon as its level has closed, so that only one level tree is in memory at a time. The model is the
/// same as if the sections were read when the whole file has been read: it changes only then.
class Sections {
public:
    explicit Sections(CVEK_AsciiParser& parser) : m_parser(parser), m_model(*parser.GetCVEKA_Manager()) {}

    /// Reads a top-level level; false if it is none that is read.
    bool Read(CECadClsLvl* level);
    /// Puts the sections into the model, those before a failed one; then raises what failed.
    void MoveIntoModel();

    /// Reads a top-level level by any reader; false if it is none that is read.
    template <class Reader>
    bool ReadBy(const Reader& reader, CECadClsLvl* level);

    /// The rows of the top-level levels.
    auto FontRows();
    auto SectionRows();

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

class ReadTracer;
/// Traces the reading of the top-level levels of a file, in their order. The levels must be `NumberedLevel`s. Raises what
/// the import would raise.
void TraceSections(ReadTracer& tracer, std::span<CECadClsLvl* const> levels);

}  // namespace veka
