#include "core/shell_line.h"

#include "core/text.h"

namespace orvel {

namespace {

constexpr std::string_view Plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-./:+";
constexpr std::string_view Active_Between_Double_Quotes = "\"$`\\%!";

// By the rule that every C program on Windows takes its command line apart with: backslashes before a quote count
// double.
std::string In_Double_Quotes(std::string_view word)
{
    std::string text = "\"";
    std::size_t backslashes = 0;
    for (const char c : word) {
        if (c == '"')
            text.append(backslashes + 1, '\\');
        backslashes = c == '\\' ? backslashes + 1 : 0;
        text += c;
    }
    return text.append(backslashes, '\\') + '"';
}

} // namespace

std::string Shell_Word(const std::string& word, Users_Shell shell)
{
    const bool windows = shell == Users_Shell::Windows;
    const std::string plain = std::string(Plain) + (windows ? "\\" : "");
    if (!word.empty() && word.find_first_not_of(plain) == std::string::npos)
        return word;
    if (windows || word.find_first_of(Active_Between_Double_Quotes) == std::string::npos)
        return In_Double_Quotes(word);
    return "'" + Replace_All(word, "'", R"('\'')") + "'";
}

std::string Orvelctl_Line(const std::filesystem::path& app_path, const std::vector<std::string>& words)
{
    std::string line = "orvelctl -C " + Shell_Word(app_path.string());
    for (const auto& word : words)
        line += " " + Shell_Word(word);
    return line;
}

std::string Directory_Line(const std::filesystem::path& directory)
{
    // Both shells of Windows know pushd, but only one the option by which cd takes another drive.
    const bool windows = Shell_Of_System() == Users_Shell::Windows;
    return std::string(windows ? "pushd " : "cd ") + Shell_Word(directory.string());
}

} // namespace orvel
