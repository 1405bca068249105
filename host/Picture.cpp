#include "host/Picture.h"

#include <algorithm>
#include <fstream>

#include "drawing/Drawing.h"
#include "files/Paths.h"
#include "host/OutputFile.h"

namespace host {

namespace {

// Below this a picture is small, however large the file of the part is.
constexpr std::size_t kSmallPicture = 1'000'000;

/// The scenes of a part, one after another.
class Views {
public:
    Views(const CVEKA_Manager& part, PictureOf of, drawing::Side side)
        : m_part(part), m_of(of), m_side(side) {
        if (Wants(PictureOf::Footprint)) AddFootprint();
        if (Wants(PictureOf::Symbol)) AddSymbol();
        if (Wants(PictureOf::Package)) AddPackage();
        if (of == PictureOf::Padstack) AddPadstacks();
    }
    std::vector<drawing::View> Release() { return std::move(m_views); }

private:
    bool Wants(PictureOf what) const { return m_of == what || m_of == PictureOf::All; }
    /// Nothing to show is a failure where it is what was asked for.
    void Miss(const char* what) const {
        if (m_of != PictureOf::All) throw drawing::DrawingError(std::string("the part has no ") + what);
    }
    void Add(drawing::Scene scene, drawing::Side side, drawing::Theme theme) {
        m_views.push_back({std::move(scene), side, theme});
    }

    void AddFootprint() {
        if (const CVEKA_FootprintDB* footprint = m_part.DefaultFootprint())
            Add(FootprintScene(m_part, *footprint), m_side, drawing::Theme::Dark);
        else
            Miss("footprint");
    }
    void AddSymbol() {
        if (const CVEKA_Symbol* symbol = m_part.DefaultSymbol())
            Add(SymbolScene(m_part, *symbol), drawing::Side::Both, drawing::Theme::Light);
        else
            Miss("symbol");
    }
    void AddPackage() {
        const CVEKA_Package* package = m_part.DefaultPackage();
        if (!package) return Miss("package");
        for (const drawing::Looking looking : {drawing::Looking::FromAbove, drawing::Looking::FromFront})
            Add(PackageScene(m_part, *package, looking), drawing::Side::Both, drawing::Theme::Light);
    }
    void AddPadstacks() {
        const CVEKA_FootprintDB* footprint = m_part.DefaultFootprint();
        const std::vector<const CVEKA_PadStack*> stacks =
            footprint ? PadStacksOf(m_part, *footprint) : std::vector<const CVEKA_PadStack*>();
        if (stacks.empty()) Miss("footprint that uses a padstack");
        // Thousands of padstacks are no picture for anyone.
        constexpr std::size_t kMost = 200;
        if (stacks.size() > kMost)
            throw drawing::DrawingError("the footprint uses " + std::to_string(stacks.size()) +
                                        " padstacks, and a picture shows at most " + std::to_string(kMost));
        for (const CVEKA_PadStack* stack : stacks)
            Add(PadStackScene(m_part, *stack), drawing::Side::Both, drawing::Theme::Dark);
    }

    const drawing::Part m_part;
    const PictureOf m_of;
    const drawing::Side m_side;
    std::vector<drawing::View> m_views;
};

}  // namespace

drawing::Sheet MakePicture(const CVEKA_Manager& part, PictureOf of, drawing::Side side) {
    std::vector<drawing::View> views = Views(part, of, side).Release();
    std::string why;
    for (const drawing::View& view : views)
        for (const std::string& remark : view.scene.Remarks())
            if (why.empty()) why = "; " + remark;
    drawing::Sheet sheet(std::move(views));
    if (sheet.IsEmpty()) throw drawing::DrawingError("there is nothing to draw" + why);
    return sheet;
}

void WriteSvgFile(const drawing::Sheet& sheet, const ImportedPart& part, const std::string& path) {
    const std::string svg = WriteSvg(sheet, std::max(kSmallPicture, part.content.bytes.size() * 10));
    std::ofstream out(veka::ToPath(CString(path)), std::ios::binary);
    out << svg;
    if (!out.flush()) throw OutputError("cannot write \"" + path + '"');
}

bool IsPngName(const std::string& path) {
    constexpr std::string_view kEnd = ".png";
    if (path.size() < kEnd.size()) return false;
    return std::equal(kEnd.begin(), kEnd.end(), path.end() - static_cast<std::ptrdiff_t>(kEnd.size()),
                      [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b - 'A' + 'a' : b); });
}

}  // namespace host
