#include "desktop/release_notes.h"

namespace orvel {

std::string_view Release_Notes()
{
    return "ORVELSUITE 5.5 (November 2026)\r\n"
           "- An open engine, orvel401.exe, and demonstration data come with the program: a fresh installation does "
           "the whole job.\r\n"
           "- Batches run one simulation per processor and go on when the program is closed; the run forms show "
           "progress and the time left.\r\n"
           "- EFSA Tier 2 and Tier 4 runs share one form with the FOCUS runs.\r\n"
           "- Single runs show how far the engine is and never touch a run that is at work.\r\n"
           "- Files are written whole: a full disk or a power cut leaves the old file as it was.\r\n"
           "- Tables, balances, soil concentrations and reports without windows: orvelctl.\r\n"
           "----------------------------------------------------------------------------------------\r\n";
}

} // namespace orvel
