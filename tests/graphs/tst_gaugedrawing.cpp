#include "graphs/dashboardgeometry.h"
#include "graphs/gaugepicture.h"
#include "support/paintrecord.h"

#include <QTest>
#include <algorithm>
#include <iterator>

// What the gauge draws, call by call. How it looks then is tested elsewhere.
namespace
{
const QPoint Center(160, 145);
const QRect Box(105, 167, 110, 30);
const QColor Face(215, 215, 215);
const QColor Slip(64, 48, 145);
const QColor Hub(240, 240, 240);

using Steps = QVector<PaintStep>;

Steps drawn(int dBm)
{
    QWidget frame;
    Gauge gauge(&frame);
    gauge.setFixedSize(320, 260);
    gauge.onNetworkReturned(QStringLiteral("Home"));
    gauge.SetSignalValue(dBm);
    PaintRecord record(gauge.size());
    gauge.render(&record, {}, {}, {});
    return record.steps();
}

QString partOf(const PaintStep &step)
{
    const bool shadow = step.pen.color().alpha() < 255;
    if (!step.text.isEmpty()) {
        if (step.pen.color() == QColor(Qt::white))
            return QStringLiteral("box");
        return step.font.pointSize() == 11 ? QStringLiteral("caption") : QStringLiteral("scale");
    }
    if (step.shape.elementCount() == 2)
        return QStringLiteral("scale");
    if (step.shape.elementCount() == 3)
        return shadow ? QStringLiteral("hand's shadow") : QStringLiteral("hand");
    if (step.brush.style() == Qt::NoBrush)
        return shadow ? QStringLiteral("rim's shadow") : QStringLiteral("rim");
    if (step.brush.color() == Face)
        return QStringLiteral("face");
    if (step.brush.color() == Slip)
        return QStringLiteral("sector");
    if (step.brush.color() == QColor(Qt::black))
        return QStringLiteral("box");
    return shadow ? QStringLiteral("knob's shadow") : QStringLiteral("hub");
}

/// The steps that draw `part`.
Steps part(const char *part, int dBm = -60)
{
    Steps found;
    const Steps all = drawn(dBm);
    std::copy_if(all.begin(), all.end(), std::back_inserter(found),
        [part](const PaintStep &step) { return partOf(step) == QLatin1String(part); });
    return found;
}

QPen solid(const QColor &color, qreal width)
{
    return {QBrush(color), width};
}

QPainterPath circle(const QPoint &center, int radius)
{
    QPainterPath path;
    path.addEllipse(QRect(center - QPoint(radius, radius), QSize(2 * radius, 2 * radius)));
    return path;
}
} // namespace

class TestGaugeDrawing : public QObject
{
    Q_OBJECT

private slots:
    void everyPartLiesOnTheOnesBeforeIt();
    void rimIsWhiteOverAFadingShadow();
    void sectorIsPurpleAndOutlinedSo();
    void boxIsBlackWithRoundedCorners();
    void boxShowsTheSignalItselfAndItsUnit_data();
    void boxShowsTheSignalItselfAndItsUnit();
    void scaleHasTwentyWhiteTicks();
    void scaleCarriesItsNumbersAndWords();
    void captionStandsAboveThePercentage_data();
    void captionStandsAboveThePercentage();
    void knobThrowsAFadingShadow();
    void handIsWhiteOverAFadingShadow();
    void hubIsLightGrey();
};

void TestGaugeDrawing::everyPartLiesOnTheOnesBeforeIt()
{
    QStringList parts;
    for (const PaintStep &step : drawn(-60)) {
        const QString part = partOf(step);
        if (parts.isEmpty() || parts.last() != part)
            parts.append(part);
    }
    const char *const expected[] = {"rim's shadow", "rim", "face", "sector", "box", "scale",
        "caption", "knob's shadow", "hand's shadow", "hand", "hub"};
    QStringList order;
    for (const char *part : expected)
        order.append(QString::fromLatin1(part));
    QCOMPARE(parts, order);
}

