#pragma once

#include "core/system/directory_watch.h"
#include "report/overview_reader.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <span>
#include <thread>

namespace orvel {

// What a window that shows an overview is to count.
struct Survey_Choice {
    Mode_Kind Mode = Mode_Kind::Focus;
    Soil_Choice Soil;
    std::vector<std::string> Codes;                                // of locations; empty: all
    std::shared_ptr<const Compared_Assessment> Compared = nullptr; // nullptr: with nothing
    bool operator==(const Survey_Choice&) const = default;
};

struct Survey_State {
    orvel::Overview Overview;
    std::string Failure;    // why the runs cannot be listed, a sentence in UTF-8; empty if they can
    bool Is_Settled = true; // nothing is left to be looked at until something changes
};

// Follows the runs of a mode in a thread of its own: a run that ends, changes or vanishes is looked at when the system
// tells of it; runs at work twice a second. While nothing changes, nothing is done but a look at everything once in a
// while, for file systems that tell nothing. Errors are states of runs; nothing ends the survey but its owner.
class Overview_Survey {
public:
    // `publish` is called in the survey's thread.
    using Publish = std::function<void(std::shared_ptr<const Survey_State>)>;

    Overview_Survey(std::filesystem::path app_path, Survey_Choice choice, Publish publish);
    Overview_Survey(const Overview_Survey&) = delete;
    Overview_Survey& operator=(const Overview_Survey&) = delete;
    ~Overview_Survey();

    void Choose(Survey_Choice choice);

    // How many times a run has been looked at: what a test counts.
    long long Looks() const { return Looked; }

private:
    struct Known_Run {
        Simulation Place;
        Overview_Run Run;
        std::vector<File_Identity> Seen; // its files at the last look
        bool Is_Dirty = true;
    };

    void Follow();
    void Begin_Anew(const Survey_Choice& choice);
    void Take_Choice();
    void List_Runs();
    void Look_At_Dirty();
    void Look_At_Batch(std::span<Known_Run*> batch);
    void Look_Closer();
    void Wait();
    void Take_Event(const Directory_Watch::Event& event);
    void Mark_All();
    void Mark_Changed();
    void Tell(bool settled);
    void Tell_Now_And_Then();
    bool Is_Interrupted() const { return Ends || Is_Chosen_Anew; }

    const std::filesystem::path App_Path;
    const Publish Publish_State;
    std::mutex Guard;
    Survey_Choice Wanted; // guarded
    std::atomic<bool> Ends = false, Is_Chosen_Anew = true;
    std::atomic<long long> Looked = 0;

    // Of the thread alone.
    Survey_Choice Chosen;
    std::filesystem::path Directory;
    std::vector<std::unique_ptr<Overview_Reader>> Readers; // the first one is that of the thread itself
    std::map<std::filesystem::path, Known_Run> Runs;       // in the order of their directories
    std::vector<std::filesystem::path> Order;              // of the listing
    std::string Failure;
    bool Lists_Again = true, Is_Unwatched = false;
    std::chrono::steady_clock::time_point Told;
    Directory_Watch Watch;
    std::thread Thread;
};

} // namespace orvel
