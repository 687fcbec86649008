#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Rules of guidance as data: what is compared with which limits, and who says so. They come from guidance.json of the
// installation, from its other files guidance-*.json, and from files of the user's own. Texts are bytes of
// Windows-1252.

enum class Severity { Information, Warning, Error, Refusal }; // a run that a refusal finds is not marked
std::string_view Severity_Text(Severity severity);

// What a value is compared with; a number that stands for a limit is within it.
struct Guidance_Limits {
    std::optional<double> Least, Most;  // inclusive
    std::optional<double> Above, Below; // exclusive
    std::vector<std::string> One_Of, None_Of;
    double Tolerance = 0; // by which share of the limit a number may miss it

    // Whether a value is within them. A text that is no number has no size.
    bool Hold(std::string_view value) const;
};

struct Guidance_Condition {
    std::string Compare; // a field, or a quantity of Guidance_Quantities; "[*]" is any index
    Guidance_Limits Limits;
};

struct Guidance_Rule {
    std::string Id;
    Guidance_Condition Demand;
    std::vector<Guidance_Condition> When; // its "[*]" are those of the demand, in their order
    orvel::Severity Severity = Severity::Warning;
    std::string Text, Source;
    bool Confirmed = false; // the source was read
};

// The most that a crop intercepts by its stage, in %.
constexpr std::array<std::string_view, 5> Growth_Stages = {"BBCH 00-09", "BBCH 10-19", "BBCH 20-39", "BBCH 40-89",
                                                           "BBCH 90-99"};
struct Crop_Guidance {
    std::vector<std::string> Crops; // entries of the list of crops
    std::optional<std::array<double, Growth_Stages.size()>> Interception;
    std::string Locations; // codes, separated by blanks; empty: not said
};

struct Guidance {
    std::vector<std::string> Names; // of the files, in the order in which they were read
    std::vector<Guidance_Rule> Rules;
    std::vector<Crop_Guidance> Crops;
};

// Reads rules; those that `before` holds stay, except where the text says that it stands alone, and a rule takes the
// place of that with its identifier. Throws File_Error with line and column.
Guidance Parse_Guidance(std::string_view text, const Guidance& before = {});

// The rules that come with the program.
std::string_view Shipped_Guidance();

// Those of an installation: guidance.json, else the program's, then guidance-*.json in the order of their names, then a
// file of the user's own. Throws File_Error with name, line and column.
Guidance Read_Guidance(const std::filesystem::path& app_path, const std::filesystem::path& own = {});

constexpr std::string_view Guidance_Name = "guidance.json", Guidance_Mask = "guidance-*.json";

} // namespace orvel
