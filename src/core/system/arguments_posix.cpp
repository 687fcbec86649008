#include "core/system/arguments.h"

namespace orvel {

char** Utf8_Arguments(int& /*count*/, char** arguments)
{
    return arguments;
}

} // namespace orvel
