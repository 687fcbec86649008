// wmonth.exe: the table by month of a single run out of its series, in the working directory.
#include "make_table.h"

int main()
{
    return Make_Table(Utility::Month);
}
