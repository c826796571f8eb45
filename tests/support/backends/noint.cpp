// No interface, and every call fails.
#include "testbackend.h"

namespace
{
class NoInterface : public Kind
{
    bool list(QStringList &) override { return false; }
    bool isUsable(const QString &) override { return false; }
    bool query(QString &, QList<ScanMap> &) override { return false; }
};
} // namespace

AIRLUME_TEST_KIND(NoInterface)
