#include "linux/problemreporter.h"

#include <QStringList>
#include <QTest>

using LinuxWifi::ProblemReporter;
using LinuxWifi::Topic;

class TestProblemReporter : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_said.clear(); }
    void problemIsSaidOnce();
    void problemIsSaidAgainAfterItWasResolved();
    void anotherProblemOfTheTopicIsSaid();
    void topicsAreApart();
    void resolvingWhatWasNoProblemDoesNothing();

private:
    QStringList m_said;
    const ProblemReporter::Sink m_sink = [this](const QString &text) { m_said.append(text); };
    const QString m_down = QStringLiteral("down");
    const QString m_blocked = QStringLiteral("blocked");
};

void TestProblemReporter::problemIsSaidOnce()
{
    ProblemReporter reporter(m_sink);
    for (int i = 0; i < 100; ++i)
        reporter.report(Topic::Interface, m_down);
    QCOMPARE(m_said, QStringList{m_down});
}

void TestProblemReporter::problemIsSaidAgainAfterItWasResolved()
{
    ProblemReporter reporter(m_sink);
    reporter.report(Topic::Interface, m_down);
    reporter.resolved(Topic::Interface);
    reporter.resolved(Topic::Interface);
    reporter.report(Topic::Interface, m_down);
    QCOMPARE(m_said, (QStringList{m_down, m_down}));
}

void TestProblemReporter::anotherProblemOfTheTopicIsSaid()
{
    ProblemReporter reporter(m_sink);
    reporter.report(Topic::Interface, m_down);
    reporter.report(Topic::Interface, m_blocked);
    reporter.report(Topic::Interface, m_blocked);
    reporter.report(Topic::Interface, m_down);
    QCOMPARE(m_said, (QStringList{m_down, m_blocked, m_down}));
}

void TestProblemReporter::topicsAreApart()
{
    ProblemReporter reporter(m_sink);
    reporter.report(Topic::Interface, m_down);
    reporter.report(Topic::Scan, m_down);
    reporter.resolved(Topic::Scan);
    reporter.report(Topic::Interface, m_down);
    QCOMPARE(m_said, (QStringList{m_down, m_down}));
}

void TestProblemReporter::resolvingWhatWasNoProblemDoesNothing()
{
    ProblemReporter reporter(m_sink);
    reporter.resolved(Topic::Link);
    QCOMPARE(m_said, QStringList());
}

QTEST_GUILESS_MAIN(TestProblemReporter)
#include "tst_problemreporter.moc"
