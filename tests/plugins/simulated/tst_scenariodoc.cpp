#include "scenariopages.h"
#include "simulated/scenarioparser.h"

#include <QJsonDocument>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

namespace
{
/// A kind of object in a scenario: its title in the pages, and a sound file around an object.
struct Kind {
    const char *title;
    const char *before;
    const char *object;
    const char *after;
};

const Kind Kinds[] = {
    {"The whole", "", "{}", ""},
    {"An interface", R"({"interfaces":[)", R"({"name":"a"})", "]}"},
    {"A network", R"({"networks":[)", R"({"ssid":"","bssid":"02:00:00:00:00:01","channel":1})",
        "]}"},
    {"A block of generated networks", R"({"generate":)", R"({"count":1})", "}"},
    {"An event", R"({"events":[)", R"({"at":1,"do":"leave"})", "]}"},
};
const Kind &Event = Kinds[4];

/// A sound object of that kind, with one more member or another value of one.
ScenarioError errorOf(const Kind &kind, const QString &field, const QJsonValue &value,
    const QByteArray &object = QByteArray())
{
    QJsonObject changed =
        QJsonDocument::fromJson(object.isEmpty() ? QByteArray(kind.object) : object).object();
    changed.insert(field, value);
    return ParseScenario(
        kind.before + QJsonDocument(changed).toJson(QJsonDocument::Compact) + kind.after)
        .error;
}

/// The names that the parser gives in such a message.
QStringList namesIn(const QString &message, const char *pattern)
{
    const QStringList found = Captures(message, pattern);
    if (found.isEmpty())
        qFatal("no names in: %s", qPrintable(message));
    return found.first().split(QStringLiteral(", "));
}

QStringList fieldsOf(const Kind &kind)
{
    return namesIn(errorOf(kind, QStringLiteral("x"), 1).text, "known here are (.*)");
}

QStringList actions()
{
    return namesIn(
        errorOf(Event, QStringLiteral("do"), QStringLiteral("x")).text, "one of (.*), not ");
}

QSet<QString> numbersIn(const QString &text)
{
    const QStringList found = Captures(text, "(?<![\\w.:^-])(-?\\d+(?:\\.\\d+)?)(?![\\w:])");
    return QSet<QString>(found.cbegin(), found.cend());
}

} // namespace

/// Do the two pages that describe scenario files say what the parser does, and both the same?
class TestScenarioDoc : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void everyFieldAndNoOtherIsDescribed_data();
    void everyFieldAndNoOtherIsDescribed();
    void everyRangeIsTold_data();
    void everyRangeIsTold();
    void everyFieldOfAnEventIsSaidToBelongWhereItDoes_data();
    void everyFieldOfAnEventIsSaidToBelongWhereItDoes();
    void everyQueryIsNamed_data();
    void everyQueryIsNamed();
    void everyLimitIsTold_data();
    void everyLimitIsTold();
    void theMessageShownIsTheRealOne_data();
    void theMessageShownIsTheRealOne();
    void bothPagesTellTheSame_data();
    void bothPagesTellTheSame();
    void everyFieldAndActionIsInTheExample();
    void everyExampleIsSound();
    void theManualShowsASoundScenario();

private:
    ScenarioPage m_document;
    ScenarioPage m_manual;
};

void TestScenarioDoc::initTestCase()
{
    m_document = ReadDocument();
    m_manual = ReadManual();
}

static void addPageRows()
{
    QTest::addColumn<bool>("manual");
    QTest::newRow(ScenarioDocument) << false;
    QTest::newRow(ScenarioManual) << true;
}

void TestScenarioDoc::everyFieldAndNoOtherIsDescribed_data()
{
    addPageRows();
}

void TestScenarioDoc::everyFieldAndNoOtherIsDescribed()
{
    QFETCH(bool, manual);
    for (const Kind &kind : Kinds) {
        QStringList described;
        for (const ScenarioEntry &entry :
            (manual ? m_manual : m_document).sections.value(QLatin1String(kind.title)))
            described += entry.names;
        QStringList known = fieldsOf(kind);
        if (&kind == &Event)
            known += actions();
        described.sort();
        known.sort();
        QCOMPARE(described, known);
    }
}

