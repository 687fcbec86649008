// A run directory of which one file holds any bytes (the first byte says which): its tables, or the report of it in one
// of its formats. The directory lies in memory.
#include "core/error.h"
#include "output/engine_files.h"
#include "report/report_formats.h"
#include "round_trip.h"
#include "tables/balance_tables.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <unistd.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::array<const char*, 9> Changed = {"echo.orv",   "plot.orv",     "Wasser.orv",   "chem.orv", "year.orv",
                                                "period.orv", "MBalance.orv", "PBalance.orv", "demo.psm"};

class Run_Directory {
public:
    Run_Directory()
    {
        fs::create_directories(Place);
        std::string wasser, chem;
        for (int year = 0; year < 8; ++year) {
            wasser += Water_Block("10.00000", "5.00000");
            chem += Chem_Block("1.E-03", "2.E-03");
        }
        Files = {{"echo.orv", Echo_File()},
                 {"plot.orv", Plot_Head_Of(1, 0)},
                 {"Wasser.orv", wasser + End_Of_Output()},
                 {"chem.orv", chem + End_Of_Output()}};
        for (const auto& [name, bytes] : Files)
            Write_File(Place / name, bytes);
        Make_Tables();
        for (const char* name : {"year.orv", "period.orv", "MBalance.orv", "PBalance.orv"})
            Files.emplace_back(name, Read_File(Place / name));
    }
    Run_Directory(const Run_Directory&) = delete;
    Run_Directory& operator=(const Run_Directory&) = delete;
    ~Run_Directory()
    {
        std::error_code ignored;
        fs::remove_all(Place, ignored);
    }

    void Make_Tables() const
    {
        Build_Or_Load(Place);
        Build_Or_Load_Balance(Place, Balance_View::Annual);
    }

    const fs::path Place = fs::path("/dev/shm") / ("orvel-fuzz-" + std::to_string(::getpid())) / "H.run";
    std::vector<std::pair<std::string, std::string>> Files;
};

// The tables, and of three inputs in 64 the report: it takes several times as long.
void Show(const Session& session, const fs::path& run, std::size_t choice)
{
    const std::vector<Summary_Request> requests = {
        {"ORVEL 4.01", "2026-01-02 03:04", "demo", "Maize", {{"Hamburg (H)", run}}, {}, {}}};
    switch (choice % 64) {
    case 0:
        Report_Csv(Gather_Report(session, requests, 0));
        break;
    case 1:
        Report_Html(Gather_Report(session, requests, 0));
        break;
    case 2:
        Report_Text(requests);
        break;
    default:
        if (choice % 2 == 0)
            Build_Or_Load(run);
        else
            Build_Or_Load_Balance(run, Balance_View::Annual);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Run_Directory run;
    static const auto session = std::make_unique<Session>();
    if (size == 0)
        return 0;
    const std::string name = Changed[data[0] % Changed.size()];
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    Write_File(run.Place / name, bytes);
    try {
        Show(*session, run.Place, std::hash<std::string_view>{}(bytes));
    } catch (const File_Error&) {
    }
    fs::remove(run.Place / name);
    for (const auto& [file, bytes] : run.Files) {
        std::error_code missing;
        if (fs::file_size(run.Place / file, missing) != bytes.size() || missing)
            Write_File(run.Place / file, bytes);
    }
    return 0;
}

} // namespace orvel
