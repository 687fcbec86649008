#include "report/overview_settings.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/json.h"
#include "core/json_reader.h"
#include "core/numbers.h"
#include "core/text.h"
#include "report/overview.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t Largest_Settings = 1U << 20U;

std::string Text_Of(const Json_Value& value)
{
    return From_Utf8(value.Text()).value_or("");
}

void Check_Bounds(const std::vector<double>& bounds)
{
    const bool rising = std::ranges::adjacent_find(bounds, std::greater_equal<>()) == bounds.end();
    if (bounds.empty() || bounds.size() >= Most_Classes || !rising || bounds.front() <= 0)
        throw File_Error("The classes need one to four bounds: positive numbers, each larger than the one before.");
}

Overview_Settings Parse(std::string_view text)
{
    const Json_Value json = Parse_Json(text);
    Overview_Settings settings;
    settings.Bounds.clear();
    for (const auto& bound : json.At("bounds").Elements())
        settings.Bounds.push_back(bound.Number());
    Check_Bounds(settings.Bounds);
    for (const auto& choice : json.At("choices").Elements()) {
        auto& read = settings.Choices.emplace_back();
        read.Name = Text_Of(choice.At("name"));
        for (const auto& code : choice.At("locations").Elements())
            read.Codes.push_back(Text_Of(code));
    }
    settings.Chosen = Text_Of(json.At("chosen"));
    return settings;
}

} // namespace

Overview_Settings Read_Overview_Settings(const fs::path& app_path)
{
    const fs::path file = Found_Or_New(app_path, Overview_Settings_Name);
    std::error_code error;
    if (fs::symlink_status(file, error).type() == fs::file_type::not_found)
        return {};
    const std::string text = Read_Whole(file, Largest_Settings);
    try {
        return Parse(text);
    } catch (const File_Error& damage) {
        throw File_Error(Located(file.string(), damage));
    }
}

void Write_Overview_Settings(const fs::path& app_path, const Overview_Settings& settings)
{
    Json_Writer json;
    json.Object([&] {
        json.Key("bounds");
        json.Array([&] {
            for (const double bound : settings.Bounds)
                json.Value(bound);
        });
        json.Key("choices");
        json.Array([&] {
            for (const auto& choice : settings.Choices) {
                json.Object([&] {
                    json.Member("name", choice.Name);
                    json.Key("locations");
                    json.Array([&] {
                        for (const auto& code : choice.Codes)
                            json.Value(code);
                    });
                });
            }
        });
        json.Member("chosen", settings.Chosen);
    });
    Write_Whole(Found_Or_New(app_path, Overview_Settings_Name), json.Written());
}

std::vector<std::string> Chosen_Codes(const Overview_Settings& settings)
{
    const auto chosen = std::ranges::find(settings.Choices, settings.Chosen, &Location_Choice::Name);
    return chosen == settings.Choices.end() ? std::vector<std::string>() : chosen->Codes;
}

std::vector<double> Parse_Bounds(std::string_view text)
{
    std::vector<double> bounds;
    while (!text.empty()) {
        const auto part = Trim(text.substr(0, text.find(';')));
        text.remove_prefix(
            std::min(text.size(), text.find(';') == std::string_view::npos ? text.size() : text.find(';') + 1));
        if (part.find_first_not_of("0123456789.,eE+-") != std::string_view::npos)
            throw File_Error(To_Utf8(part) + " is no number.");
        bounds.push_back(Val(Comma_To_Point(part)));
    }
    Check_Bounds(bounds);
    return bounds;
}

std::string Bounds_Text(const std::vector<double>& bounds)
{
    std::string text;
    for (const double bound : bounds)
        text += (text.empty() ? "" : "; ") + General_Text(bound);
    return text;
}

} // namespace orvel
