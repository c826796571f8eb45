#include "graphs/apexmarker.h"
#include "graphs/graphtest.h"

#include <QTest>

class TestApexMarker : public QObject
{
    Q_OBJECT

private slots:
    void labelStaysInsideTheCanvas_data();
    void labelStaysInsideTheCanvas();
    void isAPlainCentredLabelWithoutLines();
    void longNameIsCut();
};

void TestApexMarker::labelStaysInsideTheCanvas_data()
{
    QTest::addColumn<QPointF>("apex");
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<QPointF>("center");
    QTest::newRow("room enough") << QPointF(50, 50) << QSizeF(40, 10) << QPointF(50, 50);
    QTest::newRow("left edge") << QPointF(5, 50) << QSizeF(40, 10) << QPointF(20, 50);
    QTest::newRow("right edge") << QPointF(95, 50) << QSizeF(40, 10) << QPointF(80, 50);
    QTest::newRow("top edge") << QPointF(50, 0) << QSizeF(40, 10) << QPointF(50, 5);
    QTest::newRow("bottom edge") << QPointF(50, 99) << QSizeF(40, 10) << QPointF(50, 95);
    QTest::newRow("too wide") << QPointF(50, 50) << QSizeF(300, 10) << QPointF(150, 50);
}

void TestApexMarker::labelStaysInsideTheCanvas()
{
    QFETCH(QPointF, apex);
    QFETCH(QSizeF, size);
    QTEST(centerInside(QRectF(0, 0, 100, 100), apex, size), "center");
}

void TestApexMarker::isAPlainCentredLabelWithoutLines()
{
    const QString name = QStringLiteral("<b>Home</b>");
    const ApexMarker marker(name, Qt::red);
    QCOMPARE(marker.label().text(), name);
    QVERIFY(GraphTest::isPlain(marker.label()));
    QCOMPARE(marker.labelAlignment(), Qt::AlignCenter);
    QCOMPARE(marker.labelOrientation(), Qt::Horizontal);
    QCOMPARE(marker.lineStyle(), QwtPlotMarker::NoLine);
    QCOMPARE(marker.linePen(), QPen(Qt::black, 2., Qt::SolidLine));
}

void TestApexMarker::longNameIsCut()
{
    QCOMPARE(ApexMarker(QString(10000, QLatin1Char('n')), Qt::red).label().text().size(), 64);
}

QTEST_MAIN(TestApexMarker)
#include "tst_apexmarker.moc"
