#include "flows/airlumeprocess.h"
#include "flows/hostsuite.h"
#include "flows/sharedtemporaryfolder.h"
#include "support/busyhost.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QtTest>

#include <memory>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
const QString Simulated = QStringLiteral("plugins/simulated");
const QString HostName = QStringLiteral("HarborWindowLocalProcess");
const uint FirstUser = 65533;
const uint SecondUser = 65534;
#ifdef __SANITIZE_ADDRESS__
const int Starts = 5;
#else
const int Starts = 25;
#endif

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The folders in /proc of all processes but those that have ended.
QStringList processes()
{
    QStringList folders;
    for (const QString &name : QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[1-9]*")}))
        folders.append(QStringLiteral("/proc/") + name);
    return folders;
}

/// The fields of /proc/PID/stat behind the name of the program: the state, the parent, …
QList<QByteArray> statusOf(const QString &process)
{
    const QByteArray text = contentOf(process + QStringLiteral("/stat"));
    return text.mid(text.lastIndexOf(')') + 2).split(' ');
}

/// Processes of airlume-host that were started with the temporary folder of the test. What has
/// ended, and waits for init to notice, has no executable any more.
int hostCount()
{
    const QByteArray folder = "TMPDIR=" + QFile::encodeName(QDir::tempPath());
    int count = 0;
    for (const QString &process : processes()) {
        const QString program = QFile::symLinkTarget(process + QStringLiteral("/exe"));
        if (program.endsWith(QStringLiteral("/airlume-host")) &&
            contentOf(process + QStringLiteral("/environ")).split('\0').contains(folder))
            ++count;
    }
    return count;
}

/// Children of the process, zombies too.
int childCount(qint64 processId)
{
    int count = 0;
    for (const QString &process : processes())
        count += statusOf(process).value(1) == QByteArray::number(processId) ? 1 : 0;
    return count;
}

/// Host sockets below the temporary folder.
QStringList hostSockets()
{
    QStringList found;
    QDirIterator files(QDir::tempPath(), {HostName}, QDir::System, QDirIterator::Subdirectories);
    while (files.hasNext())
        found.append(files.next());
    return found;
}

QString ownFolder(uint userId = geteuid())
{
    return QDir::temp().filePath(QStringLiteral("airlume-%1").arg(userId));
}

bool endsUnseen(AirlumeProcess &airlume)
{
    return airlume.waitForEnd() && airlume.endedNormally() && airlume.exitCode() == 0 &&
           !airlume.output().contains(QStringLiteral("qss"));
}

bool endsByItsButton(AirlumeProcess &airlume)
{
    return airlume.command(QStringLiteral("click close1")) && airlume.waitForEnd() &&
           airlume.exitCode() == 0;
}
} // namespace

/// The program in the language of the desktop, without a host suite: as the command of the menu
/// starts it. With AIRLUME_INSTALLATION, a folder that `cmake --install` has filled, it is the
/// installed command.
class TestOwnLanguage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void speaksTheLanguageOfTheLocale_data();
    void speaksTheLanguageOfTheLocale();
    void speaksItInAHomeThatCannotBeWritten();
    void leavesOneProcessBehind();
    void startsDirectlyInEnglish_data();
    void startsDirectlyInEnglish();
    void isToldTheLanguageAtEveryStart();
    void aHostSuiteIsAskedInstead();
    void aHostSuiteThatIsBusyKeepsItsName();
    void aHostSuiteMayComeLater();
    void aSecondStartEndsAtOnce();
    void aStartAfterADirectOneEndsAtOnce();
    void startsAtTheSameInstantAllSpeakIt();
    void usersDoNotMeet();
    void anotherUsersHostIsNotAsked();
    void aHostThatWasKilledIsNoHindrance();
    void aFolderThatIsNotPrivateIsNotUsed();
    void hostEndsWithAProgramThatDoesNotAsk();

private:
    /// The program in that locale, started by the command.
    std::unique_ptr<AirlumeProcess> program(const char *locale) const;
    /// The program, started by itself.
    std::unique_ptr<AirlumeProcess> bareProgram() const;

    QTemporaryDir m_copy{QStringLiteral("/tmp/airlume-copy.XXXXXX")};
    QString m_private;
    std::unique_ptr<SharedTemporaryFolder> m_folder;
};

/// Works with a copy of the installation, in which others may look and the rooms may be stored.
void TestOwnLanguage::initTestCase()
{
    const QString installation = qEnvironmentVariable("AIRLUME_INSTALLATION");
    if (installation.isEmpty())
        return;
    QCOMPARE(chmod(QFile::encodeName(m_copy.path()).constData(), 0755), 0);
    QCOMPARE(QProcess::execute(QStringLiteral("cp"),
                 {QStringLiteral("-a"), installation, m_copy.filePath(QStringLiteral("a place"))}),
        0);
    m_private = m_copy.filePath(QStringLiteral("a place/libexec/airlume"));
}

void TestOwnLanguage::init()
{
    m_folder = std::make_unique<SharedTemporaryFolder>();
}

