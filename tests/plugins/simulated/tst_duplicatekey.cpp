#include "simulated/duplicatekey.h"

#include <QtTest>

class TestDuplicateKey : public QObject
{
    Q_OBJECT
private slots:
    void findsTheSecondOfTwoEqualKeys_data();
    void findsTheSecondOfTwoEqualKeys();
    void endsOnTextThatIsNotSound();
    void countsLinesFromOne();
};

void TestDuplicateKey::findsTheSecondOfTwoEqualKeys_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("line");

    const QString none;
    QTest::newRow("empty object") << QByteArray("{}") << none << 0;
    QTest::newRow("different keys") << QByteArray(R"({"a":1,"b":2})") << none << 0;
    QTest::newRow("same object") << QByteArray("{\"a\":1,\n\"a\":2}") << QStringLiteral("a") << 2;
    QTest::newRow("blank before the colon")
        << QByteArray("{\"a\":1,\"a\" \t\n:2}") << QStringLiteral("a") << 1;
    QTest::newRow("inner object") << QByteArray(R"({"a":{"b":1,"b":2}})") << QStringLiteral("b")
                                  << 1;
    QTest::newRow("after an inner object")
        << QByteArray(R"({"a":{"b":1},"a":2})") << QStringLiteral("a") << 1;
    QTest::newRow("neighbouring objects") << QByteArray(R"([{"a":1},{"a":2}])") << none << 0;
    QTest::newRow("inner and outer") << QByteArray(R"({"a":{"a":1}})") << none << 0;
    QTest::newRow("key as value") << QByteArray(R"({"a":"a","b":"a"})") << none << 0;
    QTest::newRow("texts in a list") << QByteArray(R"({"a":["b","b"]})") << none << 0;
    QTest::newRow("brackets in a text") << QByteArray(R"({"a":"}{","b":"]["})") << none << 0;
    QTest::newRow("escaped quote in a text")
        << QByteArray(R"({"a":"x\",\"a\":","b":1})") << none << 0;
    QTest::newRow("escaped backslash at the end")
        << QByteArray(R"({"a":"x\\","a":1})") << QStringLiteral("a") << 1;
    QTest::newRow("empty key") << QByteArray(R"({"":1,"":2})") << QString() << 1;
    QTest::newRow("written in two ways")
        << QByteArray(R"({"a\u0062":1,"ab":2})") << QStringLiteral("ab") << 1;
    QTest::newRow("escapes of different keys")
        << QByteArray(R"({"\u0062":1,"\u0063":2})") << none << 0;
}

void TestDuplicateKey::findsTheSecondOfTwoEqualKeys()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, key);
    QFETCH(int, line);
    const DuplicateKey duplicate = FindDuplicateKey(json);
    QCOMPARE(duplicate.found, line > 0);
    QCOMPARE(duplicate.key, key);
    QCOMPARE(duplicate.line, line);
}

void TestDuplicateKey::endsOnTextThatIsNotSound()
{
    const QByteArray json = R"({"a":{"b":"c\\\"d"},"e":["f",{"a":1,"a":2}]})";
    for (int length = 0; length < json.size(); ++length)
        FindDuplicateKey(json.left(length));
    QVERIFY(FindDuplicateKey(json).found);
    const QByteArray tooDeep(2000, '[');
    QVERIFY(!FindDuplicateKey(tooDeep + R"({"a":1,"a":2})").found);
    QVERIFY(!FindDuplicateKey("\"\\").found);
    QVERIFY(!FindDuplicateKey("]]}}\"").found);
}

void TestDuplicateKey::countsLinesFromOne()
{
    QCOMPARE(LineOfOffset("a\nb\nc", 0), 1);
    QCOMPARE(LineOfOffset("a\nb\nc", 1), 1);
    QCOMPARE(LineOfOffset("a\nb\nc", 2), 2);
    QCOMPARE(LineOfOffset("a\nb\nc", 99), 3);
}

QTEST_GUILESS_MAIN(TestDuplicateKey)
#include "tst_duplicatekey.moc"
