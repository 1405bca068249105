#include "host/Messages.h"

#include <ostream>

#include "platform/Printable.h"

namespace host {

void Messages::Say(std::string_view sentence) {
    m_err << "veka-host: " << veka::Printable(sentence) << '\n' << std::flush;
}

}  // namespace host
