#include "engine/input/crop.h"

#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>
#include <optional>

namespace orvel::engine {

namespace {

constexpr std::size_t Most_Rows = 2000;

double Share(int day, int from, int to)
{
    return to > from ? std::clamp(static_cast<double>(day - from) / (to - from), 0.0, 1.0) : 1;
}

// A date of a rotation row; day and month 0 mean none.
struct Row_Date {
    int Year = 0, Month = 0, Day = 0;
    bool Is_Set() const { return Day != 0 || Month != 0; }
    bool Possible() const { return Day >= 1 && Day <= 31 && Month >= 1 && Month <= 12 && Year >= 0 && Year <= 99; }
};

struct Row_Dates {
    Row_Date Emergence, Maturation, Senescence, Harvest, Tillage;
};

Row_Dates Dates_Of(const Rotation_Row& row)
{
    Row_Dates dates;
    dates.Emergence = {row.SZE_Eme_Year, row.SZE_Eme_Month, row.SZE_Eme_Day};
    dates.Maturation = {row.SZE_Mat_Year, row.SZE_Mat_Month, row.SZE_Mat_Day};
    dates.Harvest = {row.SZE_Har_Year, row.SZE_Har_Month, row.SZE_Har_Day};
    if (const auto& in_file = row.SZE_Sen_In_File)
        dates.Senescence = {in_file->Year, in_file->Month, in_file->Day};
    else
        dates.Senescence = {row.SZE_Sen_Year, static_cast<int>(row.SZE_Sen_Month.Number()),
                            static_cast<int>(row.SZE_Sen_Day.Number())};
    dates.Tillage = {row.SZE_Til_Year, row.SZE_Til_Month, row.SZE_Til_Day};
    if (dates.Tillage.Month == 0 && dates.Tillage.Day > 0) { // a derived date may be in the December before
        dates.Tillage.Month = 12;
        dates.Tillage.Year = std::max(0, dates.Tillage.Year - 1);
    }
    return dates;
}

class Rotation_Builder {
public:
    Rotation_Builder(const Scenario_Document& scenario, const Calendar& dates, int last_day, Findings& findings)
        : Scenario(scenario),
          Dates(dates),
          Last_Day(last_day),
          The_Findings(findings)
    {}

    std::vector<Crop_Period> Build()
    {
        Read_Rows();
        if (The_Findings.Failed() || Rows.empty())
            return {};
        Repeat();
        std::ranges::stable_sort(Periods, {}, &Crop_Period::Emergence);
        Cut_Overlaps();
        return Periods;
    }

private:
    void Error(std::size_t row, const std::string& text)
    {
        The_Findings.Error(Fault::Crop, text + " IN ROTATION ROW " + std::to_string(row + 1));
    }

    void Read_Rows()
    {
        if (Scenario.Rotation.size() > Most_Rows) {
            The_Findings.Error(Fault::Crop, "MORE THAN 2000 ROTATION ROWS");
            return;
        }
        for (std::size_t r = 0; r < Scenario.Rotation.size(); ++r) {
            const Rotation_Row& row = Scenario.Rotation[r];
            Row_Dates dates = Dates_Of(row);
            if (!dates.Emergence.Is_Set() && !dates.Maturation.Is_Set() && !dates.Harvest.Is_Set())
                continue;
            if (row.SZE_Rot_Crop_Index < 1 || row.SZE_Rot_Crop_Index > static_cast<int>(Scenario.Crops.size())) {
                Error(r, "NO SUCH CROP ROW");
                continue;
            }
            const bool tilled =
                Scenario.Crops[static_cast<std::size_t>(row.SZE_Rot_Crop_Index - 1)].SZE_Rot_Tillage == 1;
            if (!dates.Senescence.Is_Set())
                dates.Senescence = dates.Harvest;
            if (!dates.Emergence.Possible() || !dates.Maturation.Possible() || !dates.Harvest.Possible() ||
                !dates.Senescence.Possible() || (tilled && dates.Tillage.Is_Set() && !dates.Tillage.Possible())) {
                Error(r, "IMPOSSIBLE DATE");
                continue;
            }
            if (!tilled)
                dates.Tillage = {};
            const Crop_Period period = Shifted(dates, row.SZE_Rot_Crop_Index - 1, 0);
            if (period.Maturation < period.Emergence || period.Harvest <= period.Emergence ||
                period.Harvest < period.Maturation) {
                Error(r, "EMERGENCE, MATURATION AND HARVEST NOT IN ORDER");
                continue;
            }
            if (period.Senescence < period.Maturation || period.Senescence > period.Harvest)
                The_Findings.Tell(Note::Value_Clamped,
                                  "SENESCENCE NOT BETWEEN MATURATION AND HARVEST IN ROTATION ROW " +
                                      std::to_string(r + 1) + ", MOVED THERE");
            Rows.push_back(dates);
            Crops.push_back(row.SZE_Rot_Crop_Index - 1);
        }
    }

