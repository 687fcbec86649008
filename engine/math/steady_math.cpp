#include "engine/math/steady_math.h"

#include "engine/math/vector_math.h"

namespace orvel::engine {

double Steady_Exp(double x)
{
    return Exp(All(x))[0];
}

void Steady_Exps(const double* x, int count, double* out)
{
    for (int at = 0; at < count; at += 4)
        Store(out + at, Exp(Load(x + at)));
}

double Steady_Log(double x)
{
    return Log(All(x))[0];
}

double Steady_Power(double x, double y)
{
    if (y == 0)
        return 1;
    return x > 0 ? Exp(All(y) * Log(All(x)))[0] : 0;
}

double Steady_Lost(double x)
{
    if (x < 0.8)
        return x > 0 ? x * Mean_Decay(All(x))[0] : 0;
    return 1 - Steady_Exp(-x);
}

} // namespace orvel::engine
