#ifndef AIRLUME_TESTS_PLUGINCHECK_CHECKERRUN_H
#define AIRLUME_TESTS_PLUGINCHECK_CHECKERRUN_H

#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <QVector>

/// airlume-plugincheck as a process, in the surroundings of the test.
class CheckerRun
{
public:
    /// `environment` holds "NAME=value" texts on top of the test's own environment.
    explicit CheckerRun(const QStringList &arguments, const QStringList &environment = {});
    /// Kills the process if it still runs.
    ~CheckerRun();

    /// Waits for the end. Nothing else is meaningful before. False when it did not come in 60 s.
    bool finish();
    /// Waits until so many lines of output have come. False when they did not come in 60 s.
    bool waitForLines(int count);

    /// Waits until the standard error output holds `text`. False when it did not come in 60 s.
    bool waitForErrors(const QByteArray &text);

    QProcess &process() { return m_process; }
    /// Exit status; -1 after a crash.
    int status() const;
    const QByteArray &output() const { return m_output; }
    const QByteArray &errors() const { return m_errors; }
    QString text() const { return QString::fromUtf8(m_output); }
    /// One object per line of the output; an empty one for a line that is not valid JSON.
    QVector<QJsonObject> reports() const;

    /// Folder of a test back end.
    static QString folder(const char *kind);
    static QString library(const char *kind);

private:
    template <typename Condition> bool waitUntil(Condition condition);
    void read();

    QProcess m_process;
    QByteArray m_output;
    QByteArray m_errors;
};

#endif
