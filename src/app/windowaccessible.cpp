#include "app/windowaccessible.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace
{
QAccessibleInterface *create(const QString &className, QObject *object)
{
    auto *window =
        className == QLatin1String("Airlume") ? qobject_cast<QWidget *>(object) : nullptr;
    if (!window)
        return nullptr;
    return new QAccessibleWidget(window, QAccessible::Window);
}
} // namespace

void installWindowAccessible()
{
    QAccessible::installFactory(create);
}
