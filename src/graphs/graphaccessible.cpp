#include "graphs/graphaccessible.h"

#include "common/QtCommonTools.h"
#include "graphs/networkname.h"
#include "graphs/signalchannelplot.h"
#include "i18n/languagelabels.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <algorithm>

namespace
{
const int MostNetworks = 20;
/// Of the three points of a triangle.
const std::size_t Apex = 1;

struct Reading {
    QString text;
    double dBm;
};

/// A curve without samples has been ticked since the last scan.
Reading readingOf(const QwtPlotCurve &curve, bool isTriangle)
{
    Reading reading{displayName(curve.title().text()), -100.};
    const std::size_t latest = isTriangle ? Apex : 0;
    if (curve.dataSize() <= latest)
        return reading;
    const QPointF sample = curve.sample(static_cast<int>(latest));
    reading.dBm = sample.y();
    reading.text += QLatin1Char(' ') + QString::number(sample.y()) + QLatin1String(" dBm");
    if (isTriangle) {
        reading.text += QLatin1Char(' ') + QtCommonTools::tr(LanguageLabels::m_strLangHeadChannel) +
                        QLatin1Char(' ') + QString::number(sample.x());
    }
    return reading;
}

QAccessibleInterface *create(const QString &className, QObject *object)
{
    auto *graph = className == QLatin1String("QwtPlot") ? qobject_cast<QwtPlot *>(object) : nullptr;
    return graph ? new GraphAccessible(graph) : nullptr;
}
} // namespace

QString describeGraph(const QwtPlot &graph)
{
    const bool drawsTriangles = qobject_cast<const SignalChannelPlot *>(&graph);
    QVector<Reading> readings;
    const QwtPlotItemList items = graph.itemList(QwtPlotItem::Rtti_PlotCurve);
    for (const QwtPlotItem *item : items) {
        if (item->isVisible())
            readings.append(readingOf(*static_cast<const QwtPlotCurve *>(item), drawsTriangles));
    }
    if (readings.isEmpty())
        return QStringLiteral("No network is drawn.");
    std::stable_sort(readings.begin(), readings.end(),
        [](const Reading &one, const Reading &other) { return one.dBm > other.dBm; });

    QStringList texts;
    for (const Reading &reading : qAsConst(readings)) {
        if (texts.size() == MostNetworks) {
            texts.append(QStringLiteral("%1 more").arg(readings.size() - MostNetworks));
            break;
        }
        texts.append(reading.text);
    }
    return texts.join(QLatin1String(", "));
}

GraphAccessible::GraphAccessible(QwtPlot *graph)
    : QAccessibleWidget(graph, QAccessible::Chart)
{
}

void GraphAccessible::install()
{
    QAccessible::installFactory(create);
}

void GraphAccessible::tell(QwtPlot *graph)
{
    if (!QAccessible::isActive() || graph->hasFocus())
        return;
    auto *told = dynamic_cast<GraphAccessible *>(QAccessible::queryAccessibleInterface(graph));
    const QString description = told ? describeGraph(*graph) : QString();
    if (!told || description == told->m_toldDescription)
        return;
    told->m_toldDescription = description;
    QAccessibleEvent event(graph, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

const QwtPlot &GraphAccessible::graph() const
{
    return *static_cast<const QwtPlot *>(widget());
}

QString GraphAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Description ? describeGraph(graph())
                                            : QAccessibleWidget::text(kind);
}
