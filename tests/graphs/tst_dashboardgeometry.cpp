#include "graphs/dashboardgeometry.h"

#include <QTest>
#include <limits>

using namespace DashboardGeometry;

namespace
{
const QPoint Center(160, 145);
const int Radius = 120;
} // namespace

class TestDashboardGeometry : public QObject
{
    Q_OBJECT

private slots:
    void handStandsAtTheSignal_data();
    void handStandsAtTheSignal();
    void sectorIsCorrectedByTheSignal_data();
    void sectorIsCorrectedByTheSignal();
    void sectorReachesTheHand_data();
    void sectorReachesTheHand();
    void ticksAndLabelsStandAroundTheDial_data();
    void ticksAndLabelsStandAroundTheDial();
    void scaleCarriesItsTexts_data();
    void scaleCarriesItsTexts();
    void wordsStandInsideTheDial_data();
    void wordsStandInsideTheDial();
    void percentageFollowsTheSignal_data();
    void percentageFollowsTheSignal();
    void offsetIsCutToWholePixels();
    void truncatedPiShowsInWholePixels();
    void shadowNeverGetsBelowZero_data();
    void shadowNeverGetsBelowZero();
};

void TestDashboardGeometry::handStandsAtTheSignal_data()
{
    QTest::addColumn<int>("dBm");
    QTest::addColumn<int>("angle");
    QTest::newRow("0") << 0 << 384;
    QTest::newRow("-1") << -1 << 382;
    QTest::newRow("-25") << -25 << 326;
    QTest::newRow("-41") << -41 << 288;
    QTest::newRow("-50: turned back by 6") << -50 << 267;
    QTest::newRow("-51: turned back by 2") << -51 << 269;
    QTest::newRow("-76") << -76 << 210;
    QTest::newRow("-100") << -100 << 153;
    QTest::newRow("-120") << -120 << 106;
    QTest::newRow("5 mirrors -5, turned back by 2") << 5 << 377;
    QTest::newRow("-5") << -5 << 373;
}

void TestDashboardGeometry::handStandsAtTheSignal()
{
    QFETCH(int, dBm);
    QTEST(handAngle(dBm), "angle");
    // No signal is rejected; the arithmetic must hold for all of them.
    for (int extreme : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        const Arc arc = slipArc(extreme, handAngle(extreme));
        QVERIFY(qAbs(arc.span) < std::numeric_limits<int>::max() / 16);
        QVERIFY(qAbs(arc.start) < std::numeric_limits<int>::max() / 16);
    }
}

void TestDashboardGeometry::sectorIsCorrectedByTheSignal_data()
{
    QTest::addColumn<int>("dBm");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("span");
    const auto row = [](int dBm, int start, int span) {
        QTest::addRow("%d", dBm) << dBm << start << span;
    };
    row(7, -8, -14);
    row(0, -8, -14);
    row(-25, -8, -14);
    row(-26, -10, -12);
    row(-40, -10, -12);
    QTest::newRow("-41 falls through") << -41 << -21 << 0;
    row(-42, -11, -11);
    row(-48, -11, -11);
    row(-49, -14, -8);
    row(-68, -14, -8);
    row(-69, -15, -6);
    row(-75, -15, -6);
    row(-76, -20, -1);
    row(-96, -20, -1);
    row(-97, -21, 0);
    row(-100, -21, 0);
}

void TestDashboardGeometry::sectorIsCorrectedByTheSignal()
{
    QFETCH(int, dBm);
    QFETCH(int, start);
    QFETCH(int, span);
    QCOMPARE(slipCorrection(dBm).start, start);
    QCOMPARE(slipCorrection(dBm).span, span);
}

void TestDashboardGeometry::sectorReachesTheHand_data()
{
    QTest::addColumn<int>("dBm");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("span");
    QTest::newRow("0") << 0 << -25 << 230;
    QTest::newRow("-41") << -41 << 64 << 142;
    QTest::newRow("-50") << -50 << 94 << 111;
    QTest::newRow("-60") << -60 << 115 << 90;
    QTest::newRow("-100") << -100 << 209 << -2;
}

void TestDashboardGeometry::sectorReachesTheHand()
{
    QFETCH(int, dBm);
    QFETCH(int, start);
    QFETCH(int, span);
    const Arc arc = slipArc(dBm, handAngle(dBm));
    QCOMPARE(arc.start, start);
    QCOMPARE(arc.span, span);
}

void TestDashboardGeometry::ticksAndLabelsStandAroundTheDial_data()
{
    QTest::addColumn<int>("tick");
    QTest::addColumn<QLine>("line");
    QTest::addColumn<QPoint>("label");
    const auto row = [](int tick, const QPoint &inner, const QPoint &outer, const QPoint &label) {
        QTest::addRow("%d", tick) << tick << QLine(inner, outer) << label;
    };
    row(0, {75, 184}, {69, 187}, {20, 211});
    row(1, {69, 165}, {62, 167}, {11, 180});
    row(3, {68, 127}, {61, 125}, {14, 118});
    row(7, {112, 65}, {108, 59}, {87, 27});
    row(8, {129, 57}, {127, 50}, {114, 17});
    row(9, {148, 52}, {147, 45}, {142, 17});
    row(12, {205, 63}, {208, 57}, {222, 33});
    row(16, {250, 124}, {257, 122}, {287, 119});
    row(17, {252, 143}, {259, 143}, {290, 146});
    row(18, {251, 162}, {258, 164}, {288, 181});
    row(19, {245, 181}, {252, 184}, {280, 207});
}

