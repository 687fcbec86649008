#include "tables/forms/jahr_orv.h"

#include "core/shell_line.h"
#include "tables/forms/jahresdiagramm.h"
#include "tables/leachate_tables.h"

#include <memory>

namespace orvel {

namespace {

// The captions are required as they are: the switch names the table in view, and "Annual" is the caption of the
// periods.
Table_Kind Kind_Of(const Session& session, const std::filesystem::path& run)
{
    Table_Kind kind;
    kind.Ask = session.Ask;
    kind.Name = "Jahr_ORV";
    kind.First_Caption = "Table of Average Concentration in Leachate - Simulation: ";
    kind.First_Switch_Caption = "Water Balance";
    kind.Views = {{"Ergebnis_0", "Leachate table by year", "Table of Average Concentrations in Leachate", "Year"},
                  {"Ergebnis_1", "Leachate table by application period",
                   "Table of Annual Average Concentrations in Leachate", "Period"}};
    const auto tables = std::make_shared<Leachate_Tables>();
    kind.Run = run;
    kind.Command = Orvelctl_Line(session.Program.App_Path, {"tables", run.string()});
    kind.Build = [run, tables](const Progress& progress) -> Built_Tables {
        *tables = Build_Or_Load(run, progress);
        return {{tables->Year_Text, tables->Period_Text}, *tables};
    };
    kind.Open_Diagram = [tables, run, ask = session.Ask, command = kind.Command](QWidget& form) {
        Jahresdiagramm diagram(*tables, ask, &form);
        diagram.Name_Run(run);
        diagram.Offer_Command(command);
        diagram.exec();
    };
    return kind;
}

} // namespace

Jahr_ORV::Jahr_ORV(Session& session, const std::filesystem::path& run_directory, QWidget* parent)
    : Table_Form(Kind_Of(session, run_directory), parent)
{}

} // namespace orvel
