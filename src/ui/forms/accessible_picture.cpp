#include "ui/forms/accessible_picture.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace orvel {

namespace {

constexpr const char* Role_Property = "Accessible_Role";

QAccessibleInterface* Picture_Interface(const QString& /*class_name*/, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    const QVariant role = widget ? widget->property(Role_Property) : QVariant();
    return role.isValid() ? new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt())) : nullptr;
}

} // namespace

void Read_As_Picture(QWidget& picture, QAccessible::Role role)
{
    QAccessible::installFactory(Picture_Interface); // once, however often it is asked for
    picture.setProperty(Role_Property, static_cast<int>(role));
}

} // namespace orvel
