#include "flows/airlumeprocess.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QThread>

#include <unistd.h>

namespace
{
const int AnswerTimeoutMs = 60000;
const unsigned long LookEveryMs = 50;

QString inBuildTree(const QString &path)
{
    return QStringLiteral(AIRLUME_BUILD_DIR "/") + path;
}
} // namespace

AirlumeProcess::AirlumeProcess(const QString &backEnd)
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    // A hard link is a program of its own: its room file lies beside it.
    const QString program = m_folder.filePath(QStringLiteral("airlume"));
    const QString built = inBuildTree(QStringLiteral("bin/airlume"));
    if (link(QFile::encodeName(built).constData(), QFile::encodeName(program).constData()) != 0)
        QFile::copy(built, program);

    prepare(program, backEnd.isEmpty() ? QString() : inBuildTree(backEnd), driverPath());
}

AirlumeProcess::AirlumeProcess(
    const QStringList &command, const QString &backEnd, const QString &root)
    : m_folder((root.isEmpty() ? QDir::tempPath() : root + QStringLiteral("/tmp")) +
               QStringLiteral("/airlume-XXXXXX"))
    , m_environment(QProcessEnvironment::systemEnvironment())
{
    prepare(command.first(), backEnd, driverPath().mid(root.size()));
    m_process.setArguments(command.mid(1));
}

/// `socket`: the driver's socket as the program sees it.
void AirlumeProcess::prepare(const QString &program, const QString &backEnd, const QString &socket)
{
    m_output.setFileName(m_folder.path() + QStringLiteral(".output"));
    QStringList plugins(inBuildTree(QStringLiteral("tests/driver")));
    if (!backEnd.isEmpty())
        plugins.append(backEnd);
    setEnvironment(QStringLiteral("QT_PLUGIN_PATH"), plugins.join(QLatin1Char(':')));
    setEnvironment(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("airlumedriver"));
    setEnvironment(QStringLiteral("AIRLUME_DRIVER"), socket);
    m_process.setProgram(program);
    // Not a pipe: a program that prints much would stand still until somebody reads.
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setStandardOutputFile(m_output.fileName());
}

AirlumeProcess::~AirlumeProcess()
{
    if (isRunning())
        kill();
    QFile::remove(driverPath());
    m_output.remove();
}

void AirlumeProcess::setEnvironment(const QString &name, const QString &value)
{
    m_environment.insert(name, value);
}

void AirlumeProcess::setOwnTemporaryFolder()
{
    const QString folder = m_folder.filePath(QStringLiteral("tmp"));
    QDir().mkpath(folder);
    setEnvironment(QStringLiteral("TMPDIR"), folder);
}

void AirlumeProcess::setStarter(const QStringList &command)
{
    m_process.setArguments(
        command.mid(1) + QStringList(m_process.program()) + m_process.arguments());
    m_process.setProgram(command.first());
}

void AirlumeProcess::setUser(uint userId)
{
    const QString id = QString::number(userId);
    setStarter({QStringLiteral("setpriv"), QStringLiteral("--reuid=") + id,
        QStringLiteral("--regid=") + id, QStringLiteral("--clear-groups")});
    // Only the folders: the program itself may be a link to the one that was built.
    QStringList folders(m_folder.path());
    QDirIterator inside(
        m_folder.path(), QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (inside.hasNext())
        folders.append(inside.next());
    for (const QString &folder : qAsConst(folders)) {
        if (chown(QFile::encodeName(folder).constData(), userId, userId) != 0)
            qWarning("Cannot give %s away", qPrintable(folder));
    }
}

void AirlumeProcess::setScenario(const QByteArray &json)
{
    const QString path = m_folder.filePath(QStringLiteral("scenario.json"));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(json);
    setEnvironment(QStringLiteral("AIRLUME_SCENARIO"), path);
}

void AirlumeProcess::launch()
{
    m_process.setProcessEnvironment(m_environment);
    m_process.start();
}

bool AirlumeProcess::start()
{
    launch();
    return m_process.waitForStarted() && waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("visible")].toBool();
    });
}

bool AirlumeProcess::waitForEnd(int timeoutMs)
{
    return m_process.state() == QProcess::NotRunning || m_process.waitForFinished(timeoutMs);
}

void AirlumeProcess::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

QString AirlumeProcess::output()
{
    if (!m_output.isOpen() && !m_output.open(QIODevice::ReadOnly))
        return {};
    m_printed += m_output.readAll();
    return QString::fromUtf8(m_printed);
}

ProcessState AirlumeProcess::held() const
{
    return processState(processId()).value_or(ProcessState());
}

QJsonObject AirlumeProcess::ask(const QString &line)
{
    if (m_socket.state() != QLocalSocket::ConnectedState) {
        m_socket.connectToServer(driverPath());
        if (!m_socket.waitForConnected(AnswerTimeoutMs))
            return {};
    }
    m_socket.write(line.toUtf8() + '\n');
    // Put together here: an answer may be long, and the socket would search it anew at every piece.
    QByteArray answer;
    while (!answer.endsWith('\n')) {
        if (m_socket.bytesAvailable() == 0 && !m_socket.waitForReadyRead(AnswerTimeoutMs))
            return {};
        answer += m_socket.readAll();
    }
    return QJsonDocument::fromJson(answer).object();
}

QJsonObject AirlumeProcess::state()
{
    return ask(QStringLiteral("state"));
}

QJsonObject AirlumeProcess::fit()
{
    return ask(QStringLiteral("fit"));
}

bool AirlumeProcess::command(const QString &line)
{
    return ask(line)[QStringLiteral("done")].toBool();
}

bool AirlumeProcess::waitFor(const std::function<bool(const QJsonObject &)> &reached, int timeoutMs)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < timeoutMs) {
        if (m_process.waitForFinished(0))
            return false;
        if (reached(state()))
            return true;
        QThread::msleep(LookEveryMs);
    }
    return false;
}

bool hasRows(const QJsonObject &state)
{
    return !state[QStringLiteral("rows")].toArray().isEmpty();
}
