#include "flows/airlumeprocess.h"

#include <QtTest>

#include <map>
#include <memory>

namespace
{
const int TimeoutMs = 120000;
const QString NoRadio = QStringLiteral("Please make sure turn on the wireless radio.");
const QString Nameless = QStringLiteral("where none has a name");

bool hasAllRows(const QJsonObject &state)
{
    return state[QStringLiteral("rows")].toArray().size() == 3;
}

bool saysNoRadio(const QJsonObject &state)
{
    return state[QStringLiteral("status")].toString() == NoRadio;
}

QString aThousandInterfaces()
{
    QStringList names;
    for (int i = 0; i < 1000; ++i)
        names.append(QStringLiteral("test%1").arg(i));
    return names.join(QLatin1Char(','));
}
/// The lists that each case names, one a call.
std::map<QString, QString> cases()
{
    return {
        {QStringLiteral("where the chosen one vanishes"),
            QStringLiteral("test0,test1|test0|test2|")},
        {QStringLiteral("where one is named twice"),
            QStringLiteral("test0,test0,test0|test1,test1|")},
        {QStringLiteral("where some have no name"), QStringLiteral("~,test0|~,~,test1|")},
        {Nameless, QStringLiteral("~|~,~")},
        {QStringLiteral("where there are a thousand"), aThousandInterfaces() + QLatin1Char('|')},
        {QStringLiteral("where all go and come back"), QStringLiteral("test0||test0")},
    };
}

/// What a program has shown so far.
struct Story {
    std::unique_ptr<AirlumeProcess> airlume;
    bool rows = false;
    bool noRadio = false;
    bool noRadioAfterRows = false;

    void look()
    {
        const QJsonObject state = airlume->state();
        rows = rows || hasAllRows(state);
        noRadio = noRadio || saysNoRadio(state);
        noRadioAfterRows = noRadioAfterRows || (rows && saysNoRadio(state));
    }
};
} // namespace

/// A back end that names other interfaces at every call.
class TestChangingInterfaces : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void programSurvives_data();
    void programSurvives();

private:
    std::map<QString, Story> m_stories;
};

/// The programs run side by side, as each takes many seconds.
void TestChangingInterfaces::initTestCase()
{
    const std::map<QString, QString> all = cases();
    for (const auto &one : all) {
        Story &story = m_stories[one.first];
        story.airlume =
            std::make_unique<AirlumeProcess>(QStringLiteral("tests/backends/changinglist"));
        story.airlume->setOwnTemporaryFolder();
        story.airlume->setEnvironment(QStringLiteral("AIRLUME_TEST_INTERFACES"), one.second);
        QVERIFY2(story.airlume->start(), qPrintable(story.airlume->output()));
    }
    QElapsedTimer timer;
    timer.start();
    bool complete = false;
    while (!complete && timer.elapsed() < TimeoutMs) {
        complete = true;
        for (auto &one : m_stories) {
            one.second.look();
            const bool done =
                one.first == Nameless ? one.second.noRadio : one.second.noRadioAfterRows;
            complete = complete && done;
        }
        QThread::msleep(50);
    }
}

void TestChangingInterfaces::programSurvives_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::newRow("where the chosen one vanishes") << QStringLiteral("nic: \"test1\"");
    QTest::newRow("where one is named twice") << QStringLiteral("nic: \"test0\"");
    QTest::newRow("where some have no name") << QStringLiteral("nic: \"test0\"");
    QTest::newRow("where none has a name") << QString();
    QTest::newRow("where there are a thousand") << QStringLiteral("nic: \"test1\"");
    QTest::newRow("where all go and come back") << QStringLiteral("nic: \"test0\"");
}

void TestChangingInterfaces::programSurvives()
{
    QFETCH(QString, chosen);
    const Story &story = m_stories[QString::fromLatin1(QTest::currentDataTag())];
    // Where the last list is empty, "no radio" tells that all lists before it were taken.
    QVERIFY(story.noRadio);
    QCOMPARE(story.rows, !chosen.isEmpty());
    QCOMPARE(story.noRadioAfterRows, !chosen.isEmpty());
    const QString output = story.airlume->output();
    QVERIFY2(output.contains(chosen.isEmpty() ? QStringLiteral("open qss success") : chosen),
        qPrintable(output));
    QCOMPARE(output.contains(QStringLiteral("nic:")), !chosen.isEmpty());
    QVERIFY(!output.contains(QStringLiteral("NUll point")));
    QVERIFY(story.airlume->command(QStringLiteral("click close1")));
    QVERIFY(story.airlume->waitForEnd());
    QCOMPARE(story.airlume->exitCode(), 0);
}

QTEST_GUILESS_MAIN(TestChangingInterfaces)
#include "tst_changinginterfaces.moc"
