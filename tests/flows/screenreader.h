#ifndef AIRLUME_TESTS_FLOWS_SCREENREADER_H
#define AIRLUME_TESTS_FLOWS_SCREENREADER_H

#include "plugins/linux/privatebus.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QVector>

class AirlumeProcess;
class Desktop;

/// One thing that a screen reader finds, or an empty one.
struct SpokenNode {
    QString role;
    QString name;
    QString description;
    double value = 0;
    QStringList states;
    QVector<SpokenNode> children;

    bool isEmpty() const { return role.isEmpty(); }
    bool is(const char *state) const { return states.contains(QLatin1String(state)); }
    /// This and all below it, parents first.
    QVector<const SpokenNode *> all() const;
    /// The first below it, or itself, of that role and that name; any name when it is empty.
    const SpokenNode *find(const QString &role, const QString &name = QString()) const;
};

/// Listens on an accessibility bus of its own, as a screen reader does. Ended by the destructor.
class ScreenReader
{
public:
    ~ScreenReader();

    /// Starts the bus and listens on it. `error` says what is missing, or what went wrong.
    bool start(const Desktop &desktop, QString *error);
    /// Makes the program, not started yet, one that is listened to.
    void hear(AirlumeProcess *program) const;

    /// What there is now; empty while there is no program.
    SpokenNode tree();
    /// Does what the reader's user would by that role and name; false without such a thing.
    bool act(const QString &action, const QString &role, const QString &name);
    /// How many events of the type, which need not be named whole, came so far from things of that
    /// role; any role when it is empty.
    int events(const QString &type, const QString &role = QString());

private:
    QJsonObject ask(const QJsonObject &question, const char *answer);
    QJsonObject read(const char *wanted);

    PrivateBus m_bus;
    QProcess m_process;
    QVector<QJsonObject> m_events;
};

#endif
