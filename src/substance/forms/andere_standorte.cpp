#include "substance/forms/andere_standorte.h"

#include "substance/location_choice.h"
#include "ui/forms/done_cancel.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QStyle>

namespace orvel {

namespace {

constexpr int List_Columns = 36, List_Rows = 10;

QVBoxLayout* Captioned(const QString& caption, QListWidget* list)
{
    auto* label = new QLabel(caption);
    label->setBuddy(list);
    list->setAccessibleName(QString(caption).remove('&'));
    list->setUniformItemSizes(true);
    auto* column = new QVBoxLayout;
    column->addWidget(label);
    column->addWidget(list, 1);
    return column;
}

} // namespace

andere_Standorte::andere_Standorte(Location_Kind kind, const std::vector<std::string>& list, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(kind == Location_Kind::Leaching ? "andere_Standorte" : "andere_Standorte_soil");
    setWindowTitle("Select a suitable location");
    Lay_Out(kind);
    Offer(kind == Location_Kind::Leaching ? Offered_Locations() : Offered_Soil_Locations(Soil_Crops[0]), list);
}

void andere_Standorte::Lay_Out(Location_Kind kind)
{
    const bool soil = kind == Location_Kind::Soil;
    Location = Named(new QListWidget, "Location");
    Location->setSelectionMode(QAbstractItemView::MultiSelection);
    Location->setMinimumSize(fontMetrics().averageCharWidth() * List_Columns, fontMetrics().lineSpacing() * List_Rows);
    auto* lists = new QHBoxLayout;
    if (soil)
        lists->addWidget(Crops());
    lists->addLayout(Captioned(soil ? "&Recommended Locations" : "A&vailable Locations", Location), 1);

    auto* buttons = Done_And_Cancel<QDialog>(*this, &QDialog::accept, "OK", "&Done", "Abbrechen");
    auto* row = new QHBoxLayout;
    row->addWidget(Push_Button("Command2", "&Add all", Location, &QListWidget::selectAll));
    row->addWidget(Push_Button("Command1", "De&lete all", Location, &QListWidget::clearSelection));
    row->addWidget(buttons, 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(lists, 1);
    all->addLayout(row);
    Location->setFocus();
}

// The widest name of the list, and a scroll bar beside it.
void andere_Standorte::Show_Names_Whole()
{
    Location->setMinimumWidth(std::max(Location->minimumWidth(), Location->sizeHintForColumn(0) +
                                                                     2 * Location->frameWidth() +
                                                                     style()->pixelMetric(QStyle::PM_ScrollBarExtent)));
}

QWidget* andere_Standorte::Crops()
{
    Crop = Named(new QListWidget, "Crop");
    for (const auto name : Soil_Crops)
        Crop->addItem(Shown(name));
    Crop->setCurrentRow(0);
    connect(Crop, &QListWidget::currentRowChanged, this, [this](int row) {
        Offer(Offered_Soil_Locations(Soil_Crops.at(static_cast<std::size_t>(row))), Loc_Selected());
    });
    auto* place = new QWidget;
    auto* column = Captioned("Cr&op", Crop);
    column->setContentsMargins(0, 0, 0, 0);
    place->setLayout(column);
    return place;
}

void andere_Standorte::Offer(const std::vector<std::string>& names, const std::vector<std::string>& selected)
{
    Location->clear();
    for (const auto& name : names) {
        Location->addItem(Shown(name));
        Location->item(Location->count() - 1)->setSelected(std::ranges::find(selected, name) != selected.end());
    }
    Show_Names_Whole();
}

std::vector<std::string> andere_Standorte::Loc_Available() const
{
    std::vector<std::string> names;
    for (int row = 0; row < Location->count(); ++row)
        names.push_back(Bytes_Of(Location->item(row)->text()));
    return names;
}

std::vector<std::string> andere_Standorte::Loc_Selected() const
{
    std::vector<std::string> names;
    for (int row = 0; row < Location->count(); ++row) {
        if (Location->item(row)->isSelected())
            names.push_back(Bytes_Of(Location->item(row)->text()));
    }
    return names;
}

} // namespace orvel
