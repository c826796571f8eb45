#ifndef AIRLUME_TESTS_HOMETEST_ROOMPLAN_H
#define AIRLUME_TESTS_HOMETEST_ROOMPLAN_H

#include "hometest/roomhouse.h"

/// A fixed row of changes to the rooms: adding, testing, renaming and deleting. Two processes that
/// know the number of changes made agree on what the rooms must be.
namespace RoomPlan
{

/// Makes change number `change` (from 1) through QtCommonTools.
void make(int change);

/// The rooms after the first `changes` changes, from no rooms at all.
RoomHouse::Rooms after(int changes);

} // namespace RoomPlan

#endif
