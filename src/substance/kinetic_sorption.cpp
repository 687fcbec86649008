#include "substance/kinetic_sorption.h"

#include <cmath>
#include <limits>

namespace orvel {

namespace {

Refusal Wrong_Input(std::string text, std::string control)
{
    return {{"Wrong input parameter selection", std::move(text)}, std::move(control)};
}

constexpr std::string_view Below_Zero = "This fraction cannot be smaller than 0."; // also for the rate
constexpr std::string_view Fraction_Control = "s_f_neq", Rate_Control = "s_kdes";

// The quotient, or the largest finite number if it overflows, which no field can show.
double Quotient(double dividend, double divisor)
{
    const double quotient = dividend / divisor;
    return std::isfinite(quotient) ? quotient : std::copysign(std::numeric_limits<double>::max(), quotient);
}

double PEARL_Fraction(double f_eq)
{
    return Quotient(1 - f_eq, f_eq);
}

double PEARL_Rate(double alpha, double f_eq)
{
    return Quotient(alpha, 1 - f_eq);
}

double STRECK_Fraction(double f_ne)
{
    return 1 / (1 + f_ne);
}

double STRECK_Rate(double kd, double f_eq)
{
    return kd * (1 - f_eq);
}

std::optional<Refusal> Check_Kinetic(const Kinetic_Entry& entry)
{
    const auto refusal = Check_Kinetic_Fraction(entry);
    return refusal ? refusal : Check_Kinetic_Rate(entry);
}

} // namespace

Kinetic_Captions Captions_Of(Kinetic_Model model)
{
    if (model == Kinetic_Model::PEARL)
        return {"PEARL fraction of non-eq.-sites to eq.-sites (f_ne):", "PEARL desorption rate 'kd' (1/d):"};
    return {"STRECK fraction of eq.-sites to all-sites (f_eq):", "STRECK sorption rate 'alpha' (1/d):"};
}

Kinetic_Entry Load_Kinetic(const Pesticide_Document& document, int i)
{
    return {.s_f_neq = General_Text(document.F_neq[i]), .s_kdes = General_Text(document.K_des[i])};
}

std::optional<Refusal> Check_Kinetic_Fraction(const Kinetic_Entry& entry)
{
    const double fraction = Val(entry.s_f_neq);
    if (entry.Model == Kinetic_Model::STRECK && fraction == 0)
        return Wrong_Input("This fraction must be greater than 0.", std::string(Fraction_Control));
    if (fraction < 0)
        return Wrong_Input(std::string(Below_Zero), std::string(Fraction_Control));
    return std::nullopt;
}

std::optional<Refusal> Check_Kinetic_Rate(const Kinetic_Entry& entry)
{
    if (Val(entry.s_kdes) < 0)
        return Wrong_Input(std::string(Below_Zero), std::string(Rate_Control));
    return std::nullopt;
}

std::optional<Refusal> Choose_Kinetic_Model(Kinetic_Entry& entry, Kinetic_Model model)
{
    if (entry.Model == model)
        return std::nullopt;
    if (auto refusal = Check_Kinetic(entry))
        return refusal;
    const double fraction = Val(entry.s_f_neq);
    const double rate = Val(entry.s_kdes);
    entry.Model = model;
    if (model == Kinetic_Model::STRECK) {
        const double f_eq = STRECK_Fraction(fraction);
        entry.s_f_neq = General_Text(f_eq);
        entry.s_kdes = General_Text(STRECK_Rate(rate, f_eq));
    } else if (fraction != 1) {
        entry.s_kdes = General_Text(PEARL_Rate(rate, fraction));
        entry.s_f_neq = General_Text(PEARL_Fraction(fraction));
    }
    return std::nullopt;
}

std::optional<Refusal> Accept_Kinetic(Pesticide_Document& document, int i, const Kinetic_Entry& entry)
{
    if (auto refusal = Check_Kinetic(entry))
        return refusal;
    const double fraction = Val(entry.s_f_neq);
    const double rate = Val(entry.s_kdes);
    if (entry.Model == Kinetic_Model::PEARL) {
        document.F_neq[i] = fraction;
        document.K_des[i] = rate;
        return std::nullopt;
    }
    if (fraction > 1)
        return Wrong_Input(std::string(Below_Zero), std::string(Fraction_Control));
    document.F_neq[i] = PEARL_Fraction(fraction);
    if (fraction != 1)
        document.K_des[i] = PEARL_Rate(rate, fraction);
    return std::nullopt;
}

bool Shows_Kinetic_Note(const Pesticide_Document& document, int i)
{
    return document.F_neq[i] > 0;
}

} // namespace orvel
