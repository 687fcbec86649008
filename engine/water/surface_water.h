#pragma once

namespace orvel::engine {

// Water at and above the soil surface: free functions over numbers, cm and days.

// Melt of a day by the degree-day method, factor in cm/(degC d) (Rango & Martinec 1995, Water Resour. Bull. 31:657).
double Snow_Melt(double snow, double factor, double temperature);

// Curve number for dry (CN1) and wet (CN3) soil from that for mean moisture (Chow, Maidment & Mays 1988, Applied
// Hydrology), and the retention S, cm.
double Dry_Curve_Number(double mean);
double Wet_Curve_Number(double mean);
double Curve_Retention(double curve_number);

// Retention for a relative moisture of 0 (wilting point) to 1 (field capacity), linear over the three conditions.
double Retention_At(double mean_curve_number, double relative_moisture);

// Runoff of a day with water supply P (USDA-SCS 1972, NEH-4).
double Curve_Runoff(double supply, double retention);

// Soil loss by storms, modified universal soil loss equation (Williams 1975, ARS-S-40): area in ha, duration in h,
// runoff in cm.
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

// The crop's water store: what it holds afterwards, what falls through, what evaporates.
struct Canopy_Step {
    double Store = 0, Throughfall = 0, Evaporated = 0;
};
Canopy_Step Canopy_Day(double store, double rain, double cover, double capacity, double demand);

} // namespace orvel::engine