void TestDashboardGeometry::ticksAndLabelsStandAroundTheDial()
{
    QFETCH(int, tick);
    QTEST(tickLine(Center, Radius, tick), "line");
    QTEST(labelPosition(Center, Radius, tick), "label");
}

void TestDashboardGeometry::scaleCarriesItsTexts_data()
{
    QTest::addColumn<int>("tick");
    QTest::addColumn<QStringList>("texts");
    const QStringList texts[TickCount] = {
        {QStringLiteral("dBm")},
        {QStringLiteral("-95")},
        {},
        {QStringLiteral("-85"), QStringLiteral("Poor")},
        {},
        {QStringLiteral("-75")},
        {},
        {QStringLiteral("-65")},
        {},
        {QStringLiteral("-50"), QStringLiteral("Good")},
        {},
        {},
        {QStringLiteral("-35")},
        {},
        {QStringLiteral("-25")},
        {},
        {QStringLiteral("-15"), QStringLiteral("Best")},
        {},
        {QStringLiteral("-5")},
        {QStringLiteral("dBm")},
    };
    for (int tick = 0; tick < TickCount; ++tick)
        QTest::addRow("%d", tick) << tick << texts[tick];
}

void TestDashboardGeometry::scaleCarriesItsTexts()
{
    QFETCH(int, tick);
    QStringList texts;
    for (const ScaleText &text : scaleTexts(Center, Radius, tick))
        texts.append(text.text);
    QTEST(texts, "texts");
}

void TestDashboardGeometry::wordsStandInsideTheDial_data()
{
    QTest::addColumn<int>("tick");
    QTest::addColumn<QPoint>("number");
    QTest::addColumn<QPoint>("word");
    QTest::addColumn<QColor>("color");
    QTest::newRow("Poor") << 3 << QPoint(14, 118) << QPoint(74, 141) << QColor(255, 0, 0);
    QTest::newRow("Good") << 9 << QPoint(144, 17) << QPoint(143, 77) << QColor(162, 208, 114);
    QTest::newRow("Best") << 16 << QPoint(287, 119) << QPoint(212, 142) << QColor(0, 176, 80);
}

void TestDashboardGeometry::wordsStandInsideTheDial()
{
    QFETCH(int, tick);
    const QVector<ScaleText> texts = scaleTexts(Center, Radius, tick);
    QCOMPARE(texts.size(), 2);
    QTEST(texts[0].position, "number");
    QCOMPARE(texts[0].pointSize, 10);
    QCOMPARE(texts[0].color, QColor(Qt::black));
    QTEST(texts[1].position, "word");
    QCOMPARE(texts[1].pointSize, 12);
    QTEST(texts[1].color, "color");
}

void TestDashboardGeometry::percentageFollowsTheSignal_data()
{
    QTest::addColumn<int>("dBm");
    QTest::addColumn<QString>("percent");
    QTest::newRow("none") << 0 << "0%";
    QTest::newRow("-1") << -1 << "99%";
    QTest::newRow("-60") << -60 << "40%";
    QTest::newRow("-100") << -100 << "0%";
    QTest::newRow("-120") << -120 << "-20%";
    QTest::newRow("10") << 10 << "110%";
}

void TestDashboardGeometry::percentageFollowsTheSignal()
{
    QFETCH(int, dBm);
    QTEST(percentText(dBm), "percent");
}

void TestDashboardGeometry::offsetIsCutToWholePixels()
{
    QCOMPARE(offsetAt(0, 5.9), QPoint(5, 0));
    QCOMPARE(offsetAt(45, 4.), QPoint(2, 2));
    QCOMPARE(offsetAt(135, 4.), QPoint(-2, 2));
    QCOMPARE(offsetAt(267, 120.), QPoint(-6, -119));
}

void TestDashboardGeometry::truncatedPiShowsInWholePixels()
{
    // With all digits of pi each of these ends one pixel elsewhere.
    QCOMPARE(offsetAt(90, 120.), QPoint(0, 119));
    QCOMPARE(offsetAt(150, 4.), QPoint(-3, 2));
    QCOMPARE(offsetAt(180, 120.), QPoint(-119, 0));
    QCOMPARE(offsetAt(210, 4.), QPoint(-3, -1));
}

void TestDashboardGeometry::shadowNeverGetsBelowZero_data()
{
    QTest::addColumn<int>("full");
    QTest::addColumn<double>("pass");
    QTest::addColumn<int>("alpha");
    QTest::newRow("rim 1") << 100 << 1. << 50;
    QTest::newRow("rim 2") << 100 << 2. << 29;
    QTest::newRow("rim 4") << 100 << 4. << 0;
    QTest::newRow("knob 3") << 120 << 3. << 33;
    QTest::newRow("knob 5") << 120 << 5. << 8;
    QTest::newRow("knob 6") << 120 << 6. << 0;
    QTest::newRow("knob 11") << 120 << 11. << 0;
    QTest::newRow("hand 5") << 150 << 5. << 38;
    QTest::newRow("hand 10") << 150 << 10. << 0;
}

void TestDashboardGeometry::shadowNeverGetsBelowZero()
{
    QFETCH(int, full);
    QFETCH(double, pass);
    QTEST(shadowAlpha(full, pass), "alpha");
}

QTEST_MAIN(TestDashboardGeometry)
#include "tst_dashboardgeometry.moc"
