#include "platform/dialogs.h"

#include <ostream>

namespace vantrace {

void StreamDialogs::message(std::string_view text) {
    m_stream << text << std::endl;
}

}  // namespace vantrace
