#include "evaluation/forms/overview_window.h"

#include "charts/forms/picture_panel.h"
#include "core/files.h"
#include "evaluation/forms/location_choices.h"
#include "report/overview_formats.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QTreeView>

namespace orvel {

namespace {

// The width of a column's contents, whatever its heading needs.
struct Wide_Table : QTreeView {
    using QTreeView::sizeHintForColumn;
};
int Content_Width(const QTreeView& table, int column)
{
    return (table.*(&Wide_Table::sizeHintForColumn))(column);
}

} // namespace

Overview_Window::Overview_Window(const Session& session, Mode_Kind mode, const std::vector<Overview_Action>& further,
                                 QWidget* parent)
    : QDialog(parent),
      Owned(std::make_unique<Session>()),
      The_Session(*Owned)
{
    The_Session.Program = session.Program;
    The_Session.Ask = session.Ask;
    setObjectName("Overview");
    setWindowTitle("Overview");
    setWindowFlags(windowFlags() | Qt::Window | Qt::WindowMinMaxButtonsHint);
    try {
        Settings = Read_Overview_Settings(The_Session.Program.App_Path);
    } catch (const File_Error& error) {
        The_Session.Ask({std::string(Overview_Title), Bytes_Of(QString::fromUtf8(error.what()))});
    }
    Add_Actions(further);
    Lay_Out();
    Fill_Locations();
    Modus->setCurrentIndex(static_cast<int>(mode));
    Show_Choices();
    Show_Key();
    Begin();
}

Overview_Window::~Overview_Window() = default;

void Overview_Window::Show_Mode(Mode_Kind mode)
{
    if (Modus->currentIndex() == static_cast<int>(mode))
        return;
    Modus->setCurrentIndex(static_cast<int>(mode));
    Choose_Again();
}

QSize Overview_Window::sizeHint() const
{
    const QSize room = screen()->availableSize();
    return {std::min(room.width(), fontMetrics().averageCharWidth() * 210),
            std::min(room.height() * 94 / 100, fontMetrics().lineSpacing() * 54)};
}

// The survey tells in its own thread; what it tells is shown in this one, in its order.
void Overview_Window::Begin()
{
    Survey = std::make_unique<Overview_Survey>(
        The_Session.Program.App_Path, Choice(), [this](std::shared_ptr<const Survey_State> state) {
            QMetaObject::invokeMethod(
                this, [this, state = std::move(state)] { Take(state); }, Qt::QueuedConnection);
        });
}

const Mode& Overview_Window::The_Mode() const
{
    return Mode_Of(static_cast<Mode_Kind>(Modus->currentIndex()));
}

Survey_Choice Overview_Window::Choice() const
{
    return {.Mode = The_Mode().Kind,
            .Soil = {.Depth = Depth->currentIndex() + 1, .Window = static_cast<std::size_t>(Average->currentIndex())},
            .Codes = Chosen_Codes(Settings),
            .Compared = Compared};
}

Row_Filter Overview_Window::Filter() const
{
    Row_Filter filter{.Text = Bytes_Of(Find->text()), .Above_Limit = Above_Limit->isChecked()};
    if (Crops->currentIndex() > 0)
        filter.Crop = Bytes_Of(Crops->currentText());
    if (States->currentIndex() > 0)
        filter.State = static_cast<Cell_Kind>(States->currentData().toInt());
    return filter;
}

void Overview_Window::Choose_Again()
{
    Show_Choices();
    if (Compared)
        return Compare_To(Compared_Path); // for the same figures
    Survey->Choose(Choice());
}

void Overview_Window::Show_Choices()
{
    const bool is_focus = The_Mode().Kind == Mode_Kind::Focus;
    Soil_Box->setVisible(!is_focus);
    Class_Box->setVisible(is_focus);
    Key->setVisible(is_focus);
    Above_Limit->setVisible(is_focus);
    Values->setVisible(is_focus);
}

void Overview_Window::Take(std::shared_ptr<const Survey_State> state)
{
    Latest = std::move(state);
    Fill_Crops();
    Show_Rows();
    Quantity->setText(Shown(Latest->Overview.Quantity));
    Status->setText(Latest->Failure.empty() ? Shown(Counts_Text(Latest->Overview)) + (Latest->Is_Settled ? "" : " ...")
                                            : QString::fromStdString(Latest->Failure));
    Status->setToolTip(Status->text());
    Widen_To_Table();
    emit Shown_Anew();
}

void Overview_Window::Show_Rows()
{
    if (!Latest)
        return;
    const int place = Table->verticalScrollBar()->value();
    const bool is_new = Table_Model.Show(std::shared_ptr<const Overview>(Latest, &Latest->Overview), Filter(),
                                         Latest->Overview.Has_Limit ? Settings.Bounds : std::vector<double>());
    if (is_new)
        Table->verticalScrollBar()->setValue(place);
    else
        Widen_Columns();
    Show_Pictures();
    Enable_Actions();
}

namespace {

std::array<std::string, 3> Name_Of(const Overview_Row& row)
{
    return {row.Pesticide, row.Crop, row.Substance};
}

} // namespace

// Before the rows change their order, or others come.
void Overview_Window::Remember_Rows()
{
    Open_Rows.clear();
    for (int row = 0; row < Table_Model.rowCount(); ++row) {
        if (const auto index = Table_Model.index(row, 0); Table->isExpanded(index))
            Open_Rows.insert(Name_Of(*Table_Model.Row_At(index)));
    }
    const auto* current = Table_Model.Row_At(Table->currentIndex());
    Current_Row = current ? std::optional(Name_Of(*current)) : std::nullopt;
    Current_Column = std::max(0, Table->currentIndex().column());
}

// The row that was marked stays marked, though its substance may have become known; without it the first one is.
void Overview_Window::Restore_Rows()
{
    auto found = Table_Model.index(0, Current_Column);
    bool is_it = false;
    const auto look = [&](const QModelIndex& index) {
        const Row_Name name = Name_Of(*Table_Model.Row_At(index));
        if (!Current_Row || is_it || (*Current_Row)[0] != name[0] || (*Current_Row)[1] != name[1])
            return;
        is_it = name == *Current_Row;
        if (is_it || index.parent() == QModelIndex())
            found = index;
    };
    for (int row = 0; row < Table_Model.rowCount(); ++row) {
        const auto parent = Table_Model.index(row, 0);
        Table->setExpanded(parent, Open_Rows.contains(Name_Of(*Table_Model.Row_At(parent))));
        look(Table_Model.index(row, Current_Column));
        for (int below = 0; below < Table_Model.rowCount(parent); ++below)
            look(Table_Model.index(below, Current_Column, parent));
    }
    Table->setCurrentIndex(found);
    Size_Columns();
}

void Overview_Window::Fill_Crops()
{
    QStringList crops = {"All crops"};
    for (const auto& row : Latest->Overview.Rows) {
        if (!crops.contains(Shown(row.Crop)))
            crops << Shown(row.Crop);
    }
    QStringList present;
    for (int i = 0; i < Crops->count(); ++i)
        present << Crops->itemText(i);
    if (crops == present)
        return;
    const QString chosen = Crops->currentText();
    Crops->clear();
    Crops->addItems(crops);
    Crops->setCurrentIndex(std::max(0, Crops->findText(chosen)));
}

void Overview_Window::Fill_Locations()
{
    Locations->clear();
    Locations->addItem("All locations");
    for (const auto& choice : Settings.Choices)
        Locations->addItem(Shown(choice.Name));
    Locations->addItem("Edit ...");
    Locations->setCurrentIndex(std::max(0, Locations->findText(Shown(Settings.Chosen))));
}

int Overview_Window::Wanted_Width(int column) const
{
    const QFontMetrics metrics = fontMetrics();
    constexpr int Longest_Name = 40, Longest_Cell = 90; // letters; two figures with their marks and the ratio
    const int most =
        metrics.averageCharWidth() * (column < Table_Model.Location_Column() ? Longest_Name : Longest_Cell);
    int widest = 0;
    for (const QString& line : Table_Model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().split('\n'))
        widest = std::max(widest, metrics.horizontalAdvance(line));
    widest = std::max(widest + 2 * metrics.averageCharWidth(), Content_Width(*Table, column));
    return std::min(most, widest + metrics.averageCharWidth());
}

void Overview_Window::Size_Columns()
{
    for (int column = 0; column < Table_Model.columnCount(); ++column)
        Table->setColumnWidth(column, Wanted_Width(column));
}

// No figure is cut off when a run goes on or a row is opened; columns do not become narrower under the user's eyes.
void Overview_Window::Widen_Columns()
{
    for (int column = Table_Model.Location_Column(); column < Table_Model.columnCount(); ++column)
        Table->setColumnWidth(column, std::max(Table->columnWidth(column), Wanted_Width(column)));
}

// The window opens before its table is known, whose cells say first that they are being read. Once it has been told,
// the size is the user's.
void Overview_Window::Widen_To_Table()
{
    if (!Is_As_Opened || !Latest->Is_Settled || Table_Model.rowCount() == 0)
        return;
    Is_As_Opened = false;
    Size_Columns();
    const QRect room = screen()->availableGeometry();
    const int needed = Table->header()->length() + Table->verticalScrollBar()->sizeHint().width() +
                       2 * Table->frameWidth() + width() - Table->width();
    const int wide = std::min(needed, room.width() - (frameGeometry().width() - width()));
    if (wide <= width())
        return;
    resize(wide, height());
    move(std::max(room.left(), std::min(x(), room.right() + 1 - frameGeometry().width())), y());
}

void Overview_Window::Show_Key()
{
    const auto texts = Class_Texts(Settings.Bounds);
    QString key;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto place = Class_Place(i, Settings.Bounds.size());
        const QString colours =
            place == 0 ? QString()
                       : QString(" style=\"background-color:%1; color:%2\"")
                             .arg(QColor(QRgb(Class_Fills[place])).name(), QColor(QRgb(Class_Inks[place])).name());
        key += QString("<span%1>&nbsp;%2&nbsp;%3&nbsp;</span>&nbsp; ")
                   .arg(colours, QString::fromUtf8(Class_Signs[place].data()),
                        Shown(texts[i]).toHtmlEscaped().replace(" ", "&nbsp;"));
    }
    Key->setText(key + "&nbsp;<b>bold</b>: above " + Shown(Limit_Text()).replace(" ", "&nbsp;"));
}

