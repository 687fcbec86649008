#include "core/shell_line.h"

#include "core/text.h"

namespace orvel {

std::string Shell_Word(const std::string& word)
{
    constexpr std::string_view Plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-./:,+@%";
    if (!word.empty() && word.find_first_not_of(Plain) == std::string::npos)
        return word;
    return "'" + Replace_All(word, "'", R"('\'')") + "'";
}

std::string Orvelctl_Line(const std::filesystem::path& app_path, const std::vector<std::string>& words)
{
    std::string line = "orvelctl -C " + Shell_Word(app_path.string());
    for (const auto& word : words)
        line += " " + Shell_Word(word);
    return line;
}

} // namespace orvel
