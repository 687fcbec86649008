#include "core/variant.h"

#include "core/text.h"

namespace orvel {

Variant::Variant(std::string_view text) : Value(Val(text)), Typed(Trim(text)), Holds_Text(true) {}

Variant Variant::Verbatim(std::string_view text)
{
    Variant variant(text);
    variant.Typed = text;
    return variant;
}

std::string Variant::Print() const
{
    return Holds_Text ? Typed : Print_Form(Value);
}

std::string Variant::Text() const
{
    return Holds_Text ? Typed : General_Text(Value);
}

std::string Number_Text(char kind, const Variant& value, int width)
{
    return Number_Text(kind, value.Is_Text() ? Val(Comma_To_Point(value.Text())) : value.Number(), width);
}

} // namespace orvel
