#include "substance/forms/form_psm_1.h"

#include "charts/forms/picture_actions.h"
#include "core/code_page.h"
#include "core/files.h"
#include "files/forms/form_saving.h"
#include "substance/forms/deg_dat.h"
#include "substance/forms/form_as.h"
#include "substance/forms/form_met.h"
#include "substance/forms/guidance_window.h"
#include "substance/forms/pathway_view.h"
#include "substance/pathway_picture.h"
#include "substance/pesticide_editor.h"
#include "ui/forms/field_marks.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>

namespace orvel {

namespace {

// Puts the window of arrow t beside the arrow's head, within the screen.
void Place_Beside(QWidget& window, int t, const QRect& head)
{
    constexpr int twips_per_pixel = 15;
    const QSize size = window.sizeHint();
    const Twips spot = Transformation_Spot(t, {head.left() * twips_per_pixel, head.top() * twips_per_pixel},
                                           head.width() * twips_per_pixel, size.width() * twips_per_pixel);
    const QRect room = window.screen()->availableGeometry();
    const auto within = [](int wished, int first, int last) { return std::max(first, std::min(wished, last)); };
    window.move(within(spot.Left / twips_per_pixel, room.left(), room.right() - size.width()),
                within(spot.Top / twips_per_pixel, room.top(), room.bottom() - size.height()));
}

} // namespace

Form_PSM_1::Form_PSM_1(Session& session, const std::filesystem::path& directory, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Directory(directory),
      Notes(session, directory / Path_Of(session.Program.PSM_File))
{
    setObjectName("Form_PSM_1");
    setWindowTitle("Metabolization Scheme");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Lay_Out();
    Open_Editor(The_Session);
    Opened = std::make_unique<const Pesticide_Document>(The_Session.Pesticide);
    for (int i = 1; i <= Substances; ++i)
        Captions[static_cast<std::size_t>(i)] = Opening_Box_Caption(The_Session.Pesticide, i);
    Show_Scheme();
    resize(sizeHint().boundedTo(screen()->availableSize())); // show full substance names, if the screen allows
}

void Form_PSM_1::Lay_Out()
{
    View = new Pathway_View;
    connect(View, &Pathway_View::Substance_Clicked, this, &Form_PSM_1::Edit_Substance);
    connect(View, &Pathway_View::Arrow_Clicked, this, &Form_PSM_1::Edit_Transformation);

    auto* check = Push_Button("Guidance", "&Guidance check ...", this, &Form_PSM_1::Check_Guidance_Rules);
    new Field_Marks(*this, {[this](const std::string& field) { return Tip_Of(Notes.Notes, field); },
                            [this](const std::string& field, QWidget* parent) {
                                Edit_Source(Notes.Notes, The_Session.Pesticide, field, parent);
                            }});

    auto* exit = Push_Button("Command1", "Save and &Exit", this, &Form_PSM_1::Save_And_Exit);
    auto* save = Push_Button("ComSave", "&Save", this, &Form_PSM_1::Save);
    auto* copy = Push_Button("Kopieren", "Copy &Picture", this, [this] { Copy_Picture(View->As_Picture()); });
    auto* keep = Push_Button("Speichern", "Save P&icture", this, [this] {
        Save_Picture_As(*this, The_Session.Ask, View->As_Picture(), "Save Picture", "scheme.png");
    });
    auto* print = Push_Button("Drucken", "P&rint Picture", this,
                              [this] { Print_Picture(*this, The_Session.Ask, View->As_Picture()); });
    auto* cancel = Push_Button("Com_Exit1", "&Cancel", this, &Form_PSM_1::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(exit);
    buttons->addWidget(save);
    buttons->addWidget(check);
    buttons->addStretch(1);
    for (auto* of_picture : {copy, keep, print})
        buttons->addWidget(of_picture);
    buttons->addStretch(1);
    buttons->addWidget(cancel);
    auto* all = new QVBoxLayout(this);
    all->addWidget(View, 1);
    all->addLayout(buttons);
    Use_Form_Keys(*this);
}

void Form_PSM_1::Show_Scheme()
{
    View->Show(The_Session.Pesticide, Captions);
}

void Form_PSM_1::Edit_Substance(int i)
{
    if (i == 1) {
        Open_Active_Substance(The_Session);
        if (Form_AS(The_Session, this).exec() != Accepted)
            return;
        Captions[1] = Box_Caption(The_Session.Pesticide, 1);
        Show_Scheme();
    } else if (Open_Metabolite(The_Session, i) && Form_MET(The_Session, this).exec() == Accepted) {
        for (int met = 2; met <= Substances; ++met)
            Captions[static_cast<std::size_t>(met)] = Box_Caption(The_Session.Pesticide, met);
        Show_Scheme();
    }
}

void Form_PSM_1::Edit_Transformation(int t)
{
    if (!Open_Transformation(The_Session, t))
        return;
    deg_dat form(The_Session, this);
    Place_Beside(form, t, View->Head_On_Screen(t));
    if (form.exec() == Accepted)
        Show_Scheme();
}

bool Form_PSM_1::Save()
{
    Form_Saving saving(The_Session, Document_Kind::Pesticide, Directory, this);
    if (saving.exec() != Accepted)
        return false;
    Directory = saving.Save_Target().parent_path();
    Opened = std::make_unique<const Pesticide_Document>(The_Session.Pesticide);
    return Notes.Save(saving.Save_Target());
}

void Form_PSM_1::Check_Guidance_Rules()
try {
    const Guidance guidance = Read_Guidance(The_Session.Program.App_Path);
    Guidance_Window({[&] { return Check_Guidance(guidance, Facts_Of(The_Session.Pesticide), Notes.Notes); },
                     [&](const Guidance_Answer& answer) {
                         Set_Answer(Notes.Notes, answer);
                         return true;
                     }},
                    this)
        .exec();
} catch (const File_Error& error) {
    Tell(The_Session.Ask, Guidance_Title, To_Code_Page(error.what()));
}

// A cancelled save discards the changes only if the user agrees.
void Form_PSM_1::Save_And_Exit()
{
    Prepare_Save_And_Exit(The_Session);
    if (Save())
        accept();
    else
        reject();
}

void Form_PSM_1::reject()
{
    The_Session.Program.PSM_Changed = The_Session.Program.PSM_Changed || Notes.Is_Changed();
    if (May_Leave_Editor(The_Session, *Opened))
        QDialog::reject();
}

} // namespace orvel
