#include "core/files.h"

#include "core/code_page.h"
#include "core/system/file_handle.h"
#include "core/system/flush.h"
#include "core/text.h"

#include <algorithm>
#include <cstdint>
#include <random>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr fs::perms Write_Bits = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

[[noreturn]] void Fail(const std::string& what, const fs::path& file, const std::error_code& error)
{
    throw File_Error(what + " " + file.string() + ": " + error.message() + ".");
}

std::vector<std::string> List(const fs::path& directory, std::string_view mask, bool directories)
{
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(directory, fs::directory_options::skip_permission_denied, error), end;
         !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (entry->is_directory(ignored) != directories)
            continue;
        std::string name = entry->path().filename().string();
        if (Matches(name, mask))
            names.push_back(std::move(name));
    }
    std::ranges::sort(names, [](const std::string& a, const std::string& b) {
        const std::string upper_a = Upper(a), upper_b = Upper(b);
        return upper_a != upper_b ? upper_a < upper_b : a < b;
    });
    return names;
}

// The path with six random letters appended.
fs::path With_Random_Ending(const fs::path& path)
{
    constexpr std::size_t Letters = 6;
    std::random_device random;
    std::uniform_int_distribution<int> letter('a', 'z');
    std::string ending(Letters, ' ');
    std::ranges::generate(ending, [&] { return static_cast<char>(letter(random)); });
    return path.string() + ending;
}

constexpr int Most_Attempts = 100; // at finding a name that is not taken

// A new file with such a name.
File_Handle Create_Beside(const fs::path& file, fs::perms rights, fs::path& beside)
{
    File_Handle created;
    std::error_code error = std::make_error_code(std::errc::file_exists);
    for (int attempt = 0; attempt < Most_Attempts && error == std::errc::file_exists; ++attempt) {
        beside = With_Random_Ending(file.string() + ".");
        created = File_Handle(beside, File_Handle::Use::Write_New, error, rights);
    }
    if (error)
        Fail("Cannot write", file, error);
    return created;
}

// With these rights, or those of any new file if none are given.
void Write_Whole_As(const fs::path& file, std::string_view bytes, std::optional<fs::perms> rights)
{
    constexpr fs::perms Owner = fs::perms::owner_read | fs::perms::owner_write;
    if (Is_Read_Only(file))
        throw File_Error("The file " + file.string() + " is read protected.");
    fs::path beside;
    File_Handle created = Create_Beside(file, rights ? Owner : File_Handle::Usual_Rights, beside);
    std::error_code error = created.Write(bytes);
    if (!error && rights)
        fs::permissions(beside, *rights, error);
    if (!error)
        error = created.Flush();
    if (!error)
        error = created.Close();
    if (!error)
        fs::rename(beside, file, error);
    if (error) {
        std::error_code ignored;
        fs::remove(beside, ignored);
        Fail("Cannot write", file, error);
    }
    Flush_Directory(file.parent_path());
}

} // namespace

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
    const std::string n = Upper(name), m = Upper(mask);
    std::size_t at_name = 0, at_mask = 0, star = std::string::npos, resume = 0;
    while (at_name < n.size()) {
        if (at_mask < m.size() && m[at_mask] == '*') {
            star = at_mask++;
            resume = at_name;
        } else if (at_mask < m.size() && (m[at_mask] == '?' || m[at_mask] == n[at_name])) {
            ++at_mask;
            ++at_name;
        } else if (star != std::string::npos) {
            at_mask = star + 1;
            at_name = ++resume;
        } else {
            return false;
        }
    }
    return m.find_first_not_of('*', at_mask) == std::string::npos;
}

std::optional<fs::path> Find_File(const fs::path& directory, const fs::path& name)
{
    std::error_code ignored;
    if (fs::path exact = directory / name; fs::exists(exact, ignored))
        return exact;
    const std::string wanted = name.string();
    std::optional<std::string> best;
    for (fs::directory_iterator entry(directory, ignored), end; !ignored && entry != end; entry.increment(ignored)) {
        std::string found = entry->path().filename().string();
        if (Same_Text(found, wanted) && (!best || found < *best))
            best = std::move(found);
    }
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
    bytes.resize(error ? 0 : opened.Read(bytes.data(), most, error));
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
    return bytes;
}

std::string Read_If_There(const fs::path& directory, const fs::path& name)
try {
    return Read_Whole(Found_Or_New(directory, name));
} catch (const File_Error&) {
    return {};
}

void Write_Whole(const fs::path& file, std::string_view bytes)
{
    std::error_code missing;
    const auto status = fs::status(file, missing);
    Write_Whole_As(file, bytes, missing ? std::nullopt : std::optional(status.permissions()));
}

void Copy_Whole(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    const auto status = fs::status(from, error);
    if (error)
        Fail("Cannot read", from, error);
    Write_Whole_As(to, Read_Whole(from), status.permissions() | fs::perms::owner_write);
}

std::optional<fs::path> Make_Unique_Directory(const fs::path& begin)
{
    for (int attempt = 0; attempt < Most_Attempts; ++attempt) {
        fs::path directory = With_Random_Ending(begin);
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
