#pragma once

#include <array>
#include <memory>
#include <string_view>

namespace orvel {

// A SHA-256 in the making, by the library that the system has for it.
class Digest_State {
public:
    Digest_State();
    Digest_State(const Digest_State&) = delete;
    Digest_State& operator=(const Digest_State&) = delete;
    ~Digest_State();

    void Add(std::string_view bytes);
    std::array<unsigned char, 32> Finish();

private:
    struct Context;
    std::unique_ptr<Context> Held;
};

} // namespace orvel
