#include "core/system/network_file_system.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <sys/vfs.h>
#include <utility>

namespace orvel {

std::string Network_File_System(const std::filesystem::path& path)
{
    // Their signs in statfs, by the kernel's linux/magic.h and their makers.
    static constexpr std::array<std::pair<std::uint32_t, const char*>, 9> Kinds = {{{0x6969, "NFS"},
                                                                                    {0x517B, "SMB"},
                                                                                    {0xFF534D42, "SMB"},
                                                                                    {0xFE534D42, "SMB"},
                                                                                    {0x0BD00BD0, "Lustre"},
                                                                                    {0x47504653, "GPFS"},
                                                                                    {0x19830326, "BeeGFS"},
                                                                                    {0x00C36400, "Ceph"},
                                                                                    {0x01021997, "9P"}}};
    struct statfs about {};
    if (::statfs(path.c_str(), &about) != 0)
        return {};
    const auto sign = static_cast<std::uint32_t>(about.f_type);
    const auto* const found = std::ranges::find(Kinds, sign, &std::pair<std::uint32_t, const char*>::first);
    return found == Kinds.end() ? "" : found->second;
}

} // namespace orvel
