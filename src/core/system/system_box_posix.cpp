#include "core/system/system_box.h"

namespace orvel {

void Show_System_Box(const std::string&, const std::string&, bool) {}

} // namespace orvel
