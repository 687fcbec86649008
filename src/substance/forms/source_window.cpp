#include "substance/forms/source_window.h"

#include "ui/forms/byte_edit.h"
#include "ui/forms/done_cancel.h"
#include "ui/forms/widgets.h"

#include <QDate>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>

namespace orvel {

namespace {

constexpr int Wide_Columns = 72;

struct Note_Row {
    const char *Control, *Caption;
    std::string Field_Note::*Text;
};
constexpr std::array<Note_Row, 4> Rows = {{{"Note_Source", "&Source:", &Field_Note::Source},
                                           {"Note_Comment", "Co&mment:", &Field_Note::Comment},
                                           {"Note_Checked_By", "Checked &by:", &Field_Note::Checked_By},
                                           {"Note_Date", "&Date:", &Field_Note::Date}}};

} // namespace

Source_Window::Source_Window(const std::string& field, const std::string& value, Field_Note note, QWidget* parent)
    : QDialog(parent),
      Field(field),
      The_Note(std::move(note))
{
    setObjectName("Source_Window");
    setWindowTitle("Source");
    Lay_Out(Shown(field), Shown(value));
    Boxes[0]->setFocus();
}

void Source_Window::Lay_Out(const QString& field, const QString& value)
{
    auto* rows = new QFormLayout;
    rows->addRow("Field:", Named(new QLabel(field + " = " + value), "Note_Field"));
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        auto* box = Boxes[i] = Named(new Byte_Edit, Rows[i].Control);
        box->setText(Shown(The_Note.*Rows[i].Text));
        box->setCursorPosition(0);
        if (Rows[i].Text == &Field_Note::Date) {
            auto* date = new QHBoxLayout;
            auto* today = Push_Button("Note_Today", "&Today", this,
                                      [box] { box->setText(QDate::currentDate().toString(Qt::ISODate)); });
            date->addWidget(box, 1);
            date->addWidget(today);
            auto* caption = new QLabel(Rows[i].Caption);
            caption->setBuddy(box);
            rows->addRow(caption, date);
            continue;
        }
        box->setMinimumWidth(box->fontMetrics().averageCharWidth() * Wide_Columns);
        rows->addRow(Rows[i].Caption, box);
    }
    auto* all = new QVBoxLayout(this);
    all->addLayout(rows);
    all->addStretch(1);
    all->addWidget(Done_And_Cancel(*this, &Source_Window::Done, "Note_Done", "D&one", "Note_Cancel"));
}

Field_Note Source_Window::Typed() const
{
    Field_Note note = The_Note;
    for (std::size_t i = 0; i < Rows.size(); ++i)
        note.*Rows[i].Text = Boxes[i]->Typed();
    return note;
}

void Source_Window::Take_Over_Notes(Document_Notes& notes) const
{
    if (!Typed().Says_The_Same(The_Note))
        Set_Note(notes, Field, Typed());
}

void Source_Window::Done()
{
    The_Note = Typed();
    accept();
}

} // namespace orvel
