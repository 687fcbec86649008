#pragma once

#include "core/system/file_identity.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace orvel {

// The SHA-256 of bytes, as 64 lower-case hexadecimal digits.
std::string Sha256(std::string_view bytes);

// The same for bytes that come in blocks.
class Sha256_Stream {
public:
    Sha256_Stream();
    Sha256_Stream(Sha256_Stream&& other) noexcept;
    Sha256_Stream& operator=(Sha256_Stream&& other) noexcept;
    ~Sha256_Stream();

    void Add(std::string_view bytes);
    std::string Hexadecimal(); // the last call

private:
    struct State;
    std::unique_ptr<State> Held;
};

// The same for a file of any size, read in blocks. Throws File_Error if it cannot be read.
std::string Sha256_Of_File(const std::filesystem::path& file);

struct File_Digest {
    std::uint64_t Size = 0;
    std::string Sha256;
};
File_Digest Digest_Of_File(const std::filesystem::path& file);

// Reads each file once, however many runs share it: one that keeps its identity (file_identity.h) keeps its digest.
class File_Digests {
public:
    const File_Digest& Of(const std::filesystem::path& file); // throws File_Error

private:
    std::map<File_Identity, File_Digest> Known;
    File_Digest Unidentified;
};

} // namespace orvel
