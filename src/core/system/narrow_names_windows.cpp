// The library turns the narrow text of a path into a wide one by the function of C for the next character, which knows
// the code page of the machine and not UTF-8. The linker puts this one in its place (src/CMakeLists.txt).
#include <cerrno>
#include <cstdint>
#include <cwchar>

namespace orvel {

namespace {

constexpr std::size_t Malformed = static_cast<std::size_t>(-1), Incomplete = static_cast<std::size_t>(-2);

std::size_t Refused()
{
    errno = EILSEQ;
    return Malformed;
}

std::size_t Length_By(unsigned char lead)
{
    return lead < 0x80 ? 1 : lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
}

bool Is_Shortest(std::uint32_t code, std::size_t length)
{
    constexpr std::uint32_t Least[] = {0, 0, 0x80, 0x800, 0x10000};
    return code >= Least[length] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

} // namespace

// A character of four bytes is two units: the first takes three bytes, the second waits in the state for the last.
extern "C" std::size_t __wrap_mbrtowc(wchar_t* to, const char* from, std::size_t most, std::mbstate_t* state)
{
    static thread_local std::mbstate_t own;
    std::mbstate_t& waiting = state != nullptr ? *state : own;
    if (from == nullptr)
        return 0;
    if (most == 0)
        return Incomplete;
    if (waiting != 0) {
        if (to != nullptr)
            *to = static_cast<wchar_t>(waiting);
        waiting = 0;
        return 1;
    }
    const auto lead = static_cast<unsigned char>(*from);
    const std::size_t length = Length_By(lead);
    if (length == 0)
        return Refused();
    if (length > most)
        return Incomplete;
    std::uint32_t code = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(from[i]);
        if ((next & 0xC0U) != 0x80U)
            return Refused();
        code = code << 6U | (next & 0x3FU);
    }
    if (!Is_Shortest(code, length))
        return Refused();
    if (length == 4)
        waiting = static_cast<std::mbstate_t>(0xDC00U + ((code - 0x10000U) & 0x3FFU));
    if (to != nullptr)
        *to = static_cast<wchar_t>(length == 4 ? 0xD800U + ((code - 0x10000U) >> 10U) : code);
    if (length == 4)
        return 3;
    return code == 0 ? 0 : length;
}

} // namespace orvel
