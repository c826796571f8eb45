#include "graphs/graphtest.h"
#include "graphs/signal2gplot.h"
#include "graphs/signal5gplot.h"
#include "support/testair.h"

#include <QTest>
#include <algorithm>
#include <memory>
#include <qwt_plot_curve.h>

using GraphTest::tick;

namespace
{
const double Pixel = 1.;
} // namespace

/// Where the names in the channel graphs stand, and what lies over what. Every test runs for both
/// bands.
class TestApexNames : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void nameStandsExactlyAtItsApex_data() { bands(); }
    void nameStandsExactlyAtItsApex();
    void weakerNameStepsDownAndHasALineToItsApex_data() { bands(); }
    void weakerNameStepsDownAndHasALineToItsApex();
    void nameWithoutRoomStepsBehindTheOthers_data() { bands(); }
    void nameWithoutRoomStepsBehindTheOthers();
    void nameWithoutRoomLeavesTheOthersReadable_data() { bands(); }
    void nameWithoutRoomLeavesTheOthersReadable();
    void nameStaysWithItsTriangleUntilTheTick_data() { bands(); }
    void nameStaysWithItsTriangleUntilTheTick();

private:
    static void bands();
    void draw(const QVector<WifiProperty> &networks);
    QPointF apex(double dBm) const;
    QRectF nameRect(const QString &ssid);
    int indexOf(const QString &ssid);
    QVector<PaintStep> lines();

    std::unique_ptr<SignalChannelPlot> m_plot;
    int m_axis = 0;
    int m_channel = 0;
};

void TestApexNames::bands()
{
    QTest::addColumn<bool>("is2G");
    QTest::newRow("2.4 GHz") << true;
    QTest::newRow("5 GHz") << false;
}

void TestApexNames::init()
{
    QFETCH(bool, is2G);
    if (is2G)
        m_plot = std::make_unique<Signal2GPlot>();
    else
        m_plot = std::make_unique<Signal5GPlot>();
    m_axis = is2G ? QwtPlot::yLeft : QwtPlot::yRight;
    m_channel = is2G ? 6 : 100;
    m_plot->resize(500, 300);
    m_plot->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_plot.get()));
}

void TestApexNames::draw(const QVector<WifiProperty> &networks)
{
    m_plot->onDataReturned(networks);
    for (const WifiProperty &network : networks)
        m_plot->onShowCurve(0, network.ssid, true);
    tick(m_plot.get());
}

QPointF TestApexNames::apex(double dBm) const
{
    return {m_plot->canvasMap(QwtPlot::xBottom).transform(m_channel),
        m_plot->canvasMap(m_axis).transform(dBm)};
}

/// Where the name is written; empty if it is not.
QRectF TestApexNames::nameRect(const QString &ssid)
{
    const int index = indexOf(ssid);
    return index < 0 ? QRectF() : GraphTest::painted(*m_plot).at(index).textBounds;
}

/// Which of all that is painted is the name.
int TestApexNames::indexOf(const QString &ssid)
{
    const QVector<PaintStep> steps = GraphTest::painted(*m_plot);
    const auto step = std::find_if(
        steps.cbegin(), steps.cend(), [&ssid](const PaintStep &each) { return each.text == ssid; });
    return step == steps.cend() ? -1 : static_cast<int>(step - steps.cbegin());
}

/// Straight lines: triangles have a corner more.
QVector<PaintStep> TestApexNames::lines()
{
    QVector<PaintStep> found = GraphTest::painted(*m_plot);
    found.erase(std::remove_if(found.begin(), found.end(),
                    [](const PaintStep &step) { return step.shape.elementCount() != 2; }),
        found.end());
    return found;
}

void TestApexNames::nameStandsExactlyAtItsApex()
{
    const QString name = QStringLiteral("Home");
    draw({TestAir::network(name, -42, m_channel)});
    for (int dBm : {-42, -10, -55, -90}) {
        m_plot->onDataReturned({TestAir::network(name, dBm, m_channel)});
        tick(m_plot.get());
        const QPointF off = nameRect(name).center() - apex(dBm);
        QVERIFY2(off.manhattanLength() < Pixel, qPrintable(QString::number(off.y())));
    }
    QVERIFY(lines().isEmpty());
    // Moved in by the edge: it still covers its apex.
    m_plot->onDataReturned({TestAir::network(name, 0, m_channel)});
    tick(m_plot.get());
    QVERIFY(std::abs(nameRect(name).top() - apex(0).y()) < Pixel);
    QVERIFY(lines().isEmpty());
}

