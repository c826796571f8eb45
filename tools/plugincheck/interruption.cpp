#include "interruption.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace PluginCheck
{

namespace
{

volatile std::sig_atomic_t writeEnd = -1;

void wakeEventLoop(int)
{
    const char byte = 0;
    const ssize_t written = ::write(writeEnd, &byte, 1);
    Q_UNUSED(written);
}

void handle(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = handler == SIG_DFL ? 0 : static_cast<int>(SA_RESETHAND | SA_RESTART);
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

} // namespace

Interruption::Interruption(QObject *parent)
    : QObject(parent)
{
    if (::pipe(m_pipe) != 0)
        return;
    for (const int end : m_pipe)
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
    m_notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        m_notifier->setEnabled(false);
        emit requested();
    });
    writeEnd = m_pipe[1];
    handle(wakeEventLoop);
}

Interruption::~Interruption()
{
    if (!m_notifier)
        return;
    handle(SIG_DFL);
    delete m_notifier;
    for (const int end : m_pipe)
        ::close(end);
}

} // namespace PluginCheck
