#include "ui/shown_file.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/text.h"

namespace orvel {

namespace {

std::string Name_Shown(const std::filesystem::path& file)
{
    return To_Code_Page(file.filename().string());
}

// With CR LF at the end of each line, including the last.
std::string With_Ends(std::string_view text)
{
    std::string lines;
    for (const auto line : Split_Lines(text))
        lines.append(line).append(CrLf);
    return lines;
}

constexpr std::string_view Saving_Title = "Saving Input File";

bool Confirmed(const Session& session, std::string_view question)
{
    return session.Ask({std::string(Saving_Title),
                        std::string(question),
                        Icon::Question,
                        {Button::Yes, Button::No},
                        Button::No}) == Button::Yes;
}

} // namespace

std::optional<std::string> Shown_File(const Session& session, const std::filesystem::path& file)
try {
    std::error_code missing;
    const auto size = std::filesystem::file_size(file, missing);
    if (missing || size <= Largest_Shown_File)
        return Window_Text(Read_Whole(file));
    session.Ask(
        {"Size limit exceeded!", "The file " + Name_Shown(file) + " is too big! Only the first part is presented."});
    return Window_Text(Read_Head(file, Largest_Shown_File));
} catch (const File_Error& error) {
    session.Ask({"File check", To_Code_Page(error.what())});
    return std::nullopt;
}

std::optional<std::string> Shown_Whole(const Session& session, const std::filesystem::path& file)
try {
    return Window_Text(Read_Whole(file));
} catch (const File_Error& error) {
    session.Ask({"File check", To_Code_Page(error.what())});
    return std::nullopt;
}

std::optional<std::string> Shown_Echo(const Session& session, const std::filesystem::path& run_directory)
{
    return Shown_Whole(session, Found_Or_New(run_directory, "echo.orv"));
}

bool Is_Shown_As_It_Is(std::string_view text, const std::filesystem::path& file)
try {
    return With_Ends(Read_Whole(file)) == With_Ends(text);
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return false;
}

bool Save_Shown(const Session& session, const std::filesystem::path& file, std::string_view was_shown,
                std::string_view edited)
try {
    if (!Is_Shown_As_It_Is(was_shown, file) &&
        !Confirmed(session, "The file was changed by another program since it was opened. Replace?"))
        return false;
    return Save_Shown_As(session, file, edited);
} catch (const File_Error& error) {
    session.Ask({std::string(Saving_Title), To_Code_Page(error.what())});
    return false;
}

bool Save_Shown_As(const Session& session, const std::filesystem::path& file, std::string_view edited)
try {
    Write_Whole(file, With_Ends(edited));
    return true;
} catch (const File_Error& error) {
    session.Ask({std::string(Saving_Title), To_Code_Page(error.what())});
    return false;
}

bool May_Give_Up_Text(const Session& session)
{
    return Confirmed(session, "The text was changed. Do you want to exit without saving ?");
}

} // namespace orvel