void TestGaugeDrawing::rimIsWhiteOverAFadingShadow()
{
    const Steps shadow = part("rim's shadow");
    const int alphas[] = {50, 50, 29, 13};
    QCOMPARE(shadow.size(), static_cast<int>(std::size(alphas)));
    for (int i = 0; i < shadow.size(); ++i)
        QCOMPARE(shadow[i].pen, solid(QColor(0, 0, 0, alphas[i]), 7));
    const Steps rim = part("rim");
    QCOMPARE(rim.size(), 1);
    QCOMPARE(rim[0].pen, solid(Qt::white, 7));
    const Steps face = part("face");
    QCOMPARE(face.size(), 1);
    QCOMPARE(face[0].pen, solid(Qt::black, 7));
}

void TestGaugeDrawing::sectorIsPurpleAndOutlinedSo()
{
    const Steps sector = part("sector");
    QCOMPARE(sector.size(), 1);
    QCOMPARE(sector[0].pen, solid(Slip, 4));
    QCOMPARE(sector[0].brush, QBrush(Slip));
    QPainterPath pie(QPointF(160, 145));
    pie.arcTo(52, 37, 216, 216, 115, 90);
    pie.closeSubpath();
    QCOMPARE(sector[0].shape, pie);
}

void TestGaugeDrawing::boxIsBlackWithRoundedCorners()
{
    const PaintStep box = part("box").first();
    QPainterPath rounded;
    rounded.addRoundedRect(Box, 2, 2);
    QCOMPARE(box.shape, rounded);
    QCOMPARE(box.brush, QBrush(Qt::black));
    QCOMPARE(box.pen, QPen(Qt::black));
}

void TestGaugeDrawing::boxShowsTheSignalItselfAndItsUnit_data()
{
    QTest::addColumn<int>("dBm");
    QTest::addColumn<QString>("number");
    QTest::newRow("ordinary") << -60 << "-60";
    QTest::newRow("one digit") << -7 << "-7";
    QTest::newRow("weakest") << -100 << "-100";
    QTest::newRow("none") << 0 << "0";
}

void TestGaugeDrawing::boxShowsTheSignalItselfAndItsUnit()
{
    QFETCH(int, dBm);
    QFETCH(QString, number);
    const Steps box = part("box", dBm);
    QCOMPARE(box.size(), 3);
    QCOMPARE(box[1].text, number);
    QCOMPARE(box[1].position, QPointF(130, 187));
    QCOMPARE(box[2].text, QStringLiteral("dBm"));
    QCOMPARE(box[2].position, QPointF(165, 187));
    for (int i : {1, 2}) {
        QCOMPARE(box[i].font.pointSize(), 12);
        QCOMPARE(box[i].pen, QPen(Qt::white));
    }
}

void TestGaugeDrawing::scaleHasTwentyWhiteTicks()
{
    int tick = 0;
    for (const PaintStep &step : part("scale")) {
        if (!step.text.isEmpty())
            continue;
        const QLine line = DashboardGeometry::tickLine(Center, 120, tick++);
        QPainterPath expected(line.p1());
        expected.lineTo(line.p2());
        QCOMPARE(step.shape, expected);
        QCOMPARE(step.pen, solid(Qt::white, 7));
    }
    QCOMPARE(tick, 20);
}

void TestGaugeDrawing::scaleCarriesItsNumbersAndWords()
{
    struct Label {
        const char *text;
        QPoint position;
        int pointSize;
        QColor color;
    };
    const QColor black(Qt::black);
    const Label labels[] = {
        {"dBm", {20, 211}, 10, black},
        {"-95", {11, 180}, 10, black},
        {"-85", {14, 118}, 10, black},
        {"Poor", {74, 141}, 12, QColor(Qt::red)},
        {"-75", {41, 64}, 10, black},
        {"-65", {87, 27}, 10, black},
        {"-50", {144, 17}, 10, black},
        {"Good", {143, 77}, 12, QColor(162, 208, 114)},
        {"-35", {222, 33}, 10, black},
        {"-25", {264, 69}, 10, black},
        {"-15", {287, 119}, 10, black},
        {"Best", {212, 142}, 12, QColor(0, 176, 80)},
        {"-5", {288, 181}, 10, black},
        {"dBm", {280, 207}, 10, black},
    };
    Steps texts = part("scale");
    texts.erase(std::remove_if(texts.begin(), texts.end(),
                    [](const PaintStep &step) { return step.text.isEmpty(); }),
        texts.end());
    QCOMPARE(texts.size(), static_cast<int>(std::size(labels)));
    for (int i = 0; i < texts.size(); ++i) {
        QCOMPARE(texts[i].text, QString::fromLatin1(labels[i].text));
        QCOMPARE(texts[i].position, QPointF(labels[i].position));
        QCOMPARE(texts[i].font.pointSize(), labels[i].pointSize);
        QCOMPARE(texts[i].pen, QPen(labels[i].color));
    }
}

