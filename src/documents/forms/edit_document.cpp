#include "documents/forms/edit_document.h"

#include "scenario/forms/klima.h"
#include "scenario/forms/szenario.h"
#include "substance/forms/form_psm_1.h"

namespace orvel {

void Edit_Document(Session& session, Document_Kind kind, const std::filesystem::path& directory, QWidget* parent)
{
    if (kind == Document_Kind::Pesticide)
        Form_PSM_1(session, directory, parent).exec();
    else if (kind == Document_Kind::Scenario)
        Szenario(session, directory, parent).exec();
    else
        Klima(session, directory, parent).exec();
}

void Open_And_Edit(Session& session, const std::filesystem::path& file, QWidget* parent)
{
    const auto kind = Kind_Of(file);
    if (Open_Document(session, file) && kind)
        Edit_Document(session, *kind, file.parent_path(), parent);
}

} // namespace orvel
