// The overview's controls and layout.
#include "charts/forms/picture_panel.h"
#include "evaluation/forms/overview_window.h"
#include "output/run_records.h"
#include "report/run_results.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/widgets.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace orvel {

namespace {

constexpr int Rows_Measured = 100; // for the width of a column, from the first one that is seen

QComboBox* Combo(const QString& name, const QString& purpose, const QStringList& items)
{
    auto* combo = Named(new QComboBox, name);
    combo->setAccessibleName(purpose);
    combo->addItems(items);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    return combo;
}

class Roomy_Rows : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        return {size.width(), size.height() * 3 / 2};
    }
};

} // namespace

void Overview_Window::Lay_Out()
{
    auto* all = new QVBoxLayout(this);
    all->addLayout(Choices());
    all->addLayout(Soil_Choices());
    all->addWidget(Comparison_Banner());
    all->addWidget(Table_And_Pictures(), 1);
    all->addLayout(Foot());
    Use_Form_Keys(*this);
    Table->setFocus();
}

QLayout* Overview_Window::Choices()
{
    Modus = Combo("Modus", "Mode", {"FOCUS groundwater", "EFSA soil, Tier 2", "EFSA soil, Tier 4"});
    Find = Named(new QLineEdit, "Find");
    Find->setPlaceholderText("Part of a pesticide, crop or substance");
    Find->setClearButtonEnabled(true);
    Find->setMinimumWidth(fontMetrics().averageCharWidth() * 10);
    Crops = Combo("Crops", "Crop", {"All crops"});
    Crops->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    Crops->setMinimumContentsLength(8);
    Crops->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    States = Combo("States", "State", {"All states"});
    using Kind = Cell_Kind;
    for (const auto& [text, kind] :
         std::initializer_list<std::pair<const char*, Kind>>{{"With a figure", Kind::Figure},
                                                             {"Scheduled", Kind::Scheduled},
                                                             {"Running", Kind::Running},
                                                             {"Failed", Kind::Failed},
                                                             {"Stopped", Kind::Stopped},
                                                             {"Incomplete", Kind::Incomplete},
                                                             {"Changed since", Kind::Changed},
                                                             {"Unreadable", Kind::Unreadable}})
        States->addItem(text, static_cast<int>(kind));
    Locations = Combo("Locations", "Locations that count", {"All locations", "Edit ..."});
    Locations->setToolTip("The locations that an authority counts, kept with the installation");
    Above_Limit = Named(new QCheckBox("Abo&ve " + Shown(Limit_Text())), "Above_Limit");

    connect(Modus, &QComboBox::activated, this, &Overview_Window::Choose_Again);
    connect(Find, &QLineEdit::textChanged, this, &Overview_Window::Show_Rows);
    connect(Crops, &QComboBox::activated, this, &Overview_Window::Show_Rows);
    connect(States, &QComboBox::activated, this, &Overview_Window::Show_Rows);
    connect(Locations, &QComboBox::activated, this, &Overview_Window::Edit_Locations);
    connect(Above_Limit, &QCheckBox::clicked, this, &Overview_Window::Show_Rows);

    auto* row = new QHBoxLayout;
    row->addWidget(Label_Of(Modus, "&Mode:"));
    row->addWidget(Modus);
    row->addSpacing(fontMetrics().averageCharWidth());
    row->addWidget(Label_Of(Find, "&Find:"));
    row->addWidget(Find, 1);
    for (QWidget* choice : std::initializer_list<QWidget*>{Crops, States, Locations, Above_Limit})
        row->addWidget(choice);
    return row;
}

