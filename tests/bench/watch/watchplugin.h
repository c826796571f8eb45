#ifndef AIRLUME_TESTS_BENCH_WATCHPLUGIN_H
#define AIRLUME_TESTS_BENCH_WATCHPLUGIN_H

#include <QGenericPlugin>
#include <QSocketNotifier>

class QWidget;

/// Tells a benchmark what an unchanged program does. Qt loads it where QT_QPA_GENERIC_PLUGINS names
/// "airlumewatch".
class WatchPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "watch.json")

public:
    QObject *create(const QString &key, const QString &parameters) override;
};

/// Writes "painted WALL CPU" to the standard output when the first window has been painted whole:
/// the monotonic clock and the processor time of the process so far, both in ns.
///
/// Then answers each line of the standard input with one number on a line:
/// "rows": rows of the network list; "show N": shows the curves of the first N networks, with their
/// histories full; "tab N"; "minimise"; "pause": the most processor time, in ns, that the GUI
/// thread has used in one round of its event loop since the last "pause".
class Watch : public QObject
{
    Q_OBJECT

public:
    Watch();

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void customEvent(QEvent *event) override;

private:
    void watchEventLoop();
    void readCommands();
    qint64 answer(const QByteArray &verb, int number);
    void noteRound();

    QSocketNotifier m_input;
    QByteArray m_pending;
    QWidget *m_window = nullptr;
    qint64 m_roundStart = 0;
    qint64 m_longestRound = 0;
};

#endif
