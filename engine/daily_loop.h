#pragma once

#include "engine/output/echo.h"
#include "engine/output/series.h"
#include "engine/output/solute_report.h"
#include "engine/output/water_report.h"
#include "engine/setup/input.h"
#include "engine/solute/solute.h"
#include "engine/water/heat.h"

#include <filesystem>
#include <functional>
#include <vector>

namespace orvel::engine {

// Runs the simulation day by day and writes all output files except the echo.
class Daily_Loop {
public:
    // Opens the output files in `directory`. The input must be free of errors and outlive the simulation. All kernels
    // give the same bits; the best one is taken unless another is named.
    Daily_Loop(const Engine_Input& input, const std::filesystem::path& directory,
               const Solute_Kernel* kernel = nullptr);

    // Runs to the end and closes the files. `progress` is called after each month with the year and the percentage of
    // it that is done, 100 after its last day. Throws Engine_Failure.
    void Run(const std::function<void(int year, int percent)>& progress);

    // The balance closure errors at the end of each year, for the echo: water in cm, substances relative.
    struct Year_Closure {
        int Year = 0;
        double Water = 0, Solute = 0, Moles = 0;
    };
    const std::vector<Year_Closure>& Closures() const { return Closed; }

    // What the run has to tell about its results, for the echo.
    Findings Remarks() const;

    // Years whose percolate prints as 0, below 1 m and below the core: their mean concentration counts as 0.
    const std::vector<int>& Dry_Years_At_Metre() const { return Dry_At_Metre; }
    const std::vector<int>& Dry_Years_At_Bottom() const { return Dry_At_Bottom; }

private:
    // Water and solute amounts of one span.
    struct Span_Sums {
        Water_Sums Water;
        Solute_Sums Solute;
        Solute_Stores Start;
        void Add(const Span_Sums& later);
        std::vector<double> Upward; // by slot: net amounts of days on which more diffused up through 1 m than came down
    };

    void Warm_Up_Soil();
    void Step_Day(int day);
    Solute_Day Hand_Over(int day, const Climate_Day& climate, const Crop_State& crop) const;
    void Step_Solute(int day, const Climate_Day& climate, const Solute_Day& solute_day);
    void Put_Day_Line(int day, int hour, const Climate_Day& climate);
    void Begin(Span_Sums& sums);
    void End_Span(Span span, const Date& date, Span_Sums& sums);
    void Check_Closure(int year);
    void Note_Year(int year);
    Span_Sums& Finest();
    void Divide(const Water_Day& water, Solute_Day& solute) const;
    int At_Metre() const { return Input.Fine.Interface_Below(Input.Fine.Top_Layers); } // interface of the substances

    const Engine_Input& Input;
    Water_Column Water;
    Soil_Heat Heat;
    Solute_Column Column;
    Water_Report Water_File;
    std::vector<Solute_Report> Solute_Files;
    Series Plot;
    Frequency Water_Frequency, Solute_Frequency, State_Frequency;
    bool Daily = false, Monthly = false;
    Span_Sums Day_Sums, Month_Sums, Year_Sums;
    Solute_Sums Run_Sums;
    Solute_Stores Run_Start;
    std::vector<double> Theta_Now, Concentration;
    std::size_t Next_Application = 0;
    std::vector<Year_Closure> Closed;
    std::vector<int> Dry_At_Metre, Dry_At_Bottom;
    std::vector<std::vector<int>> Negative_Years; // by slot: the leached mass at 1 m is negative
};

} // namespace orvel::engine
