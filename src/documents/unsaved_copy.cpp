#include "documents/unsaved_copy.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/sha256.h"
#include "core/system/times.h"
#include "core/text.h"
#include "core/time_text.h"
#include "documents/documents.h"

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

bool Has_Files(const fs::path& directory)
{
    return fs::exists(directory) && !List_Files(directory, "*").empty();
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

Unsaved_Copy::Unsaved_Copy(fs::path place, Document_Kind kind, fs::path file)
    : Place(std::move(place)),
      Kind(kind),
      File(std::move(file))
{
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(File, error);
    Key = Sha256((error ? File : whole).string()).substr(0, Key_Digits) + "-";
}

std::optional<Message> Unsaved_Copy::Offer(const Session& session)
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

bool Unsaved_Copy::Take(Session& session)
{
    const std::string name = session.Program.PSM_File;
    const bool taken = Open_Document(session, Offered);
    session.Program.PSM_File = name;
    if (taken) {
        Own = Offered.parent_path();
        Alive = std::exchange(Asked, std::nullopt);
        Offered.clear();
    }
    return taken;
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

void Unsaved_Copy::Begin(const Session& session)
{
    Stored = Bytes_Of_Document(Kind, session);
}

bool Unsaved_Copy::Keep(const Session& session)
try {
    if (Place.empty())
        return false;
    std::string bytes = Type_Of(Kind).Format(session);
    if (bytes == Stored)
        return true;
    for (int editor = 1; !Alive && editor <= Most_Editors; ++editor) {
        Own = Place / (Key + std::to_string(editor));
        if (Has_Files(Own)) // a copy that waits for another time
            continue;
        fs::create_directories(Own);
        Alive = Lock::Take(Own);
    }
    if (!Alive)
        return false;
    const bool is_new = File.filename() == Type_Of(Kind).Mask;
    Write_Whole(Own / (is_new ? fs::path("new" + std::string(Type_Of(Kind).Ending)) : File.filename()), bytes);
    Stored = std::move(bytes);
    return true;
} catch (const std::exception&) {
    return false;
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
