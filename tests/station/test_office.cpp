// Stations that find each other, keep each other and lose each other.
#include "support/World.h"

#include <gtest/gtest.h>

using namespace tessel;

TEST(Office, EveryStationListsEveryOther) {
    World world(3);
    world.settle();
    for (std::size_t i = 0; i < world.size(); ++i) {
        EXPECT_EQ(world.locations(i), 3);
        EXPECT_EQ(world[i]->views.rptEndpoints.count(), 3);
    }
}
