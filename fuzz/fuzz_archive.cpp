// Any bytes as an archive of an assessment (first byte even: its manifest alone, in a sound zip file): whatever opens
// has safe names and gives each of its files with the digest and the size that the manifest says.
#include "core/error.h"
#include "core/sha256.h"
#include "records/archive_reader.h"
#include "records/zip_maker.h"
#include "round_trip.h"

#include <cstdint>

namespace orvel {

namespace {

void Read_Archive(std::string_view bytes)
{
    auto archive = Archive_Reader::Of_Bytes(bytes);
    const auto& files = archive.Manifest().Files;
    for (std::size_t i = 0; i < files.size(); ++i) {
        std::string read;
        archive.Read(i, [&](std::string_view block) { read += block; });
        Demand_Same(Sha256(read), files[i].Sha256);
        Demand_Same(std::to_string(read.size()), std::to_string(files[i].Size));
        Demand_Same(Is_Safe_Name(files[i].Name) ? "safe" : "not safe", "safe");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    try {
        if (data[0] % 2 != 0) {
            Read_Archive(bytes);
            return 0;
        }
        const std::string manifest = Format_Manifest(Parse_Manifest(bytes));
        Demand_Same(manifest, Format_Manifest(Parse_Manifest(manifest)));
        Read_Archive(Made_Zip({{"archive.json", bytes}, {"files/a.txt", "hello"}}));
    } catch (const File_Error&) {
    }
    return 0;
}

} // namespace orvel
