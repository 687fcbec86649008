#include "substance/guidance_check.h"

#include "core/code_page.h"
#include "core/json.h"

#include <algorithm>

namespace orvel {

namespace {

// The texts that stand for the wildcards of a pattern in a name; nothing if the name is not of the pattern.
std::optional<std::vector<std::string_view>> Match(const std::vector<std::string_view>& parts, std::string_view name)
{
    std::vector<std::string_view> indices;
    if (!name.starts_with(parts.front()))
        return std::nullopt;
    name.remove_prefix(parts.front().size());
    for (std::size_t i = 1; i < parts.size(); ++i) {
        const auto end = name.find(']');
        if (end == std::string_view::npos || !name.substr(end).starts_with(parts[i]))
            return std::nullopt;
        indices.push_back(name.substr(0, end));
        name.remove_prefix(end + parts[i].size());
    }
    return name.empty() ? std::optional(indices) : std::nullopt;
}

std::string Filled(std::string_view pattern, const std::vector<std::string_view>& indices)
{
    const auto parts = Split_At_Wildcards(pattern);
    std::string name(parts.front());
    for (std::size_t i = 1; i < parts.size(); ++i)
        name.append(indices[i - 1]).append(parts[i]);
    return name;
}

class Checker {
public:
    Checker(const Guidance_Facts& facts, const Document_Notes& notes) : Facts(facts), Notes(notes) {}

    void Check(const Guidance_Rule& rule)
    {
        const auto parts = Split_At_Wildcards(rule.Demand.Compare);
        const std::size_t first = Findings.size();
        for (const auto& fact : Candidates(rule, parts)) {
            const auto indices = Match(parts, fact.Name);
            if (!indices || rule.Demand.Limits.Hold(fact.Value))
                continue;
            const bool applies = std::ranges::all_of(rule.When, [&](const Guidance_Condition& condition) {
                const auto other = Find(Filled(condition.Compare, *indices));
                return other && condition.Limits.Hold(other->Value);
            });
            if (applies)
                Add(rule, fact, first);
        }
    }

    std::vector<Guidance_Finding> Findings;

private:
    std::optional<Guidance_Fact> Find(const std::string& name) const
    {
        if (const Guidance_Fact* fact = Facts.Find(name))
            return *fact;
        return Fact_Of_Notes(Notes, name);
    }

    // Of "Source(Koc[*])" those of all fields Koc.
    std::vector<Guidance_Fact> Candidates(const Guidance_Rule& rule, const std::vector<std::string_view>& parts) const
    {
        const std::string_view compare = rule.Demand.Compare;
        const auto open = compare.find('(');
        std::vector<Guidance_Fact> found;
        if (open == std::string_view::npos) {
            for (const auto& fact : Facts.All()) {
                if (fact.Name.starts_with(parts.front()))
                    found.push_back(fact);
            }
            return found;
        }
        const auto field = Split_At_Wildcards(compare.substr(open + 1, compare.size() - open - 2));
        for (const auto& fact : Facts.All()) {
            const auto of_notes = Fact_Of_Notes(Notes, std::string(compare.substr(0, open + 1)) + fact.Name + ")");
            if (of_notes && Match(field, fact.Name))
                found.push_back(*of_notes);
        }
        return found;
    }

    // Many applications and horizons have one value: they are one finding.
    static bool Is_One_Of_Many(const Guidance_Fact& fact)
    {
        constexpr std::array<std::string_view, 3> Many = {"Applications[", "Relative[", "Horizons["};
        return std::ranges::any_of(Many, [&](std::string_view begin) {
            return fact.Field.starts_with(begin) || fact.Name.starts_with(begin);
        });
    }

