#include "records/zip_file.h"

#include "core/sha256.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <optional>
#include <zip.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t Block = 128U << 10U;
constexpr zip_int32_t Level = 6;
constexpr zip_uint16_t First_Day = 33; // 1 January 1980, where the times of the format begin
constexpr unsigned Type_Shift = 16, Type_Bits = 0170000, Ordinary_File = 0100000, Rights = 0644;

struct Error {
    Error() { zip_error_init(&Code); }
    Error(const Error&) = delete;
    Error& operator=(const Error&) = delete;
    ~Error() { zip_error_fini(&Code); }
    zip_error_t Code;
};

struct Free_Archive {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
using Archive = std::unique_ptr<zip_t, Free_Archive>;

struct Free_File {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

// What the library asks of a source of bytes, or of the place for a new archive. A failure is kept as what was thrown,
// since the library knows error numbers alone.
class Source {
public:
    Source() = default;
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;
    virtual ~Source() = default;

    // A source of the library that calls this one. Nothing without memory.
    zip_source_t* Made() { return zip_source_function_create(Call, this, &Last.Code); }

    void Throw_Failure() const
    {
        if (Failure)
            std::rethrow_exception(Failure);
    }

protected:
    virtual zip_int64_t Do(void* data, zip_uint64_t size, zip_source_cmd_t command) = 0;

    static void Fail_If(const std::error_code& code, const std::string& what)
    {
        if (!code)
            return;
        File_Error failure(what + ": " + code.message() + ".");
        failure.Code = code;
        throw failure;
    }

    // Where a seek of the library leads.
    zip_uint64_t Sought(zip_uint64_t place, zip_uint64_t end, void* data, zip_uint64_t size)
    {
        const zip_int64_t sought = zip_source_seek_compute_offset(place, end, data, size, &Last.Code);
        if (sought < 0)
            throw File_Error("The archive is damaged.");
        return static_cast<zip_uint64_t>(sought);
    }

    static zip_int64_t Put_Size(void* data, zip_uint64_t bytes)
    {
        auto* stat = static_cast<zip_stat_t*>(data);
        zip_stat_init(stat);
        stat->valid |= ZIP_STAT_SIZE;
        stat->size = bytes;
        return sizeof(zip_stat_t);
    }

private:
    static zip_int64_t Call(void* self, void* data, zip_uint64_t size, zip_source_cmd_t command)
    {
        auto& source = *static_cast<Source*>(self);
        if (command == ZIP_SOURCE_ERROR)
            return zip_error_to_data(&source.Last.Code, data, size);
        if (command == ZIP_SOURCE_FREE)
            return 0; // its owner frees it
        try {
            return source.Do(data, size, command);
        } catch (...) {
            if (!source.Failure)
                source.Failure = std::current_exception();
            zip_error_set(&source.Last.Code, ZIP_ER_INTERNAL, 0);
            return -1;
        }
    }

