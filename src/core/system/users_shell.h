#pragma once

namespace orvel {

// What a user of this system types command lines into.
enum class Users_Shell { Posix, Windows };
Users_Shell Shell_Of_System();

} // namespace orvel
