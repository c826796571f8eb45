// A sound back end with AIRLUME_TEST_NETWORKS networks.
#include "testbackend.h"

namespace
{
class ManyNetworks : public Kind
{
    bool query(QString &, QList<ScanMap> &networks) override
    {
        networks += m_air;
        return true;
    }

    const QList<ScanMap> m_air = Air::networks(AIRLUME_TEST_NETWORKS);
};
} // namespace

AIRLUME_TEST_KIND(ManyNetworks)
