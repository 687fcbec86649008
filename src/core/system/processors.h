#pragma once

namespace orvel {

// Processors that this process may use, at least 1.
int Processors();

} // namespace orvel
