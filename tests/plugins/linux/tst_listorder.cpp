#include "linux/listorder.h"

#include <QSet>
#include <QTest>

using namespace LinuxWifi;

namespace
{
AccessPoint accessPoint(const QString &bssid, const char *ssid, int signal)
{
    AccessPoint result;
    result.bssid = bssid;
    result.ssid = QString::fromUtf8(ssid);
    result.signal = signal;
    return result;
}

AccessPoint accessPoint(const char *bssid, const char *ssid, int signal)
{
    return accessPoint(QString::fromLatin1(bssid), ssid, signal);
}

/// So many strangers, the strongest first, all stronger than `below` dBm.
QVector<AccessPoint> strangers(int count, int strongest = -30)
{
    QVector<AccessPoint> result;
    for (int i = 0; i < count; ++i) {
        const QString bssid = QStringLiteral("s%1").arg(i, 3, 10, QLatin1Char('0'));
        result.append(accessPoint(bssid, qPrintable(bssid), strongest - i));
    }
    return result;
}

QString sorted(ListOrder &order, QVector<AccessPoint> accessPoints, const char *joined = "")
{
    order.sort(accessPoints, QString::fromLatin1(joined));
    QStringList names;
    for (const AccessPoint &accessPoint : qAsConst(accessPoints))
        names.append(accessPoint.bssid);
    return names.join(QLatin1Char(' '));
}

QStringList places(ListOrder &order, QVector<AccessPoint> accessPoints, const char *joined = "")
{
    return sorted(order, std::move(accessPoints), joined).split(QLatin1Char(' '));
}

/// The rows of Airlume's list, which takes from each answer what this does.
class Rows
{
public:
    void take(const QStringList &answer)
    {
        for (const QString &bssid : answer) {
            if (m_rows.contains(bssid))
                continue;
            if (m_rows.size() == ListOrder::Rows) {
                m_unread = QSet<QString>(m_rows.cbegin(), m_rows.cend());
                for (const QString &read : answer.mid(0, answer.indexOf(bssid)))
                    m_unread.remove(read);
                return;
            }
            m_rows.append(bssid);
        }
        m_unread.clear();
    }
    /// Airlume makes room for the joined network.
    void dropLast() { m_rows.removeLast(); }
    bool shows(const char *bssid) const { return m_rows.contains(QString::fromLatin1(bssid)); }
    /// Rows that the last answer did not reach.
    QSet<QString> unread() const { return m_unread; }

private:
    QStringList m_rows;
    QSet<QString> m_unread;
};
} // namespace

class TestListOrder : public QObject
{
    Q_OBJECT

private slots:
    void firstAnswerGoesByStrength();
    void namesStandTogether();
    void joinedNameComesFirst();
    void roamingChangesNoOrder();
    void newcomersFollow();
    void newcomerStandsBesideItsNameWhileThereIsRoom();
    void newcomerBeyondTheRowsStopsNoReading();
    void joinedNetworkGetsARowAndTheOthersGoOn_data();
    void joinedNetworkGetsARowAndTheOthersGoOn();
    void whoLeftAndCameBackIsNew();
    void equalSignalsHaveAFixedOrder();
    void unheardSignalIsTheWeakest();
    void thousandsAreSortedOften();
};

void TestListOrder::firstAnswerGoesByStrength()
{
    ListOrder order;
    QCOMPARE(sorted(order, {accessPoint("b", "B", -60), accessPoint("a", "A", -70),
                               accessPoint("c", "C", -50)}),
        QStringLiteral("c b a"));
    // Later strength changes nothing.
    QCOMPARE(sorted(order, {accessPoint("b", "B", -40), accessPoint("a", "A", -30),
                               accessPoint("c", "C", -80)}),
        QStringLiteral("c b a"));
}

void TestListOrder::namesStandTogether()
{
    ListOrder order;
    QCOMPARE(sorted(order, {accessPoint("a1", "A", -70), accessPoint("b", "B", -60),
                               accessPoint("a2", "A", -50), accessPoint("c", "C", -55)}),
        QStringLiteral("a2 a1 c b"));
}

void TestListOrder::joinedNameComesFirst()
{
    ListOrder order;
    const QVector<AccessPoint> air{accessPoint("a", "A", -40), accessPoint("h1", "Home", -50),
        accessPoint("h2", "Home", -80), accessPoint("c", "C", -90)};
    QCOMPARE(sorted(order, air, "h2"), QStringLiteral("h1 h2 a c"));
    QCOMPARE(sorted(order, air, "c"), QStringLiteral("c h1 h2 a"));
    QCOMPARE(sorted(order, air), QStringLiteral("c h1 h2 a"));
    QCOMPARE(sorted(order, air, "gone"), QStringLiteral("c h1 h2 a"));
}

