#include "engine/solute/applications.h"

#include "core/locations.h"
#include "core/numbers.h"
#include "engine/solute/plant_surface.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

namespace {

constexpr double Largest_Rate = 10000; // kg/ha
constexpr int Manual_Method = 4;       // the only one that takes the interception as given

// What absolute and relative dates have in common.
struct Entry {
    double Rate = 0, Depth = 0, Interception = 0, Poorly_Exposed = 0;
    int Hour = 0;
};

class Planner {
public:
    Planner(const Pesticide_Document& pesticide, int block, const Scenario_Document& scenario,
            const std::vector<Crop_Period>& rotation, const Calendar& dates, int first_day, int last_day,
            Findings& findings)
        : Pesticide(pesticide),
          Scenario(scenario),
          Rotation(rotation),
          Dates(dates),
          First_Day(first_day),
          Last_Day(last_day),
          The_Findings(findings),
          Block(static_cast<std::size_t>(block)),
          Events(rotation, dates),
          Method(static_cast<int>(pesticide.App_Method.Number()))
    {}

    std::vector<Planned_Application> Plan()
    {
        const int count = std::clamp(static_cast<int>(Pesticide.App_Count[Block].Number()), 0, Last_Application);
        if (Method < 1 || Method > 4)
            The_Findings.Error(Fault::Application_Value, "APPLICATION METHOD NOT 1 TO 4");
        for (int a = 1; a <= count && !The_Findings.Failed(); ++a) {
            Number = a;
            if (Pesticide.App_Mode == App_Mode_Relative)
                Plan_Relative(static_cast<std::size_t>(a));
            else
                Plan_Absolute(static_cast<std::size_t>(a));
        }
        std::ranges::stable_sort(Planned, {}, &Planned_Application::Day);
        Note_Nothing(count);
        if (Intercepted > 0)
            The_Findings.Tell(Note::Value_Unused, "THE INTERCEPTION OF " + std::to_string(Intercepted) +
                                                      " APPLICATION(S) IS NOT USED: THE METHOD IS " +
                                                      std::to_string(Method));
        return Planned;
    }

private:
    std::string Name() const { return "APPLICATION " + std::to_string(Number); }

    void Note_Nothing(int count)
    {
        if (!Planned.empty() || The_Findings.Failed())
            return;
        The_Findings.Tell(
            Note::Nothing_Applied,
            "NOTHING IS APPLIED, ALL CONCENTRATIONS ARE 0: " +
                (Outside > 0 ? "ALL " + std::to_string(Outside) + " APPLICATION(S) LIE OUTSIDE THE SIMULATED PERIOD"
                 : count > 0 ? "NONE OF THE " + std::to_string(count) + " APPLICATION(S) HAS A RATE"
                             : std::string("THE PATTERN OF THE PESTICIDE FILE IS EMPTY")));
    }

    bool In_Range(const Entry& entry)
    {
        const auto within = [](double value, double low, double high) { return value >= low && value <= high; };
        if (!within(entry.Rate, 0, Largest_Rate))
            The_Findings.Error(Fault::Application_Value, "RATE OF " + Name() + " NOT WITHIN 0 TO 10000 KG/HA");
        else if (!within(entry.Depth, 0, Scenario.SZE_Core_Depth))
            The_Findings.Error(Fault::Application_Value, "DEPTH OF " + Name() + " NOT WITHIN THE CORE");
        else if (!within(entry.Interception, 0, 100))
            The_Findings.Error(Fault::Application_Value, "INTERCEPTION OF " + Name() + " NOT WITHIN 0 TO 100 %");
        else if (!within(entry.Poorly_Exposed, 0, 1))
            The_Findings.Error(Fault::Application_Value, "POORLY EXPOSED FRACTION OF " + Name() + " NOT WITHIN 0 TO 1");
        else
            return true;
        return false;
    }

    double Plant_Share(const Entry& entry, int day) const
    {
        const Crop_State crop = Crop_On(Scenario, Rotation, day);
        return Plant_Fraction(Method, crop.Present, crop.Cover, Pesticide.Plant_Filtration, crop.Dry_Mass,
                              entry.Interception);
    }

    void Leave_Out()
    {
        ++Outside;
        The_Findings.Tell(Note::Application_Skipped, Name() + " LIES OUTSIDE THE SIMULATED PERIOD AND IS LEFT OUT");
    }

    void Add(const Entry& entry, int day)
    {
        if (day < First_Day || day > Last_Day)
            return Leave_Out();
        const bool of_the_day = entry.Hour >= 0 && entry.Hour <= 24;
        if (!of_the_day)
            The_Findings.Tell(Note::Value_Clamped,
                              "HOUR " + General_Text(entry.Hour) + " OF " + Name() + " IS NOT 0 TO 24: 0 IS TAKEN");
        Intercepted += entry.Interception > 0 && Method != Manual_Method;
        const double hour = of_the_day ? entry.Hour : 0;
        Planned.push_back(
            {day, Dates.Date_Of(day), hour, entry.Rate, entry.Depth, Plant_Share(entry, day), entry.Poorly_Exposed});
    }

