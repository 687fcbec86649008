#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
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

    // The same for the root of a tree and directories in it: a system that can watch a tree does so once for all of
    // them.
    bool Add_In_Tree(const std::filesystem::path& root, const std::filesystem::path& directory);

    // What has happened since the last call; waits for it up to a time, or until woken. Empty after that.
    std::vector<Event> Wait(std::chrono::milliseconds most);

    void Wake(); // ends a wait, from another thread

private:
    struct State;
    std::unique_ptr<State> Held;
};

} // namespace orvel
