#include "core/system/directory_watch.h"

#include "core/system/handle_windows.h"

#include <array>
#include <list>

namespace orvel {

namespace {

constexpr DWORD Of_Interest = FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME | FILE_NOTIFY_CHANGE_SIZE |
                              FILE_NOTIFY_CHANGE_LAST_WRITE | FILE_NOTIFY_CHANGE_ATTRIBUTES;

struct Watched_Directory {
    std::filesystem::path Path;
    Held_Handle Directory;
    OVERLAPPED Reading{};
    alignas(DWORD) std::array<std::byte, 16384> Changes{};

    bool Listen()
    {
        Reading = {};
        return ::ReadDirectoryChangesW(Directory.Get(), Changes.data(), static_cast<DWORD>(Changes.size()), FALSE,
                                       Of_Interest, nullptr, &Reading, nullptr) != 0;
    }
};

} // namespace

// All directories report to one port, and so does the one who wakes.
struct Directory_Watch::State {
    State() = default;
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State()
    {
        for (auto& watched : Directories) {
            DWORD none = 0; // the system writes into the buffer until the reading has ended
            ::CancelIoEx(watched.Directory.Get(), &watched.Reading);
            ::GetOverlappedResult(watched.Directory.Get(), &watched.Reading, &none, TRUE);
        }
    }

    // What one message of the port tells.
    void Take(Watched_Directory& watched, DWORD bytes, std::vector<Event>& events)
    {
        if (bytes == 0)
            events.emplace_back(); // too much at once
        for (DWORD at = 0; at < bytes;) {
            const auto* const change = reinterpret_cast<const FILE_NOTIFY_INFORMATION*>(watched.Changes.data() + at);
            events.push_back({watched.Path, To_Utf8_Text({change->FileName, change->FileNameLength / sizeof(WCHAR)})});
            if (change->NextEntryOffset == 0)
                break;
            at += change->NextEntryOffset;
        }
    }

    Held_Handle Port{::CreateIoCompletionPort(INVALID_HANDLE_VALUE, nullptr, 0, 1)};
    std::list<Watched_Directory> Directories;
};

Directory_Watch::Directory_Watch() : Held(std::make_unique<State>()) {}
Directory_Watch::~Directory_Watch() = default;

bool Directory_Watch::Add(const std::filesystem::path& directory)
{
    for (const auto& watched : Held->Directories) {
        if (watched.Path == directory)
            return true;
    }
    auto opened =
        Open_Shared(directory, FILE_LIST_DIRECTORY, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OVERLAPPED);
    if (!opened || !Held->Port)
        return false;
    auto& watched = Held->Directories.emplace_back();
    watched.Path = directory;
    watched.Directory = std::move(opened);
    const auto key = reinterpret_cast<ULONG_PTR>(&watched);
    if (::CreateIoCompletionPort(watched.Directory.Get(), Held->Port.Get(), key, 0) != nullptr && watched.Listen())
        return true;
    Held->Directories.pop_back();
    return false;
}

std::vector<Directory_Watch::Event> Directory_Watch::Wait(std::chrono::milliseconds most)
{
    std::vector<Event> events;
    auto left = static_cast<DWORD>(most.count());
    DWORD bytes = 0;
    ULONG_PTR key = 0;
    OVERLAPPED* reading = nullptr;
    while (::GetQueuedCompletionStatus(Held->Port.Get(), &bytes, &key, &reading, left) != 0 || reading != nullptr) {
        left = 0; // what else is there already
        if (key == 0)
            continue; // woken
        auto& watched = *reinterpret_cast<Watched_Directory*>(key);
        Held->Take(watched, bytes, events);
        if (!watched.Listen()) {
            events.push_back({watched.Path, {}}); // it is gone
            Held->Directories.remove_if([&](const Watched_Directory& other) { return &other == &watched; });
        }
    }
    return events;
}

void Directory_Watch::Wake()
{
    ::PostQueuedCompletionStatus(Held->Port.Get(), 0, 0, nullptr);
}

} // namespace orvel
