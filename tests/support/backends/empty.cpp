// Everything succeeds and there is nothing: no interface, no network.
#include "testbackend.h"

namespace
{
class Empty : public Kind
{
    bool list(QStringList &) override { return true; }
    bool isUsable(const QString &) override { return false; }
    bool query(QString &, QList<ScanMap> &) override { return true; }
};
} // namespace

AIRLUME_TEST_KIND(Empty)
