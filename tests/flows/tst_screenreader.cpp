#include "flows/airlumeprocess.h"
#include "flows/desktop.h"
#include "flows/hostsuite.h"
#include "flows/screenreader.h"

#include <QtTest>

#include <memory>

namespace
{
const QByteArray Scenario = R"({
    "networks": [
        { "ssid": "Attic", "bssid": "02:00:00:00:00:01", "channel": 1, "signal": -70, "wander": 0,
          "security": "WPA2-PSK" },
        { "ssid": "Home", "bssid": "02:00:00:00:00:02", "channel": 44, "signal": -50, "wander": 0,
          "security": "WPA3-SAE", "joined": true, "link_rate": 433 },
        { "ssid": "", "bssid": "02:00:00:00:00:03", "channel": 11, "signal": -60, "wander": 0 }
    ],
    "events": [ { "at": 60, "do": "leave" } ]
})";

// In some starts Qt connects to the accessibility bus and says nothing on it; a copy that is not to
// be found there by then never will be.
const int Attempts = 10;
const int AttemptMs = 5000;

const QString Tick = QStringLiteral("check box");
const QString All = QStringLiteral("Show all networks");
} // namespace

/// The program as a screen reader finds it.
class TestScreenReader : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everythingThatTakesTheFocusHasNameAndRole();
    void rowTellsNameSignalChannelSecurityAndTick();
    void boxOfAllTicksAndGraphsTellWhatTheyDraw();
    void gaugeTellsItsValueAndThatItChanges();
    void speaksTheLanguageOfTheProgram();

private:
    bool waitForTree(const std::function<bool(const SpokenNode &)> &reached);
    bool showTab(int tab) { return m_airlume->command(QStringLiteral("tab %1").arg(tab)); }
    SpokenNode row(const QString &name);
    QString description(const QString &graph);

    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<ScreenReader> m_reader;
    std::unique_ptr<HostSuite> m_host;
    std::unique_ptr<AirlumeProcess> m_airlume;
};

void TestScreenReader::init()
{
    const QString missing = Desktop::missing(Desktop::X11);
    if (!missing.isEmpty())
        QSKIP(qPrintable(missing + QStringLiteral(" is not installed")));
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        cleanup();
        m_desktop.reset(new Desktop(Desktop::X11, QSize(1400, 900)));
        QVERIFY(m_desktop->start());
        m_reader.reset(new ScreenReader);
        QString error;
        if (!m_reader->start(*m_desktop, &error))
            QSKIP(qPrintable(error));
        m_host.reset(new HostSuite);
        m_airlume.reset(new AirlumeProcess(QStringLiteral("plugins/simulated")));
        m_airlume->setScenario(Scenario);
        m_desktop->show(m_airlume.get());
        m_reader->hear(m_airlume.get());
        QVERIFY2(m_airlume->start(), qPrintable(m_airlume->output()));
        if (m_airlume->waitFor(
                [&](const QJsonObject &) { return !m_reader->tree().isEmpty(); }, AttemptMs))
            break;
        if (attempt == Attempts - 1)
            QSKIP("Qt did not find the accessibility bus");
    }
    // The list has all its rows and the gauge its value.
    QVERIFY(waitForTree([](const SpokenNode &tree) {
        const SpokenNode *gauge =
            tree.find(QStringLiteral("progress bar"), QStringLiteral("Signal Strength"));
        return tree.find(Tick, QStringLiteral("Home")) && gauge && gauge->value < 0;
    }));
}

void TestScreenReader::cleanup()
{
    m_airlume.reset();
    m_host.reset();
    m_reader.reset();
    m_desktop.reset();
}

bool TestScreenReader::waitForTree(const std::function<bool(const SpokenNode &)> &reached)
{
    return m_airlume->waitFor([&](const QJsonObject &) { return reached(m_reader->tree()); });
}

/// The cells of the network's row.
SpokenNode TestScreenReader::row(const QString &name)
{
    SpokenNode found;
    const SpokenNode tree = m_reader->tree();
    const SpokenNode *list = tree.find(QStringLiteral("table"));
    for (int i = 6; list && i + 6 <= list->children.size(); i += 6) {
        if (list->children.at(i).name == name)
            found.children = list->children.mid(i, 6);
    }
    return found;
}

