#include "app/slotlog.h"

#include <QMetaMethod>
#include <QMutex>
#include <QMutexLocker>
#include <QObject>

// The hooks through which Qt's own test library prints signals and slots (its option -vs). Exported
// by QtCore, but declared in a private header only.
struct QSignalSpyCallbackSet {
    using BeginCallback = void (*)(QObject *caller, int methodIndex, void **arguments);
    using EndCallback = void (*)(QObject *caller, int methodIndex);
    BeginCallback signalBegin;
    BeginCallback slotBegin;
    EndCallback signalEnd;
    EndCallback slotEnd;
};
void Q_CORE_EXPORT qt_register_signal_spy_callbacks(QSignalSpyCallbackSet *callbacks);

namespace
{
QMutex mutex;
QStringList called;
thread_local int depth = 0;

void slotBegins(QObject *receiver, int methodIndex, void **)
{
    if (depth++ > 0)
        return;
    const QMetaObject *meta = receiver->metaObject();
    const QString slot = QString::fromLatin1(meta->className()) + QLatin1String("::") +
                         QString::fromLatin1(meta->method(methodIndex).methodSignature());
    QMutexLocker lock(&mutex);
    called.append(slot);
}

void slotEnds(QObject *, int)
{
    --depth;
}

QSignalSpyCallbackSet callbacks = {nullptr, slotBegins, nullptr, slotEnds};
} // namespace

SlotLog::SlotLog()
{
    called.clear();
    qt_register_signal_spy_callbacks(&callbacks);
}

SlotLog::~SlotLog()
{
    qt_register_signal_spy_callbacks(nullptr);
}

QStringList SlotLog::calls() const
{
    QMutexLocker lock(&mutex);
    return called;
}
