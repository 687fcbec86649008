#include "jobs/run_again.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "runs/batch.h"
#include "runs/output_selection.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Starting = "Starting ORVEL Simulations";
constexpr std::string_view Soil_Mark = "SOIL";

// What a user who agreed once is not asked again.
class Confirmation_Bypass {
public:
    explicit Confirmation_Bypass(Session& session) : The_Session(session), Before(session.Ask)
    {
        The_Session.Ask = [this](const Message& message) {
            return message.Buttons == std::vector{Button::Ok, Button::Cancel} ? Button::Ok : Before(message);
        };
    }
    Confirmation_Bypass(const Confirmation_Bypass&) = delete;
    Confirmation_Bypass& operator=(const Confirmation_Bypass&) = delete;
    ~Confirmation_Bypass() { The_Session.Ask = Before; }

private:
    Session& The_Session;
    Ask_Function Before;
};

std::string Read_Control(const fs::path& run)
try {
    return Read_Whole(Found_Or_New(run, "orvel.inp"));
} catch (const File_Error&) {
    return {};
}

// The entry of a list, or another one where the list lacks it.
std::string Entry_Or(const std::vector<std::string>& entries, const std::string& entry, const std::string& other)
{
    return std::ranges::find(entries, entry) != entries.end() ? entry : other;
}

// The scaling stands behind the last word of the first line.
std::string Scaling_Of(std::string_view control)
{
    const auto header = control.substr(0, control.find('\r'));
    const auto mark = header.find(Soil_Mark);
    const std::string text(mark == std::string_view::npos ? "" : Trim(header.substr(mark + Soil_Mark.size())));
    return Entry_Or(Scaling_List(), text, "0");
}

std::string Tillage_Of(const Mode& mode, const Run_Template& control)
{
    const auto depths = Tillage_List(mode);
    return Entry_Or(depths, General_Text(control.Till_Depth), depths[static_cast<std::size_t>(mode.Tillage_Index)]);
}

Run_Choice Choice_Of(Session& session, const Mode& mode, const Simulation& simulation)
{
    const std::string bytes = Read_Control(simulation.Directory);
    const Run_Template control = Parse_Template(mode, bytes);
    session.Output = control.Has_Rows ? control.Output : Recommended_Output();
    Run_Choice choice;
    choice.Pesticide = control.Pesticide.empty() ? simulation.Pesticide + ".psm" : control.Pesticide;
    choice.Crop = Crop_Index(simulation.Crop).value_or(-1);
    choice.Location = simulation.Location;
    choice.Tillage = Tillage_Of(mode, control);
    choice.Irregular_Years = control.Years > 0 ? control.Years : choice.Irregular_Years;
    choice.Kept_Number = control.Kept_Number;
    choice.Scaling = Scaling_Of(bytes);
    return choice;
}

bool Mark_Again(Session& session, const Mode& mode, const Simulation& simulation)
{
    Run_Choice choice = Choice_Of(session, mode, simulation);
    const Selection selected = Evaluate_Selection(session, mode, choice.Pesticide, choice.Crop, choice.Location);
    if (!selected.Buttons_Enabled() && !selected.May_Run_Anyway) {
        const std::string why =
            selected.Warnung.empty() ? "Its pesticide file or its scenario is missing." : selected.Warnung;
        session.Ask({std::string(Starting),
                     "The simulation in\r\n" + Path_Text(simulation.Directory) + "\r\ncannot be marked again. " + why});
        return false;
    }
    choice.Tillage_Visible = selected.Tillage_Visible;
    return Mark_For_Batch(session, mode, choice) == Mark_Result::Marked;
}

std::vector<Simulation> Failed_And_Not_Marked(Session& session, const Mode& mode,
                                              const std::vector<Simulation>& simulations)
{
    Load_Batch(session, mode);
    std::vector<Simulation> failed;
    for (const Simulation& simulation : simulations) {
        const auto marked = [&](const std::string& run) {
            return Run_Path(Mode_Directory(session, mode), run) == simulation.Directory;
        };
        if (Has_Failed(simulation) && std::ranges::none_of(session.Run.Job_Dir, marked))
            failed.push_back(simulation);
    }
    return failed;
}

} // namespace

bool Has_Failed(const Simulation& simulation)
{
    return simulation.Result == Run_Result::Error || simulation.Result == Run_Result::Killed;
}

int Mark_Failed_Again(Session& session, const Mode& mode, const std::vector<Simulation>& simulations)
{
    const auto failed = Failed_And_Not_Marked(session, mode, simulations);
    if (failed.empty()) {
        session.Ask({std::string(Starting), "There is no failed simulation that is not marked for the batch already.",
                     Icon::Information});
        return 0;
    }
    const std::string question =
        "Do you want to mark " +
        (failed.size() == 1 ? "the failed simulation" : std::to_string(failed.size()) + " failed simulations") +
        " for the batch again? What they wrote so far will be removed.";
    if (session.Ask({std::string(Starting), question, Icon::Question, {Button::Yes, Button::No}, Button::No}) !=
        Button::Yes)
        return 0;
    const Output_Selection output = session.Output;
    const auto marked = [&] {
        const Confirmation_Bypass no_more_questions(session);
        return std::ranges::count_if(
            failed, [&](const Simulation& simulation) { return Mark_Again(session, mode, simulation); });
    }();
    session.Output = output;
    return static_cast<int>(marked);
}

} // namespace orvel
