// Refused by Clang: will be destroyed at the end of the full-expression

#include "platform/CString.h"

CString Name();

char FirstByte() {
    const char* text = Name();
    return *text;
}