void TestScenarioDoc::everyRangeIsTold_data()
{
    addPageRows();
}

void TestScenarioDoc::everyRangeIsTold()
{
    QFETCH(bool, manual);
    int ranges = 0;
    for (const Kind &kind : Kinds) {
        const QVector<ScenarioEntry> entries =
            (manual ? m_manual : m_document).sections.value(QLatin1String(kind.title));
        for (const QString &field : fieldsOf(kind)) {
            const QString message = errorOf(kind, field, QStringLiteral("x")).text;
            const QRegularExpressionMatch range =
                QRegularExpression(QStringLiteral("number from (\\S+) to ([^ ,]+),"))
                    .match(message);
            // Times are told of once for all.
            if (!range.hasMatch() || (range.captured(1) == QLatin1String("0") &&
                                         range.captured(2) == NumberText(ScenarioLimits::Seconds)))
                continue;
            ++ranges;
            const QString text = TextOf(entries, field);
            if (text.contains(QLatin1String("s for a network")))
                continue;
            QVERIFY2(numbersIn(text).contains(range.captured(1)), qPrintable(field));
            if (range.captured(2) == QString::number(1LL << 53))
                QVERIFY(text.contains(QLatin1String("2^53")));
            else if (range.captured(2) != NumberText(ScenarioLimits::Seconds))
                QVERIFY2(numbersIn(text).contains(range.captured(2)), qPrintable(field));
        }
    }
    QVERIFY(ranges >= 8);
}

void TestScenarioDoc::everyFieldOfAnEventIsSaidToBelongWhereItDoes_data()
{
    addPageRows();
}

void TestScenarioDoc::everyFieldOfAnEventIsSaidToBelongWhereItDoes()
{
    QFETCH(bool, manual);
    const QVector<ScenarioEntry> entries =
        (manual ? m_manual : m_document).sections.value(QLatin1String(Event.title));
    const QStringList all = actions();
    for (const QString &field : fieldsOf(Event).mid(2)) {
        QStringList accepting;
        for (const QString &action : all) {
            const QByteArray object = R"({"at":1,"do":")" + action.toLatin1() + R"("})";
            if (errorOf(Event, field, QJsonValue(), object).text !=
                QLatin1String("does not belong to this event"))
                accepting.append(action);
        }
        const QString text = TextOf(entries, field);
        QStringList told;
        for (const QString &action : all) {
            if (text.contains(
                    QRegularExpression(QStringLiteral("(`|\\.Li )%1(`|\\s)").arg(action))))
                told.append(action);
        }
        if (text.contains(QLatin1String("or the first five")))
            told = all.mid(0, 5);
        QCOMPARE(field + told.join(QLatin1Char(' ')), field + accepting.join(QLatin1Char(' ')));
    }
}

void TestScenarioDoc::everyQueryIsNamed_data()
{
    addPageRows();
}

void TestScenarioDoc::everyQueryIsNamed()
{
    QFETCH(bool, manual);
    const QString text =
        TextOf((manual ? m_manual : m_document).sections.value(QLatin1String(Event.title)),
            QStringLiteral("query"));
    const QByteArray object = R"({"at":1,"do":"fail"})";
    const QString message =
        errorOf(Event, QStringLiteral("query"), QStringLiteral("x"), object).text;
    for (const QString &query : namesIn(message, "one of (.*), not "))
        QVERIFY2(text.contains(QRegularExpression(QStringLiteral("\\b%1\\b").arg(query))),
            qPrintable(query));
}

void TestScenarioDoc::everyLimitIsTold_data()
{
    addPageRows();
}

void TestScenarioDoc::everyLimitIsTold()
{
    QFETCH(bool, manual);
    const QString page = (manual ? m_manual : m_document).text;
    const auto tells = [&page](const char *before, int limit, const char *after = "") {
        return page.contains(QLatin1String(before) + QString::number(limit) + QLatin1String(after),
            Qt::CaseInsensitive);
    };
    QVERIFY(tells("at most ", ScenarioLimits::Bytes >> 20, " MiB"));
    QVERIFY(tells("list of interfaces, at most ", ScenarioLimits::Interfaces, ";"));
    QVERIFY(tells("at most ", ScenarioLimits::Networks, " networks in all"));
    QVERIFY(tells("list of events, at most ", ScenarioLimits::Events, ","));
    QVERIFY(tells("list of 2 to ", ScenarioLimits::WalkPoints, " points"));
    QCOMPARE(NumberText(ScenarioLimits::Seconds), QStringLiteral("1000000000"));
    QVERIFY(page.contains(QLatin1String("0 to 10^9")));
}