void TestOwnLanguage::cleanup()
{
    QTRY_COMPARE_WITH_TIMEOUT(hostCount(), 0, 60000);
    m_folder.reset();
}

std::unique_ptr<AirlumeProcess> TestOwnLanguage::bareProgram() const
{
    if (m_private.isEmpty())
        return std::make_unique<AirlumeProcess>(Simulated);
    return std::make_unique<AirlumeProcess>(QStringList(m_private + QStringLiteral("/airlume")),
        m_private + QStringLiteral("/simulated"));
}

std::unique_ptr<AirlumeProcess> TestOwnLanguage::program(const char *locale) const
{
    std::unique_ptr<AirlumeProcess> airlume;
    if (m_private.isEmpty()) {
        airlume = bareProgram();
        airlume->setStarter(
            {QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume-host"), QStringLiteral("--run")});
    } else {
        airlume = std::make_unique<AirlumeProcess>(
            QStringList(m_copy.filePath(QStringLiteral("a place/bin/airlume"))),
            m_private + QStringLiteral("/simulated"));
    }
    airlume->setEnvironment(QStringLiteral("LC_ALL"), QLatin1String(locale));
    return airlume;
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
    const auto airlume = program(QTest::currentDataTag());
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QVERIFY2(airlume->waitFor(speaking(code)), qPrintable(airlume->output()));
    QVERIFY(airlume->waitFor(hasRows));
    QVERIFY(endsByItsButton(*airlume));
}

void TestOwnLanguage::speaksItInAHomeThatCannotBeWritten()
{
    const auto airlume = program("");
    // In /proc nobody makes files, not even root.
    airlume->setEnvironment(QStringLiteral("HOME"), QStringLiteral("/proc"));
    airlume->setEnvironment(QStringLiteral("LANG"), QStringLiteral("cs_CZ.UTF-8"));
    airlume->unsetEnvironment(QStringLiteral("XDG_RUNTIME_DIR"));
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QVERIFY2(airlume->waitFor(speaking(QStringLiteral("csy"))), qPrintable(airlume->output()));
}

void TestOwnLanguage::leavesOneProcessBehind()
{
    const auto airlume = program("de_DE.UTF-8");
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
    const auto airlume = program(QTest::currentDataTag());
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
        const auto airlume = program("sl_SI.UTF-8");
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

void TestOwnLanguage::aHostSuiteIsAskedInstead()
{
    HostSuite suite;
    const auto airlume = program("de_DE.UTF-8");
    airlume->launch();
    // The first connection that it sees is the program's.
    QVERIFY(suite.isAsked());
    QVERIFY(suite.sayLanguage("fin"));
    QVERIFY2(airlume->waitFor(speaking(QStringLiteral("fin"))), qPrintable(airlume->output()));
    QCOMPARE(hostCount(), 0);
    QVERIFY(!QFile::exists(ownFolder()));
    QVERIFY(suite.say("IpcResponseExit"));
    QVERIFY(airlume->waitForEnd());
}

void TestOwnLanguage::aHostSuiteThatIsBusyKeepsItsName()
{
    BusyHost suite("HarborWindowLocalProcess");
    QVERIFY(suite.isFull());
    const auto airlume = program("de_DE.UTF-8");
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QVERIFY(speaks(airlume->state(), QStringLiteral("enu")));
    QCOMPARE(hostSockets(), QStringList(QDir::temp().filePath(HostName)));
}

void TestOwnLanguage::aHostSuiteMayComeLater()
{
    const auto airlume = program("de_DE.UTF-8");
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    HostSuite suite;
    QVERIFY(airlume->waitFor(speaking(QStringLiteral("deu"))));
    const auto second = program("de_DE.UTF-8");
    second->launch();
    QVERIFY(endsUnseen(*second));
    QVERIFY(endsByItsButton(*airlume));
    const auto next = program("de_DE.UTF-8");
    next->launch();
    QVERIFY(suite.isAsked());
    QVERIFY(suite.sayLanguage("ita"));
    QVERIFY(next->waitFor(speaking(QStringLiteral("ita"))));
}

void TestOwnLanguage::aSecondStartEndsAtOnce()
{
    const auto first = program("ja_JP.UTF-8");
    QVERIFY2(first->start(), qPrintable(first->output()));
    QVERIFY(first->waitFor(speaking(QStringLiteral("jpn"))));
    for (const char *locale : {"ja_JP.UTF-8", "de_DE.UTF-8", "C"}) {
        const auto second = program(locale);
        second->launch();
        QVERIFY2(endsUnseen(*second), locale);
        QCOMPARE(hostCount(), 0);
    }
    const auto bare = bareProgram();
    bare->launch();
    QVERIFY(endsUnseen(*bare));
    QVERIFY(first->waitFor(speaking(QStringLiteral("jpn"))));
    QVERIFY(endsByItsButton(*first));

    // What it left behind is in nobody's way.
    const auto next = bareProgram();
    QVERIFY2(next->start(), qPrintable(next->output()));
    const auto further = program("de_DE.UTF-8");
    further->launch();
    QVERIFY(endsUnseen(*further));
}

void TestOwnLanguage::aStartAfterADirectOneEndsAtOnce()
{
    const auto first = bareProgram();
    QVERIFY2(first->start(), qPrintable(first->output()));
    const auto second = program("de_DE.UTF-8");
    second->launch();
    QVERIFY(endsUnseen(*second));
    QCOMPARE(hostCount(), 0);
    QVERIFY(first->waitFor(speaking(QStringLiteral("enu"))));
    QVERIFY(endsByItsButton(*first));

    // The socket that it left behind gives way to the next copy's.
    const auto next = program("de_DE.UTF-8");
    QVERIFY2(next->start(), qPrintable(next->output()));
    const auto bare = bareProgram();
    bare->launch();
    QVERIFY(endsUnseen(*bare));
}

void TestOwnLanguage::startsAtTheSameInstantAllSpeakIt()
{
    for (int moment = 0; moment < Starts / 5; ++moment) {
        std::vector<std::unique_ptr<AirlumeProcess>> copies;
        for (int copy = 0; copy < 4; ++copy)
            copies.push_back(program("ko_KR.UTF-8"));
        for (const auto &copy : copies)
            copy->launch();
        // Each shows its window, or ends since another did.
        int running = 0;
        for (const auto &copy : copies) {
            if (copy->waitFor(speaking(QStringLiteral("kor"))))
                ++running;
            else
                QVERIFY2(endsUnseen(*copy), qPrintable(copy->output()));
        }
        QVERIFY(running >= 1);
    }
}

void TestOwnLanguage::usersDoNotMeet()
{
    if (!mayRunAsOthers())
        QSKIP("Needs root, and a build tree that others may read");
    const auto first = program("de_DE.UTF-8");
    const auto second = program("ar_EG.UTF-8");
    const auto root = program("fr_FR.UTF-8");
    first->setUser(FirstUser);
    second->setUser(SecondUser);
    // A generous user, whose files are for everybody.
    const mode_t mask = umask(0);
    for (const auto &airlume : {first.get(), second.get(), root.get()})
        airlume->launch();
    umask(mask);
    QVERIFY2(first->waitFor(speaking(QStringLiteral("deu"))), qPrintable(first->output()));
    QVERIFY2(second->waitFor(speaking(QStringLiteral("ara"))), qPrintable(second->output()));
    QVERIFY2(root->waitFor(speaking(QStringLiteral("fra"))), qPrintable(root->output()));
    for (uint user : {FirstUser, SecondUser, uint(geteuid())}) {
        struct stat status = {};
        QCOMPARE(stat(QFile::encodeName(ownFolder(user)).constData(), &status), 0);
        QCOMPARE(status.st_uid, user);
        QCOMPARE(status.st_mode & mode_t(07777), mode_t(0700));
    }
    // Only one of them has the link outside of the folder; also in English, each finds the copy.
    for (uint user : {FirstUser, SecondUser, uint(geteuid())}) {
        const auto further = program("C");
        further->setUser(user);
        further->launch();
        QVERIFY(endsUnseen(*further));
    }
}

void TestOwnLanguage::anotherUsersHostIsNotAsked()
{
    if (!mayRunAsOthers())
        QSKIP("Needs root, and a build tree that others may read");
    QProcess host;
    host.start(QStringLiteral("setpriv"),
        {QStringLiteral("--reuid=65533"), QStringLiteral("--regid=65533"),
            QStringLiteral("--clear-groups"), QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume-host"),
            QStringLiteral("--language"), QStringLiteral("jpn")});
    QVERIFY(host.waitForReadyRead(60000));
    // It lets everybody connect.
    const QByteArray socket = QFile::encodeName(QDir::temp().filePath(HostName));
    QCOMPARE(chmod(socket.constData(), 0777), 0);
    const auto first = program("de_DE.UTF-8");
    const auto second = program("de_DE.UTF-8");
    first->setUser(FirstUser);
    second->setUser(SecondUser);
    QVERIFY2(first->start(), qPrintable(first->output()));
    QVERIFY(first->waitFor(speaking(QStringLiteral("jpn"))));
    QVERIFY2(second->start(), qPrintable(second->output()));
    QVERIFY(second->waitFor(speaking(QStringLiteral("deu"))));
    host.closeWriteChannel();
    QVERIFY(host.waitForFinished());
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
    const auto airlume = program("el_GR.UTF-8");
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QVERIFY(airlume->waitFor(speaking(QStringLiteral("ell"))));
    QTRY_COMPARE_WITH_TIMEOUT(hostSockets(), QStringList(), 60000);
}

void TestOwnLanguage::aFolderThatIsNotPrivateIsNotUsed()
{
    QVERIFY(QDir().mkdir(ownFolder()));
    QCOMPARE(chmod(QFile::encodeName(ownFolder()).constData(), 0777), 0);
    const auto airlume = program("de_DE.UTF-8");
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
