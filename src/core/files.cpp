#include "core/files.h"

#include "core/code_page.h"
#include "core/system/file_handle.h"
#include "core/system/file_names.h"
#include "core/system/flush.h"
#include "core/system/lock.h"
#include "core/system/rename.h"
#include "core/text.h"
#include "core/writable.h"
#include "core/write_from.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <random>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr fs::perms Write_Bits = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

[[noreturn]] void Fail(const std::string& what, const fs::path& file, const std::error_code& error)
{
    File_Error failure(what + " " + file.string() + ": " + error.message() + ".");
    failure.Code = error;
    throw failure;
}

void Fail_If(const std::error_code& error, const std::string& what, const fs::path& file)
{
    if (error)
        Fail(what, file, error);
}

std::vector<std::string> List(const fs::path& directory, std::string_view mask, bool directories)
{
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error)) {
        std::string name = entry->path().filename().string();
        std::error_code ignored;
        if (Matches(name, mask) && entry->is_directory(ignored) == directories)
            names.push_back(std::move(name));
    }
    if (!Is_Missing(error))
        Fail_If(error, "Cannot read the directory", directory);
    std::ranges::sort(names, [](const std::string& a, const std::string& b) {
        const std::string upper_a = Upper(a), upper_b = Upper(b);
        return upper_a != upper_b ? upper_a < upper_b : a < b;
    });
    return names;
}

std::string Random_Letters()
{
    constexpr std::size_t Length = 6;
    std::random_device random;
    std::uniform_int_distribution<int> letter('a', 'z');
    std::string letters(Length, ' ');
    std::ranges::generate(letters, [&] { return static_cast<char>(letter(random)); });
    return letters;
}

constexpr int Most_Attempts = 100; // at finding a name that is not taken
constexpr std::string_view Unfinished_Begin = ".orvel-save-";
constexpr std::string_view Unfinished_Mask = ".orvel-save-??????";

// A new file of such a name in the target's directory: a short one, whatever the length of the target's.
File_Handle Create_Beside(const fs::path& file, fs::perms rights, fs::path& beside)
{
    File_Handle created;
    std::error_code error = std::make_error_code(std::errc::file_exists);
    for (int attempt = 0; attempt < Most_Attempts && error == std::errc::file_exists; ++attempt) {
        beside = file.parent_path() / (std::string(Unfinished_Begin) + Random_Letters());
        created = File_Handle(beside, File_Handle::Use::Write_New, error, rights);
    }
    Fail_If(error, "Cannot write", file);
    created.Lock_While_Open();
    return created;
}

// Removes what writers that were killed have left. One at work holds a lock; the age covers the instant before it does.
void Sweep(const fs::path& directory)
{
    constexpr std::chrono::seconds Least_Age(10);
    const auto old = fs::file_time_type::clock::now() - Least_Age;
    std::error_code error;
    for (fs::directory_iterator entry(directory.empty() ? fs::path(".") : directory, error), end;
         !error && entry != end; entry.increment(error)) {
        std::error_code gone;
        if (Matches(entry->path().filename().string(), Unfinished_Mask) && entry->last_write_time(gone) < old &&
            !gone && !Is_Locked(entry->path()))
            fs::remove(entry->path(), gone);
    }
}

// The file that is really written: a link within its directory is followed. Refuses what is there and is none.
fs::path Real_Target(const fs::path& file)
{
    std::error_code error;
    const auto status = fs::symlink_status(file, error);
    if (status.type() == fs::file_type::not_found)
        return file;
    Fail_If(error, "Cannot write", file);
    if (status.type() == fs::file_type::directory)
        Fail("Cannot write", file, std::make_error_code(std::errc::is_a_directory));
    if (status.type() == fs::file_type::regular)
        return file;
    if (status.type() != fs::file_type::symlink)
        Fail("Cannot write", file, Left_Alone::Device);
    const auto target = fs::canonical(file, error);
    Fail_If(error, "Cannot write", file);
    if (target.parent_path() != fs::canonical(file.parent_path() / ".", error))
        Fail("Cannot write", file, Left_Alone::Link_Elsewhere);
    return Real_Target(target);
}

// The same, and what may not be replaced.
fs::path Target_To_Write(const fs::path& given)
{
    if (const auto fault = Fault_Of_Name(given.filename().string()); !fault.empty())
        throw File_Error("Cannot write " + given.string() + ": " + fault);
    fs::path file = Real_Target(given);
    std::error_code error;
    const auto present = fs::status(file, error);
    if (fs::exists(present) && (present.permissions() & Write_Bits) == fs::perms::none)
        throw File_Error("The file " + file.string() + " is read protected.");
    return file;
}