// What the figures are, and beside it the depth and the average of the soil modes, or the classes of the others.
QLayout* Overview_Window::Soil_Choices()
{
    Quantity = Named(new QLabel, "Quantity");
    Depth = Combo("Depth", "Depth of the soil in centimetres", {});
    for (int depth = 1; depth <= Profile_Layers; ++depth)
        Depth->addItem(QString("%1 cm").arg(depth));
    Average = Combo("Average", "Average over days", {});
    for (const int days : TWA_Window)
        Average->addItem(days == 0 ? QString("maximum") : QString("%1 d").arg(days));
    connect(Depth, &QComboBox::activated, this, &Overview_Window::Choose_Again);
    connect(Average, &QComboBox::activated, this, &Overview_Window::Choose_Again);
    Soil_Box = new QWidget;
    auto* soil = new QHBoxLayout(Soil_Box);
    soil->setContentsMargins(0, 0, 0, 0);
    soil->addWidget(Label_Of(Depth, "&Depth:"));
    soil->addWidget(Depth);
    soil->addWidget(Label_Of(Average, "Avera&ge:"));
    soil->addWidget(Average);
    Soil_Box->hide();

    Key = Named(new QLabel, "Key");
    Key->setTextFormat(Qt::RichText);
    Classes = Named(new QLineEdit(Shown(Bounds_Text(Settings.Bounds))), "Classes");
    Classes->setToolTip(QString::fromUtf8("Up to four bounds in µg/L, parted by semicolons"));
    Classes->setFixedWidth(fontMetrics().averageCharWidth() * 26);
    connect(Classes, &QLineEdit::editingFinished, this, &Overview_Window::Take_Bounds);
    Values = Combo("Values", "Values over the bars", {"Periods as dots", "Years as dots"});
    connect(Values, &QComboBox::activated, this, &Overview_Window::Show_Pictures);
    Class_Box = new QWidget;
    auto* classes = new QHBoxLayout(Class_Box);
    classes->setContentsMargins(0, 0, 0, 0);
    classes->addWidget(Label_Of(Classes, "C&lasses:"));
    classes->addWidget(Classes);
    classes->addWidget(Values);

    auto* row = new QHBoxLayout;
    row->addWidget(Quantity, 1);
    row->addWidget(Soil_Box);
    row->addWidget(Class_Box);
    return row;
}

QWidget* Overview_Window::Table_And_Pictures()
{
    Table = Named(new QTreeView, "Table");
    Table->setAccessibleName("Overview");
    Table->setModel(&Table_Model);
    Table->setSelectionBehavior(QAbstractItemView::SelectItems);
    Table->setItemDelegate(new Roomy_Rows(Table));
    Table->setUniformRowHeights(true);
    Table->setAllColumnsShowFocus(false);
    Table->setSortingEnabled(true);
    Table->header()->setSortIndicator(-1, Qt::AscendingOrder);
    Table->header()->setStretchLastSection(false);
    Table->header()->setSectionsMovable(false);
    Table->header()->setResizeContentsPrecision(Rows_Measured);
    Table->header()->setDefaultAlignment(Qt::AlignCenter);
    Table->setContextMenuPolicy(Qt::CustomContextMenu);
    Table->setTextElideMode(Qt::ElideRight);
    connect(Table->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        Show_Pictures();
        Enable_Actions();
    });
    connect(&Table_Model, &QAbstractItemModel::modelAboutToBeReset, this, &Overview_Window::Remember_Rows);
    connect(&Table_Model, &QAbstractItemModel::modelReset, this, &Overview_Window::Restore_Rows);
    connect(Table, &QTreeView::expanded, this, &Overview_Window::Widen_Columns);
    connect(Table->verticalScrollBar(), &QScrollBar::valueChanged, this, &Overview_Window::Widen_Columns);
    connect(Table, &QTreeView::activated, this, [this] {
        if (A_Leachate->isEnabled())
            Leachate();
    });
    connect(Table, &QTreeView::customContextMenuRequested, this,
            [this](const QPoint& at) { Menu->popup(Table->viewport()->mapToGlobal(at)); });

    Picture = new Picture_Panel("Picture", The_Session.Ask);
    Ranks = new Picture_Panel("Ranks", The_Session.Ask);
    auto* pictures = new QSplitter(Qt::Horizontal);
    pictures->addWidget(Picture);
    pictures->addWidget(Ranks);
    pictures->setStretchFactor(0, 3);
    pictures->setStretchFactor(1, 2);
    auto* upper = new QWidget;
    auto* table = new QVBoxLayout(upper);
    table->setContentsMargins(0, 0, 0, 0);
    table->addWidget(Table, 1);
    table->addWidget(Key);
    auto* both = new QSplitter(Qt::Vertical);
    both->addWidget(upper);
    both->addWidget(pictures);
    both->setStretchFactor(0, 3);
    both->setStretchFactor(1, 2);
    both->setChildrenCollapsible(false);
    return both;
}

