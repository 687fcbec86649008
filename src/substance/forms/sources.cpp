#include "substance/forms/sources.h"

#include "core/code_page.h"
#include "core/error.h"
#include "files/document_values.h"
#include "files/field_units.h"
#include "files/file_messages.h"
#include "substance/field_controls.h"
#include "substance/forms/source_window.h"
#include "ui/forms/field_marks.h"
#include "ui/forms/widgets.h"

#include <QDialog>
#include <QLineEdit>
#include <QStringList>

namespace orvel {

Edited_Notes::Edited_Notes(const Session& session, const std::filesystem::path& file) : The_Session(session), File(file)
{
    try {
        Notes = Saved = Read_Notes(file);
    } catch (const File_Error& error) {
        Unreadable = true;
        Tell(The_Session.Ask, Readin_Check, To_Code_Page(error.what()));
    }
}

bool Edited_Notes::Save(const std::filesystem::path& document)
try {
    if (Notes_File(document) == Notes_File(File)) {
        if (Unreadable && !Is_Changed())
            return true;
        auto there = Read_Notes(document); // which somebody else may have written since
        if (!there.Is_Empty())
            Notes = With_Changes(std::move(there), Saved, Notes);
    }
    Write_Notes(document, Notes);
    Saved = Notes;
    File = document;
    Unreadable = false;
    return true;
} catch (const File_Error& error) {
    Tell(The_Session.Ask, Saving_Input_File, "The document is saved, but not its notes. " + To_Code_Page(error.what()));
    return false;
}

void Show_Sources(QWidget& form, int substance, int row)
{
    auto* marks = Field_Marks::Of(form);
    if (marks == nullptr)
        return;
    for (const auto& [control, field] : Fields_Of_Form(Bytes_Of(form.objectName()), substance, row)) {
        if (auto* box = form.findChild<QLineEdit*>(Shown(control)))
            marks->Watch(*box, field);
    }
}

bool Edit_Source(Document_Notes& notes, const Pesticide_Document& document, const std::string& field, QWidget* parent)
{
    const Field_Note* known = Note_Of(notes, field);
    const std::string unit(Unit_Of_Field(field));
    Source_Window window(field, Value_Of(document, field).value_or("") + (unit.empty() ? "" : " " + unit),
                         known == nullptr ? Field_Note() : *known, parent);
    if (window.exec() != QDialog::Accepted)
        return false;
    Set_Note(notes, field, window.Note());
    return true;
}

QString Tip_Of(const Document_Notes& notes, const std::string& field)
{
    const Field_Note* note = Note_Of(notes, field);
    if (note == nullptr)
        return {};
    QStringList lines;
    for (const auto& [caption, text] : {std::pair{"Source: ", note->Source}, std::pair{"Comment: ", note->Comment},
                                        std::pair{"Checked by: ", note->Checked_By}, std::pair{"Date: ", note->Date}}) {
        if (!text.empty())
            lines += caption + Shown(text);
    }
    return lines.isEmpty() ? QString("This field has a note.") : lines.join('\n');
}

} // namespace orvel
