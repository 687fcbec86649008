#include "core/system/network_file_system.h"

#include "core/system/handle_windows.h"

namespace orvel {

std::string Network_File_System(const std::filesystem::path& path)
{
    std::error_code error;
    const auto whole = std::filesystem::absolute(path, error);
    const bool elsewhere =
        whole.wstring().starts_with(LR"(\\)") || ::GetDriveTypeW(whole.root_path().c_str()) == DRIVE_REMOTE;
    return !error && elsewhere ? "SMB" : "";
}

} // namespace orvel
