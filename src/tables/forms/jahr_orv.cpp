#include "tables/forms/jahr_orv.h"

#include "tables/forms/jahresdiagramm.h"
#include "tables/leachate_tables.h"

namespace orvel {

namespace {

// The switch's caption names the table in view, and the word "Annual" stands on the period table; both stay as they
// are.
Table_Kind Kind_Of(const Session& session, const std::filesystem::path& run)
{
    Table_Kind kind;
    kind.Name = "Jahr_ORV";
    kind.First_Caption = "Table of Average Concentration in Leachate - Simulation: ";
    kind.First_Switch_Caption = "Water Balance";
    kind.Views = {{"Ergebnis_0", "Leachate table by year", "Table of Average Concentrations in Leachate", "Year"},
                  {"Ergebnis_1", "Leachate table by application period",
                   "Table of Annual Average Concentrations in Leachate", "Period"}};
    kind.Build = [run](const Progress& progress) -> Built_Tables {
        const auto tables = Build_Or_Load(run, progress);
        return {{tables.Year_Text, tables.Period_Text}, Note_Of(tables.Failure, tables.Not_Cached)};
    };
    kind.Open_Diagram = [run, ask = session.Ask](QWidget& form) { Jahresdiagramm(run, ask, &form).exec(); };
    return kind;
}

} // namespace

Jahr_ORV::Jahr_ORV(Session& session, const std::filesystem::path& run_directory, QWidget* parent)
    : Table_Form(Kind_Of(session, run_directory), parent)
{}

} // namespace orvel
