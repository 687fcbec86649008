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
#include "ui/forms/undo_history.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>

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
      On_Disk(directory / Path_Of(session.Program.PSM_File)),
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
    History = Keep_History(
        *this,
        [this] {
            return State{The_Session.Pesticide, Captions};
        },
        [this](const State& state) {
            The_Session.Pesticide = state.Document;
            The_Session.Program.PSM_Changed = true;
            Captions = state.Captions;
            Show_Scheme();
        });
    for (auto* button : {History->Redo_Button(), History->Undo_Button()})
        Buttons->insertWidget(0, button);
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

    Buttons = new QHBoxLayout;
    Buttons->addWidget(exit);
    Buttons->addWidget(save);
    Buttons->addWidget(check);
    Buttons->addStretch(1);
    for (auto* of_picture : {copy, keep, print})
        Buttons->addWidget(of_picture);
    Buttons->addStretch(1);
    Buttons->addWidget(cancel);
    auto* all = new QVBoxLayout(this);
    all->addWidget(View, 1);
    all->addLayout(Buttons);
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
        Show_Changed(Captions[1]);
    } else if (Open_Metabolite(The_Session, i) && Form_MET(The_Session, this).exec() == Accepted) {
        for (int met = 2; met <= Substances; ++met)
            Captions[static_cast<std::size_t>(met)] = Box_Caption(The_Session.Pesticide, met);
        Show_Changed(Captions[static_cast<std::size_t>(i)]);
    }
}

void Form_PSM_1::Show_Unsaved(Document_Notes notes)
{
    Notes.Notes = std::move(notes);
    The_Session.Program.PSM_Changed = true;
    for (int i = 1; i <= Substances; ++i)
        Captions[static_cast<std::size_t>(i)] = Opening_Box_Caption(The_Session.Pesticide, i);
    Show_Changed("Unsaved changes");
}

void Form_PSM_1::Take_Over_Notes(Document_Notes& notes) const
{
    notes = Notes.Notes;
}

void Form_PSM_1::Show_Changed(const std::string& what)
{
    Show_Scheme();
    History->Look(Shown(what));
}

void Form_PSM_1::Edit_Transformation(int t)
{
    if (!Open_Transformation(The_Session, t))
        return;
    deg_dat form(The_Session, this);
    Place_Beside(form, t, View->Head_On_Screen(t));
    if (form.exec() == Accepted)
        Show_Changed(Transformation_Caption(t));
}

bool Form_PSM_1::Save()
{
    Form_Saving saving(The_Session, Document_Kind::Pesticide, Directory, this, &On_Disk);
    if (saving.exec() != Accepted)
        return false;
    On_Disk = Watched_File(saving.Save_Target());
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
