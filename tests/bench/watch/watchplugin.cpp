#include "watchplugin.h"

#include "bench/baretimeplot.h"
#include "scan/wifiproperty.h"
#ifdef AIRLUME_WATCH_X11
#include "unmap.h"
#endif

#include <QAbstractEventDispatcher>
#include <QAbstractItemModel>
#include <QApplication>
#include <QTabWidget>
#include <QTreeView>

#include <cstdio>
#include <ctime>
#include <unistd.h>

namespace
{
qint64 clockNs(clockid_t clock)
{
    timespec now;
    clock_gettime(clock, &now);
    return static_cast<qint64>(now.tv_sec) * 1000000000 + now.tv_nsec;
}

/// As the simulated back end names made-up networks.
QString networkName(int number)
{
    return QStringLiteral("Network %1").arg(number, 4, 10, QLatin1Char('0'));
}

/// Full histories and visible curves for the first `count` networks.
void showNetworks(const QWidget &window, int count)
{
    QVector<WifiProperty> networks(count);
    for (int i = 0; i < count; ++i)
        networks[i].ssid = networkName(i);
    const QList<QWidget *> widgets = window.findChildren<QWidget *>();
    for (QWidget *graph : widgets) {
        const QByteArray name = graph->metaObject()->className();
        if (name != "SignalTimePlot" && name != "Signal2GPlot" && name != "Signal5GPlot")
            continue;
        for (const WifiProperty &network : qAsConst(networks)) {
            QMetaObject::invokeMethod(graph, "onShowCurve", Q_ARG(int, 0),
                Q_ARG(QString, network.ssid), Q_ARG(bool, true));
        }
        for (int sample = 0; name == "SignalTimePlot" && sample < FullHistory; ++sample) {
            for (int i = 0; i < count; ++i)
                networks[i].rssi = madeUpSignal(i, sample);
            QMetaObject::invokeMethod(
                graph, "onDataReturned", Q_ARG(QVector<WifiProperty>, networks));
        }
    }
}
} // namespace

QObject *WatchPlugin::create(const QString &, const QString &)
{
    return new Watch;
}

Watch::Watch()
    : m_input(STDIN_FILENO, QSocketNotifier::Read)
{
    connect(&m_input, &QSocketNotifier::activated, this, &Watch::readCommands);
    qApp->installEventFilter(this);
}

bool Watch::eventFilter(QObject *watched, QEvent *event)
{
    if (!m_window && event->type() == QEvent::Paint && watched->isWidgetType() &&
        static_cast<QWidget *>(watched)->isWindow()) {
        m_window = static_cast<QWidget *>(watched);
        // Comes when this painting, of the window and all in it, is through.
        QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
    }
    return false;
}

void Watch::customEvent(QEvent *)
{
    std::printf("painted %lld %lld\n", clockNs(CLOCK_MONOTONIC), clockNs(CLOCK_PROCESS_CPUTIME_ID));
    std::fflush(stdout);
    // Each event of the program passed through here; from now on none does.
    qApp->removeEventFilter(this);
    watchEventLoop();
}

/// Qt's event loops differ in which of the two signals comes before the work of a round. Waiting
/// takes no processor time, so what lies between any two signals is a round's work.
void Watch::watchEventLoop()
{
    const QAbstractEventDispatcher *loop = QAbstractEventDispatcher::instance();
    connect(loop, &QAbstractEventDispatcher::awake, this, &Watch::noteRound);
    connect(loop, &QAbstractEventDispatcher::aboutToBlock, this, &Watch::noteRound);
    m_roundStart = clockNs(CLOCK_THREAD_CPUTIME_ID);
}

void Watch::noteRound()
{
    const qint64 now = clockNs(CLOCK_THREAD_CPUTIME_ID);
    m_longestRound = qMax(m_longestRound, now - m_roundStart);
    m_roundStart = now;
}

void Watch::readCommands()
{
    char buffer[256];
    const ssize_t size = read(STDIN_FILENO, buffer, sizeof buffer);
    if (size <= 0) {
        // Nobody is left to watch for.
        QCoreApplication::exit();
        return;
    }
    m_pending.append(buffer, static_cast<int>(size));
    for (int end = m_pending.indexOf('\n'); end >= 0; end = m_pending.indexOf('\n')) {
        const QList<QByteArray> words = m_pending.left(end).split(' ');
        m_pending.remove(0, end + 1);
        std::printf("%lld\n", answer(words.first(), words.value(1).toInt()));
        std::fflush(stdout);
    }
}

qint64 Watch::answer(const QByteArray &verb, int number)
{
    if (!m_window)
        return -1;
    if (verb == "rows") {
        const auto *list = m_window->findChild<QTreeView *>(QStringLiteral("treeView"));
        return list ? list->model()->rowCount() : 0;
    }
    if (verb == "show") {
        showNetworks(*m_window, number);
    } else if (verb == "tab") {
        if (auto *tabs = m_window->findChild<QTabWidget *>(QStringLiteral("tabWidget")))
            tabs->setCurrentIndex(number);
    } else if (verb == "minimise") {
        m_window->showMinimized();
#ifdef AIRLUME_WATCH_X11
        if (QGuiApplication::platformName() == QLatin1String("xcb"))
            unmapWindow(m_window->winId());
#endif
    } else if (verb == "pause") {
        const qint64 longest = m_longestRound;
        m_longestRound = 0;
        m_roundStart = clockNs(CLOCK_THREAD_CPUTIME_ID);
        return longest;
    }
    return number;
}
