#include "parser/CVEK_AsciiParser.h"

#include <exception>
#include <memory>

#include "leveltree/CECadCls.h"
#include "model/RecordMemory.h"
#include "parser/ReadingForms.h"

using namespace veka;

CVEK_AsciiParser::CVEK_AsciiParser() : CVEKA_Manager(new ::CVEKA_Manager) {}

CVEK_AsciiParser::CVEK_AsciiParser(const CVEK_AsciiParser& other) = default;

CVEK_AsciiParser& CVEK_AsciiParser::operator=(const CVEK_AsciiParser& other) = default;

CVEK_AsciiParser::~CVEK_AsciiParser() {
    delete CVEKA_Manager;
}

namespace {

/// What the sections of a file give, on its way into the model.
///
/// A section is read as soon as it has closed, so that only one level tree is in memory at a time. Nobody sees that:
/// the model changes once the file has been read to its end, as if the sections were read only then.
class Sections {
public:
    explicit Sections(CVEK_AsciiParser& parser) : m_parser(parser) {}

    void Read(CECadClsLvl* level) {
        // The fonts come first, wherever they stand, and only their first level counts.
        if (level->m_strName == "FONTS") {
            if (!m_fonts) m_fonts.reset(m_parser.FontLibParser(level));
        } else if (!m_failure) {
            // The rest of the file is read all the same: it may hold the fonts, and an error to be shown.
            try {
                ReadSection(level);
            } catch (...) {
                m_failure = std::current_exception();
            }
        }
    }
    /// Puts the sections into the model, those before a failed one; then raises what failed.
    void MoveTo(CVEKA_Manager& model) {
        Move(m_fonts, *model.GetLibFonts());
        Move(m_vek, *model.GetVEK());
        Move(m_colors, *model.GetColorTable());
        Move(m_pads, *model.GetPadArr());
        Move(m_padStacks, *model.GetPadStackArr());
        Move(m_footprints, *model.GetFootprintDBArr());
        m_shapes.MoveElementTo(*model.GetNShapeArr(), 0, m_shapes.GetUpperBound());
        Move(m_partitions, *model.GetPartitionDBArr());
        if (m_failure) std::rethrow_exception(m_failure);
    }

private:
    void ReadSection(CECadClsLvl* level) {
        const CString& keyword = level->m_strName;
        if (keyword == "VEK") Keep(m_vek, m_parser.VEKParser(level));
        else if (keyword == "COLORTABLE") Keep(m_colors, m_parser.COLORTABLEParser(level));
        else if (keyword == "PADS") Keep(m_pads, m_parser.PADParser(level));
        else if (keyword == "PADSTACKS") Keep(m_padStacks, m_parser.PadStackParser(level));
        else if (keyword == "FOOTPRINTS") Keep(m_footprints, m_parser.FOOTPRINTParser(level));
        // One level a shape: all are kept.
        else if (keyword == "NSHAPE") Append(m_shapes, m_parser.NSHAPEParser(level));
        else if (keyword == "PARTITIONS") Keep(m_partitions, m_parser.PARTITIONParser(level));
    }
    /// Keeps a section's fresh result; a later one takes the place of an earlier one.
    template <class T>
    static void Keep(std::unique_ptr<T>& kept, T* fresh) {
        std::unique_ptr<T> owner(fresh);
        if (!kept) kept = std::move(owner);
        else if (owner) *kept = std::move(*owner);
    }
    template <class T>
    static void Move(const std::unique_ptr<T>& kept, T& field) {
        if (kept) field = std::move(*kept);
    }

    CVEK_AsciiParser& m_parser;
    std::unique_ptr<CVEKA_FontArray> m_fonts;
    std::unique_ptr<CVEKA_VEK> m_vek;
    std::unique_ptr<CVEKA_ColorTableArray> m_colors;
    std::unique_ptr<CVEKA_PadArray> m_pads;
    std::unique_ptr<CVEKA_PadStackArray> m_padStacks;
    std::unique_ptr<CVEKA_FootprintDBArray> m_footprints;
    CVEKA_NSHAPEArray m_shapes;
    std::unique_ptr<CVEKA_PartitionDBArray> m_partitions;
    std::exception_ptr m_failure;
};

}  // namespace

int CVEK_AsciiParser::Parser() {
    CECadCls tree;
    tree.m_strFilePath = VEKAsciiFilePath;
    const RecordMemory::Import import;
    Sections sections(*this);
    // Unbalanced levels are no reason to drop what did close.
    tree.ReadTopLevels(0, [&](CECadClsLvl* level) { sections.Read(level); });
    sections.MoveTo(*CVEKA_Manager);
    return 1;
}