void TestGaugeDrawing::captionStandsAboveThePercentage_data()
{
    QTest::addColumn<int>("dBm");
    QTest::addColumn<QString>("percentage");
    QTest::newRow("ordinary") << -60 << "40%";
    QTest::newRow("weakest") << -100 << "0%";
    QTest::newRow("none") << 0 << "0%";
}

void TestGaugeDrawing::captionStandsAboveThePercentage()
{
    QFETCH(int, dBm);
    QFETCH(QString, percentage);
    const Steps caption = part("caption", dBm);
    QCOMPARE(caption.size(), 2);
    QCOMPARE(caption[0].text, QStringLiteral("Signal Strength"));
    QCOMPARE(caption[0].position, QPointF(105, 215));
    QCOMPARE(caption[1].text, percentage);
    QCOMPARE(caption[1].position, QPointF(150, 233));
    for (const PaintStep &step : caption)
        QCOMPARE(step.pen, QPen(Qt::black));
}

void TestGaugeDrawing::knobThrowsAFadingShadow()
{
    const Steps shadow = part("knob's shadow");
    const int alphas[] = {50, 33, 20, 8};
    QCOMPARE(shadow.size(), static_cast<int>(std::size(alphas)));
    for (int i = 0; i < shadow.size(); ++i) {
        // The hand stands at 247°.
        const QPoint middle = Center + DashboardGeometry::offsetAt(247 + 30, i + 3);
        const QColor color(0, 0, 0, alphas[i]);
        QCOMPARE(shadow[i].shape, circle(middle, 13));
        QCOMPARE(shadow[i].pen, QPen(color));
        QCOMPARE(shadow[i].brush, QBrush(color));
    }
}

void TestGaugeDrawing::handIsWhiteOverAFadingShadow()
{
    const auto handTo = [](double width, int length) {
        QPainterPath path(Center + DashboardGeometry::offsetAt(247 - 90, width));
        path.lineTo(Center + DashboardGeometry::offsetAt(247, length));
        path.lineTo(Center + DashboardGeometry::offsetAt(247 + 90, width));
        return path;
    };
    const Steps shadow = part("hand's shadow");
    const int alphas[] = {50, 38, 27, 17, 8};
    QCOMPARE(shadow.size(), static_cast<int>(std::size(alphas)));
    for (int i = 0; i < shadow.size(); ++i) {
        QCOMPARE(shadow[i].shape, handTo(5 + i, 123));
        QCOMPARE(shadow[i].pen, solid(QColor(0, 0, 0, alphas[i]), 8));
    }
    const Steps hand = part("hand");
    QCOMPARE(hand.size(), 1);
    QCOMPARE(hand[0].shape, handTo(4, 120));
    QCOMPARE(hand[0].pen, solid(Qt::white, 8));
}

void TestGaugeDrawing::hubIsLightGrey()
{
    const Steps hub = part("hub");
    QCOMPARE(hub.size(), 1);
    QCOMPARE(hub[0].shape, circle(Center, 14));
    QCOMPARE(hub[0].pen, QPen(Hub));
    QCOMPARE(hub[0].brush, QBrush(Hub));
}

QTEST_MAIN(TestGaugeDrawing)
#include "tst_gaugedrawing.moc"
