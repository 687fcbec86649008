#include "core/system/directory_watch.h"

#include "core/system/handle_windows.h"

#include <algorithm>
#include <map>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr DWORD Of_Interest = FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME | FILE_NOTIFY_CHANGE_SIZE |
                              FILE_NOTIFY_CHANGE_LAST_WRITE | FILE_NOTIFY_CHANGE_ATTRIBUTES;
constexpr std::size_t Of_A_Tree = 65536, Of_A_Directory = 16384; // bytes for what happens between two calls

// A path in one spelling: what is in a tree begins with its root.
using Key = std::wstring;

Key Key_Of(const fs::path& directory)
{
    Key key = directory.lexically_normal().make_preferred().wstring();
    while (key.ends_with(L'\\'))
        key.pop_back();
    return key;
}

bool Is_Below(const Key& root, const Key& key)
{
    return key.size() > root.size() && key[root.size()] == L'\\' && key.starts_with(root);
}

Key Parent_Of(const Key& key)
{
    return key.substr(0, std::min(key.rfind(L'\\'), key.size()));
}

// What is behind a link is no part of the tree.
bool Is_Reached_By_Link(const Key& root, const Key& key)
{
    for (Key at = key; Is_Below(root, at); at = Parent_Of(at)) {
        const DWORD attributes = ::GetFileAttributesW(Long_Path(at).c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
            return true;
    }
    return false;
}

// Wine tells nothing of a directory that was there before its tree was watched.
bool Tells_Of_Whole_Trees()
{
    static const bool is_wine =
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version")) != nullptr;
    return !is_wine;
}

// As long as a directory is open, those above it can neither be renamed nor removed: the fewer, the better.
struct Watched_Directory {
    Key Place;
    bool Is_Tree = false;
    Held_Handle Directory;
    std::vector<DWORD> Changes;
    OVERLAPPED Reading{};

    Watched_Directory(Key place, bool is_tree, Held_Handle directory)
        : Place(std::move(place)),
          Is_Tree(is_tree),
          Directory(std::move(directory)),
          Changes((is_tree ? Of_A_Tree : Of_A_Directory) / sizeof(DWORD))
    {}
    Watched_Directory(const Watched_Directory&) = delete;
    Watched_Directory& operator=(const Watched_Directory&) = delete;
    ~Watched_Directory()
    {
        DWORD none = 0; // the system writes into the buffer until the reading has ended
        ::CancelIoEx(Directory.Get(), &Reading);
        ::GetOverlappedResult(Directory.Get(), &Reading, &none, TRUE);
    }

    bool Listen()
    {
        Reading = {};
        const auto size = static_cast<DWORD>(Changes.size() * sizeof(DWORD));
        if (::ReadDirectoryChangesW(Directory.Get(), Changes.data(), size, Is_Tree ? TRUE : FALSE, Of_Interest, nullptr,
                                    &Reading, nullptr) != 0)
            return true;
        Reading = {}; // it would say that it goes on
        return false;
    }
};

} // namespace

// All directories report to one port, and so does the one who wakes.
struct Directory_Watch::State {
    bool Open(const Key& place, bool is_tree);
    void Take(const Watched_Directory& watched, DWORD bytes, std::vector<Event>& events);
    void Tell(const Key& root, const Key& changed, std::vector<Event>& events) const;
    void Forget(const Key& gone, std::vector<Event>& events);

    Held_Handle Port{::CreateIoCompletionPort(INVALID_HANDLE_VALUE, nullptr, 0, 1)};
    std::map<Key, fs::path> Added;
    std::map<ULONG_PTR, Watched_Directory> Watched; // by the numbers that their messages have: 0 is who wakes
    ULONG_PTR Last_Number = 0;
};

Directory_Watch::Directory_Watch() : Held(std::make_unique<State>()) {}
Directory_Watch::~Directory_Watch() = default;

bool Directory_Watch::State::Open(const Key& place, bool is_tree)
{
    const auto is_it = [&](const auto& known) { return known.second.Is_Tree && known.second.Place == place; };
    if (is_tree && std::ranges::any_of(Watched, is_it))
        return true;
    auto opened =
        Open_Shared(place, FILE_LIST_DIRECTORY, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OVERLAPPED);
    if (!opened || !Port)
        return false;
    auto& watched = Watched.try_emplace(++Last_Number, place, is_tree, std::move(opened)).first->second;
    if (::CreateIoCompletionPort(watched.Directory.Get(), Port.Get(), Last_Number, 0) != nullptr && watched.Listen())
        return true;
    Watched.erase(Last_Number);
    return false;
}

