#ifndef AIRLUME_PLUGINCHECK_SESSION_H
#define AIRLUME_PLUGINCHECK_SESSION_H

#include "backendloader.h"
#include "interruption.h"
#include "messagecollector.h"
#include "options.h"
#include "probethread.h"
#include "report.h"

#include <QTimer>

#include <memory>

namespace PluginCheck
{

/// One run of the program: loads the back end, asks it round by round and prints a report on each.
class Session : public QObject
{
    Q_OBJECT

public:
    explicit Session(const Options &options, QObject *parent = nullptr);
    ~Session() override;

    /// Does it all and returns the exit status. Runs an event loop.
    int run();

private:
    void startRound();
    void onAnswered(const Answers &answers);
    void onInterrupted();
    void lookForSilence();
    void print(Report report);
    void guardAgainstCrashes();
    [[noreturn]] void endNow();

    const Options m_options;
    MessageCollector m_collector;
    Backend m_backend;
    std::unique_ptr<ProbeThread> m_thread;
    QTimer m_pause;
    QTimer m_watchdog;
    int m_round = 1;
    Outcome m_outcome = Outcome::NothingHeard;
};

} // namespace PluginCheck

#endif
