#include "core/system/digest.h"

#include "core/system/handle_windows.h"

#include <algorithm>
#include <bcrypt.h>

namespace orvel {

namespace {

BCRYPT_ALG_HANDLE Sha256()
{
    static const BCRYPT_ALG_HANDLE algorithm = [] {
        BCRYPT_ALG_HANDLE opened = nullptr;
        ::BCryptOpenAlgorithmProvider(&opened, BCRYPT_SHA256_ALGORITHM, nullptr, 0);
        return opened;
    }();
    return algorithm;
}

} // namespace

struct Digest_State::Context {
    Context() { ::BCryptCreateHash(Sha256(), &Hash, nullptr, 0, nullptr, 0, 0); }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    ~Context() { ::BCryptDestroyHash(Hash); }
    BCRYPT_HASH_HANDLE Hash = nullptr;
};

Digest_State::Digest_State() : Held(std::make_unique<Context>()) {}
Digest_State::~Digest_State() = default;

void Digest_State::Add(std::string_view bytes)
{
    constexpr std::size_t Most = 1U << 30U;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(bytes.size(), Most))) {
        auto* const begin = reinterpret_cast<PUCHAR>(const_cast<char*>(bytes.data()));
        ::BCryptHashData(Held->Hash, begin, static_cast<ULONG>(std::min(bytes.size(), Most)), 0);
    }
}

std::array<unsigned char, 32> Digest_State::Finish()
{
    std::array<unsigned char, 32> digest{};
    ::BCryptFinishHash(Held->Hash, digest.data(), static_cast<ULONG>(digest.size()), 0);
    return digest;
}

} // namespace orvel
