#include "substance/guidance.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/json_reader.h"
#include "core/text.h"
#include "substance/guidance_facts.h"

#include <algorithm>
#include <cmath>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Schema = "orvel-guidance 1";
constexpr std::size_t Largest_Guidance = 4U << 20U, Most_Rules = 10'000;
constexpr std::array<std::string_view, 4> Severities = {"information", "warning", "error", "refusal"};

std::string Bytes_In(const Json_Value& value)
{
    const auto bytes = From_Utf8(value.Text());
    if (!bytes)
        value.Refuse("The text holds a character that no document can hold.");
    return *bytes;
}

// A value of a list is a number or a text.
std::vector<std::string> Values_In(const Json_Value& list)
{
    std::vector<std::string> values;
    for (const auto& value : list.Elements())
        values.push_back(value.Is_Text() ? Bytes_In(value) : General_Text(value.Number()));
    if (values.empty())
        list.Refuse("The list of values is empty.");
    return values;
}

// A condition's members are taken here; whatever else stands there is left to the caller, who knows the object.
bool Take_Member(const std::string& key, const Json_Value& value, Guidance_Condition& condition)
{
    Guidance_Limits& limits = condition.Limits;
    if (key == "compare") {
        condition.Compare = Bytes_In(value);
        if (const auto reason = Why_Not_Comparable(condition.Compare); !reason.empty())
            value.Refuse(To_Utf8(reason));
    } else if (key == "least") {
        limits.Least = value.Number();
    } else if (key == "most") {
        limits.Most = value.Number();
    } else if (key == "above") {
        limits.Above = value.Number();
    } else if (key == "below") {
        limits.Below = value.Number();
    } else if (key == "one_of") {
        limits.One_Of = Values_In(value);
    } else if (key == "none_of") {
        limits.None_Of = Values_In(value);
    } else if (key == "tolerance") {
        limits.Tolerance = value.Number();
        if (limits.Tolerance < 0)
            value.Refuse("A tolerance is not below 0.");
    } else {
        return false;
    }
    return true;
}

[[noreturn]] void Refuse_Member(const std::string& key, const Json_Value& value)
{
    value.Refuse("There is no member \"" + key + "\" here.");
}

void Check_Condition(const Json_Value& object, const Guidance_Condition& condition)
{
    const Guidance_Limits& limits = condition.Limits;
    object.At("compare");
    if (!limits.Least && !limits.Most && !limits.Above && !limits.Below && limits.One_Of.empty() &&
        limits.None_Of.empty())
        object.Refuse("There is no limit: \"least\", \"most\", \"above\", \"below\", \"one_of\" or \"none_of\".");
}

Guidance_Condition Condition_In(const Json_Value& object)
{
    Guidance_Condition condition;
    for (const auto& [key, value] : object.Members()) {
        if (!Take_Member(key, value, condition))
            Refuse_Member(key, value);
    }
    Check_Condition(object, condition);
    return condition;
}

Severity Severity_In(const Json_Value& value)
{
    const auto* const found = std::ranges::find(Severities, value.Text());
    if (found == Severities.end())
        value.Refuse("There is no severity \"" + value.Text() + "\": information, warning, error or refusal.");
    return static_cast<Severity>(found - Severities.begin());
}

Guidance_Rule Rule_In(const Json_Value& object)
{
    Guidance_Rule rule;
    for (const auto& [key, value] : object.Members()) {
        if (key == "id")
            rule.Id = Bytes_In(value);
        else if (key == "severity")
            rule.Severity = Severity_In(value);
        else if (key == "text")
            rule.Text = Bytes_In(value);
        else if (key == "source")
            rule.Source = Bytes_In(value);
        else if (key == "confirmed")
            rule.Confirmed = value.Truth();
        else if (key == "when")
            std::ranges::transform(value.Elements(), std::back_inserter(rule.When), Condition_In);
        else if (!Take_Member(key, value, rule.Demand))
            Refuse_Member(key, value);
    }
    for (const auto* key : {"id", "severity", "text", "source"})
        object.At(key);
    Check_Condition(object, rule.Demand);
    if (rule.Id.empty())
        object.At("id").Refuse("A rule needs an identifier.");
    const auto wildcards = [](std::string_view pattern) { return Split_At_Wildcards(pattern).size() - 1; };
    const auto loose = std::ranges::find_if(rule.When, [&](const Guidance_Condition& condition) {
        return wildcards(condition.Compare) > wildcards(rule.Demand.Compare);
    });
    if (loose != rule.When.end())
        object.At("when").Refuse("A condition has no more [*] than the rule's own \"compare\".");
    return rule;
}

