// Loads a back end as Airlume does and answers one question a line, so that the radios can be
// changed by one user while another one listens.
//
//   listener PLUGIN      questions on standard input: "list", "usable NAME", "networks [NAME]"
//
// The answer is one line of JSON: the result, its time in ms, the data, and the messages since the
// last answer.

#include "scan/wifiapiinterface.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMutex>
#include <QPluginLoader>
#include <QTextStream>
#include <QThread>

#include <cstdio>

namespace
{
QMutex messageMutex;
QStringList collectedMessages;

void collectMessage(QtMsgType, const QMessageLogContext &, const QString &text)
{
    const QMutexLocker lock(&messageMutex);
    collectedMessages.append(text);
}

QJsonObject answer(WiFiApiInterface &backend, const QString &question)
{
    const QString verb = question.section(QLatin1Char(' '), 0, 0);
    QString name = question.section(QLatin1Char(' '), 1);
    QJsonObject object;
    QElapsedTimer timer;
    timer.start();
    if (verb == QStringLiteral("list")) {
        QStringList names;
        object.insert(QStringLiteral("result"), backend.getWiFiNicList(names));
        object.insert(QStringLiteral("data"), QJsonArray::fromStringList(names));
    } else if (verb == QStringLiteral("usable")) {
        object.insert(QStringLiteral("result"), backend.isWiFiNicUsable(name, 0));
    } else if (verb == QStringLiteral("networks")) {
        QList<ScanMap> networks;
        object.insert(QStringLiteral("result"), backend.getVisiableNetworkMapList(name, networks));
        QJsonArray data;
        for (const ScanMap &network : qAsConst(networks)) {
            QJsonObject entry;
            for (auto it = network.cbegin(); it != network.cend(); ++it)
                entry.insert(it.key(), it.value());
            data.append(entry);
        }
        object.insert(QStringLiteral("data"), data);
    }
    object.insert(QStringLiteral("ms"), double(timer.nsecsElapsed()) / 1e6);
    const QMutexLocker lock(&messageMutex);
    object.insert(QStringLiteral("messages"), QJsonArray::fromStringList(collectedMessages));
    collectedMessages.clear();
    return object;
}

/// Asks the back end from a thread without an event loop, as Airlume does.
void answerAll(WiFiApiInterface &backend)
{
    QTextStream input(stdin);
    QTextStream output(stdout);
    QString question;
    while (input.readLineInto(&question)) {
        const QJsonDocument document(answer(backend, question));
        output << document.toJson(QJsonDocument::Compact) << Qt::endl;
    }
}
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    qInstallMessageHandler(collectMessage);
    QPluginLoader loader(application.arguments().value(1));
    auto *const backend = qobject_cast<WiFiApiInterface *>(loader.instance());
    if (!backend) {
        std::fputs(qPrintable(loader.errorString() + QLatin1Char('\n')), stderr);
        return 2;
    }
    QThread *const thread = QThread::create([backend] { answerAll(*backend); });
    thread->start();
    thread->wait();
    delete thread;
    return 0;
}
