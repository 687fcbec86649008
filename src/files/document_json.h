#pragma once

#include "core/session.h"

#include <string>

namespace orvel {

// A document as JSON: keys named as the fields of the session, arrays indexed as there (an index that is not in use is
// null). Applications, horizons and rows as many as are in use.
std::string Json_Of(const Pesticide_Document& document);
std::string Json_Of(const Scenario_Document& document);
std::string Json_Of(const Climate_Table& table);

} // namespace orvel
