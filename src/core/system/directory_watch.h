#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace orvel {

// Tells when something in a directory is made, written, renamed or removed, without looking at it again and again. One
// thread adds and waits; any other may wake it.
class Directory_Watch {
public:
    struct Event {
        std::filesystem::path Directory; // empty: too much happened at once, anything may have changed
        std::string Name;                // of what changed; empty: the directory itself
    };

    Directory_Watch();
    Directory_Watch(const Directory_Watch&) = delete;
    Directory_Watch& operator=(const Directory_Watch&) = delete;
    ~Directory_Watch();

    // False: the system cannot watch it. A directory that is watched already stays so.
    bool Add(const std::filesystem::path& directory);

    // What has happened since the last call; waits for it up to a time, or until woken. Empty after that.
    std::vector<Event> Wait(std::chrono::milliseconds most);

    void Wake(); // ends a wait, from another thread

private:
    std::vector<Event> Read_Events();

    int Notifier = -1, Waker = -1;
    std::map<int, std::filesystem::path> Watched;
    std::map<std::filesystem::path, int> Numbers;
};

} // namespace orvel
