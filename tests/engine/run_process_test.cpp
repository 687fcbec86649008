#include "core/numbers.h"
#include "core/system/lock.h"
#include "core/text.h"
#include "engine_process.h"
#include "output_blocks.h"
#include "verification.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvel::engine {

namespace {

constexpr std::string_view Not_Completed =
    " *** ERROR 99: RUN NOT COMPLETED (ENGINE STILL AT WORK OR STOPPED FROM OUTSIDE) ***";

// A run that takes long enough to be disturbed.
Engine_Case Long_Case()
{
    Engine_Case run = Demo_Case("H", "_maize", "demo_C.psm", 66);
    run.Scenario.SZE_Layers = 400;
    return run;
}

// The engine started in a directory; its output is read line by line.
class Running_Engine {
public:
    explicit Running_Engine(const std::filesystem::path& directory)
    {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        std::string name = ORVEL_ENGINE, option = "--dir", value = directory.string();
        std::array<char*, 4> arguments = {name.data(), option.data(), value.data(), nullptr};
        ::posix_spawn(&Process, name.c_str(), &actions, nullptr, arguments.data(), environ);
        ::posix_spawn_file_actions_destroy(&actions);
        ::close(ends[1]);
        Output = ::fdopen(ends[0], "r");
    }
    ~Running_Engine()
    {
        ::kill(Process, SIGKILL);
        ::waitpid(Process, nullptr, 0);
        std::fclose(Output);
    }
    // Waits for the line that tells that a year is done.
    void Wait_For_Year(int year)
    {
        const std::string wanted = "YEAR " + std::to_string(year) + " ";
        std::array<char, 200> line{};
        while (std::fgets(line.data(), line.size(), Output) && !std::string_view(line.data()).starts_with(wanted))
            ;
    }
    int Stop(int signal)
    {
        int status = 0;
        ::kill(Process, signal);
        ::waitpid(Process, &status, 0);
        return status;
    }

private:
    pid_t Process = 0;
    std::FILE* Output = nullptr;
};

} // namespace

TEST(Run_Verification, Case_32_A_Killed_Run_Shows_As_Failed)
{
    Temporary_Directory directory;
    Write_Files(Long_Case().Files(), directory.Path());
    Running_Engine engine(directory.Path());
    engine.Wait_For_Year(3);

    Verify(32, "the lock is seen during the run", Is_Locked(directory / "echo.orv"), 1, 0);
    EXPECT_EQ(Last_Line(File_Of(directory.Path(), "echo.orv")), Not_Completed);
    engine.Stop(SIGKILL);

    Verify(32, "the lock is gone with a killed engine", Is_Locked(directory / "echo.orv"), 0, 0);
    Verify(32, "ERROR 99 ends the echo of a run killed in year 3",
           Last_Line(File_Of(directory.Path(), "echo.orv")) == Not_Completed, 1, 0);
}

TEST(Run_Verification, Case_32_A_Stopped_Run_Has_Exit_Code_2)
{
    Temporary_Directory directory;
    Write_Files(Long_Case().Files(), directory.Path());
    Running_Engine engine(directory.Path());
    engine.Wait_For_Year(1);
    const int status = engine.Stop(SIGTERM);

    ASSERT_TRUE(WIFEXITED(status));
    Verify(32, "exit code of a stopped run", WEXITSTATUS(status), 2, 0);
    EXPECT_EQ(Last_Line(File_Of(directory.Path(), "echo.orv")), Not_Completed);
}

TEST(Run_Verification, Case_32_A_Second_Engine_Touches_Nothing)
{
    Temporary_Directory directory;
    Write_Files(Long_Case().Files(), directory.Path());
    Running_Engine first(directory.Path());
    first.Wait_For_Year(1);
    const std::string echo = File_Of(directory.Path(), "echo.orv");

    const Engine_Result second = Run_Engine(directory.Path());

    Verify(32, "exit code of a second engine in the directory", second.Exit_Code, 3, 0);
    EXPECT_TRUE(Contains(second.Output, "ANOTHER ENGINE IS AT WORK"));
    EXPECT_EQ(File_Of(directory.Path(), "echo.orv"), echo);
    first.Stop(SIGKILL);
}