bool Directory_Watch::Add(const fs::path& directory)
{
    const Key key = Key_Of(directory);
    if (Held->Added.contains(key))
        return true;
    if (!Held->Open(key, false))
        return false;
    Held->Added[key] = directory;
    return true;
}

bool Directory_Watch::Add_In_Tree(const fs::path& root, const fs::path& directory)
{
    const Key key = Key_Of(directory), tree = Key_Of(root);
    const bool is_told = key == tree || Tells_Of_Whole_Trees();
    if (Held->Added.contains(key))
        return is_told;
    if (key != tree && (!Is_Below(tree, key) || Is_Reached_By_Link(tree, key)))
        return Add(directory);
    if (::GetFileAttributesW(Long_Path(key).c_str()) == INVALID_FILE_ATTRIBUTES || !Held->Open(tree, true))
        return false;
    Held->Added[key] = directory;
    return is_told;
}

std::vector<Directory_Watch::Event> Directory_Watch::Wait(std::chrono::milliseconds most)
{
    std::vector<Event> events;
    auto left = static_cast<DWORD>(most.count());
    DWORD bytes = 0;
    ULONG_PTR number = 0;
    OVERLAPPED* reading = nullptr;
    while (::GetQueuedCompletionStatus(Held->Port.Get(), &bytes, &number, &reading, left) != 0 || reading != nullptr) {
        left = 0; // what else is there already
        const auto watched = Held->Watched.find(number);
        if (watched == Held->Watched.end())
            continue; // woken, or not watched any more
        Held->Take(watched->second, bytes, events);
        if (!watched->second.Listen())
            Held->Forget(Key(watched->second.Place), events);
    }
    return events;
}

// What one message of the port tells.
void Directory_Watch::State::Take(const Watched_Directory& watched, DWORD bytes, std::vector<Event>& events)
{
    if (bytes == 0)
        events.emplace_back(); // too much at once
    const auto* const changes = reinterpret_cast<const std::byte*>(watched.Changes.data());
    for (DWORD at = 0; at < bytes;) {
        const auto* const change = reinterpret_cast<const FILE_NOTIFY_INFORMATION*>(changes + at);
        const Key changed = watched.Place + L'\\' + Key(change->FileName, change->FileNameLength / sizeof(WCHAR));
        Tell(watched.Place, changed, events);
        if (change->Action == FILE_ACTION_REMOVED || change->Action == FILE_ACTION_RENAMED_OLD_NAME)
            Forget(changed, events);
        if (change->NextEntryOffset == 0)
            break;
        at += change->NextEntryOffset;
    }
}

// A change counts in the nearest directory above it that was added, under the name that it has there.
void Directory_Watch::State::Tell(const Key& root, const Key& changed, std::vector<Event>& events) const
{
    for (Key inner = changed; Is_Below(root, inner); inner = Parent_Of(inner)) {
        const auto found = Added.find(Parent_Of(inner));
        if (found == Added.end())
            continue;
        events.push_back({found->second, To_Utf8_Text(inner.substr(found->first.size() + 1))});
        return;
    }
}

// A directory that is gone takes with it those below.
void Directory_Watch::State::Forget(const Key& gone, std::vector<Event>& events)
{
    const auto is_gone = [&](const Key& key) { return key == gone || Is_Below(gone, key); };
    const auto before = events.size();
    for (auto known = Added.lower_bound(gone); known != Added.end() && known->first.starts_with(gone);) {
        if (!is_gone(known->first)) {
            ++known;
            continue;
        }
        events.push_back({known->second, {}});
        known = Added.erase(known);
    }
    if (events.size() > before)
        std::erase_if(Watched, [&](const auto& watched) { return is_gone(watched.second.Place); });
}

void Directory_Watch::Wake()
{
    ::PostQueuedCompletionStatus(Held->Port.Get(), 0, 0, nullptr);
}

} // namespace orvel
