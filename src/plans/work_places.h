#pragma once

#include "plans/plan_directory.h"

#include <filesystem>
#include <vector>

namespace orvel {

// The directories in which the runs of a part are made ready and which their engines leave behind: one serves run after
// run, so that files need not be made anew. They lie as deep below the plan as those of the runs, so that a path from
// there is the same. A run is in its own directory as long as its engine is at work.
class Work_Places {
public:
    // The caller holds the part. What parts that have gone left is removed. Throws File_Error.
    Work_Places(const std::filesystem::path& plan, const Plan_Part& part);
    Work_Places(const Work_Places&) = delete;
    Work_Places& operator=(const Work_Places&) = delete;
    ~Work_Places(); // removes them

    std::filesystem::path Take();                                 // one that is free
    std::filesystem::path Take(const std::filesystem::path& run); // what is there of a run, as a place
    void Give_Back(const std::filesystem::path& place);
    // Makes a place the directory of a run, which must not be there.
    void Become(const std::filesystem::path& place, const std::filesystem::path& run);
    std::filesystem::path New_Empty(); // for what is kept of one run

private:
    std::filesystem::path Next();

    std::filesystem::path Root;
    std::vector<std::filesystem::path> Free;
    std::filesystem::path Above; // of the runs, the directory that is known to be there
    int Count = 0;
};

} // namespace orvel
