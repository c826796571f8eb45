// Gives the networks of all earlier queries again.
#include "testbackend.h"

namespace
{
class Accumulating : public Kind
{
    bool query(QString &, QList<ScanMap> &networks) override
    {
        m_heard += Air::networks(3);
        networks += m_heard;
        return true;
    }

    QList<ScanMap> m_heard;
};
} // namespace

AIRLUME_TEST_KIND(Accumulating)
