#include "graphs/signallegend.h"

#include "graphs/signallegendlabel.h"

#include <QCoreApplication>
#include <QEvent>

SignalLegend::SignalLegend(QWidget *parent)
    : QwtLegend(parent)
{
}

void SignalLegend::showEntry(const QVariant &itemInfo, bool on)
{
    SignalLegendLabel *label = entry(itemInfo);
    if (!label)
        return;
    label->setChecked(on);
    label->setVisible(on);
}

void SignalLegend::describeEntry(const QVariant &itemInfo, const QString &bssid, int channel)
{
    if (SignalLegendLabel *label = entry(itemInfo))
        label->setAccessPoint(bssid, channel);
}

SignalLegendLabel *SignalLegend::entry(const QVariant &itemInfo) const
{
    const QList<QWidget *> widgets = legendWidgets(itemInfo);
    return widgets.size() == 1 ? qobject_cast<SignalLegendLabel *>(widgets.first()) : nullptr;
}

void SignalLegend::updateLegend(const QVariant &itemInfo, const QList<QwtLegendData> &entries)
{
    QwtLegend::updateLegend(itemInfo, entries);
    // The entries' own layout asks for this too, but while nobody sees them only once: a graph
    // whose curves come or go while it lies behind another tab would not learn that its legend has
    // changed.
    QCoreApplication::postEvent(contentsWidget(), new QEvent(QEvent::LayoutRequest));
}

QWidget *SignalLegend::createWidget(const QwtLegendData &) const
{
    auto *label = new SignalLegendLabel;
    label->setItemMode(defaultItemMode());
    connect(label, SIGNAL(clicked()), SLOT(itemClicked()));
    connect(label, SIGNAL(checked(bool)), SLOT(itemChecked(bool)));
    return label;
}
