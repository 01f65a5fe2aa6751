// Alerts and statuses in an office: they reach whom they are for, and nobody else.
#include "engine/core/mod_CodePage.h"
#include "support/World.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class AlertOffice : public testing::Test {
protected:
    AlertOffice() {
        for (std::size_t i = 0; i < world.size(); ++i) {
            world[i].addTones();
            // The first three belong to one group.
            world[i].set(kUserFile, "User", "TAG", QString::number(i < 3 ? 5 : 6));
        }
        world.settle();
        for (std::size_t i = 0; i < world.size(); ++i) {
            world[i].sounds.played.clear();
        }
    }
    // The stations that an alert has reached since the last call.
    std::vector<int> reached() {
        world.run(1);
        std::vector<int> stations;
        for (std::size_t i = 0; i < world.size(); ++i) {
            WorldStation& one = world[i];
            if (!one->alertBar.AlertBarShown()) {
                EXPECT_FALSE(one.desktop.popups[1]);
                continue;
            }
            stations.push_back(static_cast<int>(i));
            EXPECT_TRUE(one.desktop.popups[1]);
            EXPECT_EQ(one->history.rptNotifications.count(), 1);
            one->alertBar.TurnOff_AlertBar();
            one->popups.close(PopupId::Alert);
            one->history.ClearRecents();
        }
        return stations;
    }
    QString SID(std::size_t station) { return world[station]->own.SID; }

    World world{5};
};

} // namespace

TEST_F(AlertOffice, StatusReachesEveryListAndIsToldOnce) {
    world[0]->status.SetCustomStatus("Out");
    world.run(1);
    for (std::size_t i = 0; i < world.size(); ++i) {
        EXPECT_EQ(item(*world[i]->views.rptEndpoints.find(SID(0)), LocationItem::Status).text, "Out");
        EXPECT_EQ(world[i].desktop.calls.count("showPopup 0"), i == 0 ? 0 : 1);
        EXPECT_EQ(world[i].sounds.played.count("Status.wav"), i == 0 ? 0 : 1);
    }
    world[0]->status.TurnOffStatus();
    world.run(1);
    for (std::size_t i = 1; i < world.size(); ++i) {
        EXPECT_FALSE(world[i].desktop.popups[0]) << "the popup goes with the status";
    }
    world[3]->protocol.send(Code::XAS2, QString(SID(1) + ValueMark + "Wanted" + ValueMark));
    world.run(1);
    EXPECT_EQ(world[1]->own.status, "Wanted");
    EXPECT_EQ(item(*world[3]->views.rptEndpoints.find(SID(1)), LocationItem::Status).text, "Wanted");
    EXPECT_EQ(world[2]->own.status, "");
    world[3]->protocol.send(Code::XAS1, SID(1));
    world.run(1);
    EXPECT_EQ(world[1]->own.status, "");
    EXPECT_EQ(item(*world[4]->views.rptEndpoints.find(SID(1)), LocationItem::Status).text, " ");
}
