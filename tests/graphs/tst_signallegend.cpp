#include "graphs/graphtest.h"
#include "graphs/signallegend.h"
#include "graphs/signallegendlabel.h"
#include "graphs/signaltimeplot.h"
#include "support/testair.h"

#include <QTest>

class TestSignalLegend : public QObject
{
    Q_OBJECT

private slots:
    void labelsAreOneLineOfBoundedWidth_data();
    void labelsAreOneLineOfBoundedWidth();
    void ordinaryNameStaysWhole();
    void longNameLeavesTheGraphItsRoom();
    void clicksAreHanded();
};

void TestSignalLegend::labelsAreOneLineOfBoundedWidth_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("10000 characters") << QString(10000, QLatin1Char('W'));
    QTest::newRow("words") << QStringLiteral("many words ").repeated(1000);
    QTest::newRow("lines") << QStringLiteral("line\n").repeated(100);
    QTest::newRow("Chinese") << QString::fromUtf8("网").repeated(32);
}

void TestSignalLegend::labelsAreOneLineOfBoundedWidth()
{
    QFETCH(QString, name);
    SignalLegendLabel ordinary;
    ordinary.setText(QStringLiteral("Home"));
    SignalLegendLabel label;
    label.setText(QwtText(name));
    QVERIFY(label.sizeHint().width() <= 40 * label.fontMetrics().averageCharWidth());
    QVERIFY(label.sizeHint().height() < 2 * ordinary.sizeHint().height());
    QVERIFY(GraphTest::isPlain(label.text()));
}

void TestSignalLegend::ordinaryNameStaysWhole()
{
    SignalLegendLabel label;
    label.setText(QStringLiteral("Home"));
    QCOMPARE(label.text().text(), QStringLiteral("Home"));
    QVERIFY(
        label.sizeHint().width() >= label.fontMetrics().horizontalAdvance(QStringLiteral("Home")));
}

void TestSignalLegend::longNameLeavesTheGraphItsRoom()
{
    const QString name(10000, QLatin1Char('W'));
    SignalTimePlot plot;
    plot.resize(1000, 300);
    plot.show();
    plot.onDataReturned({TestAir::network(name)});
    plot.onShowCurve(0, name, true);
    QCoreApplication::processEvents();
    QVERIFY2(plot.canvas()->width() > 500, qPrintable(QString::number(plot.canvas()->width())));
}

void TestSignalLegend::clicksAreHanded()
{
    QwtPlot plot;
    auto *legend = new SignalLegend;
    legend->setDefaultItemMode(QwtLegendData::Clickable);
    plot.insertLegend(legend);
    legend->updateLegend(QVariant(1), {QwtLegendData()});
    auto *label = legend->findChild<SignalLegendLabel *>();
    QVERIFY(label);
    QCOMPARE(label->itemMode(), QwtLegendData::Clickable);
    int clicks = 0;
    connect(legend, &QwtLegend::clicked, [&clicks] { ++clicks; });
    plot.resize(400, 300);
    plot.show();
    QTest::mouseClick(label, Qt::LeftButton);
    QCOMPARE(clicks, 1);
}

QTEST_MAIN(TestSignalLegend)
#include "tst_signallegend.moc"