    Error Last;
    std::exception_ptr Failure;
};

// An archive that is read.
class File_Source : public Source {
public:
    explicit File_Source(const fs::path& file) : Name("Cannot read " + file.string())
    {
        std::error_code error;
        Opened = File_Handle(file, File_Handle::Use::Read, error);
        Fail_If(error, Name);
        Bytes = Opened.Size(error);
        Fail_If(error, Name);
    }

protected:
    zip_int64_t Do(void* data, zip_uint64_t size, zip_source_cmd_t command) override
    {
        switch (command) {
        case ZIP_SOURCE_OPEN:
            Place = 0;
            return 0;
        case ZIP_SOURCE_CLOSE:
            return 0;
        case ZIP_SOURCE_READ: {
            std::error_code error;
            const std::size_t got = Opened.Read_At(Place, static_cast<char*>(data), size, error);
            Fail_If(error, Name);
            Place += got;
            return static_cast<zip_int64_t>(got);
        }
        case ZIP_SOURCE_SEEK:
            Place = Sought(Place, Bytes, data, size);
            return 0;
        case ZIP_SOURCE_TELL:
            return static_cast<zip_int64_t>(Place);
        case ZIP_SOURCE_STAT:
            return Put_Size(data, Bytes);
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_SEEKABLE;
        default:
            return -1;
        }
    }

private:
    std::string Name;
    File_Handle Opened;
    std::uint64_t Bytes = 0, Place = 0;
};

// The place for a new archive.
class Target_Source : public Source {
public:
    explicit Target_Source(File_Handle& to) : To(to) {}

protected:
    zip_int64_t Do(void* data, zip_uint64_t size, zip_source_cmd_t command) override
    {
        switch (command) {
        case ZIP_SOURCE_OPEN:
        case ZIP_SOURCE_CLOSE:
        case ZIP_SOURCE_BEGIN_WRITE:
        case ZIP_SOURCE_COMMIT_WRITE:
        case ZIP_SOURCE_ROLLBACK_WRITE:
        case ZIP_SOURCE_REMOVE:
        case ZIP_SOURCE_READ: // it is empty
            return 0;
        case ZIP_SOURCE_SEEK:
        case ZIP_SOURCE_TELL:
            return 0;
        case ZIP_SOURCE_WRITE:
            Fail_If(To.Write_At(Place, {static_cast<const char*>(data), size}), "Cannot write the archive");
            Place += size;
            Bytes = std::max(Bytes, Place);
            return static_cast<zip_int64_t>(size);
        case ZIP_SOURCE_SEEK_WRITE:
            Place = Sought(Place, Bytes, data, size);
            return 0;
        case ZIP_SOURCE_TELL_WRITE:
            return static_cast<zip_int64_t>(Place);
        case ZIP_SOURCE_STAT:
            return Put_Size(data, 0);
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_WRITABLE;
        default:
            return -1;
        }
    }

private:
    File_Handle& To;
    std::uint64_t Place = 0, Bytes = 0;
};

// An item that is packed: read from its start to its end, its digest checked there.
class Item_Source : public Source {
public:
    using Tell = std::function<void(const std::string& name, std::size_t read)>;
    Item_Source(const Zip_Item& item, const Tell& tell) : Item(item), Tell_Read(tell) {}

protected:
    zip_int64_t Do(void* data, zip_uint64_t size, zip_source_cmd_t command) override
    {
        switch (command) {
        case ZIP_SOURCE_OPEN:
            Open();
            return 0;
        case ZIP_SOURCE_READ:
            return static_cast<zip_int64_t>(Read(static_cast<char*>(data), size));
        case ZIP_SOURCE_CLOSE:
            Opened = File_Handle();
            return 0;
        case ZIP_SOURCE_STAT:
            return Put_Size(data, Item.File.empty() ? Item.Bytes.size() : Item.Size);
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_READABLE;
        default:
            return -1;
        }
    }

private:
    void Open()
    {
        Place = 0;
        Digest = Sha256_Stream();
        if (Item.File.empty())
            return;
        std::error_code error;
        Opened = File_Handle(Item.File, File_Handle::Use::Read, error);
        Fail_If(error, "Cannot read " + Item.File.string());
    }

    std::size_t Read(char* to, std::size_t most)
    {
        std::size_t got = 0;
        if (Item.File.empty()) {
            got = std::min<std::size_t>(most, Item.Bytes.size() - Place);
            std::memcpy(to, Item.Bytes.data() + Place, got);
        } else {
            std::error_code error;
            got = Opened.Read(to, most, error);
            Fail_If(error, "Cannot read " + Item.File.string());
            Digest.Add({to, got});
        }
        Place += got;
        if (!Item.File.empty() && (Place > Item.Size || (got == 0 && Digest.Hexadecimal() != Item.Sha256)))
            throw File_Error("The file " + Item.File.string() + " was changed while it was read.");
        Tell_Read(Item.Name, got);
        return got;
    }

    const Zip_Item& Item;
    const Tell& Tell_Read;
    File_Handle Opened;
    std::size_t Place = 0;
    Sha256_Stream Digest;
};

// The library's words for what is wrong end in no point, and for one fault they mislead.
[[noreturn]] void Refuse(const std::string& name, zip_error_t* error)
{
    const bool twice = zip_error_code_zip(error) == ZIP_ER_EXISTS;
    const std::string reason = twice ? "A name stands there twice" : zip_error_strerror(error);
    throw File_Error(name + " is no whole archive: " + reason + ".");
}

void Describe(zip_t* archive, zip_uint64_t number, Zip_Entry& entry)
{
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(archive, number, 0, &system, &attributes) == 0 && system == ZIP_OPSYS_UNIX) {
        const unsigned type = (attributes >> Type_Shift) & Type_Bits;
        entry.Is_File = type == 0 || type == Ordinary_File;
    }
    entry.Is_File = entry.Is_File && !entry.Name.ends_with('/');
}

void Add_Item(zip_t* archive, const Zip_Item& item, Item_Source& source)
{
    zip_source_t* made = source.Made();
    const zip_int64_t number = made ? zip_file_add(archive, item.Name.c_str(), made, ZIP_FL_ENC_UTF_8) : -1;
    if (number < 0) {
        if (made)
            zip_source_free(made);
        throw File_Error("The file " + item.Name + " cannot be archived: " + zip_strerror(archive) + ".");
    }
    const auto entry = static_cast<zip_uint64_t>(number);
    const bool described = zip_set_file_compression(archive, entry, ZIP_CM_DEFLATE, Level) == 0 &&
                           zip_file_set_dostime(archive, entry, 0, First_Day, 0) == 0 &&
                           zip_file_set_external_attributes(archive, entry, 0, ZIP_OPSYS_UNIX,
                                                            (Ordinary_File | Rights) << Type_Shift) == 0;
    if (!described)
        throw File_Error("The file " + item.Name + " cannot be archived: " + zip_strerror(archive) + ".");
}

} // namespace

