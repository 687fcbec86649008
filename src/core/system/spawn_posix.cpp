#include "core/system/spawn.h"

#include "core/error.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvel {

namespace {

constexpr int Kept_Number = 3;

class File_Actions {
public:
    File_Actions() { ::posix_spawn_file_actions_init(&Actions); }
    File_Actions(const File_Actions&) = delete;
    File_Actions& operator=(const File_Actions&) = delete;
    ~File_Actions() { ::posix_spawn_file_actions_destroy(&Actions); }
    posix_spawn_file_actions_t* Get() { return &Actions; }

private:
    posix_spawn_file_actions_t Actions{};
};

class Attributes {
public:
    Attributes() { ::posix_spawnattr_init(&Value); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    ~Attributes() { ::posix_spawnattr_destroy(&Value); }
    posix_spawnattr_t* Get() { return &Value; }

private:
    posix_spawnattr_t Value{};
};

void Set_Descriptors(const Program_Start& start, posix_spawn_file_actions_t* actions)
{
    constexpr mode_t New_File = 0666;
    ::posix_spawn_file_actions_addopen(actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    if (start.Output.empty())
        ::posix_spawn_file_actions_addopen(actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    else
        ::posix_spawn_file_actions_addopen(actions, STDOUT_FILENO, start.Output.c_str(),
                                           O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, New_File);
    if (!start.Keeps_Standard_Error)
        ::posix_spawn_file_actions_adddup2(actions, STDOUT_FILENO, STDERR_FILENO);
    if (start.Kept_Descriptor >= 0)
        ::posix_spawn_file_actions_adddup2(actions, start.Kept_Descriptor, Kept_Number);
    ::posix_spawn_file_actions_addclosefrom_np(actions, start.Kept_Descriptor >= 0 ? Kept_Number + 1 : Kept_Number);
}

void Set_Signals(const Program_Start& start, posix_spawnattr_t* attributes)
{
    sigset_t none, all;
    ::sigemptyset(&none);
    ::sigfillset(&all);
    ::posix_spawnattr_setsigmask(attributes, &none);
    ::posix_spawnattr_setsigdefault(attributes, &all);
    ::posix_spawnattr_setpgroup(attributes, 0);
    const int flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | (start.Own_Session ? POSIX_SPAWN_SETSID : 0) |
                      (start.Own_Group ? POSIX_SPAWN_SETPGROUP : 0);
    ::posix_spawnattr_setflags(attributes, static_cast<short>(flags));
}

Program_End End_Of(pid_t process, int status)
{
    if (process < 0)
        return {.Process = process, .Exit_Code = Unknown_Program};
    if (WIFEXITED(status))
        return {.Process = process, .Exit_Code = WEXITSTATUS(status)};
    return {.Process = process, .Signal = WTERMSIG(status)};
}

} // namespace

bool Runs_Windows_Programs()
{
    return false;
}

int Kept_As(int)
{
    return Kept_Number;
}

int Start_Program(const Program_Start& start)
{
    File_Actions actions;
    ::posix_spawn_file_actions_addchdir_np(actions.Get(), start.Directory.c_str());
    Set_Descriptors(start, actions.Get());
    Attributes attributes;
    Set_Signals(start, attributes.Get());

    std::string name = start.Program.filename().string();
    std::vector<std::string> arguments = start.Arguments;
    std::vector<char*> pointers{name.data()};
    for (auto& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    pid_t process = 0;
    const int error =
        ::posix_spawn(&process, start.Program.c_str(), actions.Get(), attributes.Get(), pointers.data(), environ);
    if (error != 0)
        throw File_Error("Cannot start " + start.Program.string() + ": " + std::strerror(error) + ".");
    return process;
}

Program_End Wait_For_Program(int process)
{
    int status = 0;
    pid_t ended = -1;
    do
        ended = ::waitpid(process, &status, 0);
    while (ended < 0 && errno == EINTR);
    return End_Of(ended, status);
}

std::optional<Program_End> Wait_For_Any_Of(std::span<const int> processes, std::chrono::milliseconds most)
{
    const auto ended = [&]() -> std::optional<Program_End> {
        for (const int process : processes) {
            auto end = End_Of_Program(process);
            if (!end)
                continue;
            end->Process = process; // also of one that is none of this program's
            return end;
        }
        return std::nullopt;
    };
    // Blocked first, so that an end between looking and waiting ends the wait.
    sigset_t child, before;
    ::sigemptyset(&child);
    ::sigaddset(&child, SIGCHLD);
    ::pthread_sigmask(SIG_BLOCK, &child, &before);
    auto end = ended();
    if (!end) {
        const auto seconds = std::chrono::floor<std::chrono::seconds>(most);
        const timespec time{.tv_sec = seconds.count(), .tv_nsec = std::chrono::nanoseconds(most - seconds).count()};
        ::sigtimedwait(&child, nullptr, &time);
        end = ended();
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return end;
}

void End_Group(int process, bool at_once)
{
    if (process > 0)
        ::kill(-process, at_once ? SIGKILL : SIGTERM);
}

std::optional<Program_End> End_Of_Program(int process)
{
    int status = 0;
    const pid_t ended = ::waitpid(process, &status, WNOHANG);
    return ended == 0 ? std::nullopt : std::optional(End_Of(ended, status));
}

} // namespace orvel
