#include "files/forms/form_saving.h"

#include "core/files.h"
#include "core/text.h"
#include "files/broken_line.h"
#include "files/file_messages.h"
#include "files/forms/directory_files.h"
#include "ui/forms/widgets.h"

#include <stdexcept>

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace orvel {

Form_Saving::Form_Saving(Session& session, Document_Kind kind, const std::filesystem::path& directory, QWidget* parent,
                         const Watched_File* opened)
    : QDialog(parent),
      The_Session(session),
      Type(Type_Of(kind)),
      Opened(opened)
{
    setObjectName("Form_Saving");
    setWindowTitle("Save ORVEL 3.20 Input File");
    Lay_Out(directory);
    Files->Refresh(The_Session.Program.PSM_File);
    TextSave->setText(Shown(The_Session.Program.PSM_File));
    TextSave->setFocus();
}

void Form_Saving::Lay_Out(const std::filesystem::path& directory)
{
    TextSave = Named(new QLineEdit, "TextSave");
    auto* title = new QLabel("&File name:");
    title->setBuddy(TextSave);
    Files = new Directory_Files(directory, std::string(Type.Mask));
    connect(Files, &Directory_Files::File_Clicked, this, [this] { TextSave->setText(Shown(Files->Selected_Name())); });
    connect(Files, &Directory_Files::File_Double_Clicked, this, [this] {
        TextSave->setText(Shown(Files->Selected_Name()));
        Save();
    });

    auto* save = Push_Button("SaveNow", "&Save", this, &Form_Saving::Save);
    auto* cancel = Push_Button("Cancel2", "&Cancel", this, &QDialog::reject);
    save->setDefault(true);

    auto* name = new QHBoxLayout;
    name->addWidget(title);
    name->addWidget(TextSave, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(save);
    buttons->addWidget(cancel);
    auto* all = new QVBoxLayout(this);
    all->addLayout(name);
    all->addWidget(Files, 1);
    all->addLayout(buttons);
}

// A number that no file can hold is told like any other failure, and nothing of the document is lost.
void Form_Saving::Save()
try {
    const std::string name(Trim(Bytes_Of(TextSave->text())));
    if (!Name_Is_Usable(name))
        return TextSave->setFocus();
    Target = Found_Or_New(Files->Directory(), Path_Of(name));
    if (!May_Write() || !Save_Document(The_Session, Target))
        return;
    The_Session.Program.PSM_File = name;
    The_Session.Program.*Type.Changed = false;
    accept();
} catch (const std::domain_error& error) {
    The_Session.Ask({std::string(Saving_Input_File), error.what()});
}

// The extension selects the writer, so it must match the document.
bool Form_Saving::Name_Is_Usable(const std::string& name)
{
    const bool is_mask = name.find_first_of("*?/\\") != std::string::npos || name.size() <= Type.Ending.size();
    if (!is_mask && Kind_Of(Path_Of(name)) == Type.Kind)
        return true;
    The_Session.Ask({std::string(Saving_Input_File),
                     "\"" + name + "\" cannot be the name of this file. Please enter a name that ends in " +
                         std::string(Type.Ending) + "."});
    return false;
}

// What is asked before the file is written; empty for nothing.
std::string Form_Saving::Question() const
{
    const bool is_there = std::filesystem::exists(Target);
    const bool is_others = Opened && Opened->Was_Changed(Target);
    if (is_others && is_there)
        return Shown_Name(Target) + " was changed by someone else since it was opened here. Replace it, so that their "
                                    "change is lost?";
    if (is_others)
        return Shown_Name(Target) + " was deleted or moved by someone else since it was opened here. Write it again?";
    return is_there ? "File already exists. Replace?" : "";
}

bool Form_Saving::May_Write()
{
    if (const auto field = Type.Broken_Field(The_Session);
        field && The_Session.Ask(Broken_Line_Question(*field)) != Button::Yes)
        return false;
    const auto question = Question();
    return question.empty() ||
           The_Session.Ask(
               {std::string(Saving_Input_File), question, Icon::Question, {Button::Yes, Button::No}, Button::No}) ==
               Button::Yes;
}

} // namespace orvel
