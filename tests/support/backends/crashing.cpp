// Dies in the call that AIRLUME_TEST_CRASH names: list, usable, query (as without it) or
// load; with fatal in front of the name, by a fatal message instead, and with throw, by an
// exception.
#include "testbackend.h"

#include <cstdlib>
#include <stdexcept>

namespace
{
void die(const QString &where)
{
    const QString wanted = Air::setting("AIRLUME_TEST_CRASH", QStringLiteral("query"));
    if (wanted == QLatin1String("fatal") + where)
        qFatal("The radio \x1b[31mexploded");
    if (wanted == QLatin1String("throw") + where)
        throw std::runtime_error("No radio today");
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