    int Number(const Row_Date& date, int years) const
    {
        return Dates.Number({date.Year + years, date.Month, date.Day});
    }

    Crop_Period Shifted(const Row_Dates& dates, int crop, int years) const
    {
        Crop_Period period{Number(dates.Emergence, years),
                           Number(dates.Maturation, years),
                           Number(dates.Senescence, years),
                           Number(dates.Harvest, years),
                           No_Day,
                           crop};
        if (dates.Tillage.Is_Set())
            period.Tillage = Number(dates.Tillage, years);
        return period;
    }

    void Repeat()
    {
        const auto by_year = [](const Row_Dates& a, const Row_Dates& b) { return a.Emergence.Year < b.Emergence.Year; };
        const auto [first, last] = std::ranges::minmax_element(Rows, by_year);
        const int cycle = last->Emergence.Year - first->Emergence.Year + 1;
        // One year beyond the simulation, for events that are looked up in a later year.
        for (int years = 0; first->Emergence.Year + years <= Dates.Years() + 1; years += cycle) {
            for (std::size_t r = 0; r < Rows.size(); ++r) {
                Crop_Period period = Shifted(Rows[r], Crops[r], years);
                period.Senescence = std::clamp(period.Senescence, period.Maturation, period.Harvest);
                if (years > 0 && period.Emergence <= Last_Day)
                    The_Findings.Tell(Note::Rotation_Repeated,
                                      "ROTATION REPEATED WITH A PERIOD OF " + std::to_string(cycle) + " YEAR(S)");
                Periods.push_back(period);
            }
        }
    }

    void Cut_Overlaps()
    {
        for (std::size_t i = 0; i + 1 < Periods.size(); ++i) {
            const int next = Periods[i + 1].Emergence;
            if (Periods[i].Harvest <= next)
                continue;
            if (next <= Last_Day) {
                const Date date = Dates.Date_Of(next);
                The_Findings.Tell(Note::Crop_Ended_Early,
                                  "THE CROP BEFORE ENDS WITH THE EMERGENCE ON " + std::to_string(date.Day) + "." +
                                      std::to_string(date.Month) + " OF YEAR " + std::to_string(date.Year));
            }
            Periods[i].Harvest = next;
            Periods[i].Senescence = std::min(Periods[i].Senescence, next);
            Periods[i].Maturation = std::min(Periods[i].Maturation, next);
        }
    }

