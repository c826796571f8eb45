#include "app/lookprobe.h"

#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

class TestImages : public QObject
{
    Q_OBJECT
private slots:
    void everyImageHasItsSizeAtBothDensities_data();
    void everyImageHasItsSizeAtBothDensities();
    void thereAreNoOtherImages();
    void theStyleSheetNamesOnlyImagesThatExist();
    void backgroundsAreOpaque_data();
    void backgroundsAreOpaque();
    void theStatesOfACaptionButtonDiffer_data();
    void theStatesOfACaptionButtonDiffer();
    void theApplicationIconExistsInAllSizes_data();
    void theApplicationIconExistsInAllSizes();
    void blackTextIsReadableAllOverTheRoomTablesBackground();

private:
    static QImage image(const QString &name)
    {
        return QImage(QStringLiteral(":/images/%1.png").arg(name));
    }
};

struct Picture {
    const char *name;
    QSize size;
};

static const Picture Pictures[] = {
    {"airlume", {128, 128}},
    {"logo", {160, 44}},
    {"topbar_bg", {32, 44}},
    {"bottom_bg", {32, 21}},
    {"button_normal", {140, 23}},
    {"button_press", {140, 23}},
    {"but_scroll_up", {16, 16}},
    {"but_scroll_down", {16, 16}},
    {"min_normal", {20, 20}},
    {"min_hover", {20, 20}},
    {"min_press", {20, 20}},
    {"maximize_normal", {20, 20}},
    {"maximize_hover", {20, 20}},
    {"maximize_press", {20, 20}},
    {"restore_normal", {20, 20}},
    {"restore_hover", {20, 20}},
    {"restore_press", {20, 20}},
    {"close_normal", {20, 20}},
    {"close_hover", {20, 20}},
    {"close_press", {20, 20}},
    {"checkbox_normal", {15, 15}},
    {"checkbox_hover", {15, 15}},
    {"checkbox_select", {15, 15}},
    {"HomeTesting", {640, 640}},
    {"HomeTestLstBK", {96, 96}},
};

void TestImages::everyImageHasItsSizeAtBothDensities_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");
    for (const Picture &picture : Pictures)
        QTest::newRow(picture.name) << QString::fromLatin1(picture.name) << picture.size;
}

void TestImages::everyImageHasItsSizeAtBothDensities()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    QCOMPARE(image(name).size(), size);
    QCOMPARE(image(name + QStringLiteral("@2x")).size(), 2 * size);
}

void TestImages::thereAreNoOtherImages()
{
    QStringList expected;
    for (const Picture &picture : Pictures) {
        const QString name = QString::fromLatin1(picture.name);
        expected << name + QStringLiteral(".png") << name + QStringLiteral("@2x.png");
    }
    expected.sort();
    QStringList found = QDir(QStringLiteral(":/images")).entryList();
    found.sort();
    QCOMPARE(found, expected);
}

void TestImages::theStyleSheetNamesOnlyImagesThatExist()
{
    const QRegularExpression url(QStringLiteral("url\\(([^)]*)\\)"));
    QRegularExpressionMatchIterator it = url.globalMatch(look::styleSheet());
    int count = 0;
    for (; it.hasNext(); ++count) {
        const QString name = it.next().captured(1);
        QVERIFY2(!QImage(name).isNull(), qPrintable(name));
    }
    QCOMPARE(count, 23);
}

void TestImages::backgroundsAreOpaque_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"topbar_bg", "bottom_bg", "HomeTesting", "HomeTestLstBK"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestImages::backgroundsAreOpaque()
{
    QFETCH(QString, name);
    const QImage picture = image(name).convertToFormat(QImage::Format_ARGB32);
    QVERIFY(!picture.isNull());
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            QCOMPARE(qAlpha(picture.pixel(x, y)), 255);
    }
}

void TestImages::theStatesOfACaptionButtonDiffer_data()
{
    QTest::addColumn<QString>("button");
    for (const char *button : {"min", "maximize", "restore", "close"})
        QTest::newRow(button) << QString::fromLatin1(button);
}

void TestImages::theStatesOfACaptionButtonDiffer()
{
    QFETCH(QString, button);
    const QImage normal = image(button + QStringLiteral("_normal"));
    const QImage hover = image(button + QStringLiteral("_hover"));
    const QImage press = image(button + QStringLiteral("_press"));
    QVERIFY(normal != hover);
    QVERIFY(normal != press);
    QVERIFY(hover != press);
}

void TestImages::theApplicationIconExistsInAllSizes_data()
{
    QTest::addColumn<int>("size");
    for (int size : {16, 22, 24, 32, 48, 64, 128, 256, 512})
        QTest::addRow("%d", size) << size;
}

void TestImages::theApplicationIconExistsInAllSizes()
{
    QFETCH(int, size);
    const QString file = QStringLiteral(AIRLUME_SOURCE_DIR "/packaging/icons/hicolor/%1x%1/apps/"
                                                           "airlume.png")
                             .arg(size);
    QCOMPARE(QImage(file).size(), QSize(size, size));
}

void TestImages::blackTextIsReadableAllOverTheRoomTablesBackground()
{
    const QImage tile = image(QStringLiteral("HomeTestLstBK"));
    QVERIFY(!tile.isNull());
    for (int y = 0; y < tile.height(); ++y) {
        for (int x = 0; x < tile.width(); ++x)
            QVERIFY(look::contrast(Qt::black, tile.pixelColor(x, y)) > 15);
    }
}

QTEST_GUILESS_MAIN(TestImages)
#include "tst_images.moc"
