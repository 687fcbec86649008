#include "core/files.h"

#include "core/code_page.h"
#include "core/text.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr fs::perms Write_Bits = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

// A file descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int number) : Number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (Number >= 0)
            ::close(Number);
    }
    explicit operator bool() const { return Number >= 0; }
    int Get() const { return Number; }
    int Close()
    {
        const int result = ::close(Number);
        Number = -1;
        return result;
    }

private:
    int Number;
};

[[noreturn]] void Fail(const std::string& what, const fs::path& file, int error)
{
    throw File_Error(what + " " + file.string() + ": " + std::strerror(error) + ".");
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

void Flush_Directory(const fs::path& directory)
{
    const Descriptor opened(::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened)
        ::fsync(opened.Get());
}

void Write_Whole_As(const fs::path& file, std::string_view bytes, mode_t mode)
{
    if (Is_Read_Only(file))
        throw File_Error("The file " + file.string() + " is read protected.");
    std::string beside = file.string() + ".XXXXXX";
    Descriptor opened(::mkostemp(beside.data(), O_CLOEXEC));
    if (!opened)
        Fail("Cannot write", file, errno);
    const bool written =
        Write_All(opened.Get(), bytes) && ::fchmod(opened.Get(), mode) == 0 && ::fsync(opened.Get()) == 0;
    if (!written || opened.Close() != 0 || ::rename(beside.c_str(), file.c_str()) != 0) {
        const int error = errno;
        ::unlink(beside.c_str());
        Fail("Cannot write", file, error);
    }
    Flush_Directory(file.parent_path());
}

// The mode that a new file gets from the process's mask.
mode_t New_File_Mode()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

} // namespace

bool Write_All(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
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
    const Descriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat about {};
    if (!opened || ::fstat(opened.Get(), &about) != 0)
        Fail("Cannot read", file, errno);
    if (S_ISDIR(about.st_mode))
        Fail("Cannot read", file, EISDIR);
    std::string bytes;
    bytes.resize(std::min(static_cast<std::size_t>(std::max<off_t>(about.st_size, 0)), most) + 1);
    std::size_t filled = 0;
    while (true) {
        const auto got = ::read(opened.Get(), bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            Fail("Cannot read", file, errno);
        filled += static_cast<std::size_t>(got);
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

std::string Read_If_There(const fs::path& directory, const fs::path& name)
try {
    return Read_Whole(Found_Or_New(directory, name));
} catch (const File_Error&) {
    return {};
}

void Write_Whole(const fs::path& file, std::string_view bytes)
{
    struct stat about {};
    Write_Whole_As(file, bytes, ::stat(file.c_str(), &about) == 0 ? about.st_mode & 07777U : New_File_Mode());
}

void Copy_Whole(const fs::path& from, const fs::path& to)
{
    struct stat about {};
    if (::stat(from.c_str(), &about) != 0)
        Fail("Cannot read", from, errno);
    Write_Whole_As(to, Read_Whole(from), (about.st_mode & 07777U) | S_IWUSR);
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
