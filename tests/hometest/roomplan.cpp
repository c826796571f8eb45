#include "hometest/roomplan.h"

#include "common/QtCommonTools.h"

namespace RoomPlan
{
namespace
{
enum Kind { Add, Test, Rename, Delete };

struct Step {
    Kind kind;
    QString room;
    QString newName;
    HomeTest_Value value;
};

// Rounds of five: a room is added, tested twice and renamed; every round then deletes the room of
// the round before last, so that the number of rooms grows slowly.
Step step(int change)
{
    const int round = (change - 1) / 5;
    const QString added = QStringLiteral("Room %1; [50%]").arg(round);
    const QString renamed = QStringLiteral("Room = %1 ").arg(round) + QChar(0x5bdd);
    const HomeTest_Value once{change % 101, change, -1, -1};
    switch ((change - 1) % 5) {
    case 0:
        return {Add, added, QString(), HomeTest_Value()};
    case 1:
        return {Test, added, QString(), once};
    case 2:
        return {Test, added, QString(), {change % 101, change, (change - 1) % 101, change - 1}};
    case 3:
        return {Rename, added, renamed, HomeTest_Value()};
    default:
        break;
    }
    if (round % 3 == 0)
        return {Test, renamed, QString(), once};
    return {Delete, QStringLiteral("Room = %1 ").arg(round - 1) + QChar(0x5bdd), QString(),
        HomeTest_Value()};
}
} // namespace

void make(int change)
{
    const Step now = step(change);
    switch (now.kind) {
    case Add:
        QtCommonTools::AddHomeTestToINI(now.room, now.value);
        break;
    case Test:
        QtCommonTools::UpdateHomeValueToINI(now.room, now.value);
        break;
    case Rename:
        QtCommonTools::UpdateHomeNameToINI(now.room, now.newName);
        break;
    case Delete:
        QtCommonTools::DelHomeValueFromINI(now.room);
        break;
    }
}

RoomHouse::Rooms after(int changes)
{
    RoomHouse::Rooms rooms;
    for (int change = 1; change <= changes; ++change) {
        const Step now = step(change);
        switch (now.kind) {
        case Add:
        case Test:
            rooms[now.room] = now.value;
            break;
        case Rename:
            rooms.insert(now.newName, rooms.take(now.room));
            break;
        case Delete:
            rooms.remove(now.room);
            break;
        }
    }
    return rooms;
}

} // namespace RoomPlan
