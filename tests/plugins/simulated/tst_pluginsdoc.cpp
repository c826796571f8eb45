#include "simulated/scenarioparser.h"
#include "simulated/simulatedair.h"

#include <QRegularExpression>
#include <QtTest>

/// Does docs/plugins.md say what the code does?
class TestPluginsDoc : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void examplesAreShownAsTheyAre_data();
    void examplesAreShownAsTheyAre();
    void exampleScenarioIsSound();
    void exampleScenarioPlaysItsEvents();
    void everyFieldIsDescribed_data();
    void everyFieldIsDescribed();
    void everyFieldIsInTheExample_data();
    void everyFieldIsInTheExample();
    void everyChoiceIsDescribed_data();
    void everyChoiceIsDescribed();
    void theMessageShownIsTheRealOne();
    void theOperationsStandInTheOrderOfTheHeader();

private:
    QString m_page;
    QString m_example;
};

namespace
{
QString read(const char *path)
{
    QFile file(QStringLiteral(AIRLUME_SOURCE_DIR "/") + QLatin1String(path));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", path);
    return QString::fromUtf8(file.readAll());
}

/// The names that the parser gives when it meets an unknown one.
QStringList known(const QByteArray &json, const QString &before, const QString &after)
{
    const QString text = ParseScenario(json).error.text;
    const int start = text.indexOf(before);
    if (start < 0)
        qFatal("no names in: %s", qPrintable(text));
    QString names = text.mid(start + before.size());
    if (!after.isEmpty())
        names = names.left(names.indexOf(after));
    return names.split(QStringLiteral(", "));
}

/// A row for each field of each kind of object.
void addFieldRows()
{
    QTest::addColumn<QString>("field");
    for (const char *json : {R"({"x":1})", R"({"interfaces":[{"x":1}]})",
             R"({"networks":[{"x":1}]})", R"({"generate":{"x":1}})", R"({"events":[{"x":1}]})"}) {
        const QStringList fields = known(json, QStringLiteral("known here are "), QString());
        for (const QString &field : fields)
            QTest::addRow("%s in %s", qPrintable(field), json) << field;
    }
}
} // namespace

void TestPluginsDoc::initTestCase()
{
    m_page = read("docs/plugins.md");
    m_example = read("docs/examples/scenario.json");
}

void TestPluginsDoc::examplesAreShownAsTheyAre_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("scenario") << read("docs/examples/scenario.json");
    QTest::newRow("back end") << read("docs/examples/minimalbackend/minimalbackend.cpp");
    QTest::newRow("its CMake file") << read("docs/examples/minimalbackend/CMakeLists.txt");
}

void TestPluginsDoc::examplesAreShownAsTheyAre()
{
    QFETCH(QString, text);
    QVERIFY(m_page.contains(QLatin1Char('\n') + text + QStringLiteral("```\n")));
}

void TestPluginsDoc::exampleScenarioIsSound()
{
    const ScenarioResult result = ParseScenario(m_example.toUtf8());
    QCOMPARE(result.error.field + result.error.text, QString());
    QCOMPARE(result.scenario.networks.size(), 30);
}

void TestPluginsDoc::exampleScenarioPlaysItsEvents()
{
    SimulatedAir air(ParseScenario(m_example.toUtf8()).scenario);
    const auto heard = [&air](double seconds) {
        air.advanceTo(seconds);
        QList<ScanMap> maps;
        return air.networks(QString(), maps) ? maps.size() : -1;
    };
    QCOMPARE(heard(0.0), 24);
    QCOMPARE(heard(15.0), 25);
    QCOMPARE(heard(30.0), 30);
    QCOMPARE(heard(50.0), 25);
    QCOMPARE(heard(70.0), 24);
    QCOMPARE(heard(75.0), -1);
    QCOMPARE(heard(85.0), 24);
    QCOMPARE(heard(95.0), -1);
    QCOMPARE(heard(100.0), 24);
    QCOMPARE(heard(105.0), -1);
    QCOMPARE(heard(112.0), 24);
    QCOMPARE(heard(135.0), 25);
}

void TestPluginsDoc::everyFieldIsDescribed_data()
{
    addFieldRows();
}

void TestPluginsDoc::everyFieldIsDescribed()
{
    QFETCH(QString, field);
    // In the first column of a table.
    const QRegularExpression row(
        QStringLiteral("^\\|[^|]*`%1`[^|]*\\|").arg(field), QRegularExpression::MultilineOption);
    QVERIFY(m_page.contains(row));
}

void TestPluginsDoc::everyFieldIsInTheExample_data()
{
    addFieldRows();
}

void TestPluginsDoc::everyFieldIsInTheExample()
{
    QFETCH(QString, field);
    QVERIFY(m_example.contains(QStringLiteral("\"%1\": ").arg(field)));
}

void TestPluginsDoc::everyChoiceIsDescribed_data()
{
    QTest::addColumn<QString>("choice");
    for (const char *json :
        {R"({"events":[{"at":1,"do":"x"}]})", R"({"events":[{"at":1,"do":"fail","query":"x"}]})"}) {
        const QStringList choices =
            known(json, QStringLiteral("one of "), QStringLiteral(", not "));
        for (const QString &choice : choices)
            QTest::addRow("%s", qPrintable(choice)) << choice;
    }
}

void TestPluginsDoc::everyChoiceIsDescribed()
{
    QFETCH(QString, choice);
    QVERIFY(m_page.contains(QLatin1Char('`') + choice + QLatin1Char('`')));
}

void TestPluginsDoc::theMessageShownIsTheRealOne()
{
    const QByteArray network = R"({"ssid":"","bssid":"02:00:00:00:00:0%1","channel":1},)";
    QByteArray list;
    for (const char digit : {'1', '2', '3'})
        list += QByteArray(network).replace("%1", QByteArray(1, digit));
    const ScenarioError error = ParseScenario(
        "{\"networks\":[" + list + R"({"ssid":"","bssid":"02:00:00:00:00:04","channel":"6"}]})")
                                    .error;
    QVERIFY(
        m_page.contains(QStringLiteral("Scenario file hall.json, line 7, field ") + error.field +
                        QStringLiteral(": ") + error.text + QStringLiteral(".\n")));
}

void TestPluginsDoc::theOperationsStandInTheOrderOfTheHeader()
{
    const auto names = [](const QString &text, const char *pattern) {
        QStringList found;
        auto matches = QRegularExpression(QLatin1String(pattern)).globalMatch(text);
        while (matches.hasNext())
            found.append(matches.next().captured(1));
        return found;
    };
    const QStringList inHeader =
        names(read("src/scan/wifiapiinterface.h"), "virtual bool (\\w+)\\(");
    QCOMPARE(inHeader.size(), 9);
    QCOMPARE(names(m_page, "\\| \\d \\| `bool (\\w+)\\("), inHeader);
}

QTEST_GUILESS_MAIN(TestPluginsDoc)
#include "tst_pluginsdoc.moc"
