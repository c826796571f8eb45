#include "common/QtCommonTools.h"
#include "common/outputmessage.h"

#include <QtTest>

class TestOutputMessage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void writesOneLineForAMessage_data();
    void writesOneLineForAMessage();
    void dropsDebugMessagesAndWarnings();
    void writesUtf8();
    void writesNothingWithoutALogFile();
    void releaseClosesTheLogFileAndKeepsIt();

private:
    QByteArray m_written;
    QBuffer m_device;
};

void TestOutputMessage::init()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    m_written.clear();
    m_device.setBuffer(&m_written);
    QVERIFY(m_device.open(QIODevice::WriteOnly));
    QtCommonTools::m_fileLog = &m_device;
}

void TestOutputMessage::cleanup()
{
    QtCommonTools::m_fileLog = nullptr;
    m_device.close();
}

void TestOutputMessage::writesOneLineForAMessage_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("pattern");
    const QString rest =
        QStringLiteral(" \\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d \\d{3} NUll point %1\r\n");
    QTest::newRow("critical") << int(QtCriticalMsg) << QStringLiteral("Critical:") + rest;
    QTest::newRow("fatal") << int(QtFatalMsg) << QStringLiteral("Fatal:") + rest;
    QTest::newRow("info") << int(QtInfoMsg) << rest;
}

void TestOutputMessage::writesOneLineForAMessage()
{
    QFETCH(int, type);
    QFETCH(QString, pattern);
    outputMessage(QtMsgType(type), QMessageLogContext(), QStringLiteral("NUll point %1"));
    const QRegularExpression expected(QRegularExpression::anchoredPattern(pattern));
    QVERIFY2(expected.match(QString::fromUtf8(m_written)).hasMatch(), m_written.constData());
}

void TestOutputMessage::dropsDebugMessagesAndWarnings()
{
    outputMessage(QtDebugMsg, QMessageLogContext(), QStringLiteral("open qss success"));
    outputMessage(QtWarningMsg, QMessageLogContext(), QStringLiteral("careful"));
    QCOMPARE(m_written, QByteArray());
}

void TestOutputMessage::writesUtf8()
{
    outputMessage(QtCriticalMsg, QMessageLogContext(), QString::fromUtf8("B\xc3\xbcro"));
    QVERIFY(m_written.contains("B\xc3\xbcro\r\n"));
}

void TestOutputMessage::writesNothingWithoutALogFile()
{
    QtCommonTools::m_fileLog = nullptr;
    outputMessage(QtCriticalMsg, QMessageLogContext(), QStringLiteral("lost"));
    QCOMPARE(m_written, QByteArray());
}

void TestOutputMessage::releaseClosesTheLogFileAndKeepsIt()
{
    QtCommonTools::Release();
    QVERIFY(!m_device.isOpen());
    QCOMPARE(QtCommonTools::m_fileLog, static_cast<QIODevice *>(&m_device));
}

QTEST_GUILESS_MAIN(TestOutputMessage)
#include "tst_outputmessage.moc"
