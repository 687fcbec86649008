#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orvel {

// Makes zip files byte by byte, also such as no writer would make.

struct Made_Entry {
    std::string Name, Bytes;
    unsigned Mode = 0100644;     // as another system's: type and rights
    unsigned Flags = 0;          // 1: encrypted
    std::uint32_t Says_Size = 0; // in place of its size, if not 0
    unsigned Method = 0;         // 0: stored
};

inline std::uint32_t Crc_Of(const std::string& bytes)
{
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char letter : bytes) {
        crc ^= static_cast<unsigned char>(letter);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~crc;
}

inline std::string Little(std::uint64_t number, int bytes)
{
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(number >> (8U * static_cast<unsigned>(i)));
    return text;
}

inline std::string Made_Zip(const std::vector<Made_Entry>& entries)
{
    std::string locals, central;
    for (const auto& entry : entries) {
        const std::uint64_t size = entry.Says_Size == 0 ? entry.Bytes.size() : entry.Says_Size;
        const std::string common = Little(20, 2) + Little(entry.Flags, 2) + Little(entry.Method, 2) + Little(0, 2) +
                                   Little(33, 2) + Little(Crc_Of(entry.Bytes), 4) + Little(entry.Bytes.size(), 4) +
                                   Little(size, 4) + Little(entry.Name.size(), 2) + Little(0, 2);
        central += "PK\x01\x02" + Little(0x0314, 2) + common + Little(0, 2) + Little(0, 2) + Little(0, 2) +
                   Little(static_cast<std::uint64_t>(entry.Mode) << 16U, 4) + Little(locals.size(), 4) + entry.Name;
        locals += "PK\x03\x04" + common + entry.Name + entry.Bytes;
    }
    return locals + central + "PK\x05\x06" + Little(0, 4) + Little(entries.size(), 2) + Little(entries.size(), 2) +
           Little(central.size(), 4) + Little(locals.size(), 4) + Little(0, 2);
}

} // namespace orvel
