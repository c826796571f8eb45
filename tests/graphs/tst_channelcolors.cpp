#include "graphs/curvecolors.h"
#include "graphs/graphtest.h"
#include "graphs/signal2gplot.h"
#include "graphs/signal5gplot.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QTest>
#include <qwt_plot_curve.h>

namespace
{
QStringList colorNames(const QwtPlot &plot)
{
    QStringList names;
    for (const QwtPlotCurve *curve : GraphTest::curves(plot)) {
        for (const QString &name : curveColorList) {
            if (QColor(name) == curve->pen().color())
                names.append(name);
        }
    }
    return names;
}
} // namespace

/// The colour counters live as long as the process, so these tests have one to themselves and run
/// in order.
class TestChannelColors : public QObject
{
    Q_OBJECT

private slots:
    void listHoldsThirteenKnownColors();
    void firstBatchTakesTheColorsInOrder();
    void eachBandCountsForItself();
    void countingGoesOnAfterAStop();

private:
    const MessageLog m_quiet;
};

void TestChannelColors::listHoldsThirteenKnownColors()
{
    QCOMPARE(curveColorList,
        QStringLiteral("SteelBlue darkCyan Fuchsia PaleGreen HotPink Peru Maroon Peachpuff Coral "
                       "GoldEnrod OliveDrab LightSalmon Orchid")
            .split(QLatin1Char(' ')));
    for (const QString &name : curveColorList)
        QVERIFY2(QColor::isValidColor(name), qPrintable(name));
}

void TestChannelColors::firstBatchTakesTheColorsInOrder()
{
    Signal2GPlot plot;
    plot.onDataReturned(TestAir::networks(14));
    QCOMPARE(colorNames(plot),
        QStringLiteral("darkCyan Fuchsia PaleGreen HotPink Peru Maroon Peachpuff Coral GoldEnrod "
                       "OliveDrab LightSalmon Orchid SteelBlue darkCyan")
            .split(QLatin1Char(' ')));
}

void TestChannelColors::eachBandCountsForItself()
{
    Signal5GPlot plot;
    plot.onDataReturned(TestAir::networks(2));
    QCOMPARE(
        colorNames(plot), (QStringList{QStringLiteral("darkCyan"), QStringLiteral("Fuchsia")}));
}

void TestChannelColors::countingGoesOnAfterAStop()
{
    Signal5GPlot plot;
    plot.onDataReturned(TestAir::networks(1));
    QCOMPARE(colorNames(plot), QStringList{QStringLiteral("PaleGreen")});
    // A newcomer draws its colour and is not counted.
    plot.onDataReturned(TestAir::networks(2));
    plot.onStopScan();
    plot.onDataReturned(TestAir::networks(1));
    QCOMPARE(colorNames(plot), QStringList{QStringLiteral("HotPink")});
}

QTEST_MAIN(TestChannelColors)
#include "tst_channelcolors.moc"
