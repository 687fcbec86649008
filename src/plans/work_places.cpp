#include "plans/work_places.h"

#include "core/error.h"
#include "core/files.h"
#include "core/system/lock.h"
#include "core/system/rename.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Work_Name = "work";

void Fail_If(const std::error_code& error, const std::string& what, const fs::path& path)
{
    if (!error)
        return;
    File_Error failure(what + " " + path.string() + ": " + error.message() + ".");
    failure.Code = error;
    throw failure;
}

void Move(const fs::path& from, const fs::path& to)
{
    Fail_If(Rename(from, to), "Cannot move " + from.string() + " to", to);
}

} // namespace

Work_Places::Work_Places(const fs::path& plan, const Plan_Part& part) : Root(plan / Work_Name / Part_Name(part))
{
    std::error_code error;
    for (const auto& name : List_Directories(plan / Work_Name, "*-of-*")) {
        const fs::path left = plan / Work_Name / name;
        if (left != Root && Is_Locked(Lock_Of_Part(plan, name)))
            continue; // a part that is at work
        fs::remove_all(left, error);
        Fail_If(error, "Cannot remove", left);
    }
    fs::create_directories(Root, error);
    Fail_If(error, "Cannot create", Root);
}

Work_Places::~Work_Places()
{
    std::error_code ignored;
    fs::remove_all(Root, ignored);
    fs::remove(Root.parent_path(), ignored); // unless another part is at work
}

fs::path Work_Places::Next()
{
    return Root / std::to_string(++Count);
}

fs::path Work_Places::New_Empty()
{
    fs::path place = Next();
    std::error_code error;
    fs::create_directory(place, error);
    Fail_If(error, "Cannot create", place);
    return place;
}

fs::path Work_Places::Take()
{
    if (Free.empty())
        return New_Empty();
    fs::path place = std::move(Free.back());
    Free.pop_back();
    return place;
}

fs::path Work_Places::Take(const fs::path& run)
{
    fs::path place = Next();
    Move(run, place);
    return place;
}

void Work_Places::Give_Back(const fs::path& place)
{
    Free.push_back(place);
}

void Work_Places::Become(const fs::path& place, const fs::path& run)
{
    if (Above != run.parent_path()) {
        std::error_code error;
        fs::create_directories(run.parent_path(), error);
        Fail_If(error, "Cannot create", run.parent_path());
        Above = run.parent_path();
    }
    Move(place, run);
}

} // namespace orvel
