#include "plugincheck/plaintext.h"

#include <QtTest>

using namespace PluginCheck;

class TestPlainText : public QObject
{
    Q_OBJECT

private slots:
    void whatATerminalObeysIsWrittenOut_data();
    void whatATerminalObeysIsWrittenOut();
    void noControlOrFormatCharacterSurvives();
    void escapingTwiceChangesNothing();
    void terminalsWithoutUtf8GetAscii();
};

void TestPlainText::whatATerminalObeysIsWrittenOut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, const char *text, const char *shown) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(shown);
    };
    row("empty", "", "");
    row("plain", "Harbour 5 GHz <b>%1</b> \\", "Harbour 5 GHz <b>%1</b> \\");
    row("letters of other scripts", "caf\xc3\xa9 \xe6\x97\xa5\xe6\x9c\xac \xd7\xa9",
        "caf\xc3\xa9 \xe6\x97\xa5\xe6\x9c\xac \xd7\xa9");
    row("emoji", "\xf0\x9f\x93\xb6", "\xf0\x9f\x93\xb6");
    row("escape sequence", "\x1b[31m", "\\x1b[31m");
    row("line feed, tab", "a\nb\tc\r", "a\\x0ab\\x09c\\x0d");
    row("delete", "\x7f", "\\x7f");
    row("C1 control", "\xc2\x9b", "\\x9b");
    row("right-to-left override", "\xe2\x80\xae", "\\u{202e}");
    row("isolate", "\xe2\x81\xa6", "\\u{2066}");
    row("soft hyphen", "\xc2\xad", "\\xad");
    row("zero width joiner", "\xe2\x80\x8d", "\\u{200d}");
    row("byte order mark inside", "a\xef\xbb\xbf", "a\\u{feff}");
    row("line separator", "\xe2\x80\xa8", "\\u{2028}");
    row("tag character", "\xf3\xa0\x81\x81", "\\u{e0041}");
    row("private use", "\xee\x80\x80", "\\u{e000}");
    QTest::newRow("NUL") << QString(QChar()) << QStringLiteral("\\x00");
    QTest::newRow("high surrogate at the end")
        << QString(QChar(0xd83d)) << QStringLiteral("\\u{d83d}");
    QTest::newRow("low surrogate alone")
        << QString(QChar(0xdcf6)) + QLatin1Char('x') << QStringLiteral("\\u{dcf6}x");
}

void TestPlainText::whatATerminalObeysIsWrittenOut()
{
    QFETCH(QString, text);
    QTEST(escaped(text), "shown");
}

void TestPlainText::noControlOrFormatCharacterSurvives()
{
    QString everything;
    for (uint character = 0; character < 0x10000; ++character)
        everything += QChar(character);
    const QString safe = escaped(everything);
    for (const QChar character : safe) {
        QVERIFY2(character.isPrint(), qPrintable(QString::number(character.unicode(), 16)));
        QVERIFY(character.category() != QChar::Other_Format);
    }
}

void TestPlainText::escapingTwiceChangesNothing()
{
    const QString once = escaped(QStringLiteral("\x1b[2J\\x1b"));
    QCOMPARE(escaped(once), once);
}

void TestPlainText::terminalsWithoutUtf8GetAscii()
{
    const QString text = QString::fromUtf8("caf\xc3\xa9 \xe6\x97\xa5 \xf0\x9f\x93\xb6\n");
    QCOMPARE(terminalBytes(text, true), text.toUtf8());
    QCOMPARE(terminalBytes(text, false), QByteArray("caf\\xe9 \\u{65e5} \\u{1f4f6}\n"));
}

QTEST_APPLESS_MAIN(TestPlainText)

#include "tst_plaintext.moc"
