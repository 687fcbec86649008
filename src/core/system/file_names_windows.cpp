#include "core/system/file_names.h"
#include "core/windows_names.h"

namespace orvel {

std::string Fault_Of_Name(std::string_view name)
{
    return name == "." || name == ".." ? std::string() : Fault_Of_Windows_Name(name);
}

} // namespace orvel
