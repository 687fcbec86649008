#include "tables/table_text.h"

#include "core/numbers.h"
#include "core/text.h"

namespace orvel {

void Table_Text::Line(std::string_view file, std::string_view screen)
{
    File.append(file).append(CrLf);
    Screen.append(screen).append(CrLf);
}

void Table_Text::Head(const Plot_Head& head)
{
    constexpr std::string_view Margin = "          ";
    for (const auto& title : head.Titles)
        Line(title, std::string(Margin) + title);
}

std::string Figure_Text(double figure)
{
    return Number_Text('F', figure, 0);
}

double As_Printed(double figure)
{
    return Val(Figure_Text(figure));
}

} // namespace orvel
