#include "tables/forms/mass_balance.h"

#include "core/shell_line.h"
#include "output/echo_file.h"
#include "tables/forms/jahresbilanz.h"

#include <memory>

namespace orvel {

namespace {

constexpr int Line_Columns = 130; // the rule of the pesticide tables with its leading tab, and the scroll bar

bool Has_Months(const std::filesystem::path& run)
try {
    return Read_Echo(run).Layers().Has_Monthly_Output;
} catch (const File_Error&) {
    return false; // the form itself tells what is wrong with the echo
}

// The caption of the switch names the table that it leads to.
Table_Kind Kind_Of(Session& session, const std::filesystem::path& run, Balance_View view)
{
    const QString period = view == Balance_View::Annual ? "Annual" : "Monthly";
    Table_Kind kind;
    kind.Ask = session.Ask;
    kind.Name = view == Balance_View::Annual ? "Mass_Balance" : "Mass_Balance_USER";
    kind.Columns = Line_Columns;
    kind.First_Caption = "Table of " + period + " Water Balance";
    kind.First_Switch_Caption = "Pesticide Balance";
    kind.Views = {
        {"Ergebnis_0", "Water balance", kind.First_Caption, "Pesticide Balance"},
        {"Ergebnis_1", "Pesticide balance", "Table of " + period + " Pesticide Mass Balance", "Water Balance"}};
    const auto tables = std::make_shared<Balance_Tables>();
    kind.Run = run;
    std::vector<std::string> words = {"balance", run.string()};
    if (view == Balance_View::Monthly)
        words.emplace_back("--monthly");
    kind.Command = Orvelctl_Line(session.Program.App_Path, words);
    kind.Build = [run, view, tables](const Progress& progress) -> Built_Tables {
        *tables = Build_Or_Load_Balance(run, view, progress);
        return {{tables->Water_Text, tables->Pesticide_Text}, *tables};
    };
    // In either view the diagram is the annual one.
    kind.Open_Diagram = [run, view, tables, ask = session.Ask, app_path = session.Program.App_Path](QWidget& form) {
        Jahresbilanz diagram(
            view == Balance_View::Annual ? *tables : Build_Or_Load_Balance(run, Balance_View::Annual, Stay_Painted),
            ask, &form);
        diagram.Name_Run(run);
        diagram.Offer_Command(Orvelctl_Line(app_path, {"balance", run.string()}));
        diagram.exec();
    };
    if (view == Balance_View::Annual && Has_Months(run))
        kind.Open_Months = [run, &session](QWidget& form) {
            Mass_Balance(session, run, &form, Balance_View::Monthly).exec();
        };
    return kind;
}

} // namespace

Mass_Balance::Mass_Balance(Session& session, const std::filesystem::path& run_directory, QWidget* parent,
                           Balance_View view)
    : Table_Form(Kind_Of(session, run_directory, view), parent)
{}

} // namespace orvel
