#include "platform/Exceptions.h"

// Not inline: the type information of each class is then in one place, and a host can catch the exception by
// its type.
CException::~CException() = default;
CInvalidArgException::~CInvalidArgException() = default;
CFileException::~CFileException() = default;

void AfxThrowInvalidArgException() {
    throw CInvalidArgException();
}
