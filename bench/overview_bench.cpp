// How long an overview of all runs of an installation takes, whose tables were built before: overview_bench DIR [MODE].
#include "evaluation/overview_survey.h"

#include <condition_variable>
#include <iostream>
#include <mutex>

using namespace orvel;

int main(int argc, char** argv)
{
    const Mode* mode = Mode_Named(argc > 2 ? argv[2] : "focus");
    if (argc < 2 || mode == nullptr) {
        std::cerr << "overview_bench DIR [focus|efsa|efsa_t4]\n";
        return 2;
    }
    using Clock = std::chrono::steady_clock;
    std::mutex guard;
    std::condition_variable told;
    std::size_t runs = 0;
    bool settled = false;
    const auto begin = Clock::now();
    Overview_Survey survey(argv[1], {.Mode = mode->Kind}, [&](std::shared_ptr<const Survey_State> state) {
        const std::scoped_lock lock(guard);
        runs = state->Overview.Runs.size();
        settled = state->Is_Settled;
        told.notify_all();
    });
    std::unique_lock lock(guard);
    told.wait(lock, [&] { return settled; });
    const std::chrono::duration<double, std::milli> taken = Clock::now() - begin;
    std::cout << runs << " runs in " << taken.count() << " ms\n";
}
