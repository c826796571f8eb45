#ifndef AIRLUME_TESTS_APP_SLOTLOG_H
#define AIRLUME_TESTS_APP_SLOTLOG_H

#include <QStringList>

/// Notes every slot that a signal calls directly, in any thread, as "Class::slot(arguments)", for
/// as long as it lives (one at a time). Slots called by other slots' signals are left out, and so
/// are connections to function pointers and queued ones.
class SlotLog
{
public:
    SlotLog();
    ~SlotLog();
    SlotLog(const SlotLog &) = delete;
    SlotLog &operator=(const SlotLog &) = delete;

    /// The slots since construction, in the order of their calls.
    QStringList calls() const;
};

#endif
