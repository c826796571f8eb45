#ifndef AIRLUME_TESTS_WIFI_COMPANION_H
#define AIRLUME_TESTS_WIFI_COMPANION_H

#include <QJsonObject>
#include <QProcess>
#include <QVector>

/// A program of ours that runs as some user of the virtual machine and prints one JSON object a
/// line. Ended with the object.
class Companion
{
public:
    /// `user` is empty for root. With `session` the user sits at the machine.
    Companion(const QString &user, bool session);
    ~Companion();

    bool start(const QString &program, const QStringList &arguments);
    /// Tells the program that nothing more is asked; false when it does not end by itself then.
    bool end();
    /// Starts the listener with the Linux back end.
    bool startListener();

    /// Writes one line and gives the answer; empty when none comes.
    QJsonObject ask(const QString &question);
    /// The next object that is printed.
    QJsonObject next();

    /// Asks the listener for the networks of an interface (empty: of its own choice).
    QJsonObject networks(const QString &interface = QString());
    /// All messages that came with answers since the last call.
    QStringList takeMessages();
    /// How long each call took, in ms.
    QVector<double> times() const { return m_times; }
    QString name() const { return m_name; }

private:
    QProcess m_process;
    const QString m_user;
    const bool m_session;
    const QString m_name;
    QStringList m_messages;
    QVector<double> m_times;
};

/// The scan maps in an answer of the listener.
QVector<QJsonObject> networksOf(const QJsonObject &answer);
/// The one that is marked as joined; empty when there is none or more than one.
QJsonObject joinedOf(const QJsonObject &answer);
/// Whether the call behind an answer succeeded.
bool succeeded(const QJsonObject &answer);

#endif
