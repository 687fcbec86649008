#include "report/evaluated_pesticide.h"

#include "core/files.h"
#include "files/pesticide_file.h"
#include "core/shown_path.h"

bool Read_Evaluated_Pesticide(Session& session, std::string_view stem)
{
    const auto file = Find_File(session.Program.App_Path, Path_Of(std::string(stem) + ".psm"));
    if (!file)
        return false;
    session.Program.PSM_File = Shown_Path(*file);
    return Read_PSM(session, *file);
}
