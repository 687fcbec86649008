#pragma once

#include "engine/output/figures.h"
#include "engine/setup/input.h"
#include "engine/solute/solute.h"
#include "engine/water/water.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel::engine {

// The state and sums behind one line of plot.orv.
struct Series_Moment {
    const Water_Day& Water;
    const std::vector<double>& Theta; // at the time of the line
    const std::vector<double>& Temperature;
    const Solute_Column& Column;
    const Solute_Sums& Sums; // since the start of the day
    double Rain = 0;         // rain and snowfall, cm/d
    double Share = 1;        // part of the day that the line covers
};

// plot.orv: one line a day at hour 24, or 24 lines on a day with an application in soil mode.
class Series {
public:
    Series(const std::filesystem::path& file, const Engine_Input& input);

    // Writes the head with the initial state; call it once.
    void Put_Head(const Engine_Input& input, const Series_Moment& start);
    void Begin_Day(); // resets the sums
    void Put_Line(int day, int hour, const Series_Moment& moment);
    void Flush() { File.Flush(); }
    void Close() { File.Close(); }

    // Notes on figures that were left out.
    void Put_Remarks(Findings& remarks) const;

    // Whether a column needs the day's solute amounts or concentrations.
    bool Needs_Sums() const { return With_Sums; }

private:
    // One column, with its position in the core looked up in advance.
    struct Column_Plan {
        int Variable = 0;                         // 0: zeros
        bool Is_Water = false, Is_Amount = false; // about water; an amount moved or changed during the day
        double Scale = 1;
        int Slot = 0;
        int Compartment = 0, Interface = 0; // of the document
        Compartment_Range Inside;           // the substances' compartments there
        int Solute_Interface = 0;
        bool Is_Profile = false;
        std::vector<std::pair<int, double>> Slice; // compartments of a profile row with their lengths, cm
        double Before = 0;                         // amount of the day up to the previous line
        double Dry_Days = 0;                       // with too little percolate for a mean concentration
    };

    Column_Plan Plan(const Output_Row& row, bool profile, const Engine_Input& input) const;
    void Note_Dissolved(const Column_Plan& column);
    double Value(Column_Plan& column, const Series_Moment& moment);
    double Water_Value(const Column_Plan& column, const Series_Moment& moment) const;
    double Amount(const Column_Plan& column, const Series_Moment& moment) const;
    double State(const Column_Plan& column, int compartment, const Series_Moment& moment) const;
    double Profile(const Column_Plan& column, const Series_Moment& moment) const;

    // Mean over the substances' compartments in one of the document's.
    template <class Get> double Mean(const Compartment_Range& inside, Get get) const;

    const Grid* Core;
    const Grid* Fine;
    std::vector<Column_Plan> Plans;
    std::vector<double> Concentration;
    bool With_Sums = false;
    std::optional<Compartment_Range> Dissolved; // where columns tell a concentration in solution
    Out_File File;
};

} // namespace orvel::engine
