#include "tables/forms/pecsoil.h"

#include "core/shell_line.h"
#include "tables/forms/jahresdiagramm.h"
#include "tables/leachate_tables.h"
#include "tables/soil_concentrations.h"

namespace orvel {

namespace {

Table_Kind Kind_Of(const Session& session, const std::filesystem::path& run, int depth)
{
    Table_Kind kind;
    kind.Ask = session.Ask;
    kind.Name = "PECsoil";
    kind.First_Caption = "Table of actual and time weighted average concentrations in soil";
    kind.Views = {{"Ergebnis_1", "Concentrations in soil", kind.First_Caption, ""}};
    kind.Run = run;
    kind.Command = Orvelctl_Line(session.Program.App_Path, {"pecsoil", run.string(), "--depth", std::to_string(depth)});
    kind.Build = [run, depth](const Progress& progress) -> Built_Tables {
        const auto soil = Build_Soil_Concentrations(run, depth, progress);
        return {{soil.Text}, soil};
    };
    kind.Open_Diagram = [run, ask = session.Ask](QWidget& form) {
        Jahresdiagramm diagram(Build_Or_Load(run, Stay_Painted), ask, &form); // the leachate's diagram
        diagram.Name_Run(run);
        diagram.exec();
    };
    return kind;
}

} // namespace

PECsoil::PECsoil(Session& session, const std::filesystem::path& run_directory, int depth, QWidget* parent)
    : Table_Form(Kind_Of(session, run_directory, depth), parent)
{}

} // namespace orvel
