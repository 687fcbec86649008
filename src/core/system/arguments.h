#pragma once

namespace orvel {

// The arguments of the program, as UTF-8. The count is that of main, and is corrected.
char** Utf8_Arguments(int& count, char** arguments);

} // namespace orvel
