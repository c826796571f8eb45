#include "flows/desktopcommand.h"
#include "flows/hostsuite.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <sys/stat.h>

namespace
{
#ifdef __SANITIZE_ADDRESS__
const int Starts = 5;
#else
const int Starts = 25;
#endif
} // namespace

/// The program in the language of the desktop, without a host suite.
class TestOwnLanguage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_command.prepare()); }
    void init() { m_command.renewFolder(); }
    void cleanup();
    void speaksTheLanguageOfTheLocale_data();
    void speaksTheLanguageOfTheLocale();
    void speaksItInAHomeThatCannotBeWritten();
    void leavesOneProcessBehind();
    void startsDirectlyInEnglish_data();
    void startsDirectlyInEnglish();
    void isToldTheLanguageAtEveryStart();
    void aHostThatWasKilledIsNoHindrance();
    void aFolderThatIsNotPrivateIsNotUsed();
    void hostEndsWithAProgramThatDoesNotAsk();

private:
    DesktopCommand m_command;
};

void TestOwnLanguage::cleanup()
{
    QTRY_COMPARE_WITH_TIMEOUT(hostCount(), 0, 60000);
    m_command.removeFolder();
}

void TestOwnLanguage::speaksTheLanguageOfTheLocale_data()
{
    QTest::addColumn<QString>("code");
    QTest::newRow("de_DE.UTF-8") << QStringLiteral("deu");
    QTest::newRow("ar_EG.UTF-8") << QStringLiteral("ara");
    QTest::newRow("zh_CN.UTF-8") << QStringLiteral("chs");
    QTest::newRow("zh_TW.UTF-8") << QStringLiteral("cht");
    QTest::newRow("zh_Hant_SG") << QStringLiteral("cht");
    QTest::newRow("nn_NO.UTF-8") << QStringLiteral("nor");
}

void TestOwnLanguage::speaksTheLanguageOfTheLocale()
{
    QFETCH(QString, code);
    const auto airlume = m_command.program(QTest::currentDataTag());
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QVERIFY2(airlume->waitFor(speaking(code)), qPrintable(airlume->output()));
    QVERIFY(airlume->waitFor(hasRows));
    QVERIFY(endsByItsButton(*airlume));
}

void TestOwnLanguage::speaksItInAHomeThatCannotBeWritten()
{
    const auto airlume = m_command.program("");
    // In /proc nobody makes files, not even root.
    airlume->setEnvironment(QStringLiteral("HOME"), QStringLiteral("/proc"));
    airlume->setEnvironment(QStringLiteral("LANG"), QStringLiteral("cs_CZ.UTF-8"));
    airlume->unsetEnvironment(QStringLiteral("XDG_RUNTIME_DIR"));
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QVERIFY2(airlume->waitFor(speaking(QStringLiteral("csy"))), qPrintable(airlume->output()));
}

void TestOwnLanguage::leavesOneProcessBehind()
{
    const auto airlume = m_command.program("de_DE.UTF-8");
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QVERIFY(airlume->waitFor(speaking(QStringLiteral("deu"))));
    // What was started is the program itself now.
    QVERIFY(QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(airlume->processId()))
                .endsWith(QStringLiteral("/airlume")));
    QTRY_COMPARE_WITH_TIMEOUT(hostCount(), 0, 60000);
    QCOMPARE(childCount(airlume->processId()), 0);
    QCOMPARE(hostSockets(), QStringList());
    // What host and program say to each other is nobody's business.
    QVERIFY2(!airlume->output().contains(QStringLiteral("Ipc")), qPrintable(airlume->output()));
}

void TestOwnLanguage::startsDirectlyInEnglish_data()
{
    QTest::addColumn<int>("dummy");
    for (const char *locale : {"", "C", "C.UTF-8", "POSIX", "en_US.UTF-8", "xx_YY.UTF-8"})
        QTest::newRow(locale) << 0;
}

void TestOwnLanguage::startsDirectlyInEnglish()
{
    const auto airlume = m_command.program(QTest::currentDataTag());
    airlume->unsetEnvironment(QStringLiteral("LANG"));
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QVERIFY(airlume->waitFor(hasRows));
    QVERIFY(speaks(airlume->state(), QStringLiteral("enu")));
    QCOMPARE(hostCount(), 0);
    QVERIFY(!QFile::exists(ownFolder()));
    QVERIFY(!airlume->output().contains(QStringLiteral("airlume-host")));
}

void TestOwnLanguage::isToldTheLanguageAtEveryStart()
{
    for (int start = 0; start < Starts; ++start) {
        const auto airlume = m_command.program("sl_SI.UTF-8");
        QVERIFY2(airlume->start(), qPrintable(airlume->output()));
        QVERIFY2(airlume->waitFor(speaking(QStringLiteral("slv"))), qPrintable(airlume->output()));
        QVERIFY(endsByItsButton(*airlume));
    }
    // The first start's folder serves them all.
    const QStringList left =
        QDir::temp().entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    QVERIFY2(
        left == QStringList(QDir(ownFolder()).dirName()), qPrintable(left.join(QLatin1Char(' '))));
}

void TestOwnLanguage::aHostThatWasKilledIsNoHindrance()
{
    QVERIFY(QDir().mkdir(ownFolder()));
    QCOMPARE(chmod(QFile::encodeName(ownFolder()).constData(), 0700), 0);
    QProcess host;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TMPDIR"), ownFolder());
    host.setProcessEnvironment(environment);
    host.start(QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume-host"), QStringList());
    QVERIFY(host.waitForReadyRead(60000));
    host.kill();
    QVERIFY(host.waitForFinished());
    QCOMPARE(hostSockets().size(), 1);
    const auto airlume = m_command.program("el_GR.UTF-8");
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QVERIFY(airlume->waitFor(speaking(QStringLiteral("ell"))));
    QTRY_COMPARE_WITH_TIMEOUT(hostSockets(), QStringList(), 60000);
}

void TestOwnLanguage::aFolderThatIsNotPrivateIsNotUsed()
{
    QVERIFY(QDir().mkdir(ownFolder()));
    QCOMPARE(chmod(QFile::encodeName(ownFolder()).constData(), 0777), 0);
    const auto airlume = m_command.program("de_DE.UTF-8");
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QVERIFY(airlume->waitFor(hasRows));
    QVERIFY(speaks(airlume->state(), QStringLiteral("enu")));
    QVERIFY(airlume->output().contains(
        QStringLiteral("airlume-host: this is not a folder of yours alone: %1; Airlume starts in "
                       "English\n")
            .arg(ownFolder())));
    QVERIFY(QDir(ownFolder()).isEmpty());
}

void TestOwnLanguage::hostEndsWithAProgramThatDoesNotAsk()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("de_DE.UTF-8"));
    // Left to itself it would stay for ten seconds each time.
    QElapsedTimer timer;
    timer.start();
    for (int start = 0; start < Starts; ++start) {
        QProcess program;
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume-host"),
            {QStringLiteral("--run"), QStringLiteral("true")});
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitCode(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(hostSockets(), QStringList(), 60000);
    }
    QVERIFY(timer.elapsed() < 10000 * Starts);
}

QTEST_GUILESS_MAIN(TestOwnLanguage)
#include "tst_ownlanguage.moc"
