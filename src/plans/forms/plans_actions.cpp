// What the window of plans does.
#include "core/code_page.h"
#include "core/files.h"
#include "core/shell_line.h"
#include "plans/forms/plans_window.h"
#include "plans/forms/sweep_form.h"
#include "plans/pasted_plan.h"
#include "plans/results_file.h"
#include "plans/start_plan.h"
#include "records/forms/work_in_window.h"
#include "report/forms/report_saving.h"
#include "ui/forms/command_box.h"
#include "ui/forms/text_output.h"
#include "ui/forms/widgets.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr const char* Plan_Filter = "Plan (*.csv *.txt *.tsv);;All files (*)";

} // namespace

void Plans_Window::Open_File()
{
    QFileDialog dialog(this, "Open plan", QString::fromStdString(Program.App_Path.string()), Plan_Filter);
    dialog.setObjectName("Open_Plan_File");
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() == QDialog::Accepted)
        Open(dialog.selectedFiles().value(0).toStdString());
}

void Plans_Window::Paste()
{
    std::string text = QApplication::clipboard()->text().toStdString();
    if (text.find_first_not_of(" \t\r\n") == std::string::npos) {
        Ask({"Plan", "The clipboard holds no text.", Icon::Information});
        return;
    }
    if (Has_Decimal_Commas(text)) {
        const Message question{"Plan",
                               "Some numbers have a decimal comma. Are they to be written with a decimal point?",
                               Icon::Question,
                               {Button::Yes, Button::No},
                               Button::Yes};
        if (Ask(question) == Button::Yes)
            text = With_Decimal_Points(std::move(text));
    }
    Keep_And_Open(text, "plan.csv");
}

void Plans_Window::Sweep()
{
    Sweep_Form form(Program, Ask, this);
    if (form.exec() == QDialog::Accepted)
        Keep_And_Open(form.Plan(), "sweep.csv");
}

// A plan is a file: that is what its documents are looked for from, and what a command line runs.
void Plans_Window::Keep_And_Open(const std::string& text, const QString& name)
{
    const QString proposed = QString::fromStdString((Program.App_Path / name.toStdString()).string());
    const QString chosen = Chosen_File(*this, "Save_Plan", "Save plan", "Plan (*.csv)", proposed);
    if (chosen.isEmpty())
        return;
    try {
        Write_Whole(chosen.toStdString(), text);
    } catch (const File_Error& error) {
        Ask({"Plan", To_Code_Page(error.what())});
        return;
    }
    Open(chosen.toStdString());
}

void Plans_Window::Choose_Directory()
{
    QFileDialog dialog(this, "Directory of the runs", QString::fromStdString(Place.Directory.parent_path().string()));
    dialog.setObjectName("Choose_Directory");
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (dialog.exec() != QDialog::Accepted)
        return;
    Place.Directory = fs::path(dialog.selectedFiles().value(0).toStdString()).lexically_normal();
    Show_Place();
}

void Plans_Window::Run()
{
    const Plan_Order order = Order();
    const auto cluster = Cluster();
    std::optional<Slurm_Job> job;
    Do_In_Window(this, Ask, "Plan", [&](const Progress& progress) {
        if (cluster)
            job = Begin_On_Cluster(Program, order, *cluster, progress);
        else
            Begin_Plan(Program, order, progress);
    });
    Survey->Look_Again();
    if (job && cluster)
        Ask({"Plan", Job_Text(*job, cluster->Tasks) + ". They go on when this window is closed.", Icon::Information});
}

void Plans_Window::Stop()
{
    try {
        Stop_Plan(Place.Directory);
    } catch (const File_Error& error) {
        Ask({"Plan", To_Code_Page(error.what())});
    }
}

void Plans_Window::Copy()
{
    Copy_Text(QString::fromStdString(Grid_Lines(*Latest, Table_Model.Grid())));
}

void Plans_Window::Save()
{
    const QString name = QString::fromStdString(Place.Directory.filename().string() + "_results");
    const QString chosen =
        Chosen_File(*this, "Save_Results", "Save results", QString::fromUtf8(Results_Filters.data()), name);
    if (chosen.isEmpty())
        return;
    Do_In_Window(this, Ask, "Save results", [&, file = fs::path(chosen.toStdString())](const Progress& progress) {
        if (Is_Results_Book(file))
            Write_Results_Book(Place.Directory, false, file, progress);
        else
            Write_Results_Csv(Place.Directory, false, file);
    });
}

void Plans_Window::Print()
{
    Print_Page(*this, Ask, "Plan", QString::fromStdString(Grid_Page(*Latest, Table_Model.Grid())));
}

void Plans_Window::Command()
{
    const auto line = [this](const std::vector<std::string>& words) { return Orvelctl_Line(Program.App_Path, words); };
    const std::string directory = Place.Directory.string();
    const auto cluster = Cluster();
    Show_Command(this, {line(cluster ? Words_To_Submit(Order(), *cluster) : Words_To_Run(Order())),
                        line({"plan", "status", directory}), line({"plan", "results", directory})});
}

} // namespace orvel
