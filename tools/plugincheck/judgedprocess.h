#ifndef AIRLUME_PLUGINCHECK_JUDGEDPROCESS_H
#define AIRLUME_PLUGINCHECK_JUDGEDPROCESS_H

#include "wire.h"

#include <QProcess>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>

namespace PluginCheck
{

/// What a process said and printed, as much as there is room for.
struct Heard {
    static constexpr int MaximumMessages = 1000;
    static constexpr int MaximumOutput = 64 * 1024;

    QVector<Message> messages;
    QByteArray output;
    QByteArray errors;

    void add(const Heard &later);
};

/// A process of its own that runs the back end, so that nothing which that does to its process
/// reaches the judge. Exactly one of ended() and failed() comes in the end; nothing after it.
///
/// Lives in a thread with an event loop. The destructor kills the process and all it started.
class JudgedProcess : public QProcess
{
    Q_OBJECT

public:
    /// `timeout`: longest time, in ms, that one call may take.
    JudgedProcess(const QString &backend, int timeout, QObject *parent = nullptr);
    ~JudgedProcess() override;

    /// Loads the back end. backendKnown() or failed() follows.
    void begin();
    /// Asks for one more round. answered() or failed() follows.
    void askOnce();
    /// Ends it in order. ended() or failed() follows.
    void end();

    /// Whatever it has said so far and was not taken yet.
    Heard takeHeard();

    /// Its process group; 0 before begin(). Nothing else is in it but what the back end started.
    qint64 group() const { return m_group; }

signals:
    /// May come twice: as soon as the file is known, and when the library was loaded or was not.
    void backendKnown(const PluginCheck::Backend &backend);
    void answered(const PluginCheck::Answers &answers);
    void ended();
    /// It crashed, hangs, threw or ended by itself. It is gone then.
    void failed(const PluginCheck::Problem &problem);

protected:
    void setupChildProcess() override;

private:
    /// One way out of the process.
    struct Way {
        int ends[2] = {-1, -1};
        std::unique_ptr<QSocketNotifier> notifier;
    };

    void open(Way &way, void (JudgedProcess::*onReadable)());
    QByteArray drained(Way &way, int most);
    void readResults();
    void readOutput();
    void open(const QByteArray &content);
    void onFinished();
    void fail(const Problem &problem);
    void killAll();
    Problem howItEnded() const;

    const QString m_backend;
    const int m_timeout;
    QTimer m_limit;
    Way m_results;
    Way m_output;
    Way m_errors;
    qint64 m_group = 0;
    Unpacker m_unpacker;
    Heard m_heard;
    Call m_call = Call::Loading;
    QString m_thrown;
    bool m_over = false; ///< ended() or failed() came.
};

} // namespace PluginCheck

#endif
