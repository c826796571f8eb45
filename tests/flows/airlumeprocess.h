#ifndef AIRLUME_TESTS_FLOWS_AIRLUMEPROCESS_H
#define AIRLUME_TESTS_FLOWS_AIRLUMEPROCESS_H

#include "support/processstate.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>

#include <functional>

/// The real program as a process, in a folder of its own, looked into through the driver plug-in.
/// Ended by the destructor if it still runs.
class AirlumeProcess
{
public:
    /// `backEnd`: the folder of a back end in the build tree ("plugins/simulated",
    /// "tests/backends/empty"); empty: none.
    explicit AirlumeProcess(const QString &backEnd);
    /// An installed program. `command`: the program and its arguments, or what starts it, such as
    /// chroot. `backEnd`: an absolute folder that is searched first; empty: none. `root`: the
    /// folder that the program sees as "/"; empty: our own.
    AirlumeProcess(const QStringList &command, const QString &backEnd, const QString &root = {});
    ~AirlumeProcess();

    /// A further environment variable, before start().
    void setEnvironment(const QString &name, const QString &value);
    /// As if that variable had never been set; before start().
    void unsetEnvironment(const QString &name) { m_environment.remove(name); }
    /// Gives the program a temporary folder of its own, so that it meets no other copy; before
    /// start().
    void setOwnTemporaryFolder();
    /// Has that command, with its arguments, start the program; before start(). It becomes the
    /// program, or what is told of the process is told of the command.
    void setStarter(const QStringList &command);
    /// Runs the program as that user, who gets its folder and those in it too. Only root may;
    /// before start().
    void setUser(uint userId);
    /// Text of a scenario file for the simulated back end, before start().
    void setScenario(const QByteArray &json);

    /// Starts the program and waits until its window is visible.
    bool start();
    /// Starts the program and waits for nothing.
    void launch();
    /// Waits for the end of the process.
    bool waitForEnd(int timeoutMs = 60000);
    /// Kills the process at once, as a crash would.
    void kill();

    qint64 processId() const { return m_process.processId(); }
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    int exitCode() const { return m_process.exitCode(); }
    bool endedNormally() const { return m_process.exitStatus() == QProcess::NormalExit; }
    /// All it has printed so far.
    QString output();
    /// The folder of this program's executable, with its room file.
    QString folder() const { return m_folder.path(); }

    /// What the window shows; empty when the program does not answer.
    QJsonObject state();
    /// How it fits the screen, see FitReport(); empty when the program does not answer.
    QJsonObject fit();
    /// Sends a command; true when it was carried out.
    bool command(const QString &line);
    /// Looks until `reached` says so.
    bool waitFor(const std::function<bool(const QJsonObject &)> &reached, int timeoutMs = 60000);

    /// What the running process holds; zeros when it has ended.
    ProcessState held() const;

private:
    void prepare(const QString &program, const QString &backEnd, const QString &socket);
    QString driverPath() const { return m_folder.path() + QStringLiteral(".driver"); }
    QJsonObject ask(const QString &line);

    QTemporaryDir m_folder;
    QProcess m_process;
    QProcessEnvironment m_environment;
    QLocalSocket m_socket;
    QFile m_output;
    QByteArray m_printed;
};

/// For AirlumeProcess::waitFor(): the list shows networks.
bool hasRows(const QJsonObject &state);

#endif
