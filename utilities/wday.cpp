// wday.exe: makes the daily table of a single run from its series, in the working directory.
#include "make_table.h"

int main()
{
    using namespace orvel;
    return Make_Table(Utility::Day);
}
