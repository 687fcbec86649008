#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

// Documents and engine files are bytes of Windows-1252; the five bytes without a character stand for the control code
// of the same number, so that every byte survives the conversion to Unicode and back.

std::string To_Utf8(std::string_view bytes);

// The bytes of a UTF-8 text; nothing if the code page lacks a character or the text is not valid UTF-8.
std::optional<std::string> From_Utf8(std::string_view text);

// The same with "?" for what the code page lacks: for system messages and paths shown in a box. Never fail.
std::string To_Code_Page(std::string_view utf8);
std::string Path_Text(const std::filesystem::path& path);

// Convert the three letters that files of the older DOS form and the lines of a job write in another code page.
std::string Dos_To_Ansi(std::string_view bytes);
std::string Ansi_To_Dos(std::string_view bytes);

// The text of a result file as a window shows it: those letters converted, every line ended by CR LF.
std::string Window_Text(std::string_view bytes);

} // namespace orvel
