#include "common/QtCommonTools.h"
#include "graphs/gaugepicture.h"
#include "graphs/graphtest.h"
#include "i18n/ipclocalsocket.h"
#include "i18n/languagefileoperate.h"
#include "support/messagelog.h"

#include <QAccessible>
#include <QImage>
#include <QTest>
#include <utility>

namespace
{
const QString Home = QStringLiteral("Home");
const QColor Hub(240, 240, 240);
const QColor Slip(64, 48, 145);
const QColor Face(215, 215, 215);

using Events = QVector<QAccessible::Event>;

/// Writes down what it tells assistive technology.
class TalkingGauge : public Gauge
{
public:
    /// What was told since the last call.
    Events told()
    {
        QCoreApplication::processEvents();
        return std::exchange(m_told, {});
    }

protected:
    void tell(QAccessibleEvent &event) override
    {
        QCOMPARE(event.object(), this);
        m_told.append(event.type());
        Gauge::tell(event);
    }

private:
    Events m_told;
};

QImage picture(QWidget &gauge)
{
    gauge.setFixedSize(320, 260);
    return gauge.grab().toImage();
}
} // namespace

class TestSignalStrengthDashboard : public QObject
{
    Q_OBJECT

private slots:
    void instanceIsMadeOnce();
    void dialStandsWhereTheFirstSizePutsIt();
    void initTakesTheCurrentSize();
    void radiusLeavesTheOriginAlone();
    void initResetsRadiusAndSignal();
    void signalNeedsANetwork();
    void nameResetsTheSignal();
    void everyNewSignalOrNameIsPainted();
    void handPointsAtTheSignal_data();
    void handPointsAtTheSignal();
    void sectorIsFilledUpToTheHand();
    void minus41FillsTheUncorrectedSector();
    void rimIsSevenPixelsWideAndSmooth();
    void rimAndHandThrowShadows();
    void boxAndCaptionHoldTheirTexts();
    void paintingIsQuietForEverySignal_data();
    void paintingIsQuietForEverySignal();
    void tellsSignalAndPercentage_data();
    void tellsSignalAndPercentage();
    void tellsWhetherItIsJoined();
    void announcesEachChangeOnce();
};

void TestSignalStrengthDashboard::instanceIsMadeOnce()
{
    QWidget first;
    QWidget second;
    SignalStrengthDashboard *gauge = SignalStrengthDashboard::Instance(&first);
    QCOMPARE(gauge->parentWidget(), &first);
    QCOMPARE(SignalStrengthDashboard::Instance(&second), gauge);
    QCOMPARE(SignalStrengthDashboard::Instance(nullptr), gauge);
    QCOMPARE(gauge->parentWidget(), &first);
}

void TestSignalStrengthDashboard::dialStandsWhereTheFirstSizePutsIt()
{
    QWidget frame;
    Gauge gauge(&frame);
    QCOMPARE(gauge.size(), QSize(100, 30));
    const QImage image = picture(gauge);
    QCOMPARE(image.pixelColor(160, 145), Hub);
    QCOMPARE(image.pixelColor(150, 145), Hub);
    QVERIFY(image.pixelColor(160, 145 + 20) != Hub);
    // The rim: white at the top of the circle, 120 pixels above the origin.
    QCOMPARE(image.pixelColor(160, 25), QColor(Qt::white));
}

void TestSignalStrengthDashboard::initTakesTheCurrentSize()
{
    QWidget frame;
    Gauge gauge(&frame);
    gauge.resize(20, 10);
    gauge.Init();
    // The origin is (20 / 2 + 110, 10 / 2 + 130) now.
    const QImage image = picture(gauge);
    QCOMPARE(image.pixelColor(120, 135), Hub);
    QVERIFY(image.pixelColor(160, 145) != Hub);
}