void TestApexNames::weakerNameStepsDownAndHasALineToItsApex()
{
    const QString strong = QStringLiteral("Strong");
    const QString weak = QStringLiteral("A weak one");
    draw({TestAir::network(weak, -53, m_channel), TestAir::network(strong, -50, m_channel)});
    QVERIFY((nameRect(strong).center() - apex(-50)).manhattanLength() < Pixel);
    QVERIFY(std::abs(nameRect(weak).top() - nameRect(strong).bottom()) < Pixel);
    QVERIFY(std::abs(nameRect(weak).center().x() - apex(-53).x()) < Pixel);

    const QVector<PaintStep> found = lines();
    QCOMPARE(found.size(), 1);
    QCOMPARE(found.first().pen.color(), GraphTest::curve(*m_plot, weak)->pen().color());
    QCOMPARE(found.first().pen.widthF(), 1.);
    const QPainterPath line = found.first().shape;
    QVERIFY((QPointF(line.elementAt(0)) - apex(-53)).manhattanLength() < 0.01);
    QVERIFY(nameRect(weak).contains(line.currentPosition()));

    // Over the veils, under the letters.
    const QVector<PaintStep> steps = GraphTest::painted(*m_plot);
    const auto at = std::find_if(steps.cbegin(), steps.cend(),
        [](const PaintStep &step) { return step.shape.elementCount() == 2; });
    QVERIFY(std::none_of(
        at, steps.cend(), [](const PaintStep &step) { return step.brush.style() != Qt::NoBrush; }));
    for (const QString &name : {strong, weak})
        QVERIFY(indexOf(name) > at - steps.cbegin());

    m_plot->onShowCurve(0, strong, false);
    tick(m_plot.get());
    QVERIFY((nameRect(weak).center() - apex(-53)).manhattanLength() < Pixel);
    QVERIFY(lines().isEmpty());
}

void TestApexNames::nameWithoutRoomStepsBehindTheOthers()
{
    const QStringList names = {QStringLiteral("first"), QStringLiteral("second"),
        QStringLiteral("third"), QStringLiteral("the fourth")};
    QVector<WifiProperty> air;
    for (int i = 0; i < names.size(); ++i)
        air.append(TestAir::network(names.at(i), -50 - i, m_channel));
    draw(air);
    QVERIFY((nameRect(names.last()).center() - apex(-53)).manhattanLength() < Pixel);
    for (const QString &other : names.mid(0, 3))
        QVERIFY(indexOf(names.last()) < indexOf(other));
    QCOMPARE(lines().size(), 2);
}

void TestApexNames::nameWithoutRoomLeavesTheOthersReadable()
{
    QVector<WifiProperty> air;
    for (int i = 0; i < 4; ++i)
        air.append(TestAir::network(QString(16, QLatin1Char(char('a' + i))), -50, m_channel));
    draw(air);
    QRegion inFront;
    for (int i = 0; i < 3; ++i)
        inFront += nameRect(air.at(i).ssid).toAlignedRect();
    const QImage with = m_plot->canvas()->grab().toImage();
    m_plot->onShowCurve(0, air.last().ssid, false);
    tick(m_plot.get());
    const QImage without = m_plot->canvas()->grab().toImage();
    QVERIFY(with != without);
    // All but the triangles, of which there is one less.
    const QRect apexes = QRect(qRound(apex(-50).x()) - 24, 0, 48, with.height());
    QVERIFY(!(inFront - apexes).isEmpty());
    for (const QRect &rect : inFront - apexes) {
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x)
                QCOMPARE(with.pixelColor(x, y), without.pixelColor(x, y));
        }
    }
}

void TestApexNames::nameStaysWithItsTriangleUntilTheTick()
{
    const QString name = QStringLiteral("Home");
    const WifiProperty other = TestAir::network(QStringLiteral("Cafe"), -95, m_channel);
    draw({TestAir::network(name, -40, m_channel), other});
    m_plot->onDataReturned({TestAir::network(name, -70, m_channel)});
    // Draws everything anew.
    m_plot->onShowCurve(0, other.ssid, false);
    QVERIFY((nameRect(name).center() - apex(-40)).manhattanLength() < Pixel);
    tick(m_plot.get());
    QVERIFY((nameRect(name).center() - apex(-70)).manhattanLength() < Pixel);
}

QTEST_MAIN(TestApexNames)
#include "tst_apexnames.moc"
