#include "graphs/gaugepicture.h"

#include <QImage>
#include <QTest>

class TestGaugeHighDpi : public QObject
{
    Q_OBJECT

public:
    static void initMain() { qputenv("QT_SCALE_FACTOR", "2"); }

private slots:
    void pictureHasTwiceThePixels();
    void handPointsAtTheSignal();
    void pictureIsSharp();

private:
    static QImage picture();
};

QImage TestGaugeHighDpi::picture()
{
    QWidget frame;
    Gauge gauge(&frame);
    gauge.setFixedSize(320, 260);
    gauge.onNetworkReturned(QStringLiteral("Home"));
    gauge.SetSignalValue(-76);
    return gauge.grab().toImage();
}

void TestGaugeHighDpi::pictureHasTwiceThePixels()
{
    const QImage image = picture();
    QCOMPARE(image.devicePixelRatioF(), 2.);
    QCOMPARE(image.size(), QSize(640, 520));
    QCOMPARE(image.pixelColor(320, 290), QColor(240, 240, 240));
    // The rim is white right up to the top of the dial.
    QCOMPARE(image.pixelColor(320, 2 * 25), QColor(Qt::white));
}

void TestGaugeHighDpi::handPointsAtTheSignal()
{
    const double angle = GaugePicture::handAngle(picture(), 60.);
    QVERIFY2(qAbs(angle - 210.) <= 1.5, qPrintable(QString::number(angle)));
}

void TestGaugeHighDpi::pictureIsSharp()
{
    const QImage image = picture();
    int sharp = 0;
    for (int y = 0; y < image.height(); y += 2) {
        for (int x = 0; x < image.width(); x += 2) {
            if (image.pixel(x, y) != image.pixel(x + 1, y))
                ++sharp;
        }
    }
    // A picture blown up from one pixel to four would have none.
    QVERIFY2(sharp > 500, qPrintable(QString::number(sharp)));
}

QTEST_MAIN(TestGaugeHighDpi)
#include "tst_gaugehighdpi.moc"