QWidget* Overview_Window::Comparison_Banner()
{
    Comparison = Named(new QLabel, "Comparison");
    Comparison->setWordWrap(true);
    Comparison_Box = new QWidget;
    auto* row = new QHBoxLayout(Comparison_Box);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(Comparison, 1);
    row->addWidget(Push_Button("Vergleich_Ende", "&End comparison", this, &Overview_Window::End_Comparison));
    Comparison_Box->hide();
    return Comparison_Box;
}

QLayout* Overview_Window::Foot()
{
    Status = Named(new QLabel, "Status");
    Status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long text makes no window wider
    auto* actions = Push_Button("Actions", "&Actions");
    actions->setMenu(Menu);
    auto* foot = new QHBoxLayout;
    foot->addWidget(actions);
    foot->addWidget(Push_Button("Kopieren", "&Copy", this, &Overview_Window::Copy));
    foot->addWidget(Push_Button("Speichern", "&Save", this, &Overview_Window::Save));
    foot->addWidget(Push_Button("Drucken", "&Print", this, &Overview_Window::Print));
    foot->addWidget(Push_Button("Befehl", "Copy as comma&nd", this, &Overview_Window::Command));
    foot->addWidget(Status, 1);
    foot->addWidget(Push_Button("Done", "D&one", this, &QDialog::accept));
    return foot;
}

QAction* Overview_Window::Add_Action(const QString& name, const QString& text, std::function<void()> handler)
{
    auto* action = Named(new QAction(text, this), name);
    connect(action, &QAction::triggered, this, std::move(handler));
    Menu->addAction(action);
    addAction(action);
    return action;
}

void Overview_Window::Add_Actions(const std::vector<Overview_Action>& further)
{
    Menu = Named(new QMenu(this), "Menu");
    A_Leachate = Add_Action("A_Leachate", "&Table of concentrations", [this] { Leachate(); });
    A_Daily = Add_Action("A_Daily", "&Daily diagram", [this] { Daily(); });
    A_Balance = Add_Action("A_Balance", "Mass &balance", [this] { Balance(); });
    A_Echo = Add_Action("A_Echo", "&Echo of input data", [this] { Echo(); });
    Menu->addSeparator();
    A_Pesticide = Add_Action("A_Pesticide", "Edit &pesticide file", [this] { Edit_Pesticide(); });
    A_Scenario = Add_Action("A_Scenario", "Edit s&cenario file", [this] { Edit_Scenario(); });
    A_Changed = Add_Action("A_Changed", "&What changed since", [this] { What_Changed(); });
    Menu->addSeparator();
    A_Again = Add_Action("A_Again", "&Run again", [this] { Run_Again(); });
    A_Delete = Add_Action("A_Delete", "De&lete", [this] { Delete(); });
    A_Delete->setShortcut(Qt::Key_Delete);
    A_Delete->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    Menu->addSeparator();
    A_Missing = Add_Action("A_Missing", "Run what is &missing", [this] { Run_Missing(); });
    A_Failed = Add_Action("A_Failed", "Run &failed ones again", [this] { Run_Failed(); });
    A_Compare = Add_Action("A_Compare", "Compare wit&h ...", [this] { Compare(); });
    A_Report = Add_Action("A_Report", "Rep&ort", [this] { Report(); });
    connect(Menu, &QMenu::aboutToShow, this, &Overview_Window::Enable_Missing);
    for (const auto& [name, text, handler] : further) {
        auto* action = Add_Action(name, text, [] {});
        connect(action, &QAction::triggered, this, [this, handler] {
            if (const auto* row = Table_Model.Row_At(Table->currentIndex()))
                handler(The_Mode(), *row, Marked_Run(), this);
        });
    }
}

} // namespace orvel
