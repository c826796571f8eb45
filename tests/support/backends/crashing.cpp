// Dies in the call that AIRLUME_TEST_CRASH names: list, usable, query (as without it) or
// load; with fatal in front of the name, by a fatal message instead.
#include "testbackend.h"

#include <cstdlib>

namespace
{
void die(const QString &where)
{
    const QString wanted = Air::setting("AIRLUME_TEST_CRASH", QStringLiteral("query"));
    if (wanted == QLatin1String("fatal") + where)
        qFatal("The radio \x1b[31mexploded");
    if (wanted == where)
        std::abort();
}
} // namespace

namespace Kind
{

void prepare()
{
    die(QStringLiteral("load"));
}

bool list(QStringList &nics)
{
    die(QStringLiteral("list"));
    nics.append(QStringLiteral("test0"));
    return true;
}

bool isUsable(const QString &)
{
    die(QStringLiteral("usable"));
    return true;
}

bool query(QString &, QList<ScanMap> &)
{
    die(QStringLiteral("query"));
    return true;
}

} // namespace Kind