// The values of the row's locations, by their stored tables; no big file is read for a picture.
std::vector<Location_Values> Overview_Window::Values_Of_Row(const Overview_Row& row) const
{
    const Overview& overview = *Table_Model.Shown_Overview();
    std::vector<Location_Values> values;
    for (std::size_t column = 0; column < overview.Columns.size(); ++column) {
        const auto* run = Run_At(overview, row, column);
        const auto* figure = Figure_At(overview, row, column);
        const bool is_here = run || overview.Has_Limit; // total content and pore water have places of their own
        auto& location =
            values.emplace_back(Location_Values{.Location = is_here ? overview.Columns[column] : std::string()});
        if (!figure)
            continue;
        try {
            if (overview.Has_Limit) {
                const auto tables = Load_Leachate(run->Directory);
                const auto place = static_cast<std::size_t>(row.Cells[column].Figure);
                if (tables)
                    location = Values_Of(overview.Columns[column], *tables, place);
            }
        } catch (const File_Error&) { // the cell tells it at the next look
        }
        location.Figure = figure->Value;
        location.Figure_Text = figure->Text;
    }
    return values;
}

void Overview_Window::Show_Pictures()
{
    const auto* row = Table_Model.Row_At(Table->currentIndex());
    if (!row) {
        Picture->Show({});
        Ranks->Show({});
        return;
    }
    const auto column =
        Table_Model.Location_At(Table->currentIndex()).value_or(static_cast<std::size_t>(std::max(0, row->Highest)));
    if (!Table_Model.Shown_Overview()->Has_Limit)
        return Show_Soil_Pictures(*row, column);
    const auto values = Values_Of_Row(*row);
    const auto shown = Values->currentIndex() == 0 ? Conc_Values::Periods : Conc_Values::Years;
    Picture->Show(Location_Chart(row->Substance, values, shown, row->Unit, true));
    if (column < values.size())
        Ranks->Show(Rank_Chart(row->Substance, values[column]));
}

