#include "files/document_json.h"
#include "files/json_rows.h"

namespace orvel {

namespace {

void Write(Json_Writer& out, const Climate_Row& row)
{
    out.Object([&] {
        out.Member("Cli_Day", row.Cli_Day);
        out.Member("Cli_Month", row.Cli_Month);
        out.Member("Cli_Year", row.Cli_Year);
        out.Member("Cli_Rain", row.Cli_Rain);
        out.Member("Cli_Evap", row.Cli_Evap);
        out.Member("Cli_Temp_14", row.Cli_Temp_14);
        out.Member("Cli_Temp_Mean", row.Cli_Temp_Mean);
        out.Member("Cli_Temp_Diff", row.Cli_Temp_Diff);
        out.Member("Cli_Rel_Hum", row.Cli_Rel_Hum);
        out.Member("Cli_Radiation", row.Cli_Radiation);
        out.Member("Cli_Hour", row.Cli_Hour);
    });
}

} // namespace

std::string Json_Of(const Climate_Table& table)
{
    Json_Writer out;
    out.Object([&] {
        out.Member("Cli_Title", table.Cli_Title);
        out.Member("Cli_Rows", table.Rows.size());
        Rows_In_Use(out, "Rows", table.Rows, 0, static_cast<double>(table.Rows.size()),
                    [&](const auto& row) { Write(out, row); });
    });
    return out.Written();
}

} // namespace orvel
