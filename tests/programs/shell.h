#pragma once

#include "core/files.h"
#include "temporary_directory.h"

#include <string>
#include <sys/wait.h>

namespace orvel {

// What a command of the shell printed and told, and how it ended.
struct Outcome {
    int Code = 0;
    std::string Printed, Told; // standard output, standard error
};

inline Outcome Shell(const std::string& command)
{
    const Temporary_Directory place;
    const auto printed = place / "printed", told = place / "told";
    const int status =
        std::system(("( " + command + "\n) >'" + printed.string() + "' 2>'" + told.string() + "'").c_str());
    return {WEXITSTATUS(status), Read_Whole(printed), Read_Whole(told)};
}

} // namespace orvel
