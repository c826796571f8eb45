// An interface that works and hears nothing.
#include "testbackend.h"

namespace
{
class NoNetworks : public Kind
{
    bool query(QString &, QList<ScanMap> &) override { return true; }
};
} // namespace

AIRLUME_TEST_KIND(NoNetworks)
