#pragma once

#include "core/error.h"
#include "runs/run_control.h"

#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// A run directory is completed beside its place and then moved there, so that no failure can leave a half-made one.
// Earlier results go to the bin first, where nothing but their age takes them away.

// A failure and the stage of the preparation at which it happened; the text follows the heading in the message box.
struct Stage_Error : File_Error {
    Stage_Error(int stage, const std::string& text) : File_Error(text), Stage(stage) {}
    // 1 old output in use, 2 old directory, 3 new directory, 4 pesticide file, 5 engine, 6 Haude.dat, 7 orvel.inp,
    // 8 batch, 9 scenario
    int Stage;
};

// Throws the error of stage 1: the earlier run at this place is running or waiting to run.
[[noreturn]] void Refuse_Old_Output(const std::filesystem::path& place);

// The files of a run.
struct Run_Sources {
    std::filesystem::path Pesticide, Engine, Haude, Run_Control, Last;
    std::string Engine_Name;
    int Last_Stage = 9;
};
Run_Sources Sources_Of_Run(const Program_State& program, const Mode& mode, const Run_Choice& choice);

// Ends marks that were killed half-way: the run that one was about to replace is in its place again, and what it had
// made beside it is gone. For the holder of the turn; what fails is tried again next time.
void End_Interrupted_Marks(const std::filesystem::path& mode_directory);

class New_Run_Directory {
public:
    // Checks that the directory can be replaced and makes the new one beside it. Throws Stage_Error; nothing of the new
    // one is then left.
    New_Run_Directory(const std::filesystem::path& place, const Run_Sources& sources);
    New_Run_Directory(const New_Run_Directory&) = delete;
    New_Run_Directory& operator=(const New_Run_Directory&) = delete;
    ~New_Run_Directory(); // undoes everything unless Keep was called

    void Put_In_Place(); // throws Stage_Error
    void Keep();         // the earlier run stays in the bin; one without output is removed

private:
    void Make();
    void Fill(const Run_Sources& sources);
    void Take_Back();

    std::filesystem::path Place, Beside, Earlier;
    bool Earlier_Is_Binned = false;
    std::vector<std::filesystem::path> Made_Above; // levels that did not exist before
    bool In_Place = false, Kept = false;
};

} // namespace orvel
