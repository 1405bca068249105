// Refused by Clang: will be destroyed at the end of the full-expression

#include "platform/CString.h"

CString Name();

std::size_t Length() {
    std::string_view view = Name().View();
    return view.size();
}
