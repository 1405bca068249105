// Values that many sections share.

#include "parser/CVEK_AsciiParser.h"
#include "parser/ReadingForms.h"

using namespace veka;

CVEKA_Coordinate* CVEK_AsciiParser::PointParser(CECadClsLvl* level) {
    auto point = std::make_unique<CVEKA_Coordinate>();
    Point(level, *point);
    return point.release();
}

CVEKA_Color* CVEK_AsciiParser::ColorParser(CECadClsLvl* level) {
    auto color = std::make_unique<CVEKA_Color>();
    Color(level, *color);
    return color.release();
}

CVEKA_CommentArray* CVEK_AsciiParser::COMMENTParser(CECadClsLvl* level) {
    auto comments = std::make_unique<CVEKA_CommentArray>();
    // Every child is a comment: its name is the number.
    for (CECadClsLvl* child : Children(level)) {
        auto comment = std::make_unique<CVEKA_Comment>();
        comment->Index = ToInt(child->m_strName);
        ByPosition(child, comment->Property, comment->Comment);
        comments->Add(std::move(comment));
    }
    return comments.release();
}

CVEKA_USGKeyArray* CVEK_AsciiParser::USGKeysParser(CECadClsLvl* level) {
    auto keys = std::make_unique<CVEKA_USGKeyArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "USGKEYS") continue;
        auto key = std::make_unique<CVEKA_USGKey>();
        for (CECadClsLvl* grandchild : Children(child)) {
            const CString& keyword = grandchild->m_strName;
            if (keyword == "USGTYPE") Last(grandchild, key->Type);
            else if (keyword == "USGVALUE") key->Value.Copy(grandchild->m_aValues);
        }
        keys->Add(std::move(key));
    }
    return keys.release();
}
