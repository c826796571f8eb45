#include "otherplugin.h"

int OtherPlugin::answer() const
{
    return 42;
}

void OtherPlugin::connectNotify(const QMetaMethod &)
{
    qFatal("Taken for a back end");
}
