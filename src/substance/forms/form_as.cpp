#include "substance/forms/form_as.h"

#include "substance/forms/sources.h"
#include "substance/forms/substance_fields.h"
#include "substance/forms/volatilisation_box.h"
#include "ui/forms/byte_edit.h"
#include "ui/forms/done_cancel.h"
#include "ui/forms/undo_history.h"
#include "ui/forms/widgets.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QTimer>

namespace orvel {

Form_AS::Form_AS(Session& session, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Before(Keep_Copy(session.Pesticide, session.Editor))
{
    setObjectName("Form_AS");
    setWindowTitle("Active Substance");
    Lay_Out();
    Show_Minor(false);
    Show_Sources(*this, session.Editor.Substance_Index);
    At_First = std::make_unique<const State>(Present());
    Keep_History(
        *this, [this] { return Present(); }, [this](const State& state) { Show_State(state); });
}

Active_Entry Form_AS::Entry(Substance_Entry substance) const
{
    Active_Entry entry{
        .Substance = std::move(substance), .Text_comment = Text_comment->Typed(), .App_Flag = Applications->Method()};
    Volatility->Take(entry);
    return entry;
}

Form_AS::State Form_AS::Present() const
{
    return {The_Session.Pesticide, The_Session.Editor, Entry(Fields->Entry()), Applications->Present()};
}

void Form_AS::Show_State(const State& state)
{
    The_Session.Pesticide = state.Document;
    The_Session.Editor = state.Editor;
    The_Session.Program.PSM_Changed = true;
    Fields->Show_Entry(state.Entry.Substance);
    Fields->Show_Notes();
    Volatility->Show_Entry(state.Entry);
    Text_comment->setText(Shown(state.Entry.Text_comment));
    Applications->Show_State(state.Applications);
}

void Form_AS::Lay_Out()
{
    const auto entry = Load_Active(The_Session.Pesticide);
    Fields = new Substance_Fields(The_Session, The_Session.Editor.Substance_Index, *this);
    Volatility = new Volatilisation_Box(entry);
    Applications = new Application_Box(The_Session, entry.App_Flag);
    connect(Applications, &Application_Box::Method_Chosen, Volatility, &Volatilisation_Box::Show_Method);
    Text_comment = Named(new Byte_Edit, "Text_comment");
    Text_comment->setText(Shown(entry.Text_comment));
    Text_comment->setCursorPosition(0);
    Fields->General_Rows()->insertRow(1, "Comment:", Text_comment);
    setTabOrder(Fields->General_Rows()->itemAt(0, QFormLayout::FieldRole)->widget(), Text_comment);
    Command4 = Push_Button("Command4", {}, this, [this] { Show_Minor(!Minor_Shown); });

    auto* right_of_sorption = new QVBoxLayout;
    right_of_sorption->addWidget(Volatility);
    right_of_sorption->addWidget(Fields->Depth());
    auto* places = new QGridLayout;
    places->addWidget(Fields->General(), 0, 0, 1, 2);
    places->addWidget(Fields->Sorption(), 1, 0, Qt::AlignTop);
    places->addLayout(right_of_sorption, 1, 1, Qt::AlignTop);
    places->addWidget(Applications, 0, 2, 2, 1, Qt::AlignTop);
    for (int column = 0; column < places->columnCount(); ++column)
        places->setColumnStretch(column, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Command4);
    buttons->addWidget(
        Done_And_Cancel(*this, The_Session.Ask, &Form_AS::Done, "Command_ok1", "D&one", "Command_cancel"), 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(places);
    all->addStretch(1);
    all->addLayout(buttons);
}

void Form_AS::Show_Minor(bool visible)
{
    Minor_Shown = visible;
    Command4->setText(Shown(Command4_Caption(visible)));
    Fields->Show_Minor(visible);
    Volatility->Show_Minor(visible);
    QTimer::singleShot(0, this, [this] { // when the rows have gone
        if (isVisible() && !isMaximized())
            resize(width(), minimumSizeHint().height());
    });
}

void Form_AS::Done()
{
    if (!Applications->Leave())
        return;
    const auto substance = Fields->Entered();
    if (!substance)
        return;
    Active_Entry entry = Entry(*substance);
    if (const auto refusal = Accept_Active(The_Session, entry, Applications->Lists())) {
        Volatility->Show_Pairs(entry.Pairs);
        Applications->Show_View(); // shows the location and application refused
        return Refuse(*refusal);
    }
    accept();
}

void Form_AS::Take_Over_Entries(Session& session) const
{
    if (Present() == *At_First)
        return;
    Store_Active(session.Pesticide, Entry(Fields->Entry()), Applications->Lists());
    Store_Location_Count(session.Pesticide, Applications->Lists());
}

void Form_AS::Refuse(const Refusal& refusal)
{
    Show_Refusal(The_Session.Ask, *this, refusal);
    if (!findChild<QWidget*>(Shown(refusal.Control))->isVisible()) // days of an irregular list are only in the grid
        findChild<QPushButton*>("S_Anwendung")->setFocus();
}

void Form_AS::reject()
{
    Restore_Copy(The_Session, Before);
    QDialog::reject();
}

} // namespace orvel
