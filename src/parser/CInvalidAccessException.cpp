#include "parser/CInvalidAccessException.h"

namespace {

CString Text(const CString& level, long long position) {
    CString text;
    text.Format("The level \"%s\" has no child at position %lld.", level.GetString(), position);
    return text;
}

}  // namespace

CInvalidAccessException::CInvalidAccessException(const CString& level, INT_PTR position)
    : CException(Text(level, position)) {}

CInvalidAccessException::~CInvalidAccessException() = default;
