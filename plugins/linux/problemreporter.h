#ifndef AIRLUME_LINUX_PROBLEMREPORTER_H
#define AIRLUME_LINUX_PROBLEMREPORTER_H

#include <QMap>
#include <QString>

#include <functional>

namespace LinuxWifi
{

/// What a problem is about. One problem at a time is known about each.
enum class Topic {
    Interface, ///< There is none, or it cannot be used.
    Networks,  ///< What was heard cannot be read.
    Link,      ///< The joined network's signal and rate cannot be read.
    Scan,      ///< No new scan can be started.
};

/// Says a problem once, however often it is met: Airlume asks every four seconds. It is said again
/// when it comes back after it was gone, and another problem about the same topic is said at once.
class ProblemReporter
{
public:
    using Sink = std::function<void(const QString &text)>;

    /// `sink` receives the messages, on the thread that reports.
    explicit ProblemReporter(Sink sink);

    void report(Topic topic, const QString &text);
    void resolved(Topic topic);

private:
    const Sink m_sink;
    QMap<Topic, QString> m_reported;
};

} // namespace LinuxWifi

#endif
