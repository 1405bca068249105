#pragma once

#include "platform/CStringArray.h"
#include "platform/Exceptions.h"

/// A level that a position selects and that is not there. It ends the import: the file is outside the format.
class VEKA_API CInvalidAccessException : public CException {
public:
    /// `level` is the keyword whose child is missing, `position` the missing child's, counted from 0.
    CInvalidAccessException(const CString& level, INT_PTR position);
    ~CInvalidAccessException() override;
};
