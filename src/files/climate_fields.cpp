// The fields of a climate file in order, to find what its layout would lose.
#include "files/broken_line.h"
#include "files/climate_file.h"
#include "files/line_fields.h"

namespace orvel {

namespace {

Line_Fields Climate_Fields(const Climate_Table& table)
{
    Line_Fields fields;
    fields.Text_Field(table.Cli_Title, "Title").End();
    int number = 0;
    for (const auto& row : table.Rows) {
        if (Is_Left_Out(row))
            continue;
        fields.About("day " + std::to_string(++number));
        fields.Text_Field(row.Cli_Day, "Day").Text_Field(row.Cli_Month, "Month").Text_Field(row.Cli_Year, "Year");
        for (const auto& column : Climate_Columns)
            fields.Tab(static_cast<int>(column.First)).Scientific(Number_Of(row, column), column.Name);
        fields.Tab(static_cast<int>(Climate_Columns.back().First + Climate_Number_Width));
        fields.Text_Field(row.Cli_Hour, "Hour").End();
    }
    return fields;
}

} // namespace

std::optional<Lost_Field> Broken_By_Layout(const Climate_Table& table)
{
    Climate_Table read;
    bool complete = true;
    try {
        read = Parse_CLI(Format_CLI(table));
    } catch (const File_Error&) {
        complete = false;
    }
    const auto lost = Climate_Fields(table).First_Not_In(Climate_Fields(read));
    return lost || complete ? lost : Unreadable();
}

} // namespace orvel
