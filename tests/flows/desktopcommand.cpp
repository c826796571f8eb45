#include "flows/desktopcommand.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>

#include <sys/stat.h>

namespace
{
QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The folders in /proc of all processes.
QStringList processes()
{
    QStringList folders;
    for (const QString &name : QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[1-9]*")}))
        folders.append(QStringLiteral("/proc/") + name);
    return folders;
}

/// The fields of /proc/PID/stat behind the name of the program: the state, the parent, …
QList<QByteArray> statusOf(const QString &process)
{
    const QByteArray text = contentOf(process + QStringLiteral("/stat"));
    return text.mid(text.lastIndexOf(')') + 2).split(' ');
}

} // namespace

bool DesktopCommand::prepare()
{
    const QString installation = qEnvironmentVariable("AIRLUME_INSTALLATION");
    if (installation.isEmpty())
        return true;
    const QString copy = m_copy.filePath(QStringLiteral("a place"));
    m_private = copy + QStringLiteral("/libexec/airlume");
    return chmod(QFile::encodeName(m_copy.path()).constData(), 0755) == 0 &&
           QProcess::execute(QStringLiteral("cp"), {QStringLiteral("-a"), installation, copy}) == 0;
}

std::unique_ptr<AirlumeProcess> DesktopCommand::bareProgram() const
{
    if (m_private.isEmpty())
        return std::make_unique<AirlumeProcess>(QStringLiteral("plugins/simulated"));
    return std::make_unique<AirlumeProcess>(QStringList(m_private + QStringLiteral("/airlume")),
        m_private + QStringLiteral("/simulated"));
}

std::unique_ptr<AirlumeProcess> DesktopCommand::program(const char *locale) const
{
    std::unique_ptr<AirlumeProcess> airlume;
    if (m_private.isEmpty()) {
        airlume = bareProgram();
        airlume->setStarter(
            {QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume-host"), QStringLiteral("--run")});
    } else {
        airlume = std::make_unique<AirlumeProcess>(
            QStringList(m_copy.filePath(QStringLiteral("a place/bin/airlume"))),
            m_private + QStringLiteral("/simulated"));
    }
    airlume->setEnvironment(QStringLiteral("LC_ALL"), QLatin1String(locale));
    return airlume;
}

int hostCount()
{
    const QByteArray folder = "TMPDIR=" + QFile::encodeName(QDir::tempPath());
    int count = 0;
    for (const QString &process : processes()) {
        const QString program = QFile::symLinkTarget(process + QStringLiteral("/exe"));
        if (program.endsWith(QStringLiteral("/airlume-host")) &&
            contentOf(process + QStringLiteral("/environ")).split('\0').contains(folder))
            ++count;
    }
    return count;
}

int childCount(qint64 processId)
{
    int count = 0;
    for (const QString &process : processes())
        count += statusOf(process).value(1) == QByteArray::number(processId) ? 1 : 0;
    return count;
}

QStringList hostSockets()
{
    QStringList found;
    QDirIterator files(QDir::tempPath(), {QStringLiteral("HarborWindowLocalProcess")}, QDir::System,
        QDirIterator::Subdirectories);
    while (files.hasNext())
        found.append(files.next());
    return found;
}

QString ownFolder(uint userId)
{
    return QDir::temp().filePath(QStringLiteral("airlume-%1").arg(userId));
}

bool endsUnseen(AirlumeProcess &airlume)
{
    return airlume.waitForEnd() && airlume.endedNormally() && airlume.exitCode() == 0 &&
           !airlume.output().contains(QStringLiteral("qss"));
}

bool endsByItsButton(AirlumeProcess &airlume)
{
    return airlume.command(QStringLiteral("click close1")) && airlume.waitForEnd() &&
           airlume.exitCode() == 0;
}
