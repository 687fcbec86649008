#pragma once

namespace orvel::engine {

// Water at and above the soil surface: free functions over numbers, cm and days.

// Snow melt of a day, cm, by the degree-day method: snow in cm, factor in cm/(degC d), temperature in degC (Rango &
// Martinec 1995, Water Resour. Bull. 31:657).
double Snow_Melt(double snow, double factor, double temperature);

// Curve numbers for dry (CN1) and wet (CN3) soil from the one for average moisture (Chow, Maidment & Mays 1988, Applied
// Hydrology), and the retention S, cm.
double Dry_Curve_Number(double mean);
double Wet_Curve_Number(double mean);
double Curve_Retention(double curve_number);

// Retention, cm, for a relative moisture of 0 (wilting point) to 1 (field capacity), linear between the three
// conditions.
double Retention_At(double mean_curve_number, double relative_moisture);

// Runoff of a day, cm, from water supply and retention in cm (USDA-SCS 1972, NEH-4).
double Curve_Runoff(double supply, double retention);

// Soil loss in a storm by the modified universal soil loss equation (Williams 1975, ARS-S-40): area in ha, duration in
// h, runoff in cm.
struct Soil_Loss_Factors {
    double Erodibility = 0, Slope = 0, Cover = 0, Practice = 0;
};
struct Soil_Loss {
    double Concentration_Time = 0; // h (Pilgrim & McDermott 1982)
    double Peak_Flow = 0;          // m3/s, unit hydrograph
    double Loss = 0;               // t from the area
    double Enrichment = 1;         // of substance in the sediment (Menzel 1980, USDA Cons. Res. Rep. 26)
};
Soil_Loss Soil_Loss_Of(double runoff, double area, double duration, const Soil_Loss_Factors& factors);

// Interception by the canopy on one day, cm: the store afterwards, the throughfall and the evaporation.
struct Canopy_Step {
    double Store = 0, Throughfall = 0, Evaporated = 0;
};
Canopy_Step Canopy_Day(double store, double rain, double cover, double capacity, double demand);

} // namespace orvel::engine
