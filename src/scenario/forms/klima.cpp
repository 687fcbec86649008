#include "scenario/forms/klima.h"

#include "core/files.h"
#include "files/forms/form_saving.h"
#include "scenario/forms/climate_model.h"
#include "scenario/forms/klimagrafik.h"
#include "scenario/saving.h"
#include "ui/forms/byte_edit.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/number_grid.h"
#include "ui/forms/widgets.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace orvel {

namespace {

constexpr int Number_Width = 11; // in characters
constexpr int Climate_Rows = 24;
constexpr int First_Number = static_cast<int>(Climate_Grid::Text_Columns); // column

} // namespace

Klima::Klima(Session& session, std::filesystem::path directory, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Directory(std::move(directory)),
      On_Disk(Directory / Path_Of(session.Program.PSM_File))
{
    setObjectName("Klima");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Lay_Out();
    The_Session.Program.CLI_Changed = false;
    lade_klimadatei();
}

void Klima::Lay_Out()
{
    Cli_Title = Named(new Byte_Edit, "Cli_Title");
    Text1 = Named(new QLineEdit, "Text1");
    Text1->setReadOnly(true);
    Text1->setFocusPolicy(Qt::NoFocus);
    auto* texts = new QFormLayout;
    texts->addRow("&Title:", Cli_Title);
    texts->addRow("Cell:", Text1);
    connect(Cli_Title, &QLineEdit::textEdited, this, [this] {
        Model->Grid().Set_Title(Cli_Title->Typed());
        The_Session.Program.CLI_Changed = true;
    });

    Model = new Climate_Model(The_Session.Climate, this);
    Grid1 = Named(new Number_Grid(Model, Climate_Grid_Rule, The_Session.Ask, "Days of the climate file"), "Grid1");
    Grid1->Fit_Columns(Number_Width);
    for (int c = 0; c < static_cast<int>(Climate_Grid::Text_Columns); ++c)
        Grid1->setColumnWidth(c, Grid1->columnWidth(c) * 2 / 3);
    connect(Grid1, &Number_Grid::Cell_Entered, this, &Klima::Show_Cell);
    connect(Grid1, &Number_Grid::Cell_Changed, this, [this] { The_Session.Program.CLI_Changed = true; });
    connect(Model, &QAbstractItemModel::dataChanged, this, &Klima::Show_Cell);

    auto* buttons = new QHBoxLayout;
    const auto add = [&](const QString& name, const QString& text, auto handler) {
        buttons->addWidget(Push_Button(name, text, this, handler));
    };
    add("Append_Day", "&Append day", &Klima::Append_Day);
    add("Grafik", "D&iagram", &Klima::Grafik_Click);
    add("Command1", "&Save", &Klima::Save);
    buttons->addStretch(1);
    add("Fertig", "&Done", &QDialog::accept);

    auto* all = new QVBoxLayout(this);
    all->addLayout(texts);
    all->addWidget(Grid1, 1);
    all->addLayout(buttons);
    Use_Form_Keys(*this);
    resize(sizeHint().width(), fontMetrics().lineSpacing() * Climate_Rows * 3 / 2);
}

void Klima::lade_klimadatei()
{
    const auto& name = The_Session.Program.PSM_File;
    setWindowTitle(name.empty() || name.starts_with('*') ? "Climatic Data Files"
                                                         : "Climatic Data Files - " + Shown(name));
    Model->Show(The_Session.Climate);
    Cli_Title->setText(Shown(Model->Grid().Title()));
    Grid1->setCurrentIndex(Model->index(0, 0));
    Grid1->setFocus();
    Show_Cell();
}

void Klima::Show_Unsaved()
{
    lade_klimadatei();
    The_Session.Program.CLI_Changed = true;
}

void Klima::Take_Over_Entries(Session& session) const
{
    Take_Over_Climate(session, Model->Grid());
}

void Klima::Show_Cell()
{
    Text1->setText(Model->data(Grid1->currentIndex()).toString());
}

void Klima::Append_Day()
{
    if (Model->rowCount() >= Model->Most_Rows())
        return;
    Grid1->Change_Block(Model->rowCount(), 0, {Model->Grid().Next_Day()});
    Grid1->Go_To(Model->rowCount() - 1, First_Number);
}

void Klima::Save()
{
    if (!Grid1->Is_Readable())
        return;
    Take_Over_Entries(The_Session);
    Form_Saving dialog(The_Session, Document_Kind::Climate, Directory, this, &On_Disk);
    dialog.setWindowTitle(Shown(Climate_Save_Caption));
    if (dialog.exec() != Accepted)
        return;
    On_Disk = Watched_File(dialog.Save_Target());
    setWindowTitle("Climatic Data Files - " + Shown(The_Session.Program.PSM_File));
}

void Klima::Grafik_Click()
{
    Klimagrafik(Model->Grid(), Series_Of_Column(Grid1->currentIndex().column()), The_Session.Ask, this).exec();
}

void Klima::done(int result)
{
    if (!May_Close(The_Session, The_Session.Program.CLI_Changed))
        return;
    The_Session.Program.CLI_Changed = false;
    QDialog::done(result);
}

} // namespace orvel
