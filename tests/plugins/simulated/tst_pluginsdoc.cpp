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
    QCOMPARE(result.scenario.networks.size(), 31);
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
    QCOMPARE(heard(115.0), 25);
    QCOMPARE(heard(118.0), 24);
    QCOMPARE(heard(135.0), 25);
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
