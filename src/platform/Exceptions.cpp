#include "platform/Exceptions.h"

// Out of line, so that the type information of each stands in one place and a host can catch it by type.
CException::~CException() = default;
CInvalidArgException::~CInvalidArgException() = default;
CFileException::~CFileException() = default;

void AfxThrowInvalidArgException() {
    throw CInvalidArgException();
}
