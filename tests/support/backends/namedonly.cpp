// Answers only when it is told the interface's name.
#include "testbackend.h"

namespace
{
class NamedOnly : public Kind
{
    bool query(QString &nic, QList<ScanMap> &networks) override
    {
        return !nic.isEmpty() && Kind::query(nic, networks);
    }
};
} // namespace

AIRLUME_TEST_KIND(NamedOnly)
