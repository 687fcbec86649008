#include "documents/forms/edit_document.h"

#include "scenario/forms/klima.h"
#include "scenario/forms/szenario.h"
#include "substance/forms/form_psm_1.h"

namespace orvel {

namespace {

using Editor = void (*)(Session& session, const std::filesystem::path& directory, QWidget* parent);

template <class Form> void Edit(Session& session, const std::filesystem::path& directory, QWidget* parent)
{
    Form(session, directory, parent).exec();
}

// In the order of Document_Kind.
constexpr std::array<Editor, 3> Editors = {Edit<Form_PSM_1>, Edit<Szenario>, Edit<Klima>};

} // namespace

void Edit_Document(Session& session, Document_Kind kind, const std::filesystem::path& directory, QWidget* parent)
{
    Editors[static_cast<std::size_t>(kind)](session, directory, parent);
}

void Open_And_Edit(Session& session, const std::filesystem::path& file, QWidget* parent)
{
    const auto kind = Kind_Of(file);
    if (Open_Document(session, file) && kind)
        Edit_Document(session, *kind, file.parent_path(), parent);
}

} // namespace orvel
