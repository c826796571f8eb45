// An interface whose radio is off.
#include "testbackend.h"

namespace
{
class RadioOff : public Kind
{
    bool isUsable(const QString &) override { return false; }
    bool query(QString &, QList<ScanMap> &) override { return false; }
};
} // namespace

AIRLUME_TEST_KIND(RadioOff)
