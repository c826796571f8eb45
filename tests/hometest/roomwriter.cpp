// Makes changes to the rooms and says each one when it is done, until it is killed.
// roomwriter FIRST LAST

#include "common/QtCommonTools.h"
#include "hometest/roomplan.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return 2;
    QtCommonTools::Init();
    const int last = arguments.at(2).toInt();
    for (int change = arguments.at(1).toInt(); change <= last; ++change) {
        RoomPlan::make(change);
        std::printf("%d\n", change);
        std::fflush(stdout);
    }
    return 0;
}
