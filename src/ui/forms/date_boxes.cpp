#include "ui/forms/date_boxes.h"

#include "ui/forms/widgets.h"

namespace orvel {

namespace {

constexpr const char* Months[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

} // namespace

QComboBox* Day_Box(const QString& name, const QString& purpose)
{
    auto* combo = Named(new QComboBox, name);
    combo->setAccessibleName(purpose);
    combo->setEditable(true);
    combo->setCompleter(nullptr); // "1" must not complete to 10
    combo->setInsertPolicy(QComboBox::NoInsert);
    for (int day = 1; day <= 31; ++day)
        combo->addItem(QString::number(day));
    return combo;
}

QComboBox* Month_Box(const QString& name, const QString& purpose)
{
    auto* combo = Named(new QComboBox, name);
    combo->setAccessibleName(purpose);
    for (const char* month : Months)
        combo->addItem(month);
    return combo;
}

} // namespace orvel
