#ifndef AIRLUME_PLUGINCHECK_INTERRUPTION_H
#define AIRLUME_PLUGINCHECK_INTERRUPTION_H

#include <QObject>

class QSocketNotifier;

namespace PluginCheck
{

/// Tells of the first SIGINT or SIGTERM in the event loop; a second one ends the process as usual.
/// One object at a time, in the GUI thread.
class Interruption : public QObject
{
    Q_OBJECT

public:
    explicit Interruption(QObject *parent = nullptr);
    ~Interruption() override;

signals:
    void requested();

private:
    int m_pipe[2] = {-1, -1};
    QSocketNotifier *m_notifier = nullptr;
};

} // namespace PluginCheck

#endif
