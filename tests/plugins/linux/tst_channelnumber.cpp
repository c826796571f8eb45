#include "linux/channelnumber.h"

#include <QTest>

class TestChannelNumber : public QObject
{
    Q_OBJECT

private slots:
    void frequencyGivesChannel_data();
    void frequencyGivesChannel();
    void everyChannelOfSixGigahertzHasItsOwnNumber();
};

void TestChannelNumber::frequencyGivesChannel_data()
{
    QTest::addColumn<quint32>("megahertz");
    QTest::addColumn<int>("channel");
    const QVector<QPair<quint32, int>> rows{{0, 0}, {1, 0}, {2407, 0}, {2412, 1}, {2437, 6},
        {2462, 11}, {2472, 13}, {2484, 14}, {2485, 0}, {4909, 0}, {4910, 182}, {4920, 184},
        {4980, 196}, {4981, 0}, {5000, 0}, {5180, 36}, {5220, 44}, {5320, 64}, {5500, 100},
        {5745, 149}, {5825, 165}, {5885, 177}, {5935, 6002}, {5945, 189}, {5950, 0}, {5954, 0},
        {5955, 6001}, {5975, 6005}, {6135, 6037}, {7115, 6233}, {7116, 0}, {45000, 0}, {45001, 0},
        {58320, 0}, {0xFFFFFFFF, 0}};
    for (const auto &row : rows)
        QTest::addRow("%u MHz", row.first) << row.first << row.second;
}

void TestChannelNumber::frequencyGivesChannel()
{
    QFETCH(quint32, megahertz);
    QFETCH(int, channel);
    QCOMPARE(LinuxWifi::channelOfFrequency(megahertz), channel);
}

void TestChannelNumber::everyChannelOfSixGigahertzHasItsOwnNumber()
{
    QSet<int> others{0};
    for (quint32 megahertz = 0; megahertz < 5950; ++megahertz) {
        if (megahertz != 5935)
            others.insert(LinuxWifi::channelOfFrequency(megahertz));
    }
    QSet<int> numbers;
    for (int channel = 1; channel <= 233; channel += 4) {
        const quint32 megahertz = 5950 + 5 * static_cast<quint32>(channel);
        const int number = LinuxWifi::channelOfFrequency(megahertz);
        QCOMPARE(number, 6000 + channel);
        QVERIFY(!others.contains(number));
        numbers.insert(number);
    }
    numbers.insert(LinuxWifi::channelOfFrequency(5935));
    QCOMPARE(numbers.size(), 60);
}

QTEST_GUILESS_MAIN(TestChannelNumber)
#include "tst_channelnumber.moc"