    void Plan_Absolute(std::size_t a)
    {
        const Application& from = Pesticide.Applications[Block][a];
        const Entry entry{from.App_Rate, from.App_Depth, from.App_Frpex, from.App_Time, from.App_Crop_Flag};
        if (entry.Rate == 0 || !In_Range(entry))
            return;
        if (from.App_Month < 1 || from.App_Month > 12 || from.App_Year < 1 || from.App_Day < 1 || from.App_Day > 99)
            return The_Findings.Error(Fault::Application_Date, "IMPOSSIBLE DATE OF " + Name());
        const int last = Dates.Days_In(from.App_Year, from.App_Month);
        if (from.App_Day > last)
            The_Findings.Tell(Note::Application_Day, Name() + " MOVED TO THE LAST DAY OF ITS MONTH");
        Add(entry, Dates.Number({from.App_Year, from.App_Month, std::min<int>(from.App_Day, last)}));
    }

    void Plan_Relative(std::size_t a)
    {
        const Relative_Application& from = Pesticide.Relative[a];
        const Application& rest = Pesticide.Applications[Block][a];
        const Entry entry{from.Abs9_Rate, from.Abs9_Depth, from.Abs9_Frpex, rest.App_Time, rest.App_Crop_Flag};
        if (entry.Rate == 0 || !In_Range(entry))
            return;
        if (from.Abs9_Year < 1 || from.Abs9_Month < 0 || from.Abs9_Month > 5)
            return The_Findings.Error(Fault::Application_Date, "IMPOSSIBLE YEAR OR REFERENCE POINT OF " + Name());
        if (from.Abs9_Year > Dates.Years())
            return Leave_Out();
        bool moved = false;
        const int event = Events.Day_Of(from.Abs9_Month, from.Abs9_Year, moved);
        if (event == No_Day)
            return The_Findings.Error(Fault::Crop_Event_Missing, "NO CROP EVENT FOR " + Name());
        if (moved)
            The_Findings.Tell(Note::Application_Event_Moved, Name() + " USES THE CROP EVENT OF A LATER YEAR");
        Add(entry, event + from.Abs9_Day);
    }

    const Pesticide_Document& Pesticide;
    const Scenario_Document& Scenario;
    const std::vector<Crop_Period>& Rotation;
    const Calendar& Dates;
    int First_Day, Last_Day;
    Findings& The_Findings;
    std::size_t Block;
    Crop_Events Events;
    int Method;
    int Number = 0;
    int Outside = 0, Intercepted = 0; // applications left out, and with an interception
    std::vector<Planned_Application> Planned;
};

} // namespace

int Application_Block(const Pesticide_Document& pesticide, const std::string& location_code, Findings& findings)
{
    const auto count = [&pesticide](std::size_t block) { return pesticide.App_Count[block].Number(); };
    const int blocks = std::clamp<int>(pesticide.App_Loc_Count, 1, Last_Location + 1);
    if (pesticide.App_Mode == App_Mode_Relative) {
        for (int block = 0; block < blocks; ++block) {
            if (count(static_cast<std::size_t>(block)) > 0)
                return block;
        }
        return 0;
    }
    for (int block = 1; block < blocks && !location_code.empty(); ++block) {
        if (Bracket_Text(pesticide.App_Location[static_cast<std::size_t>(block)]) == location_code)
            return block;
    }
    if (!location_code.empty())
        findings.Tell(Note::Location_Block,
                      "NO APPLICATION PATTERN FOR LOCATION " + location_code + ": THE USER SPECIFIC ONE IS USED");
    return 0;
}

Crop_Events::Crop_Events(const std::vector<Crop_Period>& rotation, const Calendar& dates) : Dates(&dates)
{
    for (const Crop_Period& period : rotation) {
        Days[0].push_back(period.Emergence);
        Days[1].push_back(period.Maturation);
        Days[2].push_back(period.Harvest);
    }
    for (auto& days : Days)
        std::ranges::sort(days);
}

int Crop_Events::Day_Of(int reference, int year, bool& moved) const
{
    const auto& days = Days[static_cast<std::size_t>(reference % 3)];
    const int wanted = reference / 3;
    for (int y = year; !days.empty() && days.back() >= Dates->Number({y, 1, 1}); ++y) {
        const auto first = std::ranges::lower_bound(days, Dates->Number({y, 1, 1}));
        if (days.end() - first <= wanted || first[wanted] > Dates->Number({y, 12, 31}))
            continue;
        if (y == year)
            return first[wanted];
        moved = true;
        const Date date = Dates->Date_Of(first[wanted]);
        return Dates->Number({year, date.Month, date.Day});
    }
    return No_Day;
}

std::vector<Planned_Application> Plan_Applications(const Pesticide_Document& pesticide, int block,
                                                   const Scenario_Document& scenario,
                                                   const std::vector<Crop_Period>& rotation, const Calendar& dates,
                                                   int first_day, int last_day, Findings& findings)
{
    return Planner(pesticide, block, scenario, rotation, dates, first_day, last_day, findings).Plan();
}

} // namespace orvel::engine
