#include "linux/ssidtext.h"

#include <QTest>

class TestSsidText : public QObject
{
    Q_OBJECT

private slots:
    void octetsBecomeText_data();
    void octetsBecomeText();
    void everyOctetAloneGivesValidText();
};

void TestSsidText::octetsBecomeText_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *title, const QByteArray &octets, const char *text) {
        QTest::newRow(title) << octets << QString::fromUtf8(text);
    };
    row("empty: hidden", "", "");
    row("only NUL: hidden", QByteArray(32, '\0'), "");
    row("plain", "Home", "Home");
    row("32 octets", QByteArray(32, 'x'), "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx");
    row("blanks are kept", "  a ", "  a ");
    row("umlaut", "B\xc3\xbcro 5G", "Büro 5G");
    row("three octets", "\xe7\xb6\xb2\xe8\xb7\xaf", "網路");
    row("four octets", "\xf0\x9f\x98\x80", "😀");
    row("control characters are text", "a\x01\x1b[31m\n", "a\x01\x1b[31m\n");
    row("markup is text", "<b>%1</b>", "<b>%1</b>");
    row("backslash is text", "a\\x00", "a\\x00");
    row("NUL inside", QByteArray("a\0b", 3), "a\\x00b");
    row("NUL first", QByteArray("\0b", 2), "\\x00b");
    row("NUL last", QByteArray("a\0", 2), "a\\x00");
    row("Latin-1", "B\xfcro", "B\\xfcro");
    row("lone continuation", "a\x80z", "a\\x80z");
    row("cut off at the end", "a\xe7\xb6", "a\\xe7\\xb6");
    row("cut off by another", "\xe7\xb6z", "\\xe7\\xb6z");
    row("good after bad", "\xff\xc3\xbc", "\\xffü");
    row("overlong slash, two octets", "\xc0\xaf", "\\xc0\\xaf");
    row("overlong, three octets", "\xe0\x80\xaf", "\\xe0\\x80\\xaf");
    row("overlong, four octets", "\xf0\x80\x80\xaf", "\\xf0\\x80\\x80\\xaf");
    row("lowest of three octets", "\xe0\xa0\x80", "\u0800");
    row("surrogate", "\xed\xa0\x80", "\\xed\\xa0\\x80");
    row("last before the surrogates", "\xed\x9f\xbf", "\ud7ff");
    row("highest", "\xf4\x8f\xbf\xbf", "\U0010FFFF");
    row("above the highest", "\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80");
    row("five octets", "\xf8\x88\x80\x80\x80", "\\xf8\\x88\\x80\\x80\\x80");
}

void TestSsidText::octetsBecomeText()
{
    QFETCH(QByteArray, octets);
    QFETCH(QString, text);
    const std::string result = LinuxWifi::ssidText(octets.toStdString());
    QCOMPARE(QByteArray::fromStdString(result), text.toUtf8());
    QCOMPARE(QString::fromStdString(result), text);
}

void TestSsidText::everyOctetAloneGivesValidText()
{
    for (int value = 1; value < 256; ++value) {
        const std::string octets(1, static_cast<char>(value));
        const QString text = QString::fromStdString(LinuxWifi::ssidText(octets));
        if (value < 0x80)
            QCOMPARE(text, QString(QChar(value)));
        else
            QCOMPARE(text, QStringLiteral("\\x%1").arg(value, 2, 16, QLatin1Char('0')));
    }
}

QTEST_GUILESS_MAIN(TestSsidText)
#include "tst_ssidtext.moc"
