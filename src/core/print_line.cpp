#include "core/print_line.h"

#include "core/text.h"

namespace orvel {

namespace {

constexpr std::size_t Zone_Width = 14;

} // namespace

Print_Line& Print_Line::Text(std::string_view text)
{
    Bytes += text;
    return *this;
}

Print_Line& Print_Line::Number(double number)
{
    return Text(Print_Form(number));
}

Print_Line& Print_Line::Item(const Variant& variant)
{
    return Text(variant.Print());
}

Print_Line& Print_Line::Spc(int blanks)
{
    Bytes.append(static_cast<std::size_t>(blanks), ' ');
    return *this;
}

Print_Line& Print_Line::Tab(int column)
{
    if (Length() >= static_cast<std::size_t>(column))
        End();
    Bytes.append(static_cast<std::size_t>(column) - 1 - Length(), ' ');
    return *this;
}

Print_Line& Print_Line::Zone()
{
    Bytes.append(Zone_Width - Length() % Zone_Width, ' ');
    return *this;
}

Print_Line& Print_Line::End()
{
    Bytes += CrLf;
    Line_Start = Bytes.size();
    return *this;
}

} // namespace orvel
