#include "common/diagnostics.h"
#include "support/messagelog.h"

#include <QtTest>

class TestDiagnostics : public QObject
{
    Q_OBJECT

private slots:
    void namesFileFunctionAndLine_data();
    void namesFileFunctionAndLine();
    void putsTextAndLocationDirectlyAfterEachOther();
    void reportsNullPointersWithTheirPlace();
    void reportsAtDebugLevelOnRequest();
    void takesPlaceHoldersInTextsLiterally();
};

void TestDiagnostics::namesFileFunctionAndLine_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("location");
    QTest::newRow("path") << QByteArray("/a/b/airlume.cpp")
                          << QStringLiteral("file:airlume function:f line:12 ");
    QTest::newRow("bare name") << QByteArray("QtCommonTools.cpp")
                               << QStringLiteral("file:QtCommonTools function:f line:12 ");
    QTest::newRow("two dots") << QByteArray("x/a.b.cpp")
                              << QStringLiteral("file:a.b function:f line:12 ");
}

void TestDiagnostics::namesFileFunctionAndLine()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, location);
    QCOMPARE(Diagnostics::SourceLocation(file.constData(), "f", 12), location);
}

void TestDiagnostics::putsTextAndLocationDirectlyAfterEachOther()
{
    MessageLog log;
    Diagnostics::ReportCritical(QStringLiteral(":/x.txt not find."), "a.cpp", "ReadAllLang", 7);
    QCOMPARE(log.criticals(),
        QStringList(QStringLiteral(":/x.txt not find.file:a function:ReadAllLang line:7 ")));
}

void TestDiagnostics::reportsNullPointersWithTheirPlace()
{
    MessageLog log;
    AIRLUME_NULL_POINT();
    QCOMPARE(log.criticals().size(), 1);
    QCOMPARE(log.criticals().first(),
        QStringLiteral("NUll pointfile:tst_diagnostics "
                       "function:reportsNullPointersWithTheirPlace line:%1 ")
            .arg(__LINE__ - 5));
}

void TestDiagnostics::reportsAtDebugLevelOnRequest()
{
    MessageLog log;
    AIRLUME_NULL_POINT_DEBUG();
    QVERIFY(log.criticals().isEmpty());
    QCOMPARE(log.debugs().size(), 1);
    QVERIFY(log.debugs().first().startsWith(QLatin1String("NUll pointfile:tst_diagnostics ")));
}

void TestDiagnostics::takesPlaceHoldersInTextsLiterally()
{
    MessageLog log;
    Diagnostics::ReportCritical(QStringLiteral("%1 %s \"<b>\" "), "%2.cpp", "%3", 1);
    QCOMPARE(log.criticals().first(), QStringLiteral("%1 %s \"<b>\" file:%2 function:%3 line:1 "));
}

QTEST_APPLESS_MAIN(TestDiagnostics)
#include "tst_diagnostics.moc"
