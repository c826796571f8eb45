#ifndef AIRLUME_PLUGINCHECK_SESSION_H
#define AIRLUME_PLUGINCHECK_SESSION_H

#include "anonymizer.h"
#include "history.h"
#include "judgedprocess.h"
#include "options.h"
#include "recordfile.h"
#include "report.h"
#include "transcript.h"

#include <QElapsedTimer>

#include <csignal>

namespace PluginCheck
{

/// One run of the program: has a process load the back end, asks it round by round and prints a
/// report on each, or records what it says. SIGINT and SIGTERM end both processes at once, with the
/// status of the rounds so far.
class Session : public QObject
{
    Q_OBJECT

public:
    explicit Session(const Options &options, QObject *parent = nullptr);

    /// Does it all and returns the exit status. Runs an event loop.
    int run();

private:
    void onBackendKnown(const Backend &backend);
    void onAnswered(const Answers &answers);
    void onEnded();
    void onFailed(const Problem &problem);
    bool waitForScan(const Report &report);
    bool record(const Answers &answers);
    bool isLastRound() const;
    void pause();
    void takeHeard();
    void print(Report report);

    const Options m_options;
    JudgedProcess m_process;
    History m_history;
    RecordFile m_record;
    Transcript m_transcript;
    Anonymizer m_anonymizer;
    Backend m_backend;
    Heard m_heard;                ///< Since the last report.
    Deviations m_between;         ///< Likewise, of one answer against the one before.
    std::optional<Report> m_last; ///< Of the last round: printed when the process has ended.
    QElapsedTimer m_running;      ///< Since the first answer.
    QTimer m_pause;
    int m_round = 1;
    bool m_isWaiting = false; ///< For the first scan.
    volatile std::sig_atomic_t m_status = 0;
};

} // namespace PluginCheck

#endif
