#pragma once

#include "records/archive_manifest.h"
#include "records/zip_file.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Reads an archive of an assessment and trusts nothing in it: whatever opens holds exactly the files of its manifest,
// under names that stay below one directory, of the sizes that it gives.

class Archive_Reader {
public:
    // Throws File_Error with a sentence for a file that is no such archive, is cut or damaged, or would lay out what it
    // must not: a link, a name that leads elsewhere or stands there twice, an encrypted file, one that unpacks to more
    // than it may.
    explicit Archive_Reader(const std::filesystem::path& archive);
    static Archive_Reader Of_Bytes(std::string_view bytes); // which must live as long

    const Archive_Manifest& Manifest() const { return Held; }

    // Passes on the bytes of a file of the manifest, block by block. Throws File_Error, at the latest behind the last
    // block, if they have another digest.
    void Read(std::size_t file, const std::function<void(std::string_view)>& take);

private:
    Archive_Reader(Zip_Reader zip, std::string name);
    void Read_Manifest();
    void Match_Entries();
    [[noreturn]] void Refuse(const std::string& why) const;

    Zip_Reader Zip;
    std::string Name; // of the archive, for errors
    Archive_Manifest Held;
    std::vector<std::size_t> Entry_Of; // by file of the manifest
};

} // namespace orvel