TEST(Run_Verification, Case_33_The_Same_Input_Gives_The_Same_Bytes)
{
    Temporary_Directory one, two;
    Engine_Case run = Demo_Case("S", "_maize", "demo_C.psm", 4);
    run.Rows = {Row_Of("LEAC", 100), Row_Of("TPST", 5, 2), Row_Of("TEMP", 20)};
    run.Scenario.SZE_Freq_Water = run.Scenario.SZE_Freq_Solute = "MNTH";
    ASSERT_EQ(Run_Case(run, one.Path()).Exit_Code, 0);
    ASSERT_EQ(Run_Case(run, two.Path()).Exit_Code, 0);

    for (const char* name : {"Wasser.orv", "chem.orv", "chem_A1.orv", "plot.orv"})
        Compare(33, std::string(name) + ": equal bytes", File_Of(one.Path(), name) == File_Of(two.Path(), name), 1, 0);
}

// A run with every process on, by the kernel that the processor allows and by the one that every processor has.
TEST(Run_Verification, Case_33_Every_Kernel_Gives_The_Same_Bytes)
{
    Temporary_Directory best, baseline;
    Engine_Case run = Demo_Case("N", "_maize", "demo_C.psm", 6);
    run.Rows = {Row_Of("LEAC", 100), Row_Of("TPST", 5, 2), Row_Of("TVOX", 0), Row_Of("SPSC", 10)};
    run.Scenario.SZE_Macropore = 1;
    run.Scenario.SZE_Macro_Depth = 60;
    run.Scenario.SZE_Macro_Threshold = 0.5;
    run.Scenario.SZE_Macro_Fraction = 0.3;
    run.Scenario.SZE_Water_Flag = 1;
    run.Pesticide.Henry_Flag = 0;
    run.Pesticide.Henry = {0.01, 0.02};
    run.Pesticide.F_neq[1] = 0.5;
    run.Pesticide.K_des[1] = 0.02;
    run.Pesticide.Plant_Uptake[1] = 0.5;
    Write_Files(run.Files(), best.Path());
    Write_Files(run.Files(), baseline.Path());

    ASSERT_EQ(Run_Engine(best.Path()).Exit_Code, 0);
    ASSERT_EQ(Run_Engine(baseline.Path(), "--baseline").Exit_Code, 0);

    for (const char* name : {"Wasser.orv", "chem.orv", "chem_A1.orv", "plot.orv"})
        Compare(33, std::string(name) + ": bytes by the processor's kernel and the one for every processor are equal",
                File_Of(best.Path(), name) == File_Of(baseline.Path(), name), 1, 0);
}

#if defined(NDEBUG) && !defined(__SANITIZE_ADDRESS__)
TEST(Run_Verification, Case_34_A_Run_Of_26_Years_Takes_Less_Than_A_Second)
{
    Temporary_Directory directory;
    Engine_Case run = Demo_Case("H", "_maize", "demo_C.psm", 26);
    run.Scenario.SZE_Layers = 200;
    Pesticide_Document& pesticide = run.Pesticide;
    for (const std::size_t s : {std::size_t{3}, std::size_t{4}}) {
        pesticide.Met_Present[s] = true;
        pesticide.Molmass[s] = 150;
        pesticide.Koc[s] = 50;
        pesticide.Degradation[1][s - 1].Deg_Rate = 0.01;
    }
    Write_Files(run.Files(), directory.Path());
    rusage before{}, after{};
    ::getrusage(RUSAGE_CHILDREN, &before);

    ASSERT_EQ(Run_Engine(directory.Path()).Exit_Code, 0);

    ::getrusage(RUSAGE_CHILDREN, &after);
    const auto seconds = [](const rusage& usage) {
        return static_cast<double>(usage.ru_utime.tv_sec) + 1e-6 * static_cast<double>(usage.ru_utime.tv_usec);
    };
    Verify(34, "processor time of 26 years, 200 compartments, 4 substances (s)", seconds(after) - seconds(before), 0,
           1);
}
#endif

// A full disk: no file may grow beyond 100 kB.
TEST(Engine_Run, A_Full_Disk_Is_Error_93_With_Exit_Code_3)
{
    Temporary_Directory directory;
    Engine_Case run = Demo_Case("H", "_maize", "demo_D.psm", 4);
    run.Scenario.SZE_Freq_Water = run.Scenario.SZE_Freq_Solute = "DAY";
    Write_Files(run.Files(), directory.Path());
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{100000, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &small);
    const Engine_Result result = Run_Engine(directory.Path());
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);

    EXPECT_EQ(result.Exit_Code, 3);
    EXPECT_TRUE(Contains(result.Output, "ERROR 93"));
    EXPECT_TRUE(Contains(Last_Line(File_Of(directory.Path(), "echo.orv")), " *** ERROR 93: CANNOT WRITE "));
}

