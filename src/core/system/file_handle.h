#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace orvel {

// Why a file is neither read nor written although it is there: only ordinary files are, and none that another program
// keeps for itself, as some systems let it. A link within its directory is followed, one that leads elsewhere is not.
enum class Left_Alone { Device = 1, Link_Elsewhere, In_Use };
std::error_code make_error_code(Left_Alone reason);

// An open file, unbuffered: each call is a system call, repeated until all is done. Child programs do not inherit it.
// Opening never waits, not even for the other end of a pipe.
class File_Handle {
public:
    enum class Use {
        Read,
        Write,     // created, or emptied
        Append,    // created, or kept; every write goes to the end
        Update,    // created, or kept as it is
        Write_New, // created; an error if the file exists
        Directory, // to flush it
    };

    static constexpr std::filesystem::perms Usual_Rights{0666};

    File_Handle() = default;
    // A new file gets `rights` less those that the process's umask removes. On an error nothing is open.
    File_Handle(const std::filesystem::path& file, Use use, std::error_code& error,
                std::filesystem::perms rights = Usual_Rights);
    File_Handle(File_Handle&& other) noexcept;
    File_Handle& operator=(File_Handle&& other) noexcept;
    ~File_Handle();

    bool Is_Open() const { return Number != -1; }

    // Reads at most `most` bytes from the current position and returns their number; 0 at the end of the file and on an
    // error.
    std::size_t Read(char* to, std::size_t most, std::error_code& error);
    // The same from the position `place`, in bytes from the start of the file; fewer only at the end of the file.
    std::size_t Read_At(std::uint64_t place, char* to, std::size_t most, std::error_code& error);
    std::uint64_t Size(std::error_code& error) const;

    [[nodiscard]] std::error_code Write(std::string_view bytes);
    [[nodiscard]] std::error_code Write_At(std::uint64_t place, std::string_view bytes);
    [[nodiscard]] std::error_code Resize(std::uint64_t size);
    void Take_Owner_Of(const std::filesystem::path& file); // as far as this process may
    void Lock_While_Open();                                // a sign of life, see lock.h
    void Begin_Flush();                                    // starts writing to the disk without waiting for it
    [[nodiscard]] std::error_code Flush();                 // waits until everything is on the disk
    std::error_code Close();                               // some systems report a full disk only here

private:
    int Number = -1;
};

} // namespace orvel

template <> struct std::is_error_code_enum<orvel::Left_Alone> : std::true_type {};
