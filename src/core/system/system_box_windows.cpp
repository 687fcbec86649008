#include "core/system/handle_windows.h"
#include "core/system/system_box.h"

namespace orvel {

void Show_System_Box(const std::string& title, const std::string& text, bool is_failure)
{
    ::MessageBoxW(nullptr, From_Utf8_Text(text).c_str(), From_Utf8_Text(title).c_str(),
                  MB_OK | MB_SETFOREGROUND | (is_failure ? MB_ICONERROR : MB_ICONINFORMATION));
}

} // namespace orvel
