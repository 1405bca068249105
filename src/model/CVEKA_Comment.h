#pragma once

#include "model/Record.h"

/// A numbered remark with the name of what it remarks on.
class VEKA_API CVEKA_Comment {
    VEKA_RECORD(CVEKA_Comment)
    VEKA_NUMBER(int, Index, 0, "number of the comment")
    VEKA_TEXT(Property, "name of the property that the comment is about")
    VEKA_TEXT(Comment, "text of the comment")
};

/// The remarks of one record.
VEKA_ARRAY(CVEKA_CommentArray, CVEKA_Comment)
