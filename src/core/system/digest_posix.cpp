#include "core/system/digest.h"

// The plain routines, although deprecated: the newer interface would pull most of the library, and its initialisation,
// into every program.
#define OPENSSL_SUPPRESS_DEPRECATED
#include <openssl/sha.h>

namespace orvel {

struct Digest_State::Context {
    SHA256_CTX Sha{};
};

Digest_State::Digest_State() : Held(std::make_unique<Context>())
{
    SHA256_Init(&Held->Sha);
}

Digest_State::~Digest_State() = default;

void Digest_State::Add(std::string_view bytes)
{
    SHA256_Update(&Held->Sha, bytes.data(), bytes.size());
}

std::array<unsigned char, 32> Digest_State::Finish()
{
    std::array<unsigned char, 32> digest{};
    static_assert(digest.size() == SHA256_DIGEST_LENGTH);
    SHA256_Final(digest.data(), &Held->Sha);
    return digest;
}

} // namespace orvel
