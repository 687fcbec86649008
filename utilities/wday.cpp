// wday.exe: the table by day of a single run out of its series, in the working directory.
#include "make_table.h"

int main()
{
    using namespace orvel;
    return Make_Table(Utility::Day);
}
