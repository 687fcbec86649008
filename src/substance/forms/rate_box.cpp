#include "substance/forms/rate_box.h"

#include "ui/forms/number_edit.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QFormLayout>
#include <QRadioButton>

namespace orvel {

namespace {

struct Rate_Row {
    Rate_Field Field;
    const char *Caption, *Unit;
};
constexpr std::array<Rate_Row, 3> Rate_Rows = {{{Rate_Field::Rate, "Transformation rate", "1/d"},
                                                {Rate_Field::DT50, "DT 50", "d"},
                                                {Rate_Field::DT90, "DT 90", "d"}}};

} // namespace

Rate_Box::Rate_Box(const QString& caption, const Names& options, const Names& fields, QWidget* parent)
    : QGroupBox(caption, parent)
{
    Rows = new QFormLayout(this);
    for (std::size_t row = 0; row < Rate_Rows.size(); ++row) {
        const auto& [field, text, unit] = Rate_Rows[row];
        Options[row] = Named(new QRadioButton(text), options[row]);
        Fields[row] = Named(new Number_Edit(unit), fields[row]);
        Fields[row]->setAccessibleName(caption + ", " + text);
        Rows->addRow(Options[row], Fields[row]);
        connect(Options[row], &QRadioButton::clicked, this, &Rate_Box::Enable_Chosen);
        connect(Fields[row], &QLineEdit::editingFinished, this, [this, left = field] { Leave(left); });
    }
}

void Rate_Box::Select_Rate()
{
    Fields[0]->setFocus();
    Fields[0]->selectAll();
}

void Rate_Box::Add_Row(const QString& label, QWidget* field)
{
    Rows->addRow(label, field);
}

void Rate_Box::Show_Rate(const Rate_Texts& texts)
{
    Show_Texts(texts);
    Options[0]->setChecked(true);
    Enable_Chosen();
}

Rate_Box::State Rate_Box::Present() const
{
    State state{.Texts = Texts()};
    while (state.Option + 1 < Options.size() && !Options[state.Option]->isChecked())
        ++state.Option;
    return state;
}

void Rate_Box::Show_State(const State& state)
{
    Show_Texts(state.Texts);
    Options.at(state.Option)->setChecked(true);
    Enable_Chosen();
}

Rate_Texts Rate_Box::Entered() const
{
    auto texts = Texts();
    const auto typed = std::ranges::find_if(
        Rate_Rows, [this](const auto& row) { return Fields[static_cast<std::size_t>(row.Field)]->isModified(); });
    if (typed != Rate_Rows.end())
        Leave_Rate_Field(texts, typed->Field);
    return texts;
}

void Rate_Box::Enable_Chosen()
{
    for (const auto& row : Rate_Rows) {
        if (!Options[static_cast<std::size_t>(row.Field)]->isChecked())
            continue;
        const auto enabled = Enabled_Rate_Fields(row.Field);
        for (std::size_t i = 0; i < Fields.size(); ++i)
            Fields[i]->setEnabled(enabled[i]);
    }
}

// Only typed text counts: a half-life is shown rounded, and merely passing through it must not change the rate.
void Rate_Box::Leave(Rate_Field field)
{
    auto* left = Fields[static_cast<std::size_t>(field)];
    if (!left->isModified())
        return;
    auto texts = Texts();
    Leave_Rate_Field(texts, field);
    Show_Texts(texts);
}

Rate_Texts Rate_Box::Texts() const
{
    return {Fields[0]->Typed(), Fields[1]->Typed(), Fields[2]->Typed()};
}

void Rate_Box::Show_Texts(const Rate_Texts& texts)
{
    Fields[0]->setText(Shown(texts.Rate));
    Fields[1]->setText(Shown(texts.DT50));
    Fields[2]->setText(Shown(texts.DT90));
}

} // namespace orvel
