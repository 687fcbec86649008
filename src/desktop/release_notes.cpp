#include "desktop/release_notes.h"

#include "core/version.h"

namespace orvel {

std::string Release_Notes()
{
    return std::string(Program_Text) +
           " (November 2026)\r\n"
           "- An open engine, orvel401.exe, and demonstration data come with the program: a fresh installation does "
           "the whole job.\r\n"
           "- Batches run one simulation per processor and go on when the program is closed; the run forms show "
           "progress and the time left.\r\n"
           "- EFSA Tier 2 and Tier 4 runs share one form with the FOCUS runs.\r\n"
           "- Single runs show how far the engine is and never touch a run that is at work.\r\n"
           "- Files are written whole: a full disk or a power cut leaves the old file as it was.\r\n"
           "- Tables, balances, soil concentrations and reports without windows: orvelctl.\r\n"
           "- The overview shows the whole assessment at a glance; plans run thousands of simulations as a table.\r\n"
           "- Every run has a record that tells whether its result is whole; archives are run again and compared.\r\n"
           "- Undo and redo in every editor; changes that were not saved outlive the program.\r\n"
           "- Endpoints have their sources, documents are checked against public rules, and an engine is accepted on "
           "reference substances.\r\n"
           "- A guide with every window and field: F1.\r\n"
           "----------------------------------------------------------------------------------------\r\n";
}

} // namespace orvel
