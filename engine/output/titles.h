#pragma once

#include "core/text.h"
#include "core/version.h"

#include <string>
#include <string_view>

namespace orvel::engine {

// Name and version of the engine, as in the series and for --version: "ORVEL engine 4.01".
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