// With these rights; without them with those of the file that is replaced, or of any new file.
template <class Write> void Write_Whole_As(const fs::path& given, std::optional<fs::perms> rights, Write write)
{
    constexpr fs::perms Owner = fs::perms::owner_read | fs::perms::owner_write;
    const fs::path file = Target_To_Write(given);
    std::error_code error;
    const auto present = fs::status(file, error);
    const bool replaces = fs::exists(present);
    if (replaces && !rights)
        rights = present.permissions();
    Sweep(file.parent_path());
    fs::path beside;
    File_Handle created = Create_Beside(file, rights ? Owner : File_Handle::Usual_Rights, beside);
    error = write(created);
    if (replaces)
        created.Take_Owner_Of(file);
    if (!error && rights)
        fs::permissions(beside, *rights, error);
    if (!error)
        error = created.Flush();
    if (!error)
        error = Rename(beside, file);
    if (!error)
        error = created.Close();
    if (error) {
        std::error_code ignored;
        fs::remove(beside, ignored);
        Fail("Cannot write", file, error);
    }
    Flush_Directory(file.parent_path());
}

} // namespace

void Check_Writable(const fs::path& file)
{
    fs::path beside;
    Create_Beside(Target_To_Write(file), File_Handle::Usual_Rights, beside);
    std::error_code ignored;
    fs::remove(beside, ignored);
}

void Check_Names(const fs::path& path)
{
    for (const auto& part : path.relative_path()) {
        const auto fault = part.empty() ? std::string() : Fault_Of_Name(part.string());
        if (!fault.empty())
            throw File_Error("There can be no " + path.string() + ": " + fault);
    }
}

fs::path Path_Of(std::string_view name)
{
    return To_Utf8(name);
}

std::optional<std::string> Name_Of(const fs::path& path)
{
    return From_Utf8(path.string());
}

bool Matches(std::string_view name, std::string_view mask)
{
    const auto same = [](char a, char b) { return Upper_Letter(a) == Upper_Letter(b); };
    std::size_t at_name = 0, at_mask = 0, star = std::string::npos, resume = 0;
    while (at_name < name.size()) {
        if (at_mask < mask.size() && mask[at_mask] == '*') {
            star = at_mask++;
            resume = at_name;
        } else if (at_mask < mask.size() && (mask[at_mask] == '?' || same(mask[at_mask], name[at_name]))) {
            ++at_mask;
            ++at_name;
        } else if (star != std::string::npos) {
            at_mask = star + 1;
            at_name = ++resume;
        } else {
            return false;
        }
    }
    return mask.find_first_not_of('*', at_mask) == std::string::npos;
}

std::optional<fs::path> Find_File(const fs::path& directory, const fs::path& name)
{
    std::error_code error;
    const fs::path exact = directory / name;
    if (fs::symlink_status(exact, error).type() != fs::file_type::not_found && !error)
        return exact;
    if (!Is_Missing(error))
        Fail("Cannot read", exact, error);
    const std::string wanted = name.string();
    std::optional<std::string> best;
    fs::directory_iterator entry(directory, error);
    for (const fs::directory_iterator end; !error && entry != end; entry.increment(error)) {
        std::string found = entry->path().filename().string();
        if (Same_Text(found, wanted) && (!best || found < *best))
            best = std::move(found);
    }
    if (!Is_Missing(error))
        Fail_If(error, "Cannot read the directory", directory);
    if (!best)
        return std::nullopt;
    return directory / *best;
}

fs::path Found_Or_New(const fs::path& directory, const fs::path& name)
{
    return Find_File(directory, name).value_or(directory / name);
}

std::vector<std::string> List_Files(const fs::path& directory, std::string_view mask)
{
    return List(directory, mask, false);
}

std::vector<std::string> List_Directories(const fs::path& directory, std::string_view mask)
{
    return List(directory, mask, true);
}

std::string Read_Whole(const fs::path& file, std::size_t most)
{
    std::error_code error;
    File_Handle opened(file, File_Handle::Use::Read, error);
    const std::uint64_t size = error ? 0 : opened.Size(error);
    if (error)
        Fail("Cannot read", file, error);
    std::string bytes;
    bytes.resize(static_cast<std::size_t>(std::min<std::uint64_t>(size, most)) + 1);
    std::size_t filled = 0;
    while (true) {
        const std::size_t got = opened.Read(bytes.data() + filled, bytes.size() - filled, error);
        if (error)
            Fail("Cannot read", file, error);
        filled += got;
        if (filled > most)
            throw File_Error("The file " + file.string() + " is too large.");
        if (got == 0)
            break;
        if (filled == bytes.size())
            bytes.resize(2 * bytes.size());
    }
    bytes.resize(filled);
    return bytes;
}

