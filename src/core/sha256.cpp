#include "core/sha256.h"

#include "core/error.h"
#include "core/system/digest.h"
#include "core/system/file_handle.h"

#include <array>
#include <memory>

namespace orvel {

namespace {

constexpr std::size_t Window = 128U << 10U;

} // namespace

struct Sha256_Stream::State {
    Digest_State Digest;
};

Sha256_Stream::Sha256_Stream() : Held(std::make_unique<State>()) {}
Sha256_Stream::Sha256_Stream(Sha256_Stream&& other) noexcept = default;
Sha256_Stream& Sha256_Stream::operator=(Sha256_Stream&& other) noexcept = default;
Sha256_Stream::~Sha256_Stream() = default;

void Sha256_Stream::Add(std::string_view bytes)
{
    Held->Digest.Add(bytes);
}

std::string Sha256_Stream::Hexadecimal()
{
    constexpr std::string_view Digits = "0123456789abcdef";
    std::string text;
    for (const unsigned char byte : Held->Digest.Finish()) {
        text += Digits[byte >> 4U];
        text += Digits[byte & 15U];
    }
    return text;
}

std::string Sha256(std::string_view bytes)
{
    Sha256_Stream digest;
    digest.Add(bytes);
    return digest.Hexadecimal();
}

File_Digest Digest_Of_File(const std::filesystem::path& file)
{
    std::error_code error;
    File_Handle opened(file, File_Handle::Use::Read, error);
    Sha256_Stream digest;
    File_Digest read;
    const std::unique_ptr<char[]> window = std::make_unique_for_overwrite<char[]>(Window);
    while (!error) {
        const std::size_t got = opened.Read(window.get(), Window, error);
        if (got == 0)
            break;
        digest.Add({window.get(), got});
        read.Size += got;
    }
    if (error) {
        File_Error failure("The file " + file.string() + " cannot be read: " + error.message() + ".");
        failure.Code = error;
        throw failure;
    }
    read.Sha256 = digest.Hexadecimal();
    return read;
}

std::string Sha256_Of_File(const std::filesystem::path& file)
{
    return Digest_Of_File(file).Sha256;
}

const File_Digest& File_Digests::Of(const std::filesystem::path& file)
{
    const auto identity = Identity_Of(file);
    if (!identity)
        return Unidentified = Digest_Of_File(file); // which tells why it cannot be read
    const auto known = Known.find(*identity);
    if (known != Known.end())
        return known->second;
    return Known.emplace(*identity, Digest_Of_File(file)).first->second;
}

} // namespace orvel
