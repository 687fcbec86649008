#pragma once

#include <array>
#include <string>
#include <string_view>

namespace orvel {

struct Location {
    std::string_view Code, Name;
};

// The nine FOCUS groundwater locations in their order, then the six EFSA soil zones. Names are bytes of Windows-1252.
constexpr std::array<Location, 15> Locations = {{
    {"C", "Ch\xE2teaudun (C)"},
    {"H", "Hamburg (H)"},
    {"J", "Jokioinen (J)"},
    {"K", "Kremsm\xFCnster (K)"},
    {"N", "Okehampton (N)"},
    {"P", "Piacenza (P)"},
    {"O", "Porto (O)"},
    {"S", "Sevilla (S)"},
    {"T", "Thiva (T)"},
    {"T_N", "Total content - North (T_N)"},
    {"T_C", "Total content - Central (T_C)"},
    {"T_S", "Total content - South (T_S)"},
    {"P_N", "Porewater concentration - North (P_N)"},
    {"P_C", "Porewater concentration - Central (P_C)"},
    {"P_S", "Porewater concentration - South (P_S)"},
}};

// The long name of a location code, empty for any other text. Case-sensitive.
std::string Location_Name(std::string_view code);

// The text between the first "(" and the next ")": the reverse of Location_Name. Empty if either is missing.
std::string Bracket_Text(std::string_view text);

} // namespace orvel
