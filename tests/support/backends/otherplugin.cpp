#include "otherplugin.h"

int OtherPlugin::answer() const
{
    return 42;
}
