// Values that many sections share.

#include "model/CVEKA_Comment.h"
#include "model/CVEKA_USGKey.h"
#include "parser/Rows.h"

using namespace veka;

CVEKA_Coordinate* CVEK_AsciiParser::PointParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Coordinate& point) { return Rows(Own(Point(point))); });
}

CVEKA_Color* CVEK_AsciiParser::ColorParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Color& color) { return Rows(Own(Color(color))); });
}

CVEKA_CommentArray* CVEK_AsciiParser::COMMENTParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_CommentArray& comments) { return Rows(
        // Every child is a comment, and its name is the number.
        Any(Element(comments, [](CVEKA_Comment& comment) { return Rows(
            Own(Name(comment.Index)),
            Own(ByPosition(comment.Property, comment.Comment)));
        })));
    });
}

CVEKA_USGKeyArray* CVEK_AsciiParser::USGKeysParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_USGKeyArray& keys) { return Rows(
        Row("USGKEYS", Element(keys, &CVEK_AsciiParser::USGKeyParser)));
    });
}

CVEKA_USGKey* CVEK_AsciiParser::USGKeyParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_USGKey& key) { return Rows(
        Row("USGTYPE", Last(key.Type)),
        Row("USGVALUE", NewList(key.Value)));
    });
}
