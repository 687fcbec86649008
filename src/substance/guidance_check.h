#pragma once

#include "substance/guidance.h"
#include "substance/guidance_facts.h"

#include <string>
#include <vector>

namespace orvel {

// What the rules of guidance find in a document. Texts are bytes of Windows-1252.

struct Guidance_Finding {
    std::string Rule; // its identifier
    orvel::Severity Severity = Severity::Warning;
    std::string Name, Value;  // of what was compared, as in the rule: "DT50[1]", "Applications[1][3].App_Rate"
    std::string Field;        // of the document, where it can be changed; empty: nowhere in it
    std::string Shown;        // what is told beside the value
    std::size_t Others = 0;   // how many more applications or horizons have the same value
    std::string Text, Source; // of the rule
    bool Confirmed = false;
    bool Needs_A_Run = false; // the rule compares what a document alone does not tell
    std::string Answer;       // why it was accepted, for this value; empty: it is open
    std::string Answered_By, Answered_On;
    bool Is_Outdated = false; // it was answered for another value

    bool Is_Open() const { return Answer.empty() && Severity != Severity::Information; }
};

// In the order of the rules. A rule whose conditions do not hold, or whose field the facts do not have, finds nothing.
std::vector<Guidance_Finding> Check_Guidance(const Guidance& guidance, const Guidance_Facts& facts,
                                             const Document_Notes& notes);

// Whether a rule compares what only a run tells: its crop, location, scenario or years.
bool Needs_A_Run(const Guidance_Rule& rule);

// Whether one of severity warning or above has no answer.
bool Has_Open_Finding(const std::vector<Guidance_Finding>& findings);

constexpr std::string_view Guidance_Title = "Guidance check";
constexpr std::string_view Not_Confirmed_Text = "source not confirmed";

std::string Source_Text(const Guidance_Finding& finding); // with "(source not confirmed)" where it is not
std::string Value_Text(const Guidance_Finding& finding);  // "DT50[1] = 1200 d", "... and 25 more"

// The answer with its author and date, "open" without one, nothing for information without one.
std::string Answer_Text(const Guidance_Finding& finding);

// A line a finding, its parts separated by tabs; and as JSON.
std::string Findings_Lines(const std::vector<Guidance_Finding>& findings);
std::string Findings_Json(const std::vector<Guidance_Finding>& findings);

} // namespace orvel