void TestListOrder::roamingChangesNoOrder()
{
    ListOrder order;
    const QVector<AccessPoint> air{accessPoint("h1", "Home", -50), accessPoint("h2", "Home", -60),
        accessPoint("h3", "Home", -70), accessPoint("x", "X", -40)};
    const QString expected = QStringLiteral("h1 h2 h3 x");
    for (const char *const joined : {"h1", "h3", "h2", "", "h1", "h3"})
        QCOMPARE(sorted(order, air, joined), expected);
}

void TestListOrder::newcomersFollow()
{
    ListOrder order;
    QVector<AccessPoint> air{accessPoint("a", "A", -60)};
    sorted(order, air);
    air += {accessPoint("c", "C", -50), accessPoint("b", "B", -40)};
    QCOMPARE(sorted(order, air), QStringLiteral("a b c"));
}

void TestListOrder::newcomerStandsBesideItsNameWhileThereIsRoom()
{
    ListOrder order;
    QVector<AccessPoint> air{accessPoint("h1", "Home", -50), accessPoint("x", "X", -60)};
    sorted(order, air);
    air.append(accessPoint("h2", "Home", -40));
    QCOMPARE(sorted(order, air), QStringLiteral("h1 h2 x"));
}

void TestListOrder::newcomerBeyondTheRowsStopsNoReading()
{
    ListOrder order;
    Rows rows;
    QVector<AccessPoint> air = strangers(14) + QVector{accessPoint("h1", "Home", -90)};
    rows.take(places(order, air, "h1"));
    air.append(accessPoint("h2", "Home", -40));
    for (int i = 0; i < 3; ++i) {
        rows.take(places(order, air, "h1"));
        QCOMPARE(rows.unread(), QSet<QString>());
    }
}

void TestListOrder::joinedNetworkGetsARowAndTheOthersGoOn_data()
{
    QTest::addColumn<QString>("joined");
    QTest::newRow("the first of its name") << "c1";
    QTest::newRow("one behind others of its name without a row") << "c3";
    QTest::newRow("one whose name has a row") << "s3b";
}

void TestListOrder::joinedNetworkGetsARowAndTheOthersGoOn()
{
    QFETCH(QString, joined);
    ListOrder order;
    Rows rows;
    QVector<AccessPoint> air = strangers(20);
    air += {accessPoint("c1", "Cafe", -91), accessPoint("c2", "Cafe", -92),
        accessPoint("c3", "Cafe", -93)};
    rows.take(places(order, air));
    air.append(accessPoint("s3b", "s003", -95)); // of a name that is in the list, but later
    rows.take(places(order, air));
    const QByteArray name = joined.toLatin1();
    QVERIFY(!rows.shows(name.constData()));

    rows.dropLast();
    for (int i = 0; i < 3; ++i) {
        rows.take(places(order, air, name.constData()));
        QVERIFY(rows.shows(name.constData()));
        QCOMPARE(rows.unread(), QSet<QString>());
    }
}

void TestListOrder::whoLeftAndCameBackIsNew()
{
    ListOrder order;
    const AccessPoint h1 = accessPoint("h1", "Home", -50);
    const AccessPoint h2 = accessPoint("h2", "Home", -60);
    QCOMPARE(sorted(order, {h1, h2}), QStringLiteral("h1 h2"));
    QCOMPARE(sorted(order, {h2}), QStringLiteral("h2"));
    QCOMPARE(sorted(order, {h1, h2}), QStringLiteral("h2 h1"));
}

void TestListOrder::equalSignalsHaveAFixedOrder()
{
    ListOrder one;
    ListOrder other;
    const AccessPoint a = accessPoint("a", "A", -50);
    const AccessPoint b = accessPoint("b", "B", -50);
    QCOMPARE(sorted(one, {a, b}), sorted(other, {b, a}));
}

void TestListOrder::unheardSignalIsTheWeakest()
{
    ListOrder order;
    AccessPoint silent = accessPoint("a", "A", -50);
    silent.signal.reset();
    QCOMPARE(sorted(order, {silent, accessPoint("b", "B", -100)}), QStringLiteral("b a"));
}

void TestListOrder::thousandsAreSortedOften()
{
    ListOrder order;
    const QVector<AccessPoint> air = strangers(3000, -1);
    const QString first = sorted(order, air, "s2999");
    QVERIFY(first.startsWith(QStringLiteral("s2999 s000 s001 ")));
    for (int i = 0; i < 10; ++i)
        QCOMPARE(sorted(order, air), first);
}

QTEST_GUILESS_MAIN(TestListOrder)
#include "tst_listorder.moc"