void TestSignalStrengthDashboard::radiusLeavesTheOriginAlone()
{
    QWidget frame;
    Gauge gauge(&frame);
    gauge.SetOriginAndRadius(60);
    const QImage image = picture(gauge);
    QCOMPARE(image.pixelColor(160, 145), Hub);
    QCOMPARE(image.pixelColor(160, 85), QColor(Qt::white));
    QVERIFY(image.pixelColor(160, 25) != QColor(Qt::white));
}

void TestSignalStrengthDashboard::initResetsRadiusAndSignal()
{
    QWidget frame;
    Gauge gauge(&frame);
    const QImage fresh = picture(gauge);
    gauge.setFixedSize(100, 30);
    gauge.SetOriginAndRadius(60);
    gauge.onNetworkReturned(Home);
    gauge.SetSignalValue(-60);
    gauge.Init();
    QCOMPARE(gauge.SignalValue(), 0);
    QCOMPARE(picture(gauge), fresh);
}

void TestSignalStrengthDashboard::signalNeedsANetwork()
{
    Gauge gauge;
    gauge.SetSignalValue(-60);
    QCOMPARE(gauge.SignalValue(), 0);
    QVERIFY(!gauge.IsConnected());
    gauge.onNetworkReturned(Home);
    QVERIFY(gauge.IsConnected());
    gauge.SetSignalValue(-60);
    QCOMPARE(gauge.SignalValue(), -60);
    gauge.SetSignalValue(7);
    QCOMPARE(gauge.SignalValue(), 7);
    gauge.onNetworkReturned(QString());
    QVERIFY(!gauge.IsConnected());
    gauge.SetSignalValue(-60);
    QCOMPARE(gauge.SignalValue(), 0);
}

void TestSignalStrengthDashboard::nameResetsTheSignal()
{
    Gauge gauge;
    gauge.onNetworkReturned(Home);
    gauge.SetSignalValue(-60);
    gauge.onNetworkReturned(Home);
    QCOMPARE(gauge.SignalValue(), 0);
}

void TestSignalStrengthDashboard::everyNewSignalOrNameIsPainted()
{
    Gauge gauge;
    QVERIFY(GraphTest::repaints(gauge, [&gauge] { gauge.onNetworkReturned(Home); }));
    QVERIFY(GraphTest::repaints(gauge, [&gauge] { gauge.SetSignalValue(-60); }));
    QVERIFY(GraphTest::repaints(gauge, [&gauge] { gauge.SetSignalValue(-61); }));
    QVERIFY(GraphTest::repaints(gauge, [&gauge] { gauge.onNetworkReturned(QString()); }));
}

void TestSignalStrengthDashboard::handPointsAtTheSignal_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<int>("angle");
    QTest::newRow("none") << 0 << 384;
    QTest::newRow("-1") << -1 << 382;
    QTest::newRow("-25") << -25 << 326;
    QTest::newRow("-41") << -41 << 288;
    QTest::newRow("-50") << -50 << 267;
    QTest::newRow("-51") << -51 << 269;
    QTest::newRow("-76") << -76 << 210;
    QTest::newRow("-100") << -100 << 153;
}

void TestSignalStrengthDashboard::handPointsAtTheSignal()
{
    QFETCH(int, signal);
    QFETCH(int, angle);
    QWidget frame;
    Gauge gauge(&frame);
    gauge.onNetworkReturned(Home);
    gauge.SetSignalValue(signal);
    const double found = GaugePicture::handAngle(picture(gauge), 60.);
    QVERIFY2(qAbs(found - angle) <= 1.5, qPrintable(QString::number(found)));
}

void TestSignalStrengthDashboard::sectorIsFilledUpToTheHand()
{
    QWidget frame;
    Gauge gauge(&frame);
    gauge.onNetworkReturned(Home);
    gauge.SetSignalValue(-60);
    const QImage image = picture(gauge);
    const int hand = 390 - 141 - 2;
    const double inside = 55.; // nearer to the middle than the words on the face, in any font
    QCOMPARE(GaugePicture::colorAt(image, hand - 15, inside), Slip);
    QCOMPARE(GaugePicture::colorAt(image, 170, inside), Slip);
    QCOMPARE(GaugePicture::colorAt(image, hand + 15, inside), Face);
    QCOMPARE(GaugePicture::colorAt(image, 380, inside), Face);
}