void TestScenarioDoc::theMessageShownIsTheRealOne_data()
{
    addPageRows();
}

void TestScenarioDoc::theMessageShownIsTheRealOne()
{
    QFETCH(bool, manual);
    const QByteArray network = R"({"ssid":"","bssid":"02:00:00:00:00:0%1","channel":1},)";
    QByteArray list;
    for (const char digit : {'1', '2', '3'})
        list += QByteArray(network).replace("%1", QByteArray(1, digit));
    const ScenarioError error = ParseScenario(
        "{\"networks\":[" + list + R"({"ssid":"","bssid":"02:00:00:00:00:04","channel":"6"}]})")
                                    .error;
    QVERIFY(
        (manual ? m_manual : m_document)
            .text.contains(QStringLiteral("Scenario file hall.json, line 7, field ") + error.field +
                           QStringLiteral(": ") + error.text + QStringLiteral(".\n")));
}

void TestScenarioDoc::bothPagesTellTheSame_data()
{
    QTest::addColumn<QString>("title");
    for (const Kind &kind : Kinds)
        QTest::newRow(kind.title) << QString::fromLatin1(kind.title);
}

/// In the same order, of the same things together, with the same numbers and quoted values.
void TestScenarioDoc::bothPagesTellTheSame()
{
    QFETCH(QString, title);
    const QVector<ScenarioEntry> document = m_document.sections.value(title);
    const QVector<ScenarioEntry> manual = m_manual.sections.value(title);
    QCOMPARE(manual.size(), document.size());
    for (int i = 0; i < document.size(); ++i) {
        const ScenarioEntry &here = document.at(i);
        const ScenarioEntry &there = manual.at(i);
        const QByteArray names = here.names.join(QLatin1Char(' ')).toUtf8();
        QCOMPARE(there.names, here.names);
        QVERIFY2(numbersIn(there.text) == numbersIn(here.text), names.constData());
        for (const QString &quoted : Captures(here.text, "`([^`]*)`"))
            QVERIFY2(there.text.contains(quoted), qPrintable(quoted));
    }
}

void TestScenarioDoc::everyFieldAndActionIsInTheExample()
{
    const QString example = ReadSource("docs/examples/scenario.json");
    for (const Kind &kind : Kinds) {
        for (const QString &field : fieldsOf(kind))
            QVERIFY2(example.contains(QStringLiteral("\"%1\": ").arg(field)), qPrintable(field));
    }
    for (const QString &action : actions())
        QVERIFY2(
            example.contains(QStringLiteral("\"do\": \"%1\"").arg(action)), qPrintable(action));
}

void TestScenarioDoc::everyExampleIsSound()
{
    const QDir folder(QStringLiteral(AIRLUME_SOURCE_DIR "/docs/examples"));
    const QStringList files = folder.entryList({QStringLiteral("*.json")});
    QVERIFY(files.size() >= 2);
    for (const QString &name : files) {
        const ScenarioError error =
            ParseScenario(ReadSource(qPrintable(QStringLiteral("docs/examples/") + name)).toUtf8())
                .error;
        QVERIFY2(!error.isSet(), qPrintable(name + error.field + error.text));
    }
}

void TestScenarioDoc::theManualShowsASoundScenario()
{
    const QStringList shown =
        Captures(m_manual.text, "(?s)\\.Bd -literal -offset indent\n(\\{\n.*?)\\.Ed");
    QCOMPARE(shown.size(), 1);
    const ScenarioResult result = ParseScenario(shown.first().toUtf8());
    QCOMPARE(result.error.field + result.error.text, QString());
    QCOMPARE(result.scenario.networks.size(), 2);
}

QTEST_GUILESS_MAIN(TestScenarioDoc)
#include "tst_scenariodoc.moc"
