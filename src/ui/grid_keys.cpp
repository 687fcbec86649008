#include "ui/grid_keys.h"

namespace orvel {

namespace {

constexpr int Key_Slash = 47; // the lower end of the climate grid's digits
constexpr int Key_0 = 48, Key_9 = 57, Key_E = 69;
constexpr int Pad_0 = 96, Pad_9 = 105, Pad_To_Key = Pad_0 - Key_0;
constexpr int Pad_Plus = 107, Pad_Minus = 109, Pad_Point = 110;
constexpr int Key_Plus = 187, Key_Comma = 188, Key_Minus = 189, Key_Point = 190;

Key_Action Append(int character)
{
    return {Key_Action::Kind::Append, static_cast<char>(character)};
}

} // namespace

int Key_Code(char typed)
{
    if ((typed >= '0' && typed <= '9') || typed == '/')
        return typed;
    switch (typed) {
    case 'E':
    case 'e':
        return Key_E;
    case '.':
        return Key_Point;
    case ',':
        return Key_Comma;
    case '-':
        return Key_Minus;
    case '+':
        return Key_Plus;
    default:
        return 0;
    }
}

Key_Action Number_Grid_Key(int code)
{
    if (code >= Pad_0 && code <= Pad_9)
        code -= Pad_To_Key;
    if (code >= Key_0 && code <= Key_9)
        return Append(code);
    switch (code) {
    case Key_Minus:
        return Append('-');
    case Key_Point:
    case Key_Comma:
    case Pad_Point:
        return Append('.');
    case Key_E:
        return Append('E');
    case Key_Delete:
        return {Key_Action::Kind::Drop_Last, 0};
    default:
        return {};
    }
}

Key_Action Climate_Grid_Key(int code)
{
    if (code >= Key_Slash && code <= Key_9)
        return Append(code);
    switch (code) {
    case Key_E:
        return Append('E');
    case Key_Point:
    case Key_Comma:
    case Pad_Point:
        return Append('.');
    case Key_Plus:
    case Pad_Plus:
        return Append('+');
    case Key_Minus:
    case Pad_Minus:
        return Append('-');
    case Key_Backspace:
        return {Key_Action::Kind::Drop_Last, 0};
    default:
        return {};
    }
}

std::string After_Key(std::string cell, Key_Action action)
{
    if (action.Does == Key_Action::Kind::Append)
        cell += action.Character;
    if (action.Does == Key_Action::Kind::Drop_Last && !cell.empty())
        cell.pop_back();
    return cell;
}

} // namespace orvel
