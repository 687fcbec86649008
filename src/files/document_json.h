#pragma once

#include "core/session.h"

#include <string>

namespace orvel {

// A document as JSON. Keys are the names of the fields in the session, arrays have its indices (null where an index is
// not in use) and hold the elements in use.
std::string Json_Of(const Pesticide_Document& document);
std::string Json_Of(const Scenario_Document& document);
std::string Json_Of(const Climate_Table& table);

} // namespace orvel
