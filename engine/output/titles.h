#pragma once

#include "core/text.h"
#include "core/version.h"

#include <string>
#include <string_view>

namespace orvel::engine {

// What the engine calls itself in the series and when it is asked: "ORVEL engine 4.01".
inline std::string Engine_Title()
{
    return "ORVEL engine " + std::string(Engine_Version_Text);
}

// The head of an output file: "ORVEL ENGINE 4.01 - WATER BALANCE".
inline std::string File_Title(std::string_view content)
{
    return Upper(Engine_Title()) + " - " + std::string(content);
}

} // namespace orvel::engine
