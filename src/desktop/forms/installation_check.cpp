#include "desktop/forms/installation_check.h"

#include "ui/forms/form_keys.h"
#include "ui/forms/text_output.h"
#include "ui/forms/widgets.h"

#include <array>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>

namespace orvel {

namespace {

constexpr int Check_Columns = 150, Found_Columns = 88, Check_Lines = 28;

QStyle::StandardPixmap Picture_Of(Health health)
{
    constexpr std::array Pictures = {QStyle::SP_DialogApplyButton, QStyle::SP_MessageBoxWarning,
                                     QStyle::SP_MessageBoxCritical};
    return Pictures.at(static_cast<std::size_t>(health));
}

QString Word_Of(Health health)
{
    constexpr std::array Words = {"good", "warning", "fault"};
    return Words.at(static_cast<std::size_t>(health));
}

QTableWidget* Table_Of(const std::vector<Finding>& findings, const QStyle& style)
{
    auto* table = Row_Table("Findings", "Findings", {"State", "What", "Found", "What to do"});
    table->setRowCount(static_cast<int>(findings.size()));
    for (int row = 0; row < table->rowCount(); ++row) {
        const Finding& finding = findings[static_cast<std::size_t>(row)];
        table->setItem(row, 0,
                       new QTableWidgetItem(style.standardIcon(Picture_Of(finding.State)), Word_Of(finding.State)));
        const std::array texts = {finding.What, finding.Found, finding.Remedy};
        for (int column = 1; column < table->columnCount(); ++column)
            table->setItem(
                row, column,
                new QTableWidgetItem(QString::fromStdString(texts.at(static_cast<std::size_t>(column) - 1))));
    }
    table->resizeColumnToContents(0);
    table->resizeColumnToContents(1);
    table->setColumnWidth(2, table->fontMetrics().averageCharWidth() * Found_Columns);
    table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    return table;
}

} // namespace

Installation_Check::Installation_Check(const std::vector<Finding>& findings, QWidget* parent) : QDialog(parent)
{
    setObjectName("Installation_Check");
    setWindowTitle("Check the installation");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* verdict = Named(new QLabel(Would_Spoil_A_Run(findings) ? "A fault was found that would spoil a run."
                                                                 : "Nothing was found that would spoil a run."),
                          "Verdict");
    auto* copy = Push_Button("Copy_Findings", "Cop&y", this,
                             [findings] { Copy_Text(QString::fromStdString(Findings_Text(findings))); });
    auto* done = Push_Button("Done", "&Done", this, &QDialog::accept);
    done->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(copy);
    buttons->addStretch(1);
    buttons->addWidget(done);
    auto* all = new QVBoxLayout(this);
    all->addWidget(verdict);
    all->addWidget(Table_Of(findings, *style()), 1);
    all->addLayout(buttons);
    Use_Form_Keys(*this);
    resize(fontMetrics().averageCharWidth() * Check_Columns, fontMetrics().lineSpacing() * Check_Lines);
}

} // namespace orvel
