#include "graphs/samplehistory.h"

#include <QTest>
#include <QVector>

class TestSampleHistory : public QObject
{
    Q_OBJECT

private slots:
    void firstSampleIsCounted();
    void newestSampleFillsTwoPlaces();
    void isFullWith239Samples();

private:
    static QVector<double> valid(const SampleHistory &samples, int count)
    {
        return QVector<double>(samples.begin(), samples.begin() + count);
    }
};

void TestSampleHistory::firstSampleIsCounted()
{
    SampleHistory samples;
    int count = 0;
    addSample(samples, count, -50.);
    QCOMPARE(valid(samples, count), QVector<double>{-50.});
}

void TestSampleHistory::newestSampleFillsTwoPlaces()
{
    SampleHistory samples;
    int count = 0;
    addSample(samples, count, -50.);
    addSample(samples, count, -60.);
    QCOMPARE(valid(samples, count), (QVector<double>{-60., -60.}));
    addSample(samples, count, -70.);
    QCOMPARE(valid(samples, count), (QVector<double>{-70., -70., -60.}));
    addSample(samples, count, -80.);
    QCOMPARE(valid(samples, count), (QVector<double>{-80., -80., -70., -60.}));
}

void TestSampleHistory::isFullWith239Samples()
{
    SampleHistory samples;
    int count = 0;
    for (int i = 0; i < 1000; ++i) {
        addSample(samples, count, -i);
        QVERIFY(count <= 239);
    }
    QCOMPARE(count, 239);
    QCOMPARE(samples[0], -999.);
    QCOMPARE(samples[1], -999.);
    QCOMPARE(samples[238], -762.);
}

QTEST_MAIN(TestSampleHistory)
#include "tst_samplehistory.moc"