void TestSignalStrengthDashboard::minus41FillsTheUncorrectedSector()
{
    QWidget frame;
    Gauge gauge(&frame);
    gauge.onNetworkReturned(Home);
    gauge.SetSignalValue(-41);
    // From 64° counter-clockwise the sector begins 8° beyond the hand at 288°; its neighbours' do
    // not reach past their hands.
    QCOMPARE(GaugePicture::colorAt(picture(gauge), 294, 105.), Slip);
    gauge.SetSignalValue(-40);
    QVERIFY(GaugePicture::colorAt(picture(gauge), 298, 105.) != Slip);
}

void TestSignalStrengthDashboard::rimIsSevenPixelsWideAndSmooth()
{
    QWidget frame;
    Gauge gauge(&frame);
    gauge.onNetworkReturned(Home);
    gauge.SetSignalValue(-100); // no sector in the way
    const QImage image = picture(gauge);
    const QColor background = image.pixelColor(2, 2);
    // From the outside: the white rim around 120, the black one around 112.5, the face.
    QCOMPARE(GaugePicture::colorAt(image, 225, 120.), QColor(Qt::white));
    QCOMPARE(GaugePicture::colorAt(image, 225, 114.), QColor(Qt::black));
    QCOMPARE(GaugePicture::colorAt(image, 225, 112.), QColor(Qt::black));
    int between = 0;
    for (int angle = 215; angle < 235; ++angle) {
        const QColor edge = GaugePicture::colorAt(image, angle, 123.5);
        between += edge != background && edge != QColor(Qt::white) ? 1 : 0;
    }
    QVERIFY2(between >= 5, qPrintable(QString::number(between)));
}

void TestSignalStrengthDashboard::rimAndHandThrowShadows()
{
    QWidget frame;
    Gauge gauge(&frame);
    gauge.onNetworkReturned(Home);
    gauge.SetSignalValue(-60);
    const QImage image = picture(gauge);
    const QColor background = image.pixelColor(2, 2);
    // Just outside the rim: dark to the lower right, nothing to the upper left.
    QVERIFY(GaugePicture::colorAt(image, 45, 126.).lightness() < background.lightness() - 10);
    QCOMPARE(GaugePicture::colorAt(image, 225, 126.), background);
    // Just beside the hand, on the side that is not filled.
    const QColor besideTheHand = GaugePicture::colorAt(image, 247 + 7, 60.);
    QVERIFY(besideTheHand.lightness() < Face.lightness() - 10);
    QCOMPARE(besideTheHand.saturation(), 0);
}

void TestSignalStrengthDashboard::boxAndCaptionHoldTheirTexts()
{
    QWidget frame;
    Gauge gauge(&frame);
    gauge.onNetworkReturned(Home);
    gauge.SetSignalValue(-60);
    const QImage image = picture(gauge);
    const auto reaches = [&image](const QRect &area, bool light) {
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                const int lightness = image.pixelColor(x, y).lightness();
                if (light ? lightness > 200 : lightness < 80)
                    return true;
            }
        }
        return false;
    };
    // The box is (105, 167, 110, 30): the number from 130 on, the unit from 165 on.
    QCOMPARE(image.pixelColor(110, 190), QColor(Qt::black));
    QVERIFY(!reaches({108, 172, 21, 20}, true));
    QVERIFY(reaches({130, 174, 32, 14}, true));
    QVERIFY(reaches({165, 174, 35, 14}, true));
    // Below it the caption from 105 on and the percentage from 150 on.
    QVERIFY(reaches({105, 203, 100, 13}, false));
    QVERIFY(reaches({150, 221, 30, 13}, false));
    QVERIFY(!reaches({105, 221, 44, 13}, false));
}