    void Add(const Guidance_Rule& rule, const Guidance_Fact& fact, std::size_t first)
    {
        const auto same = std::find_if(
            Findings.begin() + static_cast<std::ptrdiff_t>(first), Findings.end(),
            [&](const Guidance_Finding& known) { return known.Value == fact.Value && known.Shown == fact.Shown; });
        if (same != Findings.end() && Is_One_Of_Many(fact)) {
            ++same->Others;
            return;
        }
        Findings.push_back({.Rule = rule.Id,
                            .Severity = rule.Severity,
                            .Name = fact.Name,
                            .Value = fact.Value,
                            .Field = fact.Field,
                            .Shown = fact.Shown,
                            .Text = rule.Text,
                            .Source = rule.Source,
                            .Confirmed = rule.Confirmed,
                            .Needs_A_Run = Needs_A_Run(rule)});
        auto& finding = Findings.back();
        const Guidance_Answer* answer = Answer_Of(Notes, rule.Id, fact.Name);
        if (answer == nullptr)
            return;
        finding.Is_Outdated = answer->Value != fact.Value;
        if (finding.Is_Outdated)
            return;
        finding.Answer = answer->Text;
        finding.Answered_By = answer->By;
        finding.Answered_On = answer->Date;
    }

    const Guidance_Facts& Facts;
    const Document_Notes& Notes;
};

} // namespace

std::vector<Guidance_Finding> Check_Guidance(const Guidance& guidance, const Guidance_Facts& facts,
                                             const Document_Notes& notes)
{
    Checker checker(facts, notes);
    for (const auto& rule : guidance.Rules)
        checker.Check(rule);
    return std::move(checker.Findings);
}

bool Needs_A_Run(const Guidance_Rule& rule)
{
    return Needs_A_Run(rule.Demand.Compare) || std::ranges::any_of(rule.When, [](const Guidance_Condition& condition) {
               return Needs_A_Run(condition.Compare);
           });
}

bool Has_Open_Finding(const std::vector<Guidance_Finding>& findings)
{
    return std::ranges::any_of(findings, &Guidance_Finding::Is_Open);
}

std::string Source_Text(const Guidance_Finding& finding)
{
    return finding.Source + (finding.Confirmed ? "" : " (" + std::string(Not_Confirmed_Text) + ")");
}

std::string Value_Text(const Guidance_Finding& finding)
{
    return finding.Name + " = " + finding.Value + (finding.Shown.empty() ? "" : " " + finding.Shown) +
           (finding.Others == 0 ? "" : " and " + std::to_string(finding.Others) + " more");
}

std::string Answer_Text(const Guidance_Finding& finding)
{
    if (finding.Answer.empty())
        return finding.Is_Open() ? "open" : "";
    const std::string by = finding.Answered_By +
                           (finding.Answered_By.empty() || finding.Answered_On.empty() ? "" : ", ") +
                           finding.Answered_On;
    return finding.Answer + (by.empty() ? "" : " (" + by + ")");
}

std::string Findings_Lines(const std::vector<Guidance_Finding>& findings)
{
    std::string lines;
    for (const auto& finding : findings) {
        lines += std::string(Severity_Text(finding.Severity)) + "\t" + finding.Rule + "\t" + Value_Text(finding) +
                 "\t" + finding.Text + "\t" + Source_Text(finding);
        if (!finding.Answer.empty())
            lines += "\tanswered: " + finding.Answer;
        else if (finding.Is_Outdated)
            lines += "\tits answer was for another value";
        lines += "\n";
    }
    return lines;
}

std::string Findings_Json(const std::vector<Guidance_Finding>& findings)
{
    Json_Writer json;
    json.Array([&] {
        for (const auto& finding : findings) {
            json.Object([&] {
                json.Member("rule", finding.Rule);
                json.Member("severity", Severity_Text(finding.Severity));
                json.Member("compared", finding.Name);
                json.Member("value", finding.Value);
                json.Member("shown", finding.Shown);
                json.Member("others", finding.Others);
                json.Member("field", finding.Field);
                json.Member("text", finding.Text);
                json.Member("source", finding.Source);
                json.Member("confirmed", finding.Confirmed);
                json.Member("answer", finding.Answer);
                json.Member("answered_by", finding.Answered_By);
                json.Member("answered_on", finding.Answered_On);
                json.Member("answer_outdated", finding.Is_Outdated);
            });
        }
    });
    return json.Written();
}

} // namespace orvel
