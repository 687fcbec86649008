#include "records/archive_reader.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/sha256.h"

#include <algorithm>
#include <map>

namespace orvel {

namespace {

constexpr std::uint64_t Largest_Manifest = 64U << 20U;
constexpr std::uint64_t Most_Packing = 1040; // deflate packs no better

// Why an entry is not taken, a sentence; empty if it is.
std::string Fault_Of(const Zip_Entry& entry)
{
    const std::string what = "its entry " + entry.Name;
    if (!Is_Safe_Name(entry.Name))
        return what + " would lie outside of the directory that it is laid out in.";
    if (!entry.Is_File)
        return what + " is no ordinary file.";
    if (entry.Is_Encrypted)
        return what + " is encrypted.";
    if (!entry.Is_Packed_As_Known)
        return what + " is packed in a way that this program does not know.";
    constexpr std::uint64_t Beginning = 1024;
    if (entry.Size / Most_Packing > entry.Packed_Size + Beginning)
        return what + " says that it unpacks to more than it can hold.";
    return {};
}

} // namespace

Archive_Reader::Archive_Reader(const std::filesystem::path& archive)
    : Archive_Reader(Zip_Reader(archive), archive.string())
{}

Archive_Reader Archive_Reader::Of_Bytes(std::string_view bytes)
{
    return {Zip_Reader::Of_Bytes(bytes), "The file"};
}

Archive_Reader::Archive_Reader(Zip_Reader zip, std::string name) : Zip(std::move(zip)), Name(std::move(name))
{
    for (const auto& entry : Zip.Entries()) {
        if (const std::string fault = Fault_Of(entry); !fault.empty())
            Refuse(fault);
    }
    Read_Manifest();
    Match_Entries();
}

void Archive_Reader::Refuse(const std::string& why) const
{
    throw File_Error(Name + " is not laid out: " + why);
}

void Archive_Reader::Read_Manifest()
{
    const auto& entries = Zip.Entries();
    const auto found = std::ranges::find(entries, Manifest_Name, &Zip_Entry::Name);
    if (found == entries.end())
        throw File_Error(Name + " is no archive of an assessment: it has no " + std::string(Manifest_Name) + ".");
    if (found->Size > Largest_Manifest)
        Refuse("its " + std::string(Manifest_Name) + " is too large.");
    std::string text;
    Zip.Read(static_cast<std::size_t>(found - entries.begin()), [&](std::string_view block) { text += block; });
    try {
        Held = Parse_Manifest(text);
    } catch (const File_Error& error) {
        throw File_Error(Located(Name + ", " + std::string(Manifest_Name), error));
    }
}

// Every file of the manifest has its entry, and every entry its file.
void Archive_Reader::Match_Entries()
{
    const auto& entries = Zip.Entries();
    std::map<std::string, std::size_t> places;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (!places.emplace(entries[i].Name, i).second)
            Refuse("its entry " + entries[i].Name + " stands there twice.");
    }
    places.erase(std::string(Manifest_Name));
    for (const auto& file : Held.Files) {
        const auto entry = places.find(std::string(Archived_Files) + To_Utf8(file.Name));
        if (entry == places.end())
            Refuse("the file " + To_Utf8(file.Name) + " of its manifest is missing, or named there twice.");
        if (entries[entry->second].Size != file.Size)
            Refuse("the file " + To_Utf8(file.Name) + " has another size than its manifest says.");
        Entry_Of.push_back(entry->second);
        places.erase(entry);
    }
    if (!places.empty())
        Refuse("its manifest does not name the entry " + places.begin()->first + ".");
    for (const auto& run : Held.Runs) {
        if (!Is_Safe_Name(run.Directory))
            Refuse("the run " + To_Utf8(run.Directory) + " would lie outside of the directory that it is laid out in.");
    }
}

void Archive_Reader::Read(std::size_t file, const std::function<void(std::string_view)>& take)
{
    Sha256_Stream digest;
    Zip.Read(Entry_Of.at(file), [&](std::string_view block) {
        digest.Add(block);
        take(block);
    });
    if (digest.Hexadecimal() != Held.Files[file].Sha256)
        throw File_Error("The file " + To_Utf8(Held.Files[file].Name) + " of " + Name +
                         " is not the one that was archived: it has another digest.");
}

} // namespace orvel
