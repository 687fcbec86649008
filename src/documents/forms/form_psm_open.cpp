#include "documents/forms/form_psm_open.h"

#include "core/files.h"
#include "core/text.h"
#include "documents/documents.h"
#include "documents/forms/edit_document.h"
#include "files/forms/directory_files.h"
#include "ui/forms/widgets.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace orvel {

Form_PSM_Open::Form_PSM_Open(Session& session, std::string mask, const std::filesystem::path& directory,
                             QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Mask(std::move(mask))
{
    setObjectName("Form_PSM_Open");
    setWindowTitle("Open PSM file");
    Lay_Out(directory);
    Files->Refresh(The_Session.Program.PSM_File);
    Files->Focus_List();
}

void Form_PSM_Open::Lay_Out(const std::filesystem::path& directory)
{
    Files = new Directory_Files(directory, Mask);
    connect(Files, &Directory_Files::File_Double_Clicked, this, &Form_PSM_Open::Open_File);

    auto* search = Named(new QLineEdit, "FileSearch");
    search->setClearButtonEnabled(true);
    search->setPlaceholderText("Part of the name");
    auto* search_title = new QLabel("&Search:");
    search_title->setBuddy(search);
    connect(search, &QLineEdit::textChanged, Files, &Directory_Files::Search);

    auto* fresh = Push_Button("New_file", "&New File", this, &Form_PSM_Open::Open_New);
    auto* open = Push_Button("Comm_2", "&Open", this, &Form_PSM_Open::Open_File);
    auto* done = Push_Button("Done", "&Done", this, &QDialog::accept);
    open->setDefault(true);

    auto* searching = new QHBoxLayout;
    searching->addWidget(search_title);
    searching->addWidget(search, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(fresh);
    buttons->addStretch(1);
    buttons->addWidget(open);
    buttons->addWidget(done);
    auto* all = new QVBoxLayout(this);
    all->addWidget(Files, 1);
    all->addLayout(searching);
    all->addLayout(buttons);
}

void Form_PSM_Open::Open_File()
{
    if (Files->Is_Empty())
        return;
    Files->Select_First();
    const std::string name = Files->Selected_Name();
    Open_And_Edit(The_Session, Files->Directory() / Path_Of(name), this);
    Files->Refresh(name);
}

void Form_PSM_Open::Open_New()
{
    const auto kind = Kind_Of(Mask).value_or(Document_Kind::Climate);
    New_Document(The_Session, kind);
    Edit_Document(The_Session, kind, Files->Directory(), this);
    Files->Refresh(The_Session.Program.PSM_File);
}

} // namespace orvel