QString TestScreenReader::description(const QString &graph)
{
    const SpokenNode tree = m_reader->tree();
    const SpokenNode *chart = tree.find(QStringLiteral("chart"), graph);
    return chart ? chart->description : QStringLiteral("no such graph");
}

void TestScreenReader::everythingThatTakesTheFocusHasNameAndRole()
{
    QVERIFY(m_reader->tree().find(QStringLiteral("frame"), QStringLiteral("Airlume")));
    for (int tab = 0; tab < 4; ++tab) {
        QVERIFY(showTab(tab));
        if (tab == 3)
            QVERIFY(m_airlume->command(QStringLiteral("room 1")));
        QVERIFY(waitForTree([tab](const SpokenNode &tree) {
            const SpokenNode *titles = tree.find(QStringLiteral("page tab list"));
            const QString title = titles ? titles->children.at(tab).name : QString();
            const QVector<const SpokenNode *> nodes = tree.all();
            return std::any_of(nodes.cbegin(), nodes.cend(), [&](const SpokenNode *node) {
                return node->role == QLatin1String("filler") && node->name == title &&
                       node->is("showing");
            });
        }));
        const SpokenNode tree = m_reader->tree();
        int controls = 0;
        const QVector<const SpokenNode *> nodes = tree.all();
        for (const SpokenNode *node : nodes) {
            QVERIFY(node->name != QLatin1String("ab"));
            if (!node->is("focusable") || !node->is("showing"))
                continue;
            ++controls;
            QVERIFY2(!node->name.isEmpty(), qPrintable(node->role));
            QVERIFY2(node->role != QLatin1String("unknown"), qPrintable(node->name));
        }
        QVERIFY(controls > 10);
        for (const char *button : {"Minimize", "Maximize", "Close"})
            QVERIFY(tree.find(QStringLiteral("push button"), QLatin1String(button)));
        if (tab == 3) {
            const SpokenNode *rooms = tree.find(QStringLiteral("table"), QStringLiteral("Rooms"));
            QVERIFY(rooms);
            QVERIFY(
                rooms->find(QStringLiteral("table cell"), QStringLiteral("Bedroom2, N/A, N/A")));
            const QVector<const SpokenNode *> inside = rooms->all();
            QCOMPARE(std::count_if(inside.cbegin(), inside.cend(),
                         [](const SpokenNode *node) {
                             return node->role == QLatin1String("push button") &&
                                    node->name == QLatin1String("Test") && node->is("showing");
                         }),
                1);
        }
    }
}

void TestScreenReader::rowTellsNameSignalChannelSecurityAndTick()
{
    SpokenNode attic = row(QStringLiteral("Attic"));
    QCOMPARE(attic.children.size(), 6);
    QCOMPARE(attic.children[0].role, Tick);
    QCOMPARE(attic.children[0].description, QStringLiteral("-70 dBm, Channel 1, WPA2-PSK"));
    QVERIFY(attic.children[0].is("checked"));
    const QStringList texts{QStringLiteral("Attic"), QStringLiteral("Attic"),
        QStringLiteral("-70 dBm"), QStringLiteral("Channel 1"), QStringLiteral("WPA2-PSK"),
        QStringLiteral("02:00:00:00:00:01")};
    for (int column = 0; column < 6; ++column)
        QCOMPARE(attic.children[column].name, texts[column]);
    const SpokenNode nameless = row(QStringLiteral("02:00:00:00:00:03"));
    QCOMPARE(nameless.children.size(), 6);
    QCOMPARE(nameless.children[1].name, QStringLiteral("02:00:00:00:00:03"));
    QVERIFY(nameless.children[0].description.startsWith(QLatin1String("-60 dBm, Channel 11")));

    const QString checked = QStringLiteral("state-changed:checked");
    const int before = m_reader->events(checked, Tick);
    QVERIFY(m_reader->act(QStringLiteral("Toggle"), Tick, QStringLiteral("Attic")));
    QVERIFY(waitForTree([&](const SpokenNode &tree) {
        const SpokenNode *tick = tree.find(Tick, QStringLiteral("Attic"));
        return tick && !tick->is("checked");
    }));
    QVERIFY(m_airlume->waitFor(
        [&](const QJsonObject &) { return m_reader->events(checked, Tick) == before + 1; }));
    QVERIFY(row(QStringLiteral("Home")).children[0].is("checked"));
}

