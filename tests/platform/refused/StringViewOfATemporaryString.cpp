// Refused: deleted function

#include "platform/CString.h"

CString Name();

std::string_view Dangling() {
    std::string_view view = Name();
    return view;
}
