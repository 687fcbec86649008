#include "tables/forms/table_form.h"

#include "tables/table_cache.h"
#include "ui/forms/command_box.h"
#include "ui/forms/text_output.h"
#include "ui/forms/widgets.h"

#include <QEvent>
#include <QPlainTextEdit>

namespace orvel {

Table_Form::Table_Form(Table_Kind kind, QWidget* parent)
    : Building_Form(kind.Name, parent, kind.Columns),
      Kind(std::move(kind))
{
    setWindowTitle(Kind.First_Caption);
    for (const Table_View& view : Kind.Views) {
        Ergebnis.push_back(Fixed_Pitch_Text(view.Control, view.Purpose));
        Add_Page(Ergebnis.back());
    }
    Umschalter =
        Add_Button("Umschalter", Kind.First_Switch_Caption, [this] { Show_View((In_View + 1) % Kind.Views.size()); });
    Umschalter->setVisible(Kind.Views.size() > 1);
    Add_Button("Kopieren", "&Copy", [this] { Copy_Text(All_Texts()); });
    Add_Button("Drucken", "&Print", [this] { Print_Text(*this, Kind.Ask, windowTitle(), All_Texts()); });
    Add_Button("Diagramm", "D&iagram", [this] { Kind.Open_Diagram(*this); });
    if (Kind.Open_Months)
        Add_Button("By_Month", "By &month", [this] { Kind.Open_Months(*this); });
    Add_Button("Befehl", "Copy as comma&nd", [this] { Show_Command(this, {Kind.Command}); });
    Add_Done();
}

void Table_Form::Show_Built()
{
    for (std::size_t i = 0; i < Ergebnis.size() && i < Tables.Texts.size(); ++i)
        Ergebnis[i]->setPlainText(Shown(Tables.Texts[i]));
    Note(Tables.Status.Note());
    Show_View(0);
}

// Whoever comes back to the form is told if the run has changed behind it.
bool Table_Form::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && !Tables.Texts.empty() && Is_Older(Tables.Status, Kind.Run))
        Note(std::string(Older_Text));
    return Building_Form::event(event);
}

void Table_Form::Show_View(std::size_t view)
{
    In_View = view;
    Show_Page(view);
    setWindowTitle(Kind.Views[view].Form_Caption);
    Umschalter->setText(Kind.Views[view].Switch_Caption);
}

QString Table_Form::All_Texts() const
{
    QString all;
    for (const auto* text : Ergebnis)
        all += text->toPlainText();
    return all;
}

} // namespace orvel