std::array<double, Growth_Stages.size()> Interception_In(const Json_Value& list)
{
    std::array<double, Growth_Stages.size()> shares{};
    const auto& elements = list.Elements();
    if (elements.size() != shares.size())
        list.Refuse("The interception has five figures: BBCH 00-09, 10-19, 20-39, 40-89 and 90-99.");
    std::ranges::transform(elements, shares.begin(), [](const Json_Value& value) {
        if (value.Number() < 0 || value.Number() > 100)
            value.Refuse("An interception lies between 0 and 100 %.");
        return value.Number();
    });
    return shares;
}

Crop_Guidance Crop_In(const Json_Value& object)
{
    Crop_Guidance crop;
    for (const auto& [key, value] : object.Members()) {
        if (key == "crops")
            crop.Crops = Values_In(value);
        else if (key == "interception")
            crop.Interception = Interception_In(value);
        else if (key == "locations")
            crop.Locations = Bytes_In(value);
        else
            Refuse_Member(key, value);
    }
    object.At("crops");
    return crop;
}

void Read_Rules(const Json_Value& rules, Guidance& guidance)
{
    const std::size_t before = guidance.Rules.size();
    std::vector<std::string> ids;
    for (const auto& object : rules.Elements()) {
        auto rule = Rule_In(object);
        if (std::ranges::find(ids, rule.Id) != ids.end())
            object.At("id").Refuse("The rule \"" + To_Utf8(rule.Id) + "\" stands twice.");
        if (ids.size() >= Most_Rules)
            object.Refuse("The file has too many rules.");
        ids.push_back(rule.Id);
        const auto known =
            std::ranges::find(guidance.Rules.begin(), guidance.Rules.begin() + static_cast<std::ptrdiff_t>(before),
                              rule.Id, &Guidance_Rule::Id);
        if (known != guidance.Rules.begin() + static_cast<std::ptrdiff_t>(before))
            *known = std::move(rule);
        else
            guidance.Rules.push_back(std::move(rule));
    }
}

bool Is_Near(double value, double limit, double tolerance)
{
    return value == limit || std::abs(value - limit) <= tolerance * std::abs(limit);
}

Guidance Added(const fs::path& file, const Guidance& before)
{
    const std::string text = Read_Whole(file, Largest_Guidance);
    try {
        return Parse_Guidance(text, before);
    } catch (const File_Error& error) {
        throw File_Error(Located(file.string(), error));
    }
}

} // namespace

std::string_view Severity_Text(Severity severity)
{
    return Severities[static_cast<std::size_t>(severity)];
}

bool Guidance_Limits::Hold(std::string_view value) const
{
    const auto number = Number_In(value);
    const auto is = [&](const std::string& listed) {
        const auto other = Number_In(listed);
        return number && other ? Is_Near(*number, *other, Tolerance) : value == listed;
    };
    if (!One_Of.empty() && std::ranges::none_of(One_Of, is))
        return false;
    if (std::ranges::any_of(None_Of, is))
        return false;
    if (!number)
        return !Least && !Most && !Above && !Below;
    const auto near = [&](double limit) { return Is_Near(*number, limit, Tolerance); };
    return (!Least || *number >= *Least || near(*Least)) && (!Most || *number <= *Most || near(*Most)) &&
           (!Above || *number > *Above) && (!Below || *number < *Below);
}

Guidance Parse_Guidance(std::string_view text, const Guidance& before)
{
    const Json_Value json = Parse_Json(text);
    if (const auto& schema = json.At("schema"); schema.Text() != Schema)
        schema.Refuse("These rules are of another version: \"" + schema.Text() + "\", not \"" + std::string(Schema) +
                      "\".");
    const Json_Value* alone = json.Find("stands_alone");
    Guidance guidance = alone != nullptr && alone->Truth() ? Guidance() : before;
    json.At("rules");
    for (const auto& [key, value] : json.Members()) {
        if (key == "name")
            guidance.Names.push_back(Bytes_In(value));
        else if (key == "rules")
            Read_Rules(value, guidance);
        else if (key == "crops") // those of a later file are looked at first
            for (std::size_t at = 0; const auto& crop : value.Elements())
                guidance.Crops.insert(guidance.Crops.begin() + static_cast<std::ptrdiff_t>(at++), Crop_In(crop));
        else if (key != "schema" && key != "stands_alone" && key != "about")
            Refuse_Member(key, value);
    }
    return guidance;
}

Guidance Read_Guidance(const fs::path& app_path, const fs::path& own)
{
    const auto file = Find_File(app_path, Guidance_Name);
    Guidance guidance = file ? Added(*file, {}) : Parse_Guidance(Shipped_Guidance());
    for (const auto& name : List_Files(app_path, Guidance_Mask))
        guidance = Added(app_path / Path_Of(name), guidance);
    return own.empty() ? guidance : Added(own, guidance);
}

} // namespace orvel