// A dry site, so that little percolates, and a substance mixed into the whole core: it decays above 1 m alone, and
// diffuses up.
TEST(Run_Verification, Case_40_Water_That_Hardly_Flows)
{
    constexpr double limit = 1e-3; // cm a day
    Temporary_Directory directory;
    Engine_Case run = Demo_Case("S", "_wcerea", "demo_D.psm", 8);
    for (Crop_Row& crop : run.Scenario.Crops)
        crop.SZE_Rot_Text1 = 180; // roots to the bottom
    for (int a = 1; a <= 522; ++a)
        for (auto& location : run.Pesticide.Applications)
            location[static_cast<std::size_t>(a)].App_Depth = 180;
    run.Pesticide.Koc[1] = 1;
    run.Rows = {Row_Of("INFL", 100), Row_Of("PFLX", 100), Row_Of("LEAC", 100)};
    ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);

    const std::string echo = File_Of(directory.Path(), "echo.orv");
    int dry_days = 0, wrong = 0, rounding = 0;
    double up = 0;
    const auto lines = Read_Plot(File_Of(directory.Path(), "plot.orv")).Lines;
    for (const Plot_Line& line : lines) {
        if (line.Hour != 24)
            continue;
        const double percolate = line.Values[0], flux = line.Values[1], mean = line.Values[2];
        if (std::fabs(percolate - limit) < 1e-7) { // undecided as printed
            dry_days += mean == 0;
            continue;
        }
        dry_days += percolate < limit;
        rounding += percolate > 0 && percolate < 1e-9;
        up += std::max(-flux, 0.0);
        // kg/ha over cm: 10,000 ug/L
        const bool right =
            percolate < limit ? mean == 0 : std::fabs(mean - flux / percolate * 1e4) <= 4e-3 * std::fabs(mean);
        EXPECT_TRUE(right) << "day " << line.Day << ": " << flux << " / " << percolate << " is not " << mean;
        wrong += !right;
    }
    EXPECT_GT(up, 0);
    Verify(40, "days whose mean concentration is neither flux over water nor 0 below 0.001 cm", wrong, 0, 0);
    Verify(40, "days with a percolate that is rounding", rounding, 0, 0);
    Verify(
        40, "the note has the number of days left out",
        Contains(echo, "NOTE 16: LEAC AT 100 CM IS 0 ON " + std::to_string(dry_days) + " DAYS WITH LESS THAN 0.001 CM"),
        1, 0);

    const int top = Top_Layers(echo);
    const auto water = Water_Blocks(File_Of(directory.Path(), "Wasser.orv"), "ANNUAL", top);
    const auto solute = Solute_Blocks(File_Of(directory.Path(), "chem.orv"), "ANNUAL", top);
    double told_up = 0;
    std::string dry, negative;
    int count = 0;
    for (std::size_t y = 0; y < water.size(); ++y) {
        told_up += solute[y].Upward;
        if (water[y].Percolate == 0) {
            dry += (dry.empty() ? " " : ", ") + std::to_string(y + 1);
            ++count;
        }
        if (solute[y].Leached < 0)
            negative += (negative.empty() ? " " : ", ") + std::to_string(y + 1);
    }
    ASSERT_FALSE(dry.empty());
    ASSERT_FALSE(negative.empty());
    Verify_Relative(40, "upward diffusion of the balances (kg/ha) against the daily fluxes", told_up, up, 1e-3);
    std::string head = " Years without percolate at 1 m:";
    head.resize(52, ' ');
    Verify(40, "the years without percolate stand in the echo",
           Contains(echo, head + Format_Pattern(count, "         0") + "  " + dry + "\r\n"), 1, 0);
    Verify(40, "a note names the years of a negative mean",
           Contains(echo, "THAN THE WATER CARRIED DOWN, THE MEAN IS NEGATIVE: YEAR" + negative + "\r\n"), 1, 0);
}

} // namespace orvel::engine
