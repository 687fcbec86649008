#pragma once

#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace orvel {

// The minimum cost of a job: starting its programs and writing a small file for each.

inline void Spawn_And_Wait(const std::filesystem::path& program, char* const arguments[], int exit_code = 0)
{
    pid_t child = -1;
    int status = 0;
    if (::posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, environ) != 0 ||
        ::waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) != exit_code)
        throw std::runtime_error("cannot run " + program.string());
}

inline void Spawn_Floor(int count, const std::filesystem::path& program)
{
    std::string name = program.string();
    char* arguments[] = {name.data(), nullptr};
    for (int i = 0; i < count; ++i)
        Spawn_And_Wait(program, arguments);
}

// Writes beside the target, flushes it, renames it over the target and flushes the directory, as a record is written.
inline void Write_Floor(int count, std::size_t bytes, const std::filesystem::path& directory)
{
    const std::string text(bytes, 'x');
    const int place = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < count; ++i) {
        const std::string target = (directory / ("file" + std::to_string(i))).string(), beside = target + ".new";
        const int file = ::open(beside.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0644);
        if (file < 0 || ::write(file, text.data(), text.size()) < 0)
            throw std::runtime_error("cannot write " + beside);
        ::fsync(file);
        ::close(file);
        std::filesystem::rename(beside, target);
        ::fsync(place);
    }
    ::close(place);
}

} // namespace orvel
