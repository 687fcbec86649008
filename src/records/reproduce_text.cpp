// How a reproduction is printed.
#include "core/json.h"
#include "records/comparison.h"
#include "records/reproduce.h"

namespace orvel {

namespace {

std::string List_Of(const std::vector<std::string>& names)
{
    std::string list;
    for (const auto& name : names)
        list += (list.empty() ? "" : ", ") + name;
    return list;
}

std::string_view Word_Of(const Reproduced_Run& run)
{
    if (!run.Fault.empty())
        return "failed";
    return run.Differing.empty() ? "same" : "differs";
}

} // namespace

std::string Reproduction_Lines(const Reproduction& reproduction)
{
    std::string lines;
    for (const auto& run : reproduction.Runs)
        lines += Line_Of_Cells(
            {std::string(Word_Of(run)), run.Directory, run.Fault.empty() ? List_Of(run.Differing) : run.Fault});
    return lines + Result_Lines(reproduction.Results, reproduction.Tolerance) + Note_Lines(reproduction.Notes);
}

std::string Reproduction_Json(const Reproduction& reproduction)
{
    Json_Writer json;
    json.Object([&] {
        json.Member("same", reproduction.Is_Same());
        json.Member("same_bytes", reproduction.Has_Same_Bytes());
        json.Member("tolerance", reproduction.Tolerance);
        json.Key("runs");
        json.Array([&] {
            for (const auto& run : reproduction.Runs) {
                json.Object([&] {
                    json.Member("directory", run.Directory);
                    json.Member("outputs", Word_Of(run));
                    json.Key("differing");
                    json.Array([&] {
                        for (const auto& name : run.Differing)
                            json.Value(name);
                    });
                    json.Member("fault", run.Fault);
                });
            }
        });
        Put_Results(json, reproduction.Results, reproduction.Tolerance);
        Put_Notes(json, reproduction.Notes);
    });
    return json.Written();
}

} // namespace orvel
