#include "flows/desktop.h"

#include "flows/airlumeprocess.h"

#include <QElapsedTimer>
#include <QFile>
#include <QLibraryInfo>
#include <QStandardPaths>
#include <QThread>

namespace
{
const int StartTimeoutMs = 60000;
const unsigned long LookEveryMs = 20;

/// Nothing that moves by itself: where a window is must be where it looks.
const char CompositorSettings[] = "[core]\nidle-time=0\n"
                                  "[shell]\nanimation=none\nstartup-animation=none\n"
                                  "close-animation=none\nlocking=false\n";

void end(QProcess *process)
{
    if (process->state() == QProcess::NotRunning)
        return;
    process->terminate();
    if (!process->waitForFinished(StartTimeoutMs))
        process->kill();
    process->waitForFinished();
}
} // namespace

Desktop::Desktop(Kind kind, const QSize &size, int scale)
    : m_kind(kind)
    , m_pixels(size * scale)
    , m_scale(scale)
    , m_environment(QProcessEnvironment::systemEnvironment())
{
    m_compositor.setProcessChannelMode(QProcess::MergedChannels);
}

Desktop::~Desktop()
{
    end(&m_compositor);
    end(&m_server);
}

QString Desktop::missing(Kind kind)
{
    QStringList programs({QStringLiteral("Xvfb"), QStringLiteral("xdotool")});
    if (kind == Wayland)
        programs.append(QStringLiteral("weston"));
    for (const QString &program : qAsConst(programs)) {
        if (QStandardPaths::findExecutable(program).isEmpty())
            return program;
    }
    const QString platform = QLibraryInfo::location(QLibraryInfo::PluginsPath) +
                             QStringLiteral("/platforms/libqwayland-generic.so");
    if (kind == Wayland && !QFile::exists(platform))
        return QStringLiteral("Qt's Wayland platform plug-in");
    return {};
}

bool Desktop::start()
{
    return startServer() && (m_kind == X11 || startCompositor());
}

bool Desktop::startServer()
{
    // It chooses a free number itself and tells it when it is ready.
    m_server.start(QStringLiteral("Xvfb"),
        {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-nolisten"),
            QStringLiteral("tcp"),
            // What is set stays when the program that has set it ends.
            QStringLiteral("-noreset"), QStringLiteral("-screen"), QStringLiteral("0"),
            QStringLiteral("%1x%2x24").arg(m_pixels.width()).arg(m_pixels.height())});
    while (!m_server.canReadLine()) {
        if (!m_server.waitForReadyRead(StartTimeoutMs))
            return false;
    }
    const QString number = QString::fromLatin1(m_server.readLine()).trimmed();
    m_environment.insert(QStringLiteral("DISPLAY"), QLatin1Char(':') + number);
    return true;
}

bool Desktop::setDpi(int dpi) const
{
    QProcess tool;
    tool.setProcessEnvironment(m_environment);
    const QString name = QStringLiteral("RESOURCE_MANAGER");
    tool.start(QStringLiteral("xprop"),
        {QStringLiteral("-root"), QStringLiteral("-f"), name, QStringLiteral("8s"),
            QStringLiteral("-set"), name, QStringLiteral("Xft.dpi:\t%1\n").arg(dpi)});
    return tool.waitForFinished(StartTimeoutMs) && tool.exitStatus() == QProcess::NormalExit &&
           tool.exitCode() == 0;
}

bool Desktop::startCompositor()
{
    QFile settings(m_folder.filePath(QStringLiteral("weston.ini")));
    if (!settings.open(QIODevice::WriteOnly) || settings.write(CompositorSettings) < 0)
        return false;
    settings.close();
    const QString socket = m_folder.filePath(QStringLiteral("display"));
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
    m_compositor.setProcessEnvironment(m_environment);
    m_compositor.start(QStringLiteral("weston"),
        {QStringLiteral("--backend=x11-backend.so"), QStringLiteral("--use-pixman"),
            QStringLiteral("--socket=display"), QStringLiteral("--config=") + settings.fileName(),
            QStringLiteral("--width=%1").arg(m_pixels.width()),
            QStringLiteral("--height=%1").arg(m_pixels.height()),
            QStringLiteral("--scale=%1").arg(m_scale)});
    QElapsedTimer timer;
    timer.start();
    while (!QFile::exists(socket)) {
        if (m_compositor.waitForFinished(0) || timer.elapsed() > StartTimeoutMs)
            return false;
        QThread::msleep(LookEveryMs);
    }
    m_environment.insert(QStringLiteral("WAYLAND_DISPLAY"), socket);
    return true;
}

void Desktop::show(AirlumeProcess *program) const
{
    const auto pass = [&](const QString &name) {
        program->setEnvironment(name, m_environment.value(name));
    };
    if (m_kind == X11) {
        program->setEnvironment(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        pass(QStringLiteral("DISPLAY"));
    } else {
        program->setEnvironment(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("wayland"));
        program->setEnvironment(QStringLiteral("WAYLAND_DEBUG"), QStringLiteral("client"));
        pass(QStringLiteral("WAYLAND_DISPLAY"));
    }
}

bool Desktop::hand(const QStringList &does)
{
    QProcess tool;
    tool.setProcessEnvironment(m_environment);
    tool.start(QStringLiteral("xdotool"), does);
    return tool.waitForFinished(StartTimeoutMs) && tool.exitStatus() == QProcess::NormalExit &&
           tool.exitCode() == 0;
}

bool Desktop::pointAt(const QPoint &place)
{
    const QPoint pixel = place * m_scale;
    return hand(
        {QStringLiteral("mousemove"), QString::number(pixel.x()), QString::number(pixel.y())});
}

QString Desktop::output()
{
    QByteArray printed = m_server.readAllStandardError();
    if (m_kind == Wayland)
        printed += m_compositor.readAll();
    return QString::fromUtf8(printed);
}
