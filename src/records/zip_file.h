#pragma once

#include "core/error.h"
#include "core/system/file_handle.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Zip files. This unit alone knows the library that packs and unpacks them. Names are UTF-8, parted by "/".

struct Zip_Entry {
    std::string Name;
    std::uint64_t Size = 0, Packed_Size = 0; // bytes
    bool Is_File = true;                     // no link, directory or device
    bool Is_Encrypted = false;
    bool Is_Packed_As_Known = true; // deflated or stored
};

// Reads the entries of a zip file in any order, with little memory. Throws File_Error for a file that is cut, damaged
// or none, and for one that cannot be read.
class Zip_Reader {
public:
    explicit Zip_Reader(const std::filesystem::path& file);
    static Zip_Reader Of_Bytes(std::string_view bytes); // which must live as long
    Zip_Reader(Zip_Reader&&) noexcept;
    Zip_Reader& operator=(Zip_Reader&&) noexcept;
    ~Zip_Reader();

    const std::vector<Zip_Entry>& Entries() const { return Found; }

    // Passes on the bytes of an entry, block by block, never more than its size. Throws File_Error if they are damaged,
    // fewer or more.
    void Read(std::size_t entry, const std::function<void(std::string_view)>& take);

private:
    struct Opened;
    explicit Zip_Reader(std::unique_ptr<Opened> opened);
    void List_Entries();

    std::unique_ptr<Opened> Held;
    std::vector<Zip_Entry> Found;
};

// What becomes an entry: bytes, or a file of this size and digest.
struct Zip_Item {
    std::string Name;
    std::string Bytes;          // if File is empty
    std::filesystem::path File; // one that turns out to have another digest has changed meanwhile
    std::uint64_t Size = 0;
    std::string Sha256;
};

// Writes a zip file into an open one, from its start, with little memory. The same items give the same bytes: order,
// times, rights and level are fixed. `progress` is told the bytes that were read so far; if it says so, the work ends
// with Zip_Stopped. Throws File_Error if an item cannot be read or has changed, or if the file cannot be written.
void Write_Zip(File_Handle& to, const std::vector<Zip_Item>& items,
               const std::function<bool(const std::string& name, std::uint64_t read)>& progress = {});

struct Zip_Stopped : File_Error {
    Zip_Stopped() : File_Error("The work was stopped.") {}
};

} // namespace orvel
