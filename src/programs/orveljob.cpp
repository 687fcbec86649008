// The job runner: orveljob [--jobs N] [--limit SECONDS] [--resume | --failed] [--lock DESCRIPTOR] MODE_DIRECTORY runs
// the job file of a mode directory and keeps its journal; orveljob --single ENGINE ... DIRECTORY runs one engine.
#include "core/error.h"
#include "core/system/arguments.h"
#include "core/system/lock.h"
#include "core/system/signals.h"
#include "core/system/standard_channels.h"
#include "jobs/job.h"

#include <charconv>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

namespace {

constexpr const char* Usage = "Usage: orveljob [--jobs N] [--limit SECONDS] [--resume | --failed] MODE_DIRECTORY\n"
                              "       orveljob --single ENGINE [--limit SECONDS] DIRECTORY\n";

enum Exit_Code { All_Finished = 0, A_Run_Failed = 1, Wrong_Use = 2, Already_Running = 3 };

struct Command_Line {
    Job_Order Order;
    int Lock_Number = -1;         // the inherited descriptor that holds the directory's lock
    std::filesystem::path Engine; // of a single run
    std::filesystem::path Directory;
};

std::optional<int> Whole_Number(std::string_view text)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < 0)
        return std::nullopt;
    return number;
}

std::optional<Command_Line> Parse(int count, char** arguments)
{
    Command_Line line;
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--resume" || argument == "--failed") {
            line.Order.Selection = argument == "--resume" ? Job_Selection::Resume : Job_Selection::Failed;
        } else if (argument == "--single" && i + 1 < count) {
            line.Engine = arguments[++i];
        } else if (argument == "--jobs" || argument == "--lock" || argument == "--limit") {
            const auto number = i + 1 < count ? Whole_Number(arguments[i + 1]) : std::nullopt;
            if (!number || (argument == "--limit" && *number == 0))
                return std::nullopt;
            if (argument == "--limit")
                line.Order.Limit = number;
            else
                (argument == "--jobs" ? line.Order.Jobs : line.Lock_Number) = *number;
            ++i;
        } else if (line.Directory.empty() && !argument.starts_with("--")) {
            line.Directory = argument;
        } else {
            return std::nullopt;
        }
    }
    return line.Directory.empty() ? std::nullopt : std::optional(line);
}

int Work(const Command_Line& line)
try {
    std::error_code error;
    const auto directory = std::filesystem::canonical(line.Directory, error);
    if (error || !std::filesystem::is_directory(directory, error)) {
        std::fprintf(stderr, "%s: %s.\n", line.Directory.string().c_str(),
                     error ? error.message().c_str() : "Not a directory");
        return Wrong_Use;
    }
    const bool adopted = line.Lock_Number >= 0;
    auto lock = adopted ? Lock::Adopt(line.Lock_Number) : Lock::Take(directory);
    if (!lock) {
        std::fprintf(stderr, "A job is running in %s already.\n", directory.string().c_str());
        return Already_Running;
    }
    if (!adopted)
        Remove_Stop_Request(directory); // else the starter has done so, and a request that came since counts
    Notice_When_Stopped();
    Report_Failed_Writes();
    const Job_Result result = line.Engine.empty() ? Run_Job(directory, line.Order)
                                                  : Run_Single(directory, std::filesystem::absolute(line.Engine),
                                                               lock->Descriptor(), line.Order.Limit);
    return result.Failed == 0 ? All_Finished : A_Run_Failed;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return Wrong_Use;
}

} // namespace

} // namespace orvel

int main(int argc, char** argv)
{
    using namespace orvel;
    Open_Standard_Channels();
    argv = Utf8_Arguments(argc, argv);
    const auto line = Parse(argc, argv);
    if (line)
        return Work(*line);
    const bool asked = argc == 2 && std::string_view(argv[1]) == "--help";
    std::fputs(Usage, asked ? stdout : stderr);
    return asked ? All_Finished : Wrong_Use;
}
