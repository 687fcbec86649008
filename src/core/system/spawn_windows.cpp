#include "core/system/spawn.h"

#include "core/error.h"
#include "core/system/named_lock_windows.h"

#include <algorithm>
#include <map>
#include <mutex>

namespace orvel {

namespace {

// Exit codes by which End_Group ends programs, and those of the system for what is a signal elsewhere.
constexpr DWORD Signal_Codes = 0xE0000000;
constexpr int Killed = 9, Terminated = 15, Interrupted = 2, Faulted = 11;

struct Child {
    Held_Handle Process;
    Held_Handle Group; // the job object of the program and of what it starts
};

std::mutex Children_Guard;
std::map<int, Child> Children; // by process id

HANDLE Handle_Of_Child(int process)
{
    const std::scoped_lock lock(Children_Guard);
    const auto child = Children.find(process);
    return child == Children.end() ? nullptr : child->second.Process.Get();
}

// By the rule that every C program on this system takes its command line apart with.
std::wstring Quoted(std::wstring_view argument)
{
    if (!argument.empty() && argument.find_first_of(L" \t\n\v\"") == std::wstring_view::npos)
        return std::wstring(argument);
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : argument) {
        if (c == L'"')
            text.append(backslashes + 1, L'\\'); // those before a quote count double
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        text += c;
    }
    return text.append(backslashes, L'\\') + L'"';
}

std::wstring Command_Line(const Program_Start& start)
{
    std::wstring line = Quoted(start.Program.wstring());
    for (const auto& argument : start.Arguments)
        line += L' ' + Quoted(From_Utf8_Text(argument));
    return line;
}

Held_Handle Null_Device(DWORD access)
{
    return Open_Shared("NUL", access, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, true);
}

Held_Handle Output_Of(const Program_Start& start)
{
    if (start.Output.empty())
        return Null_Device(GENERIC_WRITE);
    return Open_Shared(start.Directory / start.Output, FILE_APPEND_DATA | SYNCHRONIZE, CREATE_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, true);
}

// A copy of a handle that a program inherits.
Held_Handle Inherited(HANDLE handle)
{
    HANDLE copy = nullptr;
    ::DuplicateHandle(::GetCurrentProcess(), handle, ::GetCurrentProcess(), &copy, 0, TRUE, DUPLICATE_SAME_ACCESS);
    return Held_Handle(copy);
}

// The attributes by which a program inherits these handles and no others.
class Inheritance {
public:
    explicit Inheritance(std::vector<HANDLE> handles) : Handles(std::move(handles))
    {
        SIZE_T size = 0;
        ::InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        Memory.resize(size);
        ::InitializeProcThreadAttributeList(Get(), 1, 0, &size);
        ::UpdateProcThreadAttribute(Get(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, Handles.data(),
                                    Handles.size() * sizeof(HANDLE), nullptr, nullptr);
    }
    Inheritance(const Inheritance&) = delete;
    Inheritance& operator=(const Inheritance&) = delete;
    ~Inheritance() { ::DeleteProcThreadAttributeList(Get()); }
    LPPROC_THREAD_ATTRIBUTE_LIST Get() { return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(Memory.data()); }

private:
    std::vector<HANDLE> Handles;
    std::vector<std::byte> Memory;
};

// The system would hand these to its command interpreter, which reads their arguments by rules of its own.
bool Is_Command_File(const std::filesystem::path& program)
{
    const std::wstring ending = program.extension().wstring();
    return ::_wcsicmp(ending.c_str(), L".bat") == 0 || ::_wcsicmp(ending.c_str(), L".cmd") == 0;
}

// A program that holds the lock of its directory is in the group of that name, which it keeps itself, so that it can be
// found when its starter has gone.
Held_Handle Group_Of(const Program_Start& start)
{
    std::wstring name;
    if (start.Kept_Descriptor != -1) {
        const auto directory = Open_Shared(start.Directory, FILE_READ_ATTRIBUTES | SYNCHRONIZE);
        name = directory ? Lock_Name(directory.Get()) + Group_End : std::wstring();
    }
    SECURITY_ATTRIBUTES security{.nLength = sizeof security, .bInheritHandle = TRUE};
    Held_Handle group(::CreateJobObjectW(&security, name.empty() ? nullptr : name.c_str()));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_BREAKAWAY_OK; // for a session of its own
    ::SetInformationJobObject(group.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return group;
}

// A program with a session of its own leaves the groups of its starter, unless one of another program keeps it.
bool Create(const Program_Start& start, DWORD flags, STARTUPINFOEXW& how, PROCESS_INFORMATION& made)
{
    const std::wstring program =
        start.Program.native().size() < MAX_PATH ? start.Program.wstring() : Long_Path(start.Program);
    const std::wstring directory = Short_Path(start.Directory);
    const auto create = [&](DWORD breakaway) {
        std::wstring line = Command_Line(start);
        return ::CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, flags | breakaway, nullptr,
                                start.Directory.empty() ? nullptr : directory.c_str(), &how.StartupInfo, &made) != 0;
    };
    if (start.Own_Session && create(CREATE_BREAKAWAY_FROM_JOB))
        return true;
    return (!start.Own_Session || ::GetLastError() == ERROR_ACCESS_DENIED) && create(0);
}

[[noreturn]] void Refuse(const Program_Start& start, const std::error_code& reason)
{
    throw File_Error("Cannot start " + start.Program.string() + ": " + reason.message() + ".");
}

// The system starts no program in a directory with a longer name, whatever else it allows.
void Refuse_If_Too_Deep(const Program_Start& start)
{
    constexpr std::size_t Longest = 258;
    const std::size_t length = Short_Path(start.Directory).size();
    if (length > Longest)
        throw File_Error("Cannot start " + start.Program.string() + ": The directory " + start.Directory.string() +
                         " has " + std::to_string(length) + " characters, and Windows starts a program only where " +
                         std::to_string(Longest) + " are enough. Move the installation to a shorter path.");
}

Program_End End_Of(int process, DWORD code)
{
    if ((code & 0xFFFFFF00U) == Signal_Codes)
        return {.Process = process, .Signal = static_cast<int>(code & 0xFFU)};
    if (code == static_cast<DWORD>(STATUS_CONTROL_C_EXIT))
        return {.Process = process, .Signal = Interrupted};
    if ((code & 0xF0000000U) == 0xC0000000U) // an error that the program did not expect
        return {.Process = process, .Signal = Faulted};
    return {.Process = process, .Exit_Code = static_cast<int>(code)};
}

// Nothing while it runs.
std::optional<Program_End> Taken_End(int process, DWORD most)
{
    const HANDLE handle = Handle_Of_Child(process);
    if (handle == nullptr)
        return Program_End{.Process = -1, .Exit_Code = Unknown_Program};
    if (::WaitForSingleObject(handle, most) == WAIT_TIMEOUT)
        return std::nullopt;
    DWORD code = 0;
    ::GetExitCodeProcess(handle, &code);
    const std::scoped_lock lock(Children_Guard);
    Children.erase(process);
    return End_Of(process, code);
}

} // namespace

bool Runs_Windows_Programs()
{
    return true;
}

// A program inherits a handle under its own number.
int Kept_As(int descriptor)
{
    return descriptor;
}

int Start_Program(const Program_Start& start)
{
    if (Is_Command_File(start.Program))
        Refuse(start, std::make_error_code(std::errc::executable_format_error));
    Refuse_If_Too_Deep(start);
    const auto input = Null_Device(GENERIC_READ), output = Output_Of(start);
    if (!input || !output)
        Refuse(start, Last_Error());
    const Held_Handle error = Inherited(start.Keeps_Standard_Error ? ::GetStdHandle(STD_ERROR_HANDLE) : output.Get());
    auto group = Group_Of(start);
    std::vector<HANDLE> passed = {input.Get(), output.Get()};
    if (error)
        passed.push_back(error.Get());
    if (group)
        passed.push_back(group.Get());
    if (start.Kept_Descriptor != -1) {
        ::SetHandleInformation(Handle_Of(start.Kept_Descriptor), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
        passed.push_back(Handle_Of(start.Kept_Descriptor));
    }
    Inheritance inheritance(passed);
    STARTUPINFOEXW how{};
    how.StartupInfo.cb = sizeof how;
    how.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    how.StartupInfo.hStdInput = input.Get();
    how.StartupInfo.hStdOutput = output.Get();
    how.StartupInfo.hStdError = error ? error.Get() : output.Get();
    how.lpAttributeList = inheritance.Get();

    const DWORD flags = EXTENDED_STARTUPINFO_PRESENT | CREATE_SUSPENDED | CREATE_NO_WINDOW |
                        (start.Own_Group || start.Own_Session ? CREATE_NEW_PROCESS_GROUP : 0U);
    PROCESS_INFORMATION made{};
    if (!Create(start, flags, how, made))
        Refuse(start, Last_Error());
    Held_Handle process(made.hProcess);
    const Held_Handle thread(made.hThread);
    if (group)
        ::AssignProcessToJobObject(group.Get(), process.Get());
    ::ResumeThread(thread.Get());
    const auto number = static_cast<int>(made.dwProcessId);
    const std::scoped_lock lock(Children_Guard);
    Children[number] = {.Process = std::move(process), .Group = std::move(group)};
    return number;
}

Program_End Wait_For_Program(int process)
{
    return *Taken_End(process, INFINITE);
}

std::optional<Program_End> Wait_For_Any_Of(std::span<const int> processes, std::chrono::milliseconds most)
{
    std::vector<HANDLE> handles;
    for (const int process : processes) {
        const HANDLE handle = Handle_Of_Child(process);
        if (handle == nullptr)
            return Program_End{.Process = process, .Exit_Code = Unknown_Program};
        handles.push_back(handle);
    }
    const auto watched = std::min<std::size_t>(handles.size(), MAXIMUM_WAIT_OBJECTS); // the others in a later call
    if (watched == 0)
        return std::nullopt;
    const DWORD ended =
        ::WaitForMultipleObjects(static_cast<DWORD>(watched), handles.data(), FALSE, static_cast<DWORD>(most.count()));
    if (ended >= WAIT_OBJECT_0 + watched)
        return std::nullopt;
    return Taken_End(processes[ended - WAIT_OBJECT_0], 0);
}

std::optional<Program_End> End_Of_Program(int process)
{
    return Taken_End(process, 0);
}

void End_Group(int process, bool at_once)
{
    // A program of this system cannot be asked to end unless it has a console: both ways end it.
    const DWORD code = Signal_Codes | static_cast<DWORD>(at_once ? Killed : Terminated);
    const std::scoped_lock lock(Children_Guard);
    const auto child = Children.find(process);
    if (child != Children.end() && child->second.Group)
        ::TerminateJobObject(child->second.Group.Get(), code);
}

} // namespace orvel