void Overview_Window::Show_Soil_Pictures(const Overview_Row& row, std::size_t column)
{
    const Overview& overview = *Table_Model.Shown_Overview();
    Picture->Show(Soil_Chart(row.Substance, Values_Of_Row(row), row.Unit, overview.Quantity));
    Ranks->Show({});
    const auto* figure = Figure_At(overview, row, column);
    if (!figure)
        return;
    try {
        const Soil_Choice soil = Choice().Soil;
        const auto stored = Load_Soil_Concentrations(Run_At(overview, row, column)->Directory, soil.Depth);
        const auto place = static_cast<std::size_t>(row.Cells[column].Figure);
        if (stored && place < stored->Maximum.size())
            Ranks->Show(Averaging_Chart(row.Substance, overview.Columns[column], row.Unit, stored->Maximum[place],
                                        soil.Window));
    } catch (const File_Error&) { // the cell tells it at the next look
    }
}

void Overview_Window::Keep_Settings()
{
    try {
        Write_Overview_Settings(The_Session.Program.App_Path, Settings);
    } catch (const File_Error& error) {
        The_Session.Ask({std::string(Overview_Title), Bytes_Of(QString::fromUtf8(error.what()))});
    }
}

void Overview_Window::Take_Bounds()
{
    if (!Classes->isModified())
        return;
    Classes->setModified(false);
    try {
        Settings.Bounds = Parse_Bounds(Bytes_Of(Classes->text()));
        Keep_Settings();
    } catch (const File_Error& error) {
        The_Session.Ask({std::string(Overview_Title), Bytes_Of(QString::fromUtf8(error.what()))});
    }
    Classes->setText(Shown(Bounds_Text(Settings.Bounds)));
    Show_Key();
    Show_Rows();
}

void Overview_Window::Edit_Locations()
{
    const int edit = Locations->count() - 1;
    if (Locations->currentIndex() < edit) {
        Settings.Chosen = Locations->currentIndex() == 0 ? std::string() : Bytes_Of(Locations->currentText());
    } else {
        Location_Choices choices(Settings, this);
        choices.exec();
        Settings = choices.Chosen();
        Fill_Locations();
    }
    Keep_Settings();
    Survey->Choose(Choice());
}

} // namespace orvel
