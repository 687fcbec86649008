#include "documents/unsaved_copy.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/sha256.h"
#include "core/system/times.h"
#include "core/system/user_directories.h"
#include "core/text.h"
#include "core/time_text.h"
#include "documents/documents.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <utility>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t Key_Digits = 16, Most_Listed = 12;
constexpr int Most_Editors = 20; // of one document at a time

// The session's document as a text for comparison; what no file can hold is compared by its fields.
std::string Bytes_Of_Document(Document_Kind kind, const Session& session)
try {
    return Type_Of(kind).Format(session);
} catch (const std::domain_error&) {
    return Type_Of(kind).Json(session);
}

// The notes of a copy, or these if they cannot be read.
Document_Notes Notes_Of_Copy(const fs::path& copy, const Document_Notes& otherwise)
try {
    return Read_Notes(copy);
} catch (const File_Error&) {
    return otherwise;
}

std::unique_ptr<Session> Opened(const fs::path& file)
{
    auto session = std::make_unique<Session>();
    session->Ask = [](const Message& message) { return message.Default; };
    return Open_Document(*session, file) ? std::move(session) : nullptr;
}

// The blanks around a text are not always read as they were written.
bool Only_In_Blanks(const Difference& difference)
{
    return Trim(difference.First) == Trim(difference.Second);
}

std::string Listed(const std::vector<Difference>& differences)
{
    std::string text;
    for (std::size_t i = 0; i < std::min(differences.size(), Most_Listed); ++i)
        text += std::string(CrLf) + differences[i].Field + ": " + differences[i].First + " in the file, " +
                differences[i].Second + " in the copy";
    if (differences.size() > Most_Listed)
        text += std::string(CrLf) + "and " + std::to_string(differences.size() - Most_Listed) + " more";
    return text;
}

} // namespace

fs::path Place_Of_Unsaved_Copies()
{
    const auto state = User_State_Directory();
    return state.empty() ? state : state / "unsaved";
}

Unsaved_Copy::Unsaved_Copy(fs::path place, Document_Kind kind, fs::path file)
    : Place(std::move(place)),
      Kind(kind),
      File(std::move(file))
{
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(File, error);
    Key = Sha256((error ? File : whole).string()).substr(0, Key_Digits) + "-";
}

std::optional<Message> Unsaved_Copy::Offer(const Session& session, const Document_Notes& notes)
{
    if (Place.empty())
        return std::nullopt;
    for (const auto& name : List_Directories(Place, Key + "*")) {
        const fs::path directory = Place / name;
        const auto files = List_Files(directory, std::string(Type_Of(Kind).Mask));
        auto lock = files.empty() ? std::nullopt : Lock::Take(directory);
        if (!lock)
            continue;
        const auto copy = Opened(directory / files.front());
        if (!copy)
            continue;
        Offered = directory / files.front();
        Asked = std::move(lock);
        auto differences = Type_Of(Kind).Differences(session, *copy);
        std::ranges::move(Differences(notes, Notes_Of_Copy(Offered, notes)), std::back_inserter(differences));
        std::erase_if(differences, Only_In_Blanks);
        if (differences.empty()) { // it was saved after all
            Drop_Offered();
            continue;
        }
        return Message{"Unsaved changes",
                       Shown_Name(File) + " was under edit when the program ended. A copy of " +
                           Date_Text(Last_Change(Offered)) + " has changes that were not saved:" + Listed(differences) +
                           std::string(CrLf) + std::string(CrLf) +
                           "Go on with the copy? No deletes it, Cancel keeps it for the next time.",
                       Icon::Question,
                       {Button::Yes, Button::No, Button::Cancel},
                       Button::Yes};
    }
    return std::nullopt;
}

bool Unsaved_Copy::Take(Session& session, Document_Notes& notes)
{
    const std::string name = session.Program.PSM_File;
    const bool taken = Open_Document(session, Offered);
    session.Program.PSM_File = name;
    if (taken) {
        notes = Notes_Of_Copy(Offered, notes);
        Own = Offered.parent_path();
        Alive = std::exchange(Asked, std::nullopt);
        Offered.clear();
    }
    return taken;
}

bool Unsaved_Copy::Take_Left(Session& session, Document_Notes& notes, const fs::path& copy)
{
    Asked = Lock::Take(copy.parent_path());
    if (!Asked) {
        session.Ask({"Unsaved changes", "Another program has opened this copy."});
        return false;
    }
    Offered = copy;
    return Take(session, notes);
}

void Unsaved_Copy::Drop_Offered()
{
    std::error_code ignored;
    if (!Offered.empty())
        fs::remove_all(Offered.parent_path(), ignored);
    Leave_Offered();
}

void Unsaved_Copy::Leave_Offered()
{
    Offered.clear();
    Asked.reset();
}

void Unsaved_Copy::Begin(const Session& session, const Document_Notes& notes)
{
    Stored = Bytes_Of_Document(Kind, session) + Format_Notes(notes);
}

bool Unsaved_Copy::Keep(const Session& session, const Document_Notes& notes)
try {
    const std::string document = Type_Of(Kind).Format(session);
    std::string all = document + Format_Notes(notes);
    Why_Not.clear();
    if (all == Stored)
        return true;
    if (!Place.empty())
        Write(document, notes);
    else
        Why_Not = "There is no home directory.";
    if (Why_Not.empty())
        Stored = std::move(all);
    return Why_Not.empty();
} catch (const std::domain_error&) {
    return false;
} catch (const File_Error& error) {
    Why_Not = error.what();
    return false;
} catch (const fs::filesystem_error& error) {
    Why_Not = error.path1().string() + ": " + error.code().message() + ".";
    return false;
}

void Unsaved_Copy::Write(const std::string& document, const Document_Notes& notes)
{
    std::error_code ignored;
    if (Alive && !fs::is_directory(Own, ignored))
        Alive.reset(); // somebody has cleaned up
    for (int editor = 1; !Alive && editor <= Most_Editors; ++editor) {
        Own = Place / (Key + std::to_string(editor));
        if (!List_Files(Own, Type_Of(Kind).Mask).empty()) // a copy that waits for another time
            continue;
        fs::create_directories(Own);
        Alive = Lock::Take(Own);
    }
    if (!Alive) {
        Why_Not = "Its copies in " + Place.string() + " are too many.";
        return;
    }
    const bool is_new = File.filename() == Type_Of(Kind).Mask;
    const fs::path copy = Own / (is_new ? fs::path("new" + std::string(Type_Of(Kind).Ending)) : File.filename());
    Write_Whole(Own / Origin_File, File.string());
    Write_Whole(copy, document);
    Write_Notes(copy, notes);
}

void Unsaved_Copy::End()
{
    std::error_code ignored;
    if (Alive)
        fs::remove_all(Own, ignored);
    Alive.reset();
    Drop_Offered();
}

} // namespace orvel
