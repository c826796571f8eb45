#include "host/wordings.h"

#include <QtTest>

using namespace AirlumeHost;

/// What airlume-host reads and prints.
class TestHostWordings : public QObject
{
    Q_OBJECT

private slots:
    void fourEscapesAreReplaced();
    void controlCharactersDoNotReachTheTerminal();
    void errorsSayWhatTheSystemSays();
};

void TestHostWordings::fourEscapesAreReplaced()
{
    QCOMPARE(unescaped(R"(a\nb\rc\td\\e)"), std::string("a\nb\rc\td\\e"));
    QCOMPARE(unescaped(R"(\x41 \" \\n \)"), std::string(R"(\x41 \" \n \)"));
    QCOMPARE(unescaped(""), std::string());
}

void TestHostWordings::controlCharactersDoNotReachTheTerminal()
{
    QCOMPARE(
        printable(std::string("a\0b\x1b[2J\n\x7f", 9)), std::string(R"(a\x00b\x1b[2J\x0a\x7f)"));
    QCOMPARE(printable("Größe ~"), std::string("Größe ~"));
}

void TestHostWordings::errorsSayWhatTheSystemSays()
{
    QCOMPARE(withReason("cannot", ENOENT), std::string("cannot: No such file or directory"));
}

QTEST_GUILESS_MAIN(TestHostWordings)
#include "tst_hostwordings.moc"
