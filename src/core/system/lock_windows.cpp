#include "core/system/lock.h"

#include "core/error.h"
#include "core/system/named_lock_windows.h"
#include "core/system/spawn.h"

#include <utility>

namespace orvel {

namespace {

constexpr const wchar_t *Alone_End = L"-alone", *Shared_End = L"-shared", *Turn_End = L"-turn";

bool Is_There(const std::wstring& name)
{
    const Held_Handle event(::OpenEventW(SYNCHRONIZE, FALSE, name.c_str()));
    return event || ::GetLastError() == ERROR_ACCESS_DENIED; // another user's
}

Held_Handle New_Event(const std::wstring& name, bool inherited)
{
    SECURITY_ATTRIBUTES security{.nLength = sizeof security, .bInheritHandle = inherited ? TRUE : FALSE};
    return Held_Handle(::CreateEventW(&security, TRUE, FALSE, name.c_str()));
}

// Between looking at a lock and taking it nobody else does.
class Turn {
public:
    explicit Turn(const std::wstring& name) : Mutex(::CreateMutexW(nullptr, FALSE, (name + Turn_End).c_str()))
    {
        if (Mutex)
            ::WaitForSingleObject(Mutex.Get(), INFINITE);
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn()
    {
        if (Mutex)
            ::ReleaseMutex(Mutex.Get());
    }

private:
    Held_Handle Mutex;
};

[[noreturn]] void Fail(const std::filesystem::path& path, std::error_code reason)
{
    File_Error failure("Cannot tell whether " + path.string() + " is in use: " + reason.message() + ".");
    failure.Code = reason;
    throw failure;
}

// The name of a path's lock, empty if it is not there. A program that shares its file with nobody holds it.
std::wstring Name_Of(const std::filesystem::path& path, bool& kept_by_another)
{
    const auto file = Open_Shared(path, FILE_READ_ATTRIBUTES | SYNCHRONIZE);
    if (!file) {
        const auto reason = Last_Error();
        if (!Is_Missing(reason))
            Fail(path, reason);
        return {};
    }
    const auto content = Open_Shared(path, GENERIC_READ);
    kept_by_another = !content && ::GetLastError() == ERROR_SHARING_VIOLATION;
    return Lock_Name(file.Get());
}

std::optional<Held_Handle> Held(const std::filesystem::path& path, Lock_Kind kind, bool inherited)
{
    bool kept_by_another = false;
    const auto name = Name_Of(path, kept_by_another);
    if (name.empty() || kept_by_another)
        return std::nullopt;
    auto held = Hold_Lock(name, kind, inherited);
    return held ? std::optional(std::move(held)) : std::nullopt;
}

} // namespace

std::wstring Lock_Name(HANDLE file)
{
    BY_HANDLE_FILE_INFORMATION about{};
    if (::GetFileInformationByHandle(file, &about) == 0)
        return {};
    return L"Global\\orvel-" + std::to_wstring(about.dwVolumeSerialNumber) + L"-" +
           std::to_wstring(about.nFileIndexHigh) + L"-" + std::to_wstring(about.nFileIndexLow);
}

Held_Handle Hold_Lock(const std::wstring& name, Lock_Kind kind, bool inherited)
{
    const Turn turn(name);
    if (Is_There(name + Alone_End) || (kind == Lock_Kind::Alone && Is_There(name + Shared_End)))
        return Held_Handle();
    return New_Event(name + (kind == Lock_Kind::Alone ? Alone_End : Shared_End), inherited);
}

bool Is_Held_Alone(const std::wstring& name)
{
    return Is_There(name + Alone_End);
}

std::optional<Lock> Lock::Take(const std::filesystem::path& path, bool inherited)
{
    auto held = Held(path, Lock_Kind::Alone, inherited);
    return held ? std::optional(Lock(Number_Of(held->Release()))) : std::nullopt;
}

std::optional<Lock> Lock::Take_Shared(const std::filesystem::path& path)
{
    auto held = Held(path, Lock_Kind::Shared, false);
    return held ? std::optional(Lock(Number_Of(held->Release()))) : std::nullopt;
}

Lock Lock::Adopt(int descriptor)
{
    ::SetHandleInformation(Handle_Of(descriptor), HANDLE_FLAG_INHERIT, 0);
    return Lock(descriptor);
}

Lock::~Lock()
{
    if (Number != -1)
        ::CloseHandle(Handle_Of(Number));
}

bool End_Holders(const std::filesystem::path& directory)
{
    constexpr UINT Ended = 0xE0000009; // as by a signal, see spawn
    const auto opened = Open_Shared(directory, FILE_READ_ATTRIBUTES | SYNCHRONIZE);
    const auto name = opened ? Lock_Name(opened.Get()) : std::wstring();
    constexpr DWORD Access = JOB_OBJECT_TERMINATE | JOB_OBJECT_QUERY;
    const Held_Handle group(name.empty() ? nullptr : ::OpenJobObjectW(Access, FALSE, (name + Group_End).c_str()));
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION about{}; // the group outlives its programs while somebody holds it
    if (!group || ::QueryInformationJobObject(group.Get(), JobObjectBasicAccountingInformation, &about, sizeof about,
                                              nullptr) == 0)
        return false;
    return about.ActiveProcesses > 0 && ::TerminateJobObject(group.Get(), Ended) != 0;
}

bool Is_Locked(const std::filesystem::path& path)
{
    bool kept_by_another = false;
    const auto name = Name_Of(path, kept_by_another);
    return !name.empty() && (kept_by_another || Is_Held_Alone(name));
}

} // namespace orvel
