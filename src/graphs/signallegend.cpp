#include "graphs/signallegend.h"

#include "graphs/signallegendlabel.h"

SignalLegend::SignalLegend(QWidget *parent)
    : QwtLegend(parent)
{
}

QWidget *SignalLegend::createWidget(const QwtLegendData &) const
{
    auto *label = new SignalLegendLabel;
    label->setItemMode(defaultItemMode());
    connect(label, SIGNAL(clicked()), SLOT(itemClicked()));
    connect(label, SIGNAL(checked(bool)), SLOT(itemChecked(bool)));
    return label;
}
