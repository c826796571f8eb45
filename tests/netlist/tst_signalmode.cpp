#include "common/QtCommonTools.h"
#include "i18n/languagelabels.h"
#include "netlist/signalmode.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QAbstractItemModelTester>
#include <QFont>
#include <QtTest>

using TestAir::network;
using TestAir::networks;

class TestSignalMode : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QtCommonTools::Init(); }
    void cleanupTestCase() { QtCommonTools::Release(); }
    void init();
    void cleanup();
    void hasHeadersInTheCurrentLanguage();
    void centresTheHeadersOfCentredColumns();
    void firstFillMakesTickedRowsAndTellsNoGraph();
    void firstFillEndsAtFifteenRows();
    void columnZeroIsCheckableAndAccessible();
    void showsWhatTheAirSaysLiterally();
    void limitsSignalAndChannel_data();
    void limitsSignalAndChannel();
    void updatesRowsInPlace();
    void appendsNewcomersUnticked();
    void aFullListIgnoresTheRestOfAScan();
    void prunesAtTheThirdCall();
    void hidesTheCurveOfAPrunedTickedNetwork();
    void pruningKeepsTheRowsOfTheOthersRight();
    void pruningMakesRoomInTheSameScan();
    void anEmptyScanChangesNothingButCounts();
    void dropsTheLastRowForTheJoinedNetwork();
    void ticksAndUnticks();
    void ticksOnlyColumnZero();
    void ignoresValuesThatAreNoTicks();
    void doesNotTickWhileStopped();
    void tellsNoGraphAboutAnEmptyName();
    void startWipesEverythingAndThaws();
    void emptyForgetsRowsAndSeenNames();
    void showsTheJoinedNetworkInBold();
    void boldFollowsItsNetworkThroughTheList();
    void changingTheJoinedNetworkTellsItsRowsOnly();
    void aNamelessNetworkIsNeverBold();

private:
    QStringList ssids() const;
    QString boldRows() const;
    QString text(int row, int column) const;

    QScopedPointer<SignalMode> m_model;
    QScopedPointer<QAbstractItemModelTester> m_tester;
    QScopedPointer<QSignalSpy> m_shown;
};

void TestSignalMode::init()
{
    QtCommonTools::GetLangNm() = LanguageLabels::m_strDefaultLang;
    m_model.reset(new SignalMode);
    m_tester.reset(new QAbstractItemModelTester(
        m_model.data(), QAbstractItemModelTester::FailureReportingMode::QtTest));
    m_shown.reset(new QSignalSpy(m_model.data(), &SignalMode::showCurve));
}

void TestSignalMode::cleanup()
{
    m_shown.reset();
    m_tester.reset();
    m_model.reset();
}

QStringList TestSignalMode::ssids() const
{
    QStringList names;
    for (int row = 0; row < m_model->rowCount(); ++row)
        names.append(m_model->ssidAt(row));
    return names;
}

QString TestSignalMode::text(int row, int column) const
{
    return m_model->index(row, column).data().toString();
}

void TestSignalMode::hasHeadersInTheCurrentLanguage()
{
    const auto headers = [this] {
        QStringList texts;
        for (int column = 0; column < m_model->columnCount(); ++column)
            texts.append(m_model->headerData(column, Qt::Horizontal).toString());
        return texts;
    };
    QCOMPARE(headers(),
        QStringList({QString(), QStringLiteral("SSID"), QStringLiteral("Signal(dBm)"),
            QStringLiteral("Channel"), QStringLiteral("Security"), QStringLiteral("BSSID")}));
    QtCommonTools::GetLangNm() = QStringLiteral("deu");
    m_model->ChangeLanguage();
    QCOMPARE(headers().at(3), QtCommonTools::tr(LanguageLabels::m_strLangHeadChannel));
    QVERIFY(headers().at(3) != QLatin1String("Channel"));
    QCOMPARE(headers().first(), QString());
}