    const Scenario_Document& Scenario;
    const Calendar& Dates;
    int Last_Day;
    Findings& The_Findings;
    std::vector<Row_Dates> Rows;
    std::vector<int> Crops;
    std::vector<Crop_Period> Periods;
};

double Crop_Factor_On(const Scenario_Document& scenario, const Crop_Row& row, const Crop_Period& period, int day)
{
    const double none = scenario.SZE_Kc[0][0], mid = scenario.SZE_Kc[1][0] * row.SZE_Rot_Kc_Mid,
                 late = scenario.SZE_Kc[2][0] * row.SZE_Rot_Kc_Late;
    if (day < period.Maturation)
        return none + (mid - none) * Share(day, period.Emergence, period.Maturation);
    if (day < period.Senescence)
        return mid;
    return mid + (late - mid) * Share(day, period.Senescence, period.Harvest);
}

} // namespace

std::vector<Crop_Period> Build_Rotation(const Scenario_Document& scenario, const Calendar& dates, int last_day,
                                        Findings& findings)
{
    return Rotation_Builder(scenario, dates, last_day, findings).Build();
}

double Growth_Of(const Crop_Period& period, int day)
{
    if (day < period.Emergence || day >= period.Harvest)
        return 0;
    if (day < period.Maturation)
        return Share(day, period.Emergence, period.Maturation);
    if (day < period.Senescence)
        return 1;
    return 1 - 0.5 * Share(day, period.Senescence, period.Harvest);
}

double Crop_State::Curve_Number() const
{
    if (!Row)
        return 0;
    return Field == Stage::Fallow ? Row->SZE_Rot_CN1 : Field == Stage::Cropping ? Row->SZE_Rot_CN2 : Row->SZE_Rot_CN3;
}

double Crop_State::Cover_Factor() const
{
    if (!Row)
        return 1;
    const Variant& factor = Field == Stage::Fallow     ? Row->SZE_Rot_USLE1
                            : Field == Stage::Cropping ? Row->SZE_Rot_USLE2
                                                       : Row->SZE_Rot_USLE3;
    return factor.Number();
}

Crop_State Crop_On(const Scenario_Document& scenario, const std::vector<Crop_Period>& rotation, int day)
{
    Crop_State state;
    state.Crop_Factor = scenario.SZE_Kc[0][0];
    if (!scenario.Crops.empty())
        state.Row = scenario.Crops.data();
    const auto next = std::ranges::upper_bound(rotation, day, {}, &Crop_Period::Emergence);
    if (next != rotation.end() && next->Tillage == day)
        state.Tillage_Today = true;
    if (next == rotation.begin()) {
        if (next != rotation.end())
            state.Row = &scenario.Crops[static_cast<std::size_t>(next->Row)];
        return state;
    }
    const Crop_Period& period = *(next - 1);
    const Crop_Row& row = scenario.Crops[static_cast<std::size_t>(period.Row)];
    state.Row = &row;
    state.Harvest_Today = period.Harvest == day ||
                          (period.Emergence == day && next - rotation.begin() >= 2 && (next - 2)->Harvest == day);
    if (period.Tillage == day)
        state.Tillage_Today = true;
    if (day >= period.Harvest) {
        const bool tilled = next != rotation.end() && next->Tillage != No_Day && next->Tillage <= day;
        state.Field = tilled ? Stage::Fallow : static_cast<Stage>(std::clamp<int>(row.SZE_Rot_Residue, 1, 3));
        return state;
    }
    state.Present = true;
    state.Field = Stage::Cropping;
    const double maturity = Share(day, period.Emergence, period.Maturation);
    state.Growth = Growth_Of(period, day);
    state.Cover = state.Growth * row.SZE_Rot_Interception.Number() / 100;
    state.Dry_Mass = maturity * row.SZE_Rot_Dry_Mass;
    const double deepest = row.SZE_Rot_Text1.Number();
    state.Root_Depth = row.SZE_Rot_Perennial == 1 ? deepest : deepest * maturity;
    state.Crop_Factor = Crop_Factor_On(scenario, row, period, day);
    state.Days_Since_Emergence = day - period.Emergence;
    state.Irrigated = row.SZE_Rot_Irrigated == 1 && day < period.Senescence;
    return state;
}

} // namespace orvel::engine
