#pragma once

#include "report/report.h"

#include <string>
#include <vector>

namespace orvel {

// What a reader who has never seen the program must know of a report: what was computed and by what, what a figure
// means, how sure it is and how to make it again. Texts are bytes of Windows-1252.

struct Report_Fact {
    std::string Topic, Sentences;
};
std::vector<Report_Fact> Meaning_Of(const Report& report);

std::string Meaning_Of_A_Figure(const Report& report);
std::string Limit_Meaning(const Report& report);
std::string Acceptance_Sentence(const Report& report);
std::string Verification_Sentence();

// The line for a shell in the directory of the installation that runs everything again and compares.
std::string Reproduce_Line(const Report& report);

} // namespace orvel
