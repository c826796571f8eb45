#include "linux/interfacechoice.h"

#include <QTest>

using namespace LinuxWifi;

Q_DECLARE_METATYPE(LinuxWifi::InterfaceCandidate)

namespace
{
InterfaceCandidate candidate(
    int index, bool usable, bool joined = false, bool scanned = false, bool unmanaged = false)
{
    InterfaceCandidate result;
    result.interface.index = index;
    result.interface.name = QStringLiteral("wlan%1").arg(index);
    result.interface.joinedName = joined ? QStringLiteral("Home") : QString();
    result.usable = usable;
    result.scanned = scanned;
    result.unmanaged = unmanaged;
    return result;
}

int chosen(InterfaceChoice &choice, const QVector<InterfaceCandidate> &candidates)
{
    const std::optional<WifiInterface> interface = choice.choose(candidates);
    return interface ? interface->index : 0;
}
} // namespace

class TestInterfaceChoice : public QObject
{
    Q_OBJECT

private slots:
    void bestIsChosen_data();
    void bestIsChosen();
    void choiceStaysWhileNoneIsBetter();
};

void TestInterfaceChoice::bestIsChosen_data()
{
    QTest::addColumn<QVector<InterfaceCandidate>>("candidates");
    QTest::addColumn<int>("expected");
    using List = QVector<InterfaceCandidate>;
    QTest::newRow("none") << List{} << 0;
    QTest::newRow("none is usable") << List{candidate(1, false, true, true)} << 0;
    QTest::newRow("the first") << List{candidate(1, true), candidate(2, true)} << 1;
    QTest::newRow("the usable") << List{candidate(1, false, true), candidate(2, true)} << 2;
    QTest::newRow("the scanned") << List{candidate(1, true), candidate(2, true, false, true)} << 2;
    QTest::newRow("the joined") << List{candidate(1, true, false, true),
                                       candidate(2, true, true, false)}
                                << 2;
}

void TestInterfaceChoice::bestIsChosen()
{
    QFETCH(QVector<InterfaceCandidate>, candidates);
    QFETCH(int, expected);
    InterfaceChoice choice;
    QCOMPARE(chosen(choice, candidates), expected);
}

void TestInterfaceChoice::choiceStaysWhileNoneIsBetter()
{
    InterfaceChoice choice;
    QCOMPARE(chosen(choice, {candidate(1, false), candidate(2, true)}), 2);
    QCOMPARE(chosen(choice, {candidate(1, true), candidate(2, true)}), 2);
    QCOMPARE(chosen(choice, {candidate(1, true, false, true), candidate(2, true)}), 1);
    QCOMPARE(chosen(choice, {candidate(1, true, false, true), candidate(2, true, false, true)}), 1);
    QCOMPARE(chosen(choice, {candidate(1, true), candidate(2, true, true)}), 2);
    QCOMPARE(chosen(choice, {candidate(1, true, true), candidate(2, true, true)}), 2);
    QCOMPARE(chosen(choice, {candidate(1, true)}), 1);
}

QTEST_GUILESS_MAIN(TestInterfaceChoice)
#include "tst_interfacechoice.moc"