struct Zip_Reader::Opened {
    std::string Name;
    std::unique_ptr<File_Source> File; // outlives the archive, which calls it
    Archive Zip;

    void Open(zip_source_t* source)
    {
        Error error;
        Zip.reset(source ? zip_open_from_source(source, ZIP_RDONLY | ZIP_CHECKCONS, &error.Code) : nullptr);
        if (Zip)
            return;
        if (source)
            zip_source_free(source);
        if (File)
            File->Throw_Failure();
        Refuse(Name, &error.Code);
    }

    [[noreturn]] void Refuse_Entry(const std::string& entry, zip_error_t* error) const
    {
        if (File)
            File->Throw_Failure();
        Refuse("The entry " + entry + " of " + Name, error);
    }
};

Zip_Reader::Zip_Reader(std::unique_ptr<Opened> opened) : Held(std::move(opened)) {}
Zip_Reader::Zip_Reader(Zip_Reader&&) noexcept = default;
Zip_Reader& Zip_Reader::operator=(Zip_Reader&&) noexcept = default;
Zip_Reader::~Zip_Reader() = default;

Zip_Reader::Zip_Reader(const fs::path& file) : Held(std::make_unique<Opened>())
{
    Held->Name = file.string();
    Held->File = std::make_unique<File_Source>(file);
    Held->Open(Held->File->Made());
    List_Entries();
}

Zip_Reader Zip_Reader::Of_Bytes(std::string_view bytes)
{
    Zip_Reader reader(std::make_unique<Opened>());
    reader.Held->Name = "The file";
    reader.Held->Open(zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr));
    reader.List_Entries();
    return reader;
}

void Zip_Reader::List_Entries()
{
    zip_t* const archive = Held->Zip.get();
    const auto count = static_cast<zip_uint64_t>(std::max<zip_int64_t>(0, zip_get_num_entries(archive, 0)));
    for (zip_uint64_t number = 0; number < count; ++number) {
        zip_stat_t stat;
        zip_stat_init(&stat);
        const char* const name = zip_get_name(archive, number, 0);
        if (!name || zip_stat_index(archive, number, 0, &stat) != 0)
            Held->Refuse_Entry(std::to_string(number + 1), zip_get_error(archive));
        Zip_Entry entry{.Name = name, .Size = stat.size, .Packed_Size = stat.comp_size};
        entry.Is_Encrypted = stat.encryption_method != ZIP_EM_NONE;
        entry.Is_Packed_As_Known = stat.comp_method == ZIP_CM_DEFLATE || stat.comp_method == ZIP_CM_STORE;
        Describe(archive, number, entry);
        Found.push_back(std::move(entry));
    }
}

void Zip_Reader::Read(std::size_t entry, const std::function<void(std::string_view)>& take)
{
    const Zip_Entry& wanted = Found.at(entry);
    const std::unique_ptr<zip_file_t, Free_File> file(zip_fopen_index(Held->Zip.get(), entry, 0));
    if (!file)
        Held->Refuse_Entry(wanted.Name, zip_get_error(Held->Zip.get()));
    const auto block = std::make_unique_for_overwrite<char[]>(Block);
    std::uint64_t read = 0;
    for (;;) {
        const zip_int64_t got = zip_fread(file.get(), block.get(), Block);
        if (got < 0)
            Held->Refuse_Entry(wanted.Name, zip_file_get_error(file.get()));
        if (got == 0)
            break;
        read += static_cast<std::uint64_t>(got);
        if (read > wanted.Size)
            throw File_Error("The entry " + wanted.Name + " of " + Held->Name + " is larger than the archive says.");
        take({block.get(), static_cast<std::size_t>(got)});
    }
    if (read < wanted.Size)
        throw File_Error("The entry " + wanted.Name + " of " + Held->Name + " ends early.");
}

void Write_Zip(File_Handle& to, const std::vector<Zip_Item>& items,
               const std::function<bool(const std::string& name, std::uint64_t read)>& progress)
{
    std::uint64_t total = 0;
    const Item_Source::Tell tell = [&](const std::string& name, std::size_t read) {
        total += read;
        if (progress && !progress(name, total))
            throw Zip_Stopped();
    };
    Target_Source target(to);
    std::vector<std::unique_ptr<Item_Source>> sources; // outlive the archive, which calls them
    Error error;
    zip_source_t* const made = target.Made();
    Archive archive(made ? zip_open_from_source(made, ZIP_CREATE | ZIP_TRUNCATE, &error.Code) : nullptr);
    if (!archive)
        throw File_Error("No archive can be begun.");
    for (const auto& item : items) {
        sources.push_back(std::make_unique<Item_Source>(item, tell));
        Add_Item(archive.get(), item, *sources.back());
    }
    if (zip_close(archive.get()) == 0)
        return void(archive.release()); // closed and freed
    for (const auto& source : sources)
        source->Throw_Failure();
    target.Throw_Failure();
    throw File_Error("The archive cannot be written: " + std::string(zip_strerror(archive.get())) + ".");
}

} // namespace orvel