void TestScreenReader::boxOfAllTicksAndGraphsTellWhatTheyDraw()
{
    const QString time = QStringLiteral("Signal over time");
    const QString low = QStringLiteral("Channels at 2.4 GHz");
    const QString high = QStringLiteral("Channels at 5 GHz");
    const SpokenNode tree = m_reader->tree();
    const SpokenNode *list = tree.find(QStringLiteral("table"));
    QVERIFY(list && list->children.first().find(Tick, All));
    QCOMPARE(description(low), QStringLiteral("No network is drawn."));

    for (int press = 0; press < 3; ++press)
        QVERIFY(m_reader->act(QStringLiteral("Toggle"), Tick, All));
    QVERIFY(waitForTree([&](const SpokenNode &) {
        return description(time) == QLatin1String("Home -50 dBm, Attic -70 dBm");
    }));
    QVERIFY(waitForTree([&](const SpokenNode &) {
        return description(low) == QLatin1String("Attic -70 dBm Channel 1") &&
               description(high) == QLatin1String("Home -50 dBm Channel 44");
    }));

    // Nothing has changed since, so nothing is told while the graphs tick on.
    const QString told = QStringLiteral("accessible-description");
    const int before = m_reader->events(told, QStringLiteral("chart"));
    QVERIFY(before > 0);
    for (int tick = 0; tick < 2; ++tick) {
        const QJsonValue times = m_airlume->state()[QStringLiteral("times")];
        QVERIFY(m_airlume->waitFor(
            [&](const QJsonObject &state) { return state[QStringLiteral("times")] != times; }));
    }
    QCOMPARE(m_reader->events(told, QStringLiteral("chart")), before);
}

void TestScreenReader::gaugeTellsItsValueAndThatItChanges()
{
    const QString bar = QStringLiteral("progress bar");
    const QString gauge = QStringLiteral("Signal Strength");
    SpokenNode tree = m_reader->tree();
    QCOMPARE(tree.find(bar, gauge)->value, -50.);
    QCOMPARE(tree.find(bar, gauge)->description, QStringLiteral("Connected to Home"));
    const QString told = QStringLiteral("accessible-value");
    const int before = m_reader->events(told, bar);
    QVERIFY(m_airlume->waitFor(
        [](const QJsonObject &state) { return state[QStringLiteral("gauge")].toInt() == 0; },
        180000));
    QVERIFY(m_airlume->waitFor(
        [&](const QJsonObject &) { return m_reader->events(told, bar) > before; }));
    QVERIFY(waitForTree([&](const SpokenNode &now) {
        const SpokenNode *found = now.find(bar, gauge);
        return found && found->value > -1 && found->description == QLatin1String("Not Connected");
    }));
}

void TestScreenReader::speaksTheLanguageOfTheProgram()
{
    QVERIFY(m_host->isAsked());
    QVERIFY(m_host->sayLanguage("deu"));
    QVERIFY(m_airlume->waitFor(speaking(QStringLiteral("deu"))));
    const QString title = textIn(QStringLiteral("deu"), QStringLiteral("L_SIGNAL_GRAPH_TAB_NAME"));
    const QString channel = textIn(QStringLiteral("deu"), QStringLiteral("L_HEADER_CHANNEL"));
    QVERIFY(waitForTree([&](const SpokenNode &tree) {
        const SpokenNode *attic = tree.find(Tick, QStringLiteral("Attic"));
        return tree.find(QStringLiteral("page tab"), title) &&
               tree.find(QStringLiteral("filler"), title) && attic &&
               attic->description.contains(channel + QStringLiteral(" 1"));
    }));
}

QTEST_GUILESS_MAIN(TestScreenReader)
#include "tst_screenreader.moc"
