#include "graphs/dashboardaccessible.h"

#include "common/QtCommonTools.h"
#include "graphs/dashboardgeometry.h"
#include "graphs/networkname.h"
#include "graphs/signalstrengthdashboard.h"
#include "i18n/languagelabels.h"

namespace
{
QAccessibleInterface *create(const QString &className, QObject *object)
{
    if (className != QLatin1String("SignalStrengthDashboard"))
        return nullptr;
    auto *dashboard = qobject_cast<SignalStrengthDashboard *>(object);
    return dashboard ? new DashboardAccessible(dashboard) : nullptr;
}
} // namespace

DashboardAccessible::DashboardAccessible(SignalStrengthDashboard *dashboard)
    : QAccessibleWidget(dashboard, QAccessible::ProgressBar)
{
}

void DashboardAccessible::install()
{
    QAccessible::installFactory(create);
}

const SignalStrengthDashboard *DashboardAccessible::dashboard() const
{
    return static_cast<const SignalStrengthDashboard *>(widget());
}

QString DashboardAccessible::text(QAccessible::Text kind) const
{
    switch (kind) {
    case QAccessible::Value:
        return DashboardGeometry::numberText(dashboard()->SignalValue()) + QLatin1String(" dBm, ") +
               DashboardGeometry::percentText(dashboard()->SignalValue());
    case QAccessible::Description:
        if (!dashboard()->IsConnected())
            return QtCommonTools::tr(LanguageLabels::m_strLangBoardNoNetworkConn);
        return QtCommonTools::tr(LanguageLabels::m_strLangBoardConnectedNetwork) +
               QLatin1Char(' ') + displayName(dashboard()->NetworkName());
    default:
        return QAccessibleWidget::text(kind);
    }
}

void *DashboardAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QVariant DashboardAccessible::currentValue() const
{
    return dashboard()->SignalValue();
}

void DashboardAccessible::setCurrentValue(const QVariant &) {}

QVariant DashboardAccessible::maximumValue() const
{
    return 0;
}

QVariant DashboardAccessible::minimumValue() const
{
    return -100;
}

QVariant DashboardAccessible::minimumStepSize() const
{
    return 1;
}
