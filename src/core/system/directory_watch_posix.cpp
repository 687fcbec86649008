#include "core/system/directory_watch.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <map>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace orvel {

namespace {

constexpr std::uint32_t Of_Interest = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_MODIFY | IN_ATTRIB |
                                      IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
constexpr std::uint32_t Gone = IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED;

} // namespace

struct Directory_Watch::State {
    State() = default;
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State()
    {
        for (const int number : {Notifier, Waker}) {
            if (number >= 0)
                ::close(number);
        }
    }

    std::vector<Event> Read_Events();

    int Notifier = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC), Waker = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    std::map<int, std::filesystem::path> Watched;
    std::map<std::filesystem::path, int> Numbers;
};

Directory_Watch::Directory_Watch() : Held(std::make_unique<State>()) {}
Directory_Watch::~Directory_Watch() = default;

bool Directory_Watch::Add(const std::filesystem::path& directory)
{
    if (Held->Numbers.contains(directory))
        return true;
    const int number = Held->Notifier < 0 ? -1 : ::inotify_add_watch(Held->Notifier, directory.c_str(), Of_Interest);
    if (number < 0)
        return false;
    Held->Watched[number] = directory;
    Held->Numbers[directory] = number;
    return true;
}

bool Directory_Watch::Add_In_Tree(const std::filesystem::path&, const std::filesystem::path& directory)
{
    return Add(directory);
}

std::vector<Directory_Watch::Event> Directory_Watch::Wait(std::chrono::milliseconds most)
{
    std::array<pollfd, 2> both = {{{Held->Notifier, POLLIN, 0}, {Held->Waker, POLLIN, 0}}};
    if (::poll(both.data(), both.size(), static_cast<int>(most.count())) <= 0)
        return {};
    std::uint64_t woken = 0;
    [[maybe_unused]] const auto ignored = ::read(Held->Waker, &woken, sizeof woken);
    return Held->Read_Events();
}

std::vector<Directory_Watch::Event> Directory_Watch::State::Read_Events()
{
    std::vector<Event> events;
    alignas(inotify_event) std::array<char, 16384> buffer{};
    ssize_t got = 0;
    while (Notifier >= 0 && (got = ::read(Notifier, buffer.data(), buffer.size())) > 0) {
        for (ssize_t at = 0; at < got;) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            const char* name = buffer.data() + at + sizeof event;
            at += static_cast<ssize_t>(sizeof event + event.len);
            if ((event.mask & IN_Q_OVERFLOW) != 0) {
                events.emplace_back();
                continue;
            }
            const auto watched = Watched.find(event.wd);
            if (watched == Watched.end())
                continue;
            events.push_back({watched->second, event.len > 0 ? std::string(name) : std::string()});
            if ((event.mask & Gone) == 0)
                continue;
            if ((event.mask & IN_MOVE_SELF) != 0)
                ::inotify_rm_watch(Notifier, event.wd);
            Numbers.erase(watched->second);
            Watched.erase(watched);
        }
    }
    return events;
}

void Directory_Watch::Wake()
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto ignored = ::write(Held->Waker, &one, sizeof one);
}

} // namespace orvel
