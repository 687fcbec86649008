#include "core/system/program_path.h"

#include "core/system/handle_windows.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t Longest_Path = 32768;

std::wstring Module_Path()
{
    std::wstring path(Longest_Path, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

} // namespace

fs::path Own_Path()
{
    const auto path = Module_Path();
    if (path.empty())
        throw fs::filesystem_error("The program cannot find itself", Last_Error());
    return path;
}

fs::path Program_Beside(const std::string& name)
{
    fs::path program = fs::path(Module_Path()).parent_path() / name;
    if (program.extension().empty())
        program += ".exe";
    return program;
}

fs::path Program_In_Path(const std::string& name)
{
    std::wstring path(Longest_Path, L'\0');
    path.resize(
        ::SearchPathW(nullptr, fs::path(name).c_str(), L".exe", static_cast<DWORD>(path.size()), path.data(), nullptr));
    return path;
}

} // namespace orvel