void TestSignalStrengthDashboard::paintingIsQuietForEverySignal_data()
{
    QTest::addColumn<int>("signal");
    for (int signal : {0, -1, -41, -100, -101, 50, 1000000, INT_MIN, INT_MAX})
        QTest::addRow("%d", signal) << signal;
}

void TestSignalStrengthDashboard::paintingIsQuietForEverySignal()
{
    QFETCH(int, signal);
    QWidget frame;
    Gauge gauge(&frame);
    const MessageLog log;
    gauge.onNetworkReturned(Home);
    gauge.SetSignalValue(signal);
    picture(gauge);
    QCOMPARE(log.messages(QtWarningMsg), QStringList());
    QCOMPARE(log.criticals(), QStringList());
}

void TestSignalStrengthDashboard::tellsSignalAndPercentage_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QString>("told");
    QTest::newRow("ordinary") << -54 << "-54 dBm, 46%";
    QTest::newRow("weakest") << -100 << "-100 dBm, 0%";
    QTest::newRow("none") << 0 << "0 dBm, 0%";
}

void TestSignalStrengthDashboard::tellsSignalAndPercentage()
{
    QFETCH(int, signal);
    Gauge gauge;
    gauge.onNetworkReturned(Home);
    gauge.SetSignalValue(signal);
    QAccessibleInterface *told = QAccessible::queryAccessibleInterface(&gauge);
    QVERIFY(told);
    QTEST(told->text(QAccessible::Value), "told");
    QCOMPARE(told->text(QAccessible::Name), QStringLiteral("Signal Strength"));
    QCOMPARE(told->role(), QAccessible::ProgressBar);
    QAccessibleValueInterface *value = told->valueInterface();
    QVERIFY(value);
    QCOMPARE(value->currentValue().toInt(), signal);
    QCOMPARE(value->minimumValue().toInt(), -100);
    QCOMPARE(value->maximumValue().toInt(), 0);
    value->setCurrentValue(-1);
    QCOMPARE(gauge.SignalValue(), signal);
}

void TestSignalStrengthDashboard::tellsWhetherItIsJoined()
{
    IpcLocalSocket host(QStringLiteral("no such server"));
    LanguageFileOperate languages;
    languages.Init();
    QtCommonTools::m_pLocalSocket = &host;
    QtCommonTools::m_pLangFileOperate = &languages;
    Gauge gauge;
    QAccessibleInterface *told = QAccessible::queryAccessibleInterface(&gauge);
    QVERIFY(told);
    QCOMPARE(told->text(QAccessible::Description), QStringLiteral("Not Connected"));
    gauge.onNetworkReturned(QStringLiteral("<b>Home</b>\n"));
    QVERIFY(
        told->text(QAccessible::Description).startsWith(QLatin1String("Connected to <b>Home</b>")));
    QVERIFY(!told->text(QAccessible::Description).contains(QLatin1Char('\n')));
    gauge.onNetworkReturned(QString());
    QCOMPARE(told->text(QAccessible::Description), QStringLiteral("Not Connected"));
    QtCommonTools::m_pLocalSocket = nullptr;
    QtCommonTools::m_pLangFileOperate = nullptr;
}

void TestSignalStrengthDashboard::announcesEachChangeOnce()
{
    TalkingGauge gauge;
    gauge.onNetworkReturned(Home);
    gauge.SetSignalValue(-60);
    QCOMPARE(gauge.told(), (Events{QAccessible::DescriptionChanged, QAccessible::ValueChanged}));
    // What the scan sends again and again is no news.
    gauge.onNetworkReturned(Home);
    gauge.SetSignalValue(-60);
    QCOMPARE(gauge.told(), Events{});
    gauge.SetSignalValue(-61);
    QCOMPARE(gauge.told(), Events{QAccessible::ValueChanged});
    gauge.onNetworkReturned(QString());
    QCOMPARE(gauge.told(), (Events{QAccessible::DescriptionChanged, QAccessible::ValueChanged}));
}

QTEST_MAIN(TestSignalStrengthDashboard)
#include "tst_signalstrengthdashboard.moc"
