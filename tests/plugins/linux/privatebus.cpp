#include "privatebus.h"

#include <QStandardPaths>

#include <csignal>

bool PrivateBus::start(const QString &address)
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
    if (program.isEmpty())
        return false;
    QStringList arguments{
        QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")};
    if (!address.isEmpty())
        arguments.append(QStringLiteral("--address=") + address);
    m_daemon.start(program, arguments);
    if (!m_daemon.waitForStarted() || !m_daemon.waitForReadyRead())
        return false;
    m_address = QString::fromLocal8Bit(m_daemon.readLine().trimmed());
    return !m_address.isEmpty();
}

PrivateBus::~PrivateBus()
{
    kill();
}

void PrivateBus::kill()
{
    if (m_daemon.state() == QProcess::NotRunning)
        return;
    m_daemon.kill();
    m_daemon.waitForFinished();
}

void PrivateBus::freeze(bool frozen)
{
    ::kill(static_cast<pid_t>(m_daemon.processId()), frozen ? SIGSTOP : SIGCONT);
}
