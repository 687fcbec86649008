#include "report/evaluated_pesticide.h"

#include "core/files.h"
#include "files/pesticide_file.h"

#include <memory>

namespace orvel {

bool Check_Evaluated_Pesticide(const Program_State& program, const Ask_Function& ask, std::string_view stem)
{
    const auto file = Find_File(program.App_Path, Path_Of(std::string(stem) + ".psm"));
    if (!file)
        return false;
    const auto document = std::make_unique<Pesticide_Document>();
    return Read_PSM(*document, *file, ask);
}

} // namespace orvel
