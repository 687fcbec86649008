#include "core/system/users_shell.h"

namespace orvel {

Users_Shell Shell_Of_System()
{
    return Users_Shell::Windows;
}

} // namespace orvel
