#pragma once

#include "model/Record.h"

/// A numbered remark with the name of what it remarks on.
class VEKA_API CVEKA_Comment {
    VEKA_RECORD(CVEKA_Comment)
    VEKA_NUMBER(int, Index, 0, GetIndex, SetIndex)
    VEKA_TEXT(Property, GetProperty, SetProperty)
    VEKA_TEXT(Comment, GetComment, SetComment)
};

/// The remarks of one record.
VEKA_ARRAY(CVEKA_CommentArray, CVEKA_Comment)
