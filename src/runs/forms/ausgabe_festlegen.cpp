#include "runs/forms/ausgabe_festlegen.h"

#include "core/output_variables.h"
#include "runs/output_selection.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/widgets.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

namespace orvel {

namespace {

constexpr int Deepest = 200; // cm
constexpr const char* Nothing =
    "------------------------------Please select----------------------------------------------------";
constexpr std::array<const char*, Substances> Substance_Choices = {
    "Active compound", "Met A1", "Met B1", "Met C1", "Met D1", "Met A2", "Met B2", "Met C2", "Met D2"};

QComboBox* Combo(const QString& name, const QString& purpose, const QStringList& items, int width)
{
    auto* combo = Named(new QComboBox, name);
    combo->setAccessibleName(purpose);
    combo->addItems(items);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(width);
    return combo;
}

QStringList Parameters()
{
    QStringList items{Nothing};
    for (int number = 1; number <= Last_Output_Variable; ++number)
        items << Shown(Output_Variables[static_cast<std::size_t>(number)].Out_Label);
    return items;
}

// The depth is the index of its entry. A greater depth from a run control file is kept, so it needs an entry too.
void Add_Depths(QComboBox& combo, int deepest)
{
    for (int depth = combo.count(); depth <= deepest; ++depth)
        combo.addItem(QString::number(depth));
}

// A hidden control keeps its space, so that the rows do not jump.
void Keep_Place(QWidget& widget)
{
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
}

} // namespace

Ausgabe_festlegen::Ausgabe_festlegen(Output_Selection& selection, QWidget* parent)
    : QDialog(parent),
      Selection(selection)
{
    setObjectName("Ausgabe_festlegen");
    setWindowTitle("Output control");
    Lay_Out();
    Load();
}

void Ausgabe_festlegen::Lay_Out()
{
    auto* area = new QWidget;
    auto* rows = new QGridLayout(area);
    rows->setColumnStretch(1, 1);
    for (int i = 0; i <= Last_Slot; ++i)
        Lay_Out_Row(*rows, i);
    auto* scrolled = new QScrollArea;
    scrolled->setWidget(area);
    scrolled->setWidgetResizable(true);
    scrolled->setFocusPolicy(Qt::NoFocus);
    scrolled->setFrameShape(QFrame::NoFrame);
    scrolled->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrolled->setMinimumWidth(area->minimumSizeHint().width() + scrolled->verticalScrollBar()->sizeHint().width());

    auto* buttons = new QDialogButtonBox;
    auto* ok = Named(buttons->addButton("&Done", QDialogButtonBox::AcceptRole), "OK");
    auto* cancel = Named(buttons->addButton("&Cancel", QDialogButtonBox::RejectRole), "Abbrechen");
    connect(ok, &QPushButton::clicked, this, &Ausgabe_festlegen::OK);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* all = new QVBoxLayout(this);
    all->addWidget(scrolled, 1);
    all->addWidget(buttons);
    Use_Form_Keys(*this);
    resize(sizeHint().width(), area->sizeHint().height() + buttons->sizeHint().height() * 3);
}

void Ausgabe_festlegen::Lay_Out_Row(QGridLayout& rows, int i)
{
    const QString number = QString::number(i + 1);
    Row& row = Rows[static_cast<std::size_t>(i)];
    row.Parameter = Combo(QString("Parameter_%1").arg(i), "Series " + number, Parameters(), 34);
    row.Label1 = Named(new QLabel("at"), QString("Label1_%1").arg(i));
    row.Tiefe = Combo(QString("Tiefe_%1").arg(i), "Depth of series " + number + " (cm)", {}, 4);
    Add_Depths(*row.Tiefe, Deepest);
    row.Unit = new QLabel("cm");
    row.Label2 = Named(new QLabel("for"), QString("Label2_%1").arg(i));
    QStringList substances;
    for (const char* choice : Substance_Choices)
        substances << choice;
    row.Substanz = Combo(QString("Substanz_%1").arg(i), "Substance of series " + number, substances, 15);

    int column = 0;
    rows.addWidget(new QLabel(number + "."), i, column++, Qt::AlignRight | Qt::AlignVCenter);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{row.Parameter, row.Label1, row.Tiefe, row.Unit, row.Label2, row.Substanz}) {
        Keep_Place(*widget);
        rows.addWidget(widget, i, column++);
    }
    connect(row.Parameter, &QComboBox::currentIndexChanged, this, [this, &row] { Show_What_Applies(row); });
}

void Ausgabe_festlegen::Load()
{
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        Rows[i].Parameter->setCurrentIndex(Selection[i].Out_Var);
        Add_Depths(*Rows[i].Tiefe, Selection[i].Out_Depth);
        Rows[i].Tiefe->setCurrentIndex(Selection[i].Out_Depth);
        Rows[i].Substanz->setCurrentIndex(Selection[i].Out_Depth2);
        Show_What_Applies(Rows[i]);
    }
}

void Ausgabe_festlegen::Show_What_Applies(const Row& row)
{
    const int variable = row.Parameter->currentIndex();
    for (QWidget* widget : std::initializer_list<QWidget*>{row.Label1, row.Tiefe, row.Unit})
        widget->setVisible(Depth_Visible(variable));
    for (QWidget* widget : std::initializer_list<QWidget*>{row.Label2, row.Substanz})
        widget->setVisible(Substance_Visible(variable));
}

void Ausgabe_festlegen::OK()
{
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        Selection[i].Out_Var = static_cast<std::int16_t>(Rows[i].Parameter->currentIndex());
        Selection[i].Out_Depth = static_cast<std::int16_t>(std::max(0, Rows[i].Tiefe->currentIndex()));
        Selection[i].Out_Depth2 = static_cast<std::int16_t>(std::max(0, Rows[i].Substanz->currentIndex()));
    }
    accept();
}

} // namespace orvel
