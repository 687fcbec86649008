#include "report/evaluated_pesticide.h"

#include "core/code_page.h"
#include "core/files.h"
#include "files/pesticide_file.h"

namespace orvel {

bool Read_Evaluated_Pesticide(Session& session, std::string_view stem)
{
    const auto file = Find_File(session.Program.App_Path, Path_Of(std::string(stem) + ".psm"));
    if (!file)
        return false;
    session.Program.PSM_File = Path_Text(*file);
    return Read_PSM(session, *file);
}

} // namespace orvel
