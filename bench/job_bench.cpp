// What a job costs around its engines: 500 runs of an engine that does nothing, against starting that engine 500 times
// and writing 500 files of the size of a run's record, whole. job_bench [ROUNDS]; prints medians a run and their ratio.
#include "core/files.h"
#include "floors/spawn_and_write.h"
#include "jobs/job.h"
#include "runs/job_file.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sys/resource.h>
#include <vector>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int Runs = 500;
constexpr std::size_t Written = 1200; // the record of a run with four inputs
constexpr int Not_Complete = 1;       // exit code of a job whose engines leave nothing

struct Cost {
    double Wall, Cpu;
};

double Cpu_Seconds()
{
    double seconds = 0;
    for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage use{};
        ::getrusage(who, &use);
        seconds += static_cast<double>(use.ru_utime.tv_sec + use.ru_stime.tv_sec) +
                   static_cast<double>(use.ru_utime.tv_usec + use.ru_stime.tv_usec) * 1e-6;
    }
    return seconds;
}

template <class Work> Cost Cost_Of(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    const double cpu = Cpu_Seconds();
    work();
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() * 1e3 / Runs,
            (Cpu_Seconds() - cpu) * 1e3 / Runs};
}

void Prepare(const fs::path& mode_directory)
{
    fs::create_directories(mode_directory);
    for (const char* shared : {"H_maize.sze", "H_01.cli"})
        Write_Whole(mode_directory / shared, std::string(28'000, ' '));
    std::string batch;
    for (int i = 0; i < Runs; ++i) {
        const std::string name = std::to_string(i) + ".run";
        const fs::path run = mode_directory / "p.run" / "c.run" / name;
        fs::create_directories(run);
        fs::create_hard_link(NOTHING_ENGINE, run / "orvel401.exe");
        std::ofstream(run / "orvel.inp")
            << "001 01 01 31 12\r\n..\\..\\..\\H_maize.sze\r\np.psm\r\n..\\..\\..\\H_01.cli\r\n";
        std::ofstream(run / "p.psm") << std::string(20'000, ' ');
        batch += Format_Job_Run("p.run\\c.run\\" + name, "orvel401.exe", i == 0);
    }
    Write_Whole(mode_directory / "orveljob.bat", Format_Job(batch));
}

Cost Median(std::vector<Cost> costs)
{
    const auto middle = costs.begin() + static_cast<std::ptrdiff_t>(costs.size() / 2);
    std::ranges::nth_element(costs, middle, {}, &Cost::Wall);
    const double wall = middle->Wall;
    std::ranges::nth_element(costs, middle, {}, &Cost::Cpu);
    return {wall, middle->Cpu};
}

} // namespace

} // namespace orvel

using namespace orvel;

int main(int argc, char** argv)
try {
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 7;
    // Beside the engine, since hard links must stay on one file system.
    std::string name = (fs::path(NOTHING_ENGINE).parent_path() / "job_bench.XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr)
        return 1;
    const fs::path directory = name;
    // A directory of its own for each round, all removed at the end: files that were just deleted make new ones dear.
    std::vector<Cost> floor, job;
    for (int round = 0; round < rounds; ++round) {
        const fs::path written = directory / ("floor" + std::to_string(round)), mode = written / "focus";
        fs::create_directories(written);
        floor.push_back(Cost_Of([&] {
            Spawn_Floor(Runs, NOTHING_ENGINE);
            Write_Floor(Runs, Written, written);
        }));
        Prepare(mode);
        std::string runner = ORVELJOB, jobs = "--jobs", one = "1", place = mode.string();
        char* arguments[] = {runner.data(), jobs.data(), one.data(), place.data(), nullptr};
        job.push_back(Cost_Of([&] { Spawn_And_Wait(runner, arguments, Not_Complete); }));
    }
    fs::remove_all(directory);
    const Cost least = Median(floor), is = Median(job);
    std::printf("floor %.3f ms (cpu %.3f) a run, job %.3f ms (cpu %.3f): x %.2f, cpu x %.2f\n", least.Wall, least.Cpu,
                is.Wall, is.Cpu, is.Wall / least.Wall, is.Cpu / least.Cpu);
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
