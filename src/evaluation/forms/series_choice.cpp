#include "evaluation/forms/series_choice.h"

#include "core/shell_line.h"
#include "runs/calendar_file.h"
#include "ui/forms/widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace orvel {

namespace {

constexpr std::size_t Begin_Month = 0, End_Month = 1, Begin_Year = 2, End_Year = 3;
constexpr int Item_Columns = 40;
constexpr int Months_Of_Year = 12;

Plot_Head Head_Of(const std::filesystem::path& run)
try {
    return Read_Plot_Head(run);
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return {};
}

} // namespace

Series_Choice::Series_Choice(QWidget* parent) : QWidget(parent)
{
    auto* boxes = new QVBoxLayout(this);
    boxes->setContentsMargins(0, 0, 0, 0);
    boxes->addWidget(Series_Box());
    boxes->addWidget(Period_Box());
}

QGroupBox* Series_Choice::Series_Box()
{
    auto* box = Named(new QGroupBox("Parameter"), "Frame4");
    Parameter = Named(new QComboBox, "Parameter");
    Parameter->setAccessibleName("Parameter");
    Parameter->setMinimumContentsLength(Item_Columns);
    Parameter->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    Cumulative = Named(new QCheckBox("C&umulative"), "Cumulative");
    auto* rows = new QVBoxLayout(box);
    rows->addWidget(Parameter);
    rows->addWidget(Cumulative);
    return box;
}

QGroupBox* Series_Choice::Period_Box()
{
    auto* box = Named(new QGroupBox("Period"), "Frame2");
    constexpr std::array<const char*, 4> Purposes = {"First month", "Last month", "First year", "Last year"};
    for (std::size_t i = 0; i < Zeitintervall.size(); ++i) {
        auto* list = Named(new QComboBox, QString("Zeitintervall_%1").arg(i));
        list->setAccessibleName(Purposes[i]);
        const auto end = i == Begin_Month || i == Begin_Year ? Period_End::Begin : Period_End::End;
        connect(list, &QComboBox::activated, this,
                [this, end] { Show_Period(Uncrossed(Chosen_Period(), end, Years)); });
        Zeitintervall[i] = list;
    }
    for (const std::size_t month : {Begin_Month, End_Month}) {
        for (std::size_t m = 1; m < Month_Name.size(); ++m)
            Zeitintervall[month]->addItem(Shown(Month_Name[m]));
    }
    auto* cells = new QGridLayout(box);
    auto* from = new QLabel("F&rom");
    auto* to = new QLabel("&to");
    from->setBuddy(Zeitintervall[Begin_Month]);
    to->setBuddy(Zeitintervall[End_Month]);
    int column = 0;
    for (QWidget* cell :
         {static_cast<QWidget*>(from), static_cast<QWidget*>(Zeitintervall[Begin_Month]),
          static_cast<QWidget*>(Zeitintervall[Begin_Year]), static_cast<QWidget*>(to),
          static_cast<QWidget*>(Zeitintervall[End_Month]), static_cast<QWidget*>(Zeitintervall[End_Year])})
        cells->addWidget(cell, 0, column++);
    cells->setColumnStretch(1, 1);
    cells->setColumnStretch(4, 1);
    return box;
}

void Series_Choice::Show_Run(const std::filesystem::path& run_directory)
{
    const QString parameter = Parameter->currentText();
    const Period before = Chosen_Period();
    const bool all = Years == 0 || before == Period{{1, 1}, {Months_Of_Year, Years}};
    Show_Items(Parameters_Of_Run(run_directory));
    Show_Years(Head_Of(run_directory));
    Parameter->setCurrentIndex(std::max(0, Parameter->findText(parameter)));
    if (!all && before.To.Year <= Years)
        Show_Period(before);
}

bool Series_Choice::Show_Columns(const std::filesystem::path& run_directory)
{
    const Plot_Head head = Head_Of(run_directory);
    Show_Items(Parameters_Of_Head(head, run_directory));
    if (Items.empty())
        Clear();
    else
        Show_Years(head);
    return !Items.empty();
}

void Series_Choice::Show_Years(const Plot_Head& head)
{
    Years = Years_Of_Plot(head);
    for (const std::size_t year : {Begin_Year, End_Year}) {
        Zeitintervall[year]->clear();
        for (int y = 1; y <= Years; ++y)
            Zeitintervall[year]->addItem(QString::number(y));
    }
    Show_Period({{1, 1}, {Months_Of_Year, Years}});
}

void Series_Choice::Clear()
{
    Show_Items({});
    Years = 0;
    for (const std::size_t year : {Begin_Year, End_Year})
        Zeitintervall[year]->clear();
}

void Series_Choice::Show_Items(std::vector<Parameter_Item> items)
{
    Items = std::move(items);
    Parameter->clear();
    for (const Parameter_Item& item : Items)
        Parameter->addItem(Shown(item.Text));
    setEnabled(!Items.empty());
}

Period Series_Choice::Chosen_Period() const
{
    const auto number = [&](std::size_t list) { return Zeitintervall[list]->currentIndex() + 1; };
    return {{number(Begin_Month), number(Begin_Year)}, {number(End_Month), number(End_Year)}};
}

void Series_Choice::Show_Period(const Period& period)
{
    Zeitintervall[Begin_Month]->setCurrentIndex(period.From.Month - 1);
    Zeitintervall[Begin_Year]->setCurrentIndex(period.From.Year - 1);
    Zeitintervall[End_Month]->setCurrentIndex(period.To.Month - 1);
    Zeitintervall[End_Year]->setCurrentIndex(period.To.Year - 1);
}

Daily_Choice Series_Choice::Choice(const std::filesystem::path& run_directory,
                                   const std::filesystem::path& calendar) const
{
    const int index = Parameter->currentIndex();
    const Parameter_Item item = index < 0 ? Parameter_Item{{}, 1, 1} : Items[static_cast<std::size_t>(index)];
    const Period period = Chosen_Period();
    return {
        .Run_Directory = run_directory,
        .Calendar = calendar,
        .Column = item.Column,
        .Item = item.Text,
        .Request = {
            .Variable = item.Variable, .Cumulative = Cumulative->isChecked(), .From = period.From, .To = period.To}};
}

void Series_Choice::Show_Diagram(const Session& session, const std::filesystem::path& run_directory, bool single_run,
                                 QWidget* parent) const
{
    const auto calendar = Calendar_File(session, run_directory, single_run);
    taegliches_Diagramm_neu diagram(session.Ask, Choice(run_directory, calendar), parent);
    diagram.Offer_Command(Command(session, run_directory));
    diagram.exec();
}

std::string Series_Choice::Command(const Session& session, const std::filesystem::path& run_directory) const
{
    const auto choice = Choice(run_directory, {});
    return Orvelctl_Line(session.Program.App_Path, Series_Words(run_directory, choice.Column, choice.Request));
}

} // namespace orvel
