#include "output/record_members.h"

#include "core/code_page.h"

namespace orvel {

namespace {

constexpr std::size_t Digest_Digits = 64;

std::string Digest_Of(const Json_Value& value)
{
    const std::string& text = value.Text();
    const bool digest = text.size() == Digest_Digits && text.find_first_not_of("0123456789abcdef") == std::string::npos;
    if (!digest && !text.empty())
        throw File_Error("It is no SHA-256.");
    return text;
}

} // namespace

std::string Text_Of(const Json_Value& value)
{
    auto bytes = From_Utf8(value.Text());
    if (!bytes)
        throw File_Error("It holds a character that the code page lacks.");
    return std::move(*bytes);
}

std::string Text_In(const Json_Value& object, std::string_view name)
{
    return Member(object, name, Text_Of);
}

int Small(const Json_Value& value)
{
    constexpr long long Most = 1'000'000'000;
    const long long number = value.Whole_Number();
    if (number > Most)
        throw File_Error("It is too large.");
    return static_cast<int>(number);
}

Recorded_File File_Of(const Json_Value& value)
{
    return {.Name = Text_In(value, "name"),
            .Size = static_cast<std::uint64_t>(
                Member(value, "size", [](const Json_Value& size) { return size.Whole_Number(); })),
            .Sha256 = Member(value, "sha256", Digest_Of)};
}

void Put_File(Json_Writer& json, const Recorded_File& file)
{
    json.Member("name", file.Name);
    json.Member("size", static_cast<double>(file.Size));
    json.Member("sha256", file.Sha256);
}

} // namespace orvel
