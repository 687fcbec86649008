#include "core/windows_names.h"

#include "core/text.h"

#include <algorithm>
#include <array>

namespace orvel {

namespace {

constexpr std::array<std::string_view, 6> Devices = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
constexpr std::array<std::string_view, 2> Numbered_Devices = {"COM", "LPT"};
constexpr std::array<std::string_view, 12> Device_Numbers = {
    "1", "2", "3", "4", "5", "6", "7", "8", "9", "\u00B9", "\u00B2", "\u00B3"}; // superscripts count, too
constexpr std::string_view Not_In_Names = "<>:\"|?*\\/";

bool Is_Device(std::string_view name)
{
    const std::string stem = Upper(Trim(name.substr(0, name.find('.'))));
    if (std::ranges::find(Devices, stem) != Devices.end())
        return true;
    return std::ranges::any_of(Numbered_Devices, [&](std::string_view device) {
        return stem.starts_with(device) &&
               std::ranges::find(Device_Numbers, stem.substr(device.size())) != Device_Numbers.end();
    });
}

} // namespace

std::string Fault_Of_Windows_Name(std::string_view name)
{
    const std::string quoted = "'" + std::string(name) + "'";
    if (Is_Device(name))
        return "Windows keeps the name " + quoted + " for a device.";
    if (name.ends_with(' ') || name.ends_with('.'))
        return "Windows drops the blank or dot at the end of the name " + quoted + ".";
    if (std::ranges::any_of(name, [](char c) {
            return static_cast<unsigned char>(c) < ' ' || Not_In_Names.find(c) != std::string_view::npos;
        }))
        return "Windows takes none of the characters < > : \" | ? * in a name, as in " + quoted + ".";
    return {};
}

} // namespace orvel
