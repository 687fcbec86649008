#pragma once

#include <string>

namespace orvel {

// Processors that this process may use, at least 1.
int Processors();

// The instructions beyond those of every processor of its kind that a computation may make use of: "avx2 fma".
std::string Processor_Features();

} // namespace orvel