void TestSignalMode::centresTheHeadersOfCentredColumns()
{
    m_model->updateData({network(QStringLiteral("A"))});
    m_model->ChangeLanguage();
    for (int column = SignalMode::SsidColumn; column < SignalMode::ColumnCount; ++column) {
        const int cell = m_model->index(0, column).data(Qt::TextAlignmentRole).toInt();
        const int header =
            m_model->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
        QCOMPARE(header == Qt::AlignCenter, cell == Qt::AlignCenter);
    }
}

void TestSignalMode::firstFillMakesTickedRowsAndTellsNoGraph()
{
    m_model->updateData(
        {network(QStringLiteral("A"), -50, 6), network(QStringLiteral("B"), -60, 36)});
    QCOMPARE(ssids(), QStringList({QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(m_model->item(0, SignalMode::TickColumn)->text(), QStringLiteral("ab"));
    QVERIFY(m_model->isTicked(0));
    QVERIFY(m_model->isTicked(1));
    QCOMPARE(m_shown->size(), 0);
    QCOMPARE(text(1, SignalMode::SignalColumn), QStringLiteral("-60"));
    QCOMPARE(text(1, SignalMode::ChannelColumn), QStringLiteral("36"));
    QCOMPARE(text(1, SignalMode::SecurityColumn), QStringLiteral("WPA2-PSK"));
    QCOMPARE(text(1, SignalMode::BssidColumn), network(QStringLiteral("B")).bssid);
}

void TestSignalMode::firstFillEndsAtFifteenRows()
{
    m_model->updateData(networks(20));
    QCOMPARE(m_model->rowCount(), 15);
    QCOMPARE(ssids().last(), QStringLiteral("Network 014"));
    for (int row = 0; row < 15; ++row)
        QVERIFY(m_model->isTicked(row));
}

void TestSignalMode::columnZeroIsCheckableAndAccessible()
{
    m_model->updateData({network(QStringLiteral("A"))});
    QStandardItem *item = m_model->item(0, SignalMode::TickColumn);
    QVERIFY(item->isCheckable());
    QCOMPARE(item->checkState(), Qt::Unchecked);

    const QModelIndex tick = m_model->index(0, SignalMode::TickColumn);
    QCOMPARE(tick.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QCOMPARE(tick.data(Qt::AccessibleTextRole).toString(), QStringLiteral("A"));
    m_model->setData(tick, false);
    QCOMPARE(tick.data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
}

void TestSignalMode::showsWhatTheAirSaysLiterally()
{
    const QString hostile =
        QStringLiteral("<img src=x>%1\n\u202e") + QString(10000, QLatin1Char('x'));
    m_model->updateData({network(hostile), network(QString())});
    QCOMPARE(ssids(), QStringList({hostile, QString()}));
}

void TestSignalMode::limitsSignalAndChannel_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<int>("channel");
    QTest::addColumn<QString>("shownSignal");
    QTest::addColumn<QString>("shownChannel");
    const auto row = [](int signal, int channel, const char *shownSignal,
                         const char *shownChannel) {
        QTest::addRow("%d on %d", signal, channel)
            << signal << channel << QString::fromLatin1(shownSignal)
            << QString::fromLatin1(shownChannel);
    };
    row(5, -1, "0", "0");
    row(-120, 65536, "0", "0");
    row(-101, 65535, "0", "65535");
    row(-100, 0, "-100", "0");
    row(0, 14, "0", "14");
    row(-2147483647 - 1, 2147483647, "0", "0");
}

void TestSignalMode::limitsSignalAndChannel()
{
    QFETCH(int, signal);
    QFETCH(int, channel);
    QFETCH(QString, shownSignal);
    QFETCH(QString, shownChannel);
    m_model->updateData({network(QStringLiteral("A"), signal, channel)});
    QCOMPARE(text(0, SignalMode::SignalColumn), shownSignal);
    QCOMPARE(text(0, SignalMode::ChannelColumn), shownChannel);
    // Again as an update of the row.
    m_model->updateData({network(QStringLiteral("A"), -1, 1)});
    m_model->updateData({network(QStringLiteral("A"), signal, channel)});
    QCOMPARE(text(0, SignalMode::SignalColumn), shownSignal);
    QCOMPARE(text(0, SignalMode::ChannelColumn), shownChannel);
}

void TestSignalMode::updatesRowsInPlace()
{
    m_model->updateData({network(QStringLiteral("A")), network(QStringLiteral("B"))});
    const QPersistentModelIndex second = m_model->index(1, SignalMode::SsidColumn);
    QSignalSpy removed(m_model.data(), &QAbstractItemModel::rowsRemoved);
    WifiProperty changed = network(QStringLiteral("B"), -71, 11);
    changed.security = QStringLiteral("WPA3-SAE");
    changed.bssid = QStringLiteral("02:00:00:00:00:99");
    m_model->updateData({changed, network(QStringLiteral("A"))});
    QCOMPARE(second.row(), 1);
    QCOMPARE(text(1, SignalMode::SignalColumn), QStringLiteral("-71"));
    QCOMPARE(text(1, SignalMode::ChannelColumn), QStringLiteral("11"));
    QCOMPARE(text(1, SignalMode::SecurityColumn), QStringLiteral("WPA3-SAE"));
    QCOMPARE(text(1, SignalMode::BssidColumn), QStringLiteral("02:00:00:00:00:99"));
    QCOMPARE(removed.size(), 0);
    // Unchanged values do not even report a change.
    QSignalSpy edited(m_model.data(), &QAbstractItemModel::dataChanged);
    m_model->updateData({changed, network(QStringLiteral("A"))});
    QCOMPARE(edited.size(), 0);
}

void TestSignalMode::appendsNewcomersUnticked()
{
    m_model->updateData({network(QStringLiteral("A"))});
    m_model->updateData({network(QStringLiteral("A")), network(QStringLiteral("B"), -5, 1)});
    QCOMPARE(ssids(), QStringList({QStringLiteral("A"), QStringLiteral("B")}));
    QVERIFY(m_model->isTicked(0));
    QVERIFY(!m_model->isTicked(1));
    QCOMPARE(m_shown->size(), 0);
}

void TestSignalMode::aFullListIgnoresTheRestOfAScan()
{
    m_model->updateData(networks(15));
    const QString before = text(0, SignalMode::SignalColumn);
    QVector<WifiProperty> scan = networks(15);
    scan[0].rssi = -99;
    scan.prepend(network(QStringLiteral("New")));
    m_model->updateData(scan);
    QCOMPARE(m_model->rowCount(), 15);
    QCOMPARE(text(0, SignalMode::SignalColumn), before);
    QVERIFY(!ssids().contains(QStringLiteral("New")));
}

void TestSignalMode::prunesAtTheThirdCall()
{
    const WifiProperty a = network(QStringLiteral("A"));
    const WifiProperty b = network(QStringLiteral("B"));
    m_model->updateData({a, b}); // 1: both seen
    m_model->updateData({a});
    m_model->updateData({a}); // 3: pruning; B was seen since the last one
    QCOMPARE(m_model->rowCount(), 2);
    m_model->updateData({a});
    m_model->updateData({a});
    QCOMPARE(m_model->rowCount(), 2);
    m_model->updateData({a}); // missing from three
    QCOMPARE(ssids(), QStringList(QStringLiteral("A")));
}

void TestSignalMode::hidesTheCurveOfAPrunedTickedNetwork()
{
    const WifiProperty a = network(QStringLiteral("A"));
    m_model->updateData({a, network(QStringLiteral("B")), network(QStringLiteral("C"))});
    m_model->setData(m_model->index(2, 0), false);
    m_shown->clear();
    for (int call = 2; call <= 6; ++call)
        m_model->updateData({a});
    QCOMPARE(ssids(), QStringList(QStringLiteral("A")));
    QCOMPARE(m_shown->size(), 1);
    QCOMPARE(m_shown->first(), QVariantList({0, QStringLiteral("B"), false}));
}

void TestSignalMode::pruningKeepsTheRowsOfTheOthersRight()
{
    const QVector<WifiProperty> all = networks(6);
    m_model->updateData(all);
    QVector<WifiProperty> rest{all.at(1), all.at(3), all.at(5)};
    for (int call = 2; call <= 6; ++call)
        m_model->updateData(rest);
    QCOMPARE(m_model->rowCount(), 3);
    // Later updates reach the right rows.
    for (int i = 0; i < rest.size(); ++i) {
        rest[i].rssi = -10 - i;
        rest[i].channel = 40 + i;
    }
    m_model->updateData(rest);
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(m_model->ssidAt(row), rest.at(row).ssid);
        QCOMPARE(text(row, SignalMode::SignalColumn), QString::number(-10 - row));
        QCOMPARE(text(row, SignalMode::ChannelColumn), QString::number(40 + row));
    }
}

void TestSignalMode::pruningMakesRoomInTheSameScan()
{
    m_model->updateData(networks(15));
    QVector<WifiProperty> scan = networks(14);
    m_model->updateData(scan);
    m_model->updateData(scan);
    scan.prepend(network(QStringLiteral("New")));
    m_model->updateData(networks(14));
    m_model->updateData(networks(14));
    m_model->updateData(scan);
    QCOMPARE(m_model->rowCount(), 15);
    QCOMPARE(ssids().last(), QStringLiteral("New"));
}

void TestSignalMode::anEmptyScanChangesNothingButCounts()
{
    m_model->updateData(QVector<WifiProperty>());
    QCOMPARE(m_model->rowCount(), 0);
    const WifiProperty a = network(QStringLiteral("A"));
    m_model->updateData({a, network(QStringLiteral("B"))}); // the second call
    m_model->updateData({a});                               // the third: pruning
    for (int call = 0; call < 3; ++call)
        m_model->updateData({a});
    QCOMPARE(ssids(), QStringList(QStringLiteral("A")));
    m_model->updateData(QVector<WifiProperty>());
    QCOMPARE(ssids(), QStringList(QStringLiteral("A")));
}

void TestSignalMode::dropsTheLastRowForTheJoinedNetwork()
{
    m_model->updateData(networks(15));
    m_model->updateData(QStringLiteral("Joined"));
    QCOMPARE(m_model->rowCount(), 14);
    QCOMPARE(*m_shown, QList<QVariantList>({{0, QStringLiteral("Network 014"), false}}));

    m_shown->clear();
    m_model->setData(m_model->index(13, 0), false);
    m_shown->clear();
    m_model->updateData(QStringLiteral("Joined"));
    QCOMPARE(m_model->rowCount(), 13);
    QCOMPARE(m_shown->size(), 0);
    // The dropped network is forgotten and can come again.
    m_model->updateData(
        {network(QStringLiteral("Joined")), network(QStringLiteral("Network 014"))});
    QCOMPARE(
        ssids().mid(13), QStringList({QStringLiteral("Joined"), QStringLiteral("Network 014")}));
}

void TestSignalMode::ticksAndUnticks()
{
    m_model->updateData({network(QStringLiteral("A")), network(QStringLiteral("B"))});
    MessageLog log;
    QVERIFY(m_model->setData(m_model->index(1, 0), false));
    QVERIFY(!m_model->isTicked(1));
    QVERIFY(m_model->setData(m_model->index(1, 0), true));
    QVERIFY(m_model->isTicked(1));
    QCOMPARE(*m_shown,
        QList<QVariantList>({{1, QStringLiteral("B"), false}, {1, QStringLiteral("B"), true}}));
    QCOMPARE(
        log.debugs(), QStringList({QStringLiteral("ssid: \"B\""), QStringLiteral("ssid: \"B\"")}));
}

void TestSignalMode::ticksOnlyColumnZero()
{
    m_model->updateData({network(QStringLiteral("A"))});
    for (int column = 1; column < SignalMode::ColumnCount; ++column) {
        const QString before = text(0, column);
        QVERIFY(m_model->setData(m_model->index(0, column), false));
        QCOMPARE(text(0, column), before);
    }
    QCOMPARE(m_shown->size(), 0);
    QVERIFY(m_model->setData(QModelIndex(), true));
}

void TestSignalMode::ignoresValuesThatAreNoTicks()
{
    m_model->updateData({network(QStringLiteral("A"))});
    for (const QVariant &value :
        {QVariant(), QVariant(2), QVariant(QStringLiteral("ab")), QVariant(0.5)})
        QVERIFY(m_model->setData(m_model->index(0, 0), value));
    QCOMPARE(m_model->item(0, 0)->text(), QStringLiteral("ab"));
    QCOMPARE(m_shown->size(), 0);
}

void TestSignalMode::doesNotTickWhileStopped()
{
    m_model->updateData({network(QStringLiteral("A"))});
    m_model->onStopScan();
    QVERIFY(m_model->setData(m_model->index(0, 0), false));
    QVERIFY(m_model->isTicked(0));
    QCOMPARE(m_shown->size(), 0);
}

void TestSignalMode::tellsNoGraphAboutAnEmptyName()
{
    m_model->updateData({network(QString())});
    QVERIFY(m_model->setData(m_model->index(0, 0), false));
    QVERIFY(!m_model->isTicked(0));
    QCOMPARE(m_shown->size(), 0);
}

void TestSignalMode::startWipesEverythingAndThaws()
{
    m_model->updateData(networks(3));
    m_model->updateData(networks(3));
    m_model->onStopScan();
    m_model->onStartScan();
    QCOMPARE(m_model->rowCount(), 0);
    QCOMPARE(m_model->columnCount(), int(SignalMode::ColumnCount));
    QCOMPARE(m_model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("SSID"));
    m_model->updateData(networks(2));
    QVERIFY(m_model->isTicked(1));
    m_model->setData(m_model->index(1, 0), false);
    QVERIFY(!m_model->isTicked(1));
    // The third call from the start prunes, and every third one after it.
    for (int call = 2; call <= 6; ++call)
        m_model->updateData(networks(1));
    QCOMPARE(m_model->rowCount(), 1);
}

void TestSignalMode::emptyForgetsRowsAndSeenNames()
{
    m_model->updateData(networks(15));
    m_model->updateData(networks(15));
    m_model->EmptyWifiPropertyMap();
    QCOMPARE(m_model->rowCount(), 0);
    QCOMPARE(m_shown->size(), 0);
    QCOMPARE(m_model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("SSID"));
    // A first fill again: ticked, and the third call from here prunes.
    m_model->updateData(networks(2));
    QVERIFY(m_model->isTicked(0));
    m_model->updateData(networks(1));
    m_model->updateData(networks(1));
    QCOMPARE(m_model->rowCount(), 2);
    for (int call = 4; call <= 6; ++call)
        m_model->updateData(networks(1));
    QCOMPARE(m_model->rowCount(), 1);
}

QString TestSignalMode::boldRows() const
{
    QStringList bold;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        int cells = 0;
        for (int column = 0; column < m_model->columnCount(); ++column) {
            const QVariant font = m_model->index(row, column).data(Qt::FontRole);
            cells += font.value<QFont>().bold() ? 1 : 0;
            // Nothing else of the view's font is changed.
            if (font.isValid() && font.value<QFont>().resolve() != QFont::WeightResolved)
                return QStringLiteral("another font");
        }
        if (cells != 0 && cells != SignalMode::BssidColumn)
            return QStringLiteral("%1 cells").arg(cells);
        if (cells != 0)
            bold.append(
                m_model->ssidAt(row).isEmpty() ? QStringLiteral("nameless") : m_model->ssidAt(row));
    }
    return bold.join(QLatin1Char(','));
}

void TestSignalMode::showsTheJoinedNetworkInBold()
{
    m_model->updateData(networks(3));
    QCOMPARE(boldRows(), QString());
    const QStringList before = ssids();
    m_model->setJoined(QStringLiteral("Network 001"));
    QCOMPARE(boldRows(), QStringLiteral("Network 001"));
    m_model->setJoined(QStringLiteral("Network 002"));
    QCOMPARE(boldRows(), QStringLiteral("Network 002"));
    m_model->setJoined(QStringLiteral("Network 002 "));
    QCOMPARE(boldRows(), QString());
    m_model->setJoined(QStringLiteral("Network 000"));
    m_model->setJoined(QString());
    QCOMPARE(boldRows(), QString());
    QCOMPARE(ssids(), before);
    QVERIFY(m_shown->isEmpty());
}

void TestSignalMode::boldFollowsItsNetworkThroughTheList()
{
    // Before it has a row.
    m_model->setJoined(QStringLiteral("Home"));
    m_model->updateData(networks(3));
    QCOMPARE(boldRows(), QString());
    QVector<WifiProperty> scan = networks(3);
    scan.append(network(QStringLiteral("Home")));
    m_model->updateData(scan);
    QCOMPARE(boldRows(), QStringLiteral("Home"));
    // Those before it are pruned, and then it is.
    for (int times = 0; times < 6; ++times)
        m_model->updateData({network(QStringLiteral("Home"))});
    QCOMPARE(ssids(), QStringList(QStringLiteral("Home")));
    QCOMPARE(boldRows(), QStringLiteral("Home"));
    for (int times = 0; times < 6; ++times)
        m_model->updateData(networks(2));
    QCOMPARE(boldRows(), QString());
    m_model->updateData({network(QStringLiteral("Home"))});
    QCOMPARE(boldRows(), QStringLiteral("Home"));
    m_model->EmptyWifiPropertyMap();
    m_model->updateData({network(QStringLiteral("Home"))});
    QCOMPARE(boldRows(), QStringLiteral("Home"));
}

void TestSignalMode::changingTheJoinedNetworkTellsItsRowsOnly()
{
    m_model->updateData(networks(3));
    m_model->setJoined(QStringLiteral("Network 000"));
    QSignalSpy changed(m_model.data(), &SignalMode::dataChanged);
    m_model->setJoined(QStringLiteral("Network 000"));
    QCOMPARE(changed.size(), 0);
    m_model->setJoined(QStringLiteral("Network 002"));
    QCOMPARE(changed.size(), 2);
    QList<int> rows;
    for (const QVariantList &change : qAsConst(changed)) {
        const QModelIndex from = change.at(0).toModelIndex();
        const QModelIndex to = change.at(1).toModelIndex();
        QCOMPARE(from.row(), to.row());
        QCOMPARE(from.column(), int(SignalMode::SsidColumn));
        QCOMPARE(to.column(), int(SignalMode::BssidColumn));
        QCOMPARE(change.at(2).value<QVector<int>>(), QVector<int>({Qt::FontRole}));
        rows.append(from.row());
    }
    QCOMPARE(rows, QList<int>({0, 2}));
}

void TestSignalMode::aNamelessNetworkIsNeverBold()
{
    m_model->updateData({network(QString()), network(QStringLiteral("Home"))});
    m_model->setJoined(QString());
    QCOMPARE(boldRows(), QString());
    m_model->setJoined(QStringLiteral("Home"));
    m_model->setJoined(QString());
    QCOMPARE(boldRows(), QString());
}

QTEST_MAIN(TestSignalMode)
#include "tst_signalmode.moc"
