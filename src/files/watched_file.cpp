#include "files/watched_file.h"

#include "core/error.h"
#include "core/sha256.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

std::string Digest_If_There(const fs::path& file)
try {
    return Sha256_Of_File(file);
} catch (const File_Error&) {
    return {};
}

} // namespace

Watched_File::Watched_File(fs::path file) : File(std::move(file)), Digest(Digest_If_There(File)) {}

bool Watched_File::Was_Changed(const fs::path& file) const
{
    return file == File && Digest_If_There(file) != Digest;
}

} // namespace orvel
