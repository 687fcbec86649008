#include "substance/forms/guidance_window.h"

#include "ui/forms/byte_edit.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QDate>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QTableWidget>

namespace orvel {

namespace {

constexpr std::array<const char*, 6> Heads = {"Severity", "Rule", "Value", "Answer", "Finding", "Source"};
constexpr int Guidance_Columns = 200, Guidance_Rows = 24; // characters and lines of the window as it opens

QString Summary_Of(const std::vector<Guidance_Finding>& findings)
{
    const auto open = std::ranges::count_if(findings, &Guidance_Finding::Is_Open);
    if (findings.empty())
        return "The rules find nothing.";
    return QString("%1, %2 of severity warning or above without an answer.")
        .arg(findings.size() == 1 ? QString("1 finding") : QString("%1 findings").arg(findings.size()))
        .arg(open);
}

} // namespace

Guidance_Window::Guidance_Window(Access access, QWidget* parent) : QDialog(parent), The_Access(std::move(access))
{
    setObjectName("Guidance_Window");
    setWindowTitle("Guidance check");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Lay_Out();
    Show_Findings();
    const QSize opened(fontMetrics().averageCharWidth() * Guidance_Columns,
                       fontMetrics().lineSpacing() * Guidance_Rows);
    resize(opened.expandedTo(sizeHint()).boundedTo(screen()->availableSize()));
}

void Guidance_Window::Lay_Out()
{
    Summary = Named(new QLabel, "Guidance_Summary");
    Grid = Row_Table("Guidance_Grid", "Findings", QStringList(Heads.begin(), Heads.end()));
    Grid->setSelectionMode(QAbstractItemView::SingleSelection);
    const QFontMetrics metrics = fontMetrics();
    Grid->setWordWrap(false); // the whole finding stands below
    connect(Grid, &QTableWidget::itemSelectionChanged, this, &Guidance_Window::Show_Answer);

    Finding_Text = Named(new QLabel, "Guidance_Text");
    Finding_Text->setWordWrap(true);
    Finding_Text->setMinimumHeight(metrics.lineSpacing() * 3);
    Finding_Text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    Answer = Named(new Byte_Edit, "Guidance_Answer");
    Answered_By = Named(new Byte_Edit, "Guidance_By");
    auto* rows = new QFormLayout;
    rows->addRow("&Kept because:", Answer);
    rows->addRow("Answered &by:", Answered_By);
    Keep = Push_Button("Guidance_Keep", "&Store answer", this, &Guidance_Window::Keep_Answer);
    auto* done = Push_Button("Guidance_Done", "&Done", this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Keep);
    buttons->addStretch(1);
    buttons->addWidget(done);

    auto* all = new QVBoxLayout(this);
    all->addWidget(Summary);
    all->addWidget(Grid, 1);
    all->addWidget(Finding_Text);
    all->addLayout(rows);
    all->addLayout(buttons);
    Use_Form_Keys(*this);
}

void Guidance_Window::Show_Findings()
{
    Findings = The_Access.Check();
    const int row = std::max(0, Row());
    Summary->setText(Summary_Of(Findings));
    Grid->setRowCount(static_cast<int>(Findings.size()));
    for (int i = 0; i < Grid->rowCount(); ++i) {
        const auto& finding = Findings[static_cast<std::size_t>(i)];
        const std::array<std::string, Heads.size()> texts = {std::string(Severity_Text(finding.Severity)),
                                                             finding.Rule,
                                                             Value_Text(finding),
                                                             Answer_Text(finding),
                                                             finding.Text,
                                                             Source_Text(finding)};
        for (int column = 0; column < Grid->columnCount(); ++column) {
            auto* item = new QTableWidgetItem(Shown(texts[static_cast<std::size_t>(column)]));
            item->setToolTip(item->text());
            Grid->setItem(i, column, item);
        }
    }
    Grid->resizeColumnsToContents();
    constexpr int Widest = 36;
    for (int column = 0; column < Grid->columnCount() - 1; ++column)
        Grid->setColumnWidth(column, std::min(Grid->columnWidth(column), fontMetrics().averageCharWidth() * Widest));
    if (Grid->rowCount() > 0)
        Grid->selectRow(std::min(row, Grid->rowCount() - 1));
    Show_Answer();
}

int Guidance_Window::Row() const
{
    const auto rows = Grid->selectionModel()->selectedRows();
    return rows.isEmpty() || rows.front().row() >= static_cast<int>(Findings.size()) ? -1 : rows.front().row();
}

void Guidance_Window::Show_Answer()
{
    const int row = Row();
    for (QWidget* widget :
         {static_cast<QWidget*>(Answer), static_cast<QWidget*>(Answered_By), static_cast<QWidget*>(Keep)})
        widget->setEnabled(row >= 0);
    const auto finding = row < 0 ? Guidance_Finding() : Findings[static_cast<std::size_t>(row)];
    Finding_Text->setText(row < 0
                              ? QString()
                              : Shown(finding.Text + (finding.Is_Outdated ? " Its answer was for another value." : "") +
                                      "\nSource: " + Source_Text(finding)));
    Answer->setText(Shown(finding.Answer));
    if (!finding.Answered_By.empty())
        Answered_By->setText(Shown(finding.Answered_By)); // else the last name stays, which saves typing it again
}

std::optional<Guidance_Answer> Guidance_Window::Typed() const
{
    const int row = Row();
    if (row < 0)
        return std::nullopt;
    const auto& finding = Findings[static_cast<std::size_t>(row)];
    return Guidance_Answer{.Rule = finding.Rule,
                           .Field = finding.Name,
                           .Value = finding.Value,
                           .Text = Answer->Typed(),
                           .By = Answered_By->Typed(),
                           .Date = Bytes_Of(QDate::currentDate().toString(Qt::ISODate))};
}

void Guidance_Window::Take_Over_Notes(Document_Notes& notes) const
{
    const auto answer = Typed();
    if (answer && answer->Text != Findings[static_cast<std::size_t>(Row())].Answer)
        Set_Answer(notes, *answer);
}

void Guidance_Window::Keep_Answer()
{
    const auto answer = Typed();
    if (answer && The_Access.Keep(*answer))
        Show_Findings();
}

} // namespace orvel
