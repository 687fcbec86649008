#include "plans/forms/plans_window.h"

#include "charts/forms/picture_panel.h"
#include "core/code_page.h"
#include "ui/forms/path_label.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTableView>

namespace orvel {

namespace {

constexpr const char* No_Label = "(one for all)";

// Fills a list anew, and keeps what was chosen where it is still offered. Whether it differs.
bool Fill(QComboBox& list, const QStringList& entries)
{
    QStringList present;
    for (int i = 0; i < list.count(); ++i)
        present << list.itemText(i);
    if (entries == present)
        return false;
    const QString chosen = list.currentText();
    list.clear();
    list.addItems(entries);
    list.setCurrentIndex(std::max(0, list.findText(chosen)));
    return true;
}

} // namespace

Plans_Window::Plans_Window(const Session& session, QWidget* parent)
    : QDialog(parent),
      Program(session.Program),
      Ask(session.Ask)
{
    setObjectName("Plans");
    setWindowTitle("Plans");
    setWindowFlags(windowFlags() | Qt::Window | Qt::WindowMinMaxButtonsHint);
    Lay_Out();
    Enable();
    resize(sizeHint());
    // The survey tells in its own thread; what it tells is shown in this one, in its order.
    Survey = std::make_unique<Plan_Survey>(Program.App_Path, [this](std::shared_ptr<const Plan_View> view) {
        QMetaObject::invokeMethod(
            this, [this, view = std::move(view)] { Take(view); }, Qt::QueuedConnection);
    });
}

Plans_Window::~Plans_Window() = default;

QSize Plans_Window::sizeHint() const
{
    const QSize room = screen()->availableSize();
    return {std::min(room.width(), fontMetrics().averageCharWidth() * 190),
            std::min(room.height() * 94 / 100, fontMetrics().lineSpacing() * 54)};
}

void Plans_Window::Open(const std::filesystem::path& chosen)
{
    try {
        Place = Place_Of_Plan(chosen);
    } catch (const File_Error& error) {
        Ask({"Plan", To_Code_Page(error.what())});
        return;
    }
    Show_Place();
}

void Plans_Window::Show_Place()
{
    Plan_Path->Show(Place.Plan);
    Directory_Path->Show(Place.Directory);
    Picture->Name_Picture(Path_Text(Place.Plan.stem()));
    Latest.reset();
    Enable();
    Request = Survey->Follow(Place);
}

// What is told of another plan than the one that is open comes too late.
void Plans_Window::Take(std::shared_ptr<const Plan_View> view)
{
    if (view->Request != Request)
        return;
    const bool is_first = !Latest;
    Latest = std::move(view);
    Show_Rows();
    Fill_Choices();
    Show_Status();
    Enable();
    if (is_first && !Latest->Failure.empty())
        Ask({"Plan", To_Code_Page(Latest->Failure)});
    emit Shown_Anew();
}

void Plans_Window::Show_Rows()
{
    if (!Latest)
        return;
    const auto state =
        States->currentIndex() > 0 ? std::optional(static_cast<Verdict>(States->currentData().toInt())) : std::nullopt;
    const auto heads = Table_Model.columnCount();
    const auto marked = Table_Model.Row_At(Table->currentIndex());
    if (!Table_Model.Show(Latest, state))
        return;
    if (Table_Model.columnCount() != heads)
        Size_Columns();
    const auto& rows = Table_Model.Grid().Rows;
    const auto found = marked ? std::ranges::find(rows, *marked) : rows.end();
    if (found != rows.end())
        Table->setCurrentIndex(Table_Model.index(static_cast<int>(found - rows.begin()), 0));
}

void Plans_Window::Show_Status()
{
    const auto& status = Latest->Status;
    const auto done = status.Of(Verdict::Complete);
    Bar->setRange(0, static_cast<int>(std::max<std::size_t>(1, status.Runs)));
    Bar->setValue(static_cast<int>(done));
    Bar->setFormat(QString("%1 of %2").arg(done).arg(status.Runs));
    QString text = Shown(Status_Text(status)).trimmed().replace('\n', "; ");
    if (Latest->Is_Cut)
        text += "; more rows are not shown";
    Status->setText(Latest->Failure.empty() ? text : QString());
    const auto note = QString::fromStdString(Latest->Failure.empty() ? Latest->Note : Latest->Failure);
    Note->setText(note);
    Note->setVisible(!note.isEmpty());
}

void Plans_Window::Fill_Choices()
{
    QStringList substances, labels = {No_Label};
    for (const auto& substance : Latest->Substances)
        substances << Shown(substance.Name);
    for (const auto& label : Labels_Of(*Latest->Rows))
        labels << Shown(label);
    Fill(*Substances, substances);
    Fill(*Labels, labels);
    Show_Picture();
}

void Plans_Window::Show_Picture()
{
    if (!Latest)
        return Picture->Show({});
    const Plan_Chart_Choice choice{.Substance = Bytes_Of(Substances->currentText()),
                                   .Label = Labels->currentIndex() > 0 ? Bytes_Of(Labels->currentText()) : ""};
    const auto chart = std::array{Distribution_Chart, Effects_Chart, By_Date_Chart}.at(
        static_cast<std::size_t>(std::max(0, Kind->currentIndex())));
    Picture->Show(chart(*Latest, choice));
}

void Plans_Window::Size_Columns()
{
    constexpr int Most_Letters = 30, Margin = 3;
    Table->resizeColumnsToContents(); // by the first rows, as told in the layout
    const int letter = fontMetrics().averageCharWidth();
    for (int column = 0; column < Table_Model.columnCount(); ++column) {
        const int least = Table->horizontalHeader()->sectionSizeHint(column);
        Table->setColumnWidth(column, std::max(least, std::min(Table->columnWidth(column), Most_Letters * letter)) +
                                          Margin * letter);
    }
}

void Plans_Window::Enable()
{
    const bool is_read = Latest && Latest->Failure.empty() && Latest->Status.Runs > 0;
    const bool is_at_work = is_read && Latest->Status.At_Work;
    const auto done = is_read ? Latest->Status.Of(Verdict::Complete) : 0;
    Run_Button->setText(done > 0 ? "&Resume" : "&Run");
    Tasks->setEnabled(By_Slurm->isChecked());
    Minutes->setEnabled(By_Slurm->isChecked());
    Part->setEnabled(!By_Slurm->isChecked());
    Parts->setEnabled(!By_Slurm->isChecked());
    const bool may_be_at_work = !By_Slurm->isChecked() && Parts->value() > 1; // other parts
    Run_Button->setEnabled(is_read && (!is_at_work || may_be_at_work) &&
                           (done < Latest->Status.Runs || Latest->Is_Cut));
    Stop_Button->setEnabled(is_at_work);
    Directory_Button->setEnabled(Has_Plan() && !is_at_work);
    for (const char* name : {"Kopieren", "Drucken", "Befehl"})
        findChild<QPushButton*>(name)->setEnabled(is_read);
    findChild<QPushButton*>("Speichern")->setEnabled(is_read && Latest->Has_Runs);
}

Plan_Order Plans_Window::Order() const
{
    return {.Plan = Place.Plan,
            .Directory = Place.Directory,
            .Jobs = Jobs->value(),
            .Part = By_Slurm->isChecked()
                        ? Plan_Part()
                        : Plan_Part{static_cast<std::size_t>(Part->value()), static_cast<std::size_t>(Parts->value())},
            .Keep = static_cast<Plan_Keep>(Keep->currentIndex()),
            .Limit = Limit->value() > 0 ? std::optional(Limit->value()) : std::nullopt};
}

std::optional<Slurm_Order> Plans_Window::Cluster() const
{
    if (!By_Slurm->isChecked())
        return std::nullopt;
    return Slurm_Order{.Tasks = static_cast<std::size_t>(Tasks->value()),
                       .Minutes = Minutes->value() > 0 ? std::optional(Minutes->value()) : std::nullopt};
}

} // namespace orvel
