#include "jobs/job_log.h"

#include "core/files.h"
#include "core/numbers.h"
#include "core/system/times.h"
#include "core/text.h"

#include <array>

namespace orvel {

namespace {

constexpr std::array<std::string_view, 9> Event_Names = {"begin",  "started", "finished", "incomplete", "failed",
                                                         "killed", "stopped", "kept",     "end"};
constexpr std::size_t Longest_Job = 1U << 20U; // bytes at the journal's end that hold its last job

std::string_view Next_Field(std::string_view& line)
{
    const auto end = line.find('\t');
    const auto field = line.substr(0, end);
    line = end == std::string_view::npos ? std::string_view() : line.substr(end + 1);
    return field;
}

} // namespace

std::string_view Event_Name(Job_Event event)
{
    return Event_Names[static_cast<std::size_t>(event)];
}

Job_Log::Job_Log(const std::filesystem::path& mode_directory)
{
    std::error_code error;
    File = File_Handle(mode_directory / Job_Log_Name, File_Handle::Use::Append, error);
    const std::string end = Read_Tail(mode_directory / Job_Log_Name, 1);
    if (!error && !end.empty() && end != "\n")
        error = File.Write("\n"); // a job was killed within a line
    if (error)
        throw File_Error("Cannot write " + (mode_directory / Job_Log_Name).string() + ": " + error.message() + ".");
}

void Job_Log::Add(Job_Event event, std::string_view run, std::string_view detail)
{
    std::string line = Time_Text(std::time(nullptr));
    for (const auto field : {Event_Name(event), run, detail})
        line.append("\t").append(field);
    line += '\n';
    // A full disk must not end the job; the runs report it themselves.
    [[maybe_unused]] const auto error = File.Write(line);
}

Job_History Parse_Job_Log(std::string_view text)
{
    Job_History history;
    for (auto line : Split_Lines(text)) {
        const auto time = Next_Field(line);
        const auto name = Next_Field(line);
        const auto run = Next_Field(line);
        for (std::size_t i = 0; i < Event_Names.size(); ++i) {
            if (name != Event_Names[i])
                continue;
            const auto event = static_cast<Job_Event>(i);
            if (event == Job_Event::Begin)
                history = {.Begin = Time_Of_Text(time)};
            else if (event == Job_Event::End)
                history.Ended = true;
            else
                history.Runs.insert_or_assign(std::string(run), event);
        }
    }
    return history;
}

Job_History Read_Job_Log(const std::filesystem::path& mode_directory)
{
    return Parse_Job_Log(Read_Tail(mode_directory / Job_Log_Name, Longest_Job));
}

} // namespace orvel
