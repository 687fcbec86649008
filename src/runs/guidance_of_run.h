#pragma once

#include "runs/run_control.h"
#include "substance/guidance_check.h"

#include <string>
#include <vector>

namespace orvel {

// Guidance that needs more than the document: crop, location, scenario, years and interval of a run.

// Adds what a run says to the facts of its pesticide document.
void Add_Facts_Of_Run(Guidance_Facts& facts, const Guidance& guidance, const Mode& mode, const Run_Choice& choice,
                      const Pesticide_Document& document, const Scenario_Document& scenario);

// What the installation's rules find in a run. Throws File_Error.
std::vector<Guidance_Finding> Check_Run(const Program_State& program, const Mode& mode, const Run_Choice& choice);

// A document with its notes, and the name of its file.
struct Guidance_Subject {
    const Pesticide_Document& Document;
    const Document_Notes& Notes;
    std::string File_Name;
};

// What they find in a document, and in its runs for a crop at those locations that have a scenario, which stand behind
// the values. Throws File_Error.
std::vector<Guidance_Finding> Check_Runs(const Program_State& program, const Mode& mode,
                                         const Guidance_Subject& subject, const Crop* crop,
                                         const std::vector<std::string>& locations);

// What the user is told after runs of one pesticide file and crop were marked: the open findings that need a run, with
// their locations, or why the check could not be done. Empty if there is nothing to tell.
std::string Guidance_After_Marking(const Program_State& program, const Mode& mode,
                                   const std::vector<Run_Choice>& choices);

// Why a rule of severity "refusal" keeps a run from being marked; empty if none does, or if the rules cannot be read,
// which is told after marking.
std::string Refused_By_Guidance(const Program_State& program, const Mode& mode, const Run_Choice& choice);

} // namespace orvel
