#include "core/system/arguments.h"

#include "core/system/handle_windows.h"

#include <shellapi.h>
#include <vector>

namespace orvel {

namespace {

struct Arguments {
    Arguments()
    {
        int count = 0;
        wchar_t** const given = ::CommandLineToArgvW(::GetCommandLineW(), &count);
        for (int i = 0; i < count; ++i)
            Texts.push_back(To_Utf8_Text(given[i]));
        ::LocalFree(given);
        for (auto& text : Texts)
            Pointers.push_back(text.data());
        Pointers.push_back(nullptr);
    }
    std::vector<std::string> Texts;
    std::vector<char*> Pointers;
};

} // namespace

// Those of main are in the code page of the machine, with "?" for what it lacks.
char** Utf8_Arguments(int& count, char** /*arguments*/)
{
    static Arguments all;
    count = static_cast<int>(all.Texts.size());
    return all.Pointers.data();
}

} // namespace orvel
