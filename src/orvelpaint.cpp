// Paints a series of a run as a picture, for orvelctl.
//   orvelpaint INSTALLATION RUNDIR COLUMN ITEM VARIABLE CUMULATIVE FROM TO FILE    with months as YEAR-MONTH
#include "charts/daily_diagram.h"
#include "charts/painting/chart_files.h"
#include "core/error.h"
#include "core/numbers.h"
#include "results/series.h"
#include "results/utility_table.h"

#include <iostream>
#include <memory>
#include <QGuiApplication>
#include <string>
#include <vector>

namespace {

Run_Month Month_Of(const std::string& text)
{
    return {static_cast<int>(Val(std::string_view(text).substr(text.find('-') + 1))), static_cast<int>(Val(text))};
}

} // namespace

int main(int argc, char** argv)
try {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() != 9)
        return 2;
    qputenv("QT_QPA_PLATFORM", "offscreen"); // no display is needed
    QGuiApplication application(argc, argv);
    const auto session = std::make_unique<Session>();
    session->Program.App_Path = words[0];
    const Daily_Request request{
        .Variable = static_cast<int>(Val(words[4])), .Cumulative = words[5] == "1", .From = Month_Of(words[6]), .To = Month_Of(words[7])};
    const Daily_Series series = Read_Daily_Series(*session, words[1], !Is_Of_A_Batch(words[1]), static_cast<int>(Val(words[2])), request);
    Save_Chart(Daily_Diagram(series, request, words[3], X_Unit::Years), words[8]);
    return 0;
} catch (const File_Error& error) {
    std::cerr << "Save Graph: " << error.what() << '\n';
    return 1;
}
