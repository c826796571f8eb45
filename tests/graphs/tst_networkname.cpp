#include "graphs/graphtest.h"
#include "graphs/networkname.h"

#include <QTest>

class TestNetworkName : public QObject
{
    Q_OBJECT

private slots:
    void isShownAsOneShortLine_data();
    void isShownAsOneShortLine();
    void markupStaysText();
};

void TestNetworkName::isShownAsOneShortLine_data()
{
    QTest::addColumn<QString>("ssid");
    QTest::addColumn<QString>("shown");
    const QChar ellipsis(0x2026);
    const auto unchanged = [](const char *row, const QString &ssid) {
        QTest::newRow(row) << ssid << ssid;
    };
    unchanged("ordinary", QStringLiteral("Home"));
    unchanged("empty", QString());
    unchanged("repeated name with blanks", QStringLiteral("Home  "));
    unchanged("not Latin", QString::fromUtf8("咖啡馆 شبكة 🏠"));
    unchanged("markup", QStringLiteral("<b>x</b> %1 &amp;"));
    unchanged("64 characters", QString(64, QLatin1Char('n')));
    QTest::newRow("65 characters")
        << QString(65, QLatin1Char('n')) << QString(63, QLatin1Char('n')) + ellipsis;
    QTest::newRow("10000 characters")
        << QString(10000, QLatin1Char('n')) << QString(63, QLatin1Char('n')) + ellipsis;
    const QString house = QString::fromUtf8("🏠");
    QTest::newRow("no half characters") << QString(62, QLatin1Char('n')) + house + house
                                        << QString(62, QLatin1Char('n')) + ellipsis;
}

void TestNetworkName::isShownAsOneShortLine()
{
    QFETCH(QString, ssid);
    QTEST(displayName(ssid), "shown");
    QVERIFY(!displayName(ssid + QStringLiteral("\n\r\u2028\u202e")).contains(QLatin1Char('\n')));
}

void TestNetworkName::markupStaysText()
{
    const QString markup = QStringLiteral("<h1>big</h1>");
    QVERIFY(!GraphTest::isPlain(QwtText(markup)));
    QVERIFY(GraphTest::isPlain(plainText(markup)));
    QCOMPARE(plainText(markup).text(), markup);
}

QTEST_MAIN(TestNetworkName)
#include "tst_networkname.moc"
