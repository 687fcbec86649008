#include "core/sha256.h"

#include "core/error.h"

#include <array>
#include <cstdio>
#include <memory>

// The plain routines, although deprecated: the newer interface would pull most of the library, and its initialisation,
// into every program.
#define OPENSSL_SUPPRESS_DEPRECATED
#include <openssl/sha.h>

namespace orvel {

namespace {

constexpr std::size_t Window = 64U << 10U;

class Digest {
public:
    Digest() { SHA256_Init(&State); }

    void Add(std::string_view bytes) { SHA256_Update(&State, bytes.data(), bytes.size()); }

    std::string Hexadecimal()
    {
        constexpr std::string_view Digits = "0123456789abcdef";
        std::array<unsigned char, SHA256_DIGEST_LENGTH> digest{};
        SHA256_Final(digest.data(), &State);
        std::string text;
        for (const unsigned char byte : digest) {
            text += Digits[byte >> 4U];
            text += Digits[byte & 15U];
        }
        return text;
    }

private:
    SHA256_CTX State{};
};

} // namespace

std::string Sha256(std::string_view bytes)
{
    Digest digest;
    digest.Add(bytes);
    return digest.Hexadecimal();
}

std::string Sha256_Of_File(const std::filesystem::path& file)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> opened(std::fopen(file.c_str(), "rb"), &std::fclose);
    if (!opened)
        throw File_Error("The file " + file.string() + " cannot be read.");
    Digest digest;
    std::string window(Window, '\0');
    while (const auto got = std::fread(window.data(), 1, window.size(), opened.get()))
        digest.Add(std::string_view(window).substr(0, got));
    if (std::ferror(opened.get()) != 0)
        throw File_Error("The file " + file.string() + " cannot be read.");
    return digest.Hexadecimal();
}

} // namespace orvel
