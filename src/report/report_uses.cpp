#include "report/report_uses.h"

#include "runs/selection.h"
#include "substance/application_list.h"
#include "substance/application_view.h"

#include <algorithm>

namespace orvel {

namespace {

// A use with the years of its applications.
struct Dated_Use {
    Report_Use Use;
    std::vector<int> Years;
};

std::string Place_Text(const Pesticide_Document& document, double depth, double interception)
{
    switch (static_cast<Application_Method>(std::clamp(document.App_Method.Number(), 0.0, 9.0))) {
    case Application_Method::Linear:
        return "crop, linear interception";
    case Application_Method::Exponential:
        return "crop, exponential interception";
    case Application_Method::Manually:
        return "crop, " + General_Text(interception) + " % intercepted";
    default:
        return depth > 0 ? General_Text(depth) + " cm deep" : "soil surface";
    }
}

Dated_Use Relative_Use(const Pesticide_Document& document, const Relative_Application& application)
{
    const auto stage =
        static_cast<std::size_t>(std::clamp<int>(application.Abs9_Month, 0, Crop_Event_Label.size() - 1));
    const int days = application.Abs9_Day;
    const std::string side = days < 0 ? " before " : " after ";
    const std::string date = std::to_string(std::abs(days)) + (std::abs(days) == 1 ? " day" : " days") + side +
                             std::string(Crop_Event_Label[stage]);
    return {{General_Text(application.Abs9_Rate) + " kg/ha",
             date,
             {},
             Place_Text(document, application.Abs9_Depth, application.Abs9_Frpex)},
            {application.Abs9_Year}};
}

Dated_Use Absolute_Use(const Pesticide_Document& document, const Application& application)
{
    const bool is_month = application.App_Month >= 1 && application.App_Month <= 12;
    const std::string month = is_month ? std::string(Month_Name[static_cast<std::size_t>(application.App_Month)])
                                       : std::to_string(application.App_Month);
    return {{General_Text(application.App_Rate) + " kg/ha",
             std::to_string(application.App_Day) + " " + month,
             {},
             Place_Text(document, application.App_Depth, application.App_Frpex)},
            {application.App_Year}};
}

// The step between years that are all equally far apart, 0 for others.
int Step_Of(const std::vector<int>& years)
{
    const int step = years[1] - years[0];
    for (std::size_t i = 2; i < years.size(); ++i) {
        if (years[i] - years[i - 1] != step)
            return 0;
    }
    return step;
}

std::string List_Text(const std::vector<int>& years)
{
    std::string text = "years ";
    for (std::size_t i = 0; i < years.size(); ++i)
        text += (i == 0 ? "" : i + 1 == years.size() ? " and " : ", ") + std::to_string(years[i]);
    return text;
}

// The first block with applications: relative dates are those of all locations.
int Relative_Block(const Pesticide_Document& document)
{
    for (int block = 0; block <= Last_Location; ++block) {
        if (Applications_Of(document, block) > 0)
            return block;
    }
    return -1;
}

} // namespace

std::string Years_Text(const std::vector<int>& years)
{
    constexpr std::size_t Fewest_Regular = 3;
    if (years.size() == 1)
        return "year " + std::to_string(years[0]);
    const int step = years.size() < Fewest_Regular ? 0 : Step_Of(years);
    if (step <= 0)
        return years.empty() ? "" : List_Text(years);
    const std::string every = step == 1   ? "every year, "
                              : step == 2 ? "every other year, "
                                          : "every " + Ordinal(step) + " year, ";
    return every + std::to_string(years.front()) + " to " + std::to_string(years.back());
}

std::vector<Report_Use> Uses_Of(const Pesticide_Document& document, std::string_view location)
{
    const bool relative = document.App_Mode == App_Mode_Relative;
    const int block = relative ? Relative_Block(document) : Block_Of_Location(document, location);
    if (block < 0)
        return {};
    std::vector<Dated_Use> dated;
    const int count = Applications_Of(document, block);
    for (std::size_t a = 1; a <= static_cast<std::size_t>(count); ++a) {
        const auto next = relative ? Relative_Use(document, document.Relative[a])
                                   : Absolute_Use(document, document.Applications[static_cast<std::size_t>(block)][a]);
        const auto same = std::ranges::find(dated, next.Use, &Dated_Use::Use);
        if (same == dated.end())
            dated.push_back(next);
        else
            same->Years.push_back(next.Years.front());
    }
    std::vector<Report_Use> uses;
    for (auto& [use, years] : dated) {
        std::ranges::sort(years);
        use.Years = Years_Text(years);
        uses.push_back(std::move(use));
    }
    return uses;
}

} // namespace orvel
