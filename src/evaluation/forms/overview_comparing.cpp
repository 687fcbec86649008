// The overview compared with another assessment, and the way back.
#include "core/code_page.h"
#include "evaluation/compared_assessment.h"
#include "evaluation/forms/compared_choice.h"
#include "evaluation/forms/overview_window.h"
#include "records/forms/work_in_window.h"
#include "ui/forms/widgets.h"

#include <QLabel>

namespace orvel {

namespace fs = std::filesystem;

void Overview_Window::Compare()
{
    try {
        Compared_Choice choice(Earlier_Results_In(Mode_Directory(The_Session.Program, The_Mode())), this);
        if (choice.exec() == QDialog::Accepted)
            Compare_To(choice.Chosen());
    } catch (const File_Error& error) {
        The_Session.Ask({"Compare", To_Code_Page(error.what())});
    }
}

// What cannot be read leaves an overview that is not compared.
void Overview_Window::Compare_To(const fs::path& other)
{
    const auto read = std::make_shared<Compared_Assessment>();
    const Mode& mode = The_Mode();
    const Soil_Choice soil = Choice().Soil;
    const bool done = Do_In_Window(this, The_Session.Ask, "Compare", [&](const Progress& progress) {
        *read = Read_Compared(The_Session.Program.App_Path, mode, soil, other, progress);
    });
    Compared = done ? read : nullptr;
    Compared_Path = done ? fs::absolute(other) : fs::path();
    Show_Comparison();
}

void Overview_Window::End_Comparison()
{
    Compared = nullptr;
    Compared_Path.clear();
    Show_Comparison();
}

void Overview_Window::Show_Comparison()
{
    Comparison_Box->setVisible(Compared != nullptr);
    if (Compared)
        Comparison->setText("Compared with " + Shown(Compared->Name) +
                            ": figure here | figure there | ratio of there to here");
    Survey->Choose(Choice());
}

} // namespace orvel
