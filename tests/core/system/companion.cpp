// A program for the tests of core/system: does what its first argument names.
//   arguments ...        prints each one with its length
//   exit CODE
//   await FILE           ends when the file is there
//   hold PATH            takes a lock and keeps it
//   keep NUMBER          takes over the lock that was passed on and keeps it
//   start HOW ...        starts itself with the other arguments: "apart", "grouped" or "plain"; waits for it
//   keep-in DIRECTORY    starts itself to keep the lock of a directory, which it has taken, and waits for it
#include "core/files.h"
#include "core/system/arguments.h"
#include "core/system/lock.h"
#include "core/system/program_path.h"
#include "core/system/spawn.h"
#include "core/system/standard_channels.h"

#include <chrono>
#include <cstdio>
#include <iostream>
#include <thread>

namespace {

using namespace orvel;

constexpr std::chrono::seconds Longest(60); // nothing is left of a test that failed

void Print(const std::string& text)
{
    std::cout << text << std::flush;
}

int Stay()
{
    std::this_thread::sleep_for(Longest);
    return 1;
}

int Await(const std::filesystem::path& file)
{
    const auto end = std::chrono::steady_clock::now() + Longest;
    while (!std::filesystem::exists(file)) {
        if (std::chrono::steady_clock::now() > end)
            return 1;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return 0;
}

int Start(const std::string& how, const std::vector<std::string>& arguments)
{
    const int process = Start_Program({.Program = Own_Path(),
                                       .Arguments = arguments,
                                       .Directory = std::filesystem::current_path(),
                                       .Output = "output of child",
                                       .Own_Session = how == "apart",
                                       .Own_Group = how == "grouped"});
    Print(std::to_string(process));
    return Wait_For_Program(process).Exit_Code;
}

int Keep_In(const std::filesystem::path& directory)
{
    auto lock = Lock::Take(directory);
    if (!lock)
        return 1;
    const int process = Start_Program({.Program = Own_Path(),
                                       .Arguments = {"keep", std::to_string(Kept_As(lock->Descriptor()))},
                                       .Directory = directory,
                                       .Output = "output of child",
                                       .Kept_Descriptor = lock->Descriptor(),
                                       .Own_Group = true});
    lock.reset();
    Print(std::to_string(process));
    return Wait_For_Program(process).Exit_Code;
}

int Act(const std::vector<std::string>& arguments)
{
    const auto& verb = arguments.at(0);
    const std::vector rest(arguments.begin() + 1, arguments.end());
    if (verb == "arguments") {
        for (const auto& argument : rest)
            Print(std::to_string(argument.size()) + ":" + argument + "\n");
        return 0;
    }
    if (verb == "exit")
        return std::stoi(rest.at(0));
    if (verb == "await")
        return Await(rest.at(0));
    if (verb == "start")
        return Start(rest.at(0), {rest.begin() + 1, rest.end()});
    if (verb == "keep-in")
        return Keep_In(rest.at(0));
    const auto lock = verb == "keep" ? Lock::Adopt(std::stoi(rest.at(0))) : Lock::Take(rest.at(0)).value();
    Print("held");
    return Stay();
}

} // namespace

int main(int argc, char** argv)
try {
    Open_Standard_Channels();
    argv = Utf8_Arguments(argc, argv);
    return Act({argv + 1, argv + argc});
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 3;
}