std::string Read_Head(const fs::path& file, std::size_t most)
{
    std::error_code error;
    File_Handle opened(file, File_Handle::Use::Read, error);
    std::string bytes(most, '\0');
    bytes.resize(error ? 0 : opened.Read_At(0, bytes.data(), most, error));
    if (!Is_Missing(error))
        Fail_If(error, "Cannot read", file);
    return bytes;
}

std::string Read_Tail(const fs::path& file, std::size_t most)
{
    std::error_code error;
    File_Handle opened(file, File_Handle::Use::Read, error);
    const std::uint64_t size = error ? 0 : opened.Size(error);
    std::string bytes(static_cast<std::size_t>(std::min<std::uint64_t>(size, most)), '\0');
    if (!bytes.empty())
        bytes.resize(opened.Read_At(size - bytes.size(), bytes.data(), bytes.size(), error));
    if (!Is_Missing(error))
        Fail_If(error, "Cannot read", file);
    return bytes;
}

std::string Read_If_There(const fs::path& directory, const fs::path& name)
try {
    return Read_Whole(Found_Or_New(directory, name));
} catch (const File_Error& error) {
    if (!Is_Missing(error.Code))
        throw;
    return {};
}

void Write_Whole_From(const fs::path& file, const std::function<void(File_Handle&)>& write)
{
    std::exception_ptr failure;
    try {
        Write_Whole_As(file, std::nullopt, [&](File_Handle& to) -> std::error_code {
            try {
                write(to);
                return {};
            } catch (...) {
                failure = std::current_exception();
                return std::make_error_code(std::errc::operation_canceled);
            }
        });
    } catch (const File_Error&) {
        if (failure)
            std::rethrow_exception(failure);
        throw;
    }
}

void Write_Whole_Printed(const fs::path& file, const std::function<void(const Print_Text_To& print)>& all)
{
    constexpr std::size_t Block_Size = 1U << 16U;
    Write_Whole_From(file, [&](File_Handle& handle) {
        std::string block;
        const auto write = [&] {
            if (const auto error = handle.Write(block))
                throw File_Error("Cannot write " + file.string() + ": " + error.message() + ".");
            block.clear();
        };
        all([&](std::string_view text) {
            block += text;
            if (block.size() > Block_Size)
                write();
        });
        write();
    });
}

void Write_Whole(const fs::path& file, std::string_view bytes)
{
    Write_Whole_As(file, std::nullopt, [bytes](File_Handle& created) { return created.Write(bytes); });
}

void Copy_Whole(const fs::path& from, const fs::path& to)
{
    constexpr std::size_t Window = 1U << 20U;
    std::error_code error;
    File_Handle source(from, File_Handle::Use::Read, error);
    const auto status = error ? fs::file_status() : fs::status(from, error);
    Fail_If(error, "Cannot read", from);
    const auto copy = [&](File_Handle& created) {
        std::string window(Window, '\0');
        std::error_code written;
        while (!written) {
            const std::size_t got = source.Read(window.data(), window.size(), error);
            if (got == 0)
                return error;
            written = created.Write(std::string_view(window).substr(0, got));
        }
        return written;
    };
    try {
        Write_Whole_As(to, status.permissions() | fs::perms::owner_write, copy);
    } catch (const File_Error&) {
        Fail_If(error, "Cannot read", from);
        throw;
    }
}

std::optional<fs::path> Make_Unique_Directory(const fs::path& begin)
{
    for (int attempt = 0; attempt < Most_Attempts; ++attempt) {
        fs::path directory = begin.string() + Random_Letters();
        std::error_code error;
        if (fs::create_directory(directory, error))
            return directory;
        if (error && error != std::errc::file_exists)
            return std::nullopt;
    }
    return std::nullopt;
}

bool Is_Read_Only(const fs::path& file)
{
    std::error_code error;
    const auto status = fs::status(file, error);
    return !error && fs::exists(status) && (status.permissions() & Write_Bits) == fs::perms::none;
}

void Set_Read_Only(const fs::path& file, bool read_only)
{
    std::error_code error;
    if (read_only)
        fs::permissions(file, Write_Bits, fs::perm_options::remove, error);
    else
        fs::permissions(file, fs::perms::owner_write, fs::perm_options::add, error);
    if (error)
        throw File_Error("Cannot change the attributes of " + file.string() + ": " + error.message() + ".");
}

} // namespace orvel
