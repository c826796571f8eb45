#ifndef AIRLUME_GRAPHS_DASHBOARDACCESSIBLE_H
#define AIRLUME_GRAPHS_DASHBOARDACCESSIBLE_H

#include <QAccessibleWidget>

class SignalStrengthDashboard;

/// Tells assistive technology what the gauge shows: the signal in dBm and per cent, and whether the
/// computer is joined to a network. As a progress bar: readers know how to tell one as it moves,
/// whereas the bus has no word for an indicator.
class DashboardAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit DashboardAccessible(SignalStrengthDashboard *dashboard);

    /// Makes Qt use this class for every gauge. May be called more than once.
    static void install();

    QString text(QAccessible::Text kind) const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QVariant currentValue() const override;
    /// Does nothing: the gauge is read-only.
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

private:
    const SignalStrengthDashboard *dashboard() const;
};

#endif
