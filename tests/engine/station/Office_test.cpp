// Several stations at once: they find each other, keep each other, and lose each other, on good
// networks and bad ones.
#include "support/World.h"

#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Definitions.h"

#include <QSet>

#include <gtest/gtest.h>

#include <random>

using namespace tessel;

namespace {

QSet<QString> keysOf(const ReportRecords& records, int keyItem) {
    QSet<QString> keys;
    for (int row = 0; row < records.count(); ++row) {
        const QString key = records.at(row)->item(keyItem).text;
        EXPECT_EQ(records.at(row)->row(), row);
        EXPECT_EQ(records.find(key), records.at(row).get());
        keys.insert(key);
    }
    EXPECT_EQ(keys.size(), records.count()) << "no location twice";
    return keys;
}

// What must hold of one station at any moment, whatever has been lost.
void expectSound(Station& station) {
    const ReportRecords& table = station.endpoints.records();
    const ReportRecords& view = station.views.rptEndpoints;
    EXPECT_EQ(keysOf(table, static_cast<int>(EndpointItem::SID)),
              keysOf(view, static_cast<int>(LocationItem::SID)));
    for (const auto& record : table.rows()) {
        const QString SID = item(*record, EndpointItem::SID).text;
        const ReportRecord* const shown = view.find(SID);
        ASSERT_NE(shown, nullptr);
        const QString note = item(*record, EndpointItem::Note).text;
        EXPECT_EQ(shown->preview, note.size() > 3 ? note : QString());
        EXPECT_EQ(item(*shown, LocationItem::Staff).value, item(*record, EndpointItem::StaffTag).value);
        EXPECT_EQ(item(*shown, LocationItem::SN).text, item(*record, EndpointItem::Active).text);
    }
}

void expectComplete(World& world) {
    for (std::size_t i = 0; i < world.size(); ++i) {
        SCOPED_TRACE(i);
        expectSound(*world[i].station);
        EXPECT_EQ(world.locations(i), static_cast<int>(world.size()));
    }
}

} // namespace

TEST(Office, EveryStationListsEveryOther) {
    World world(5);
    for (std::size_t i = 0; i < world.size(); ++i) {
        world.start(i);
        world.run(static_cast<std::int64_t>(i) * 3);
    }
    world.run(10);
    expectComplete(world);
    world[2]->presence.SetLocationNote("gone fishing");
    world[2]->status.SetCustomStatus("Out");
    world[2]->presence.Set_StaffTag(34);
    world.run(1);
    expectComplete(world);
    for (std::size_t i = 0; i < world.size(); ++i) {
        const ReportRecord& row = *world[i]->views.rptEndpoints.find(world[2]->own.SID);
        EXPECT_EQ(item(row, LocationItem::Status).text, "Out");
        EXPECT_EQ(row.preview, "gone fishing");
    }
    world[3]->ExitProc();
    world.run(1);
    EXPECT_EQ(world.locations(0), 4) << "a goodbye removes at once";
    world[4].link.close(); // a crash says none
    world.run(4 * 60 + 180);
    EXPECT_EQ(world.locations(0), 3);
    EXPECT_EQ(world.locations(1), 3);
}

// Loss, doubles and overtaking: rows may be late or old, but never doubled, torn or ghosts.
TEST(Office, StormsLeaveEveryListSound) {
    for (unsigned seed = 1; seed <= 6; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        World world(5 + seed % 4);
        world.network.keepSent = false;
        for (std::size_t i = 0; i < world.size(); ++i) {
            world[i].set(kNetFile, "Config", "ka", "5000");
        }
        world.startAll();
        world.network.loss = seed % 3 == 0 ? 0.4 : 0.15;
        world.network.doubling = 0.2;
        world.network.longestDelayMs = seed % 2 == 0 ? 2500 : 300;
        for (int step = 0; step < 400; ++step) {
            WorldStation& one = world[random() % world.size()];
            WorldStation& other = world[random() % world.size()];
            const QString target = other->own.SID + ValueMark;
            switch (random() % 10) {
            case 0:
                one->status.SetCustomStatus(QStringLiteral("Status %1").arg(step));
                break;
            case 1:
                one->status.TurnOffStatus();
                break;
            case 2:
                one->presence.SetLocationNote(QString(random() % 8, u'n'));
                break;
            case 3:
                one->presence.Set_StaffTag(static_cast<std::int16_t>(random() % 2 * 30));
                break;
            case 4:
                one->protocol.send(Code::XALSN, target + "Ann");
                break;
            case 5:
                one->protocol.send(Code::XASTR, target + "39");
                break;
            case 6:
                one->protocol.send(Code::XALN, target + "from afar");
                break;
            case 7:
                one->network.Announce();
                break;
            case 8:
                if (random() % 8 == 0) {
                    one->network.RestartNetwork();
                }
                break;
            default:
                one->protocol.send(Code::XAS1, other->own.SID);
                break;
            }
            world.clock.advance(random() % 3000);
            for (std::size_t i = 0; i < world.size(); ++i) {
                expectSound(*world[i].station);
                ASSERT_LE(world.locations(i), static_cast<int>(world.size()));
            }
            if (testing::Test::HasFailure()) {
                return;
            }
        }
        world.network.loss = 0;
        world.network.doubling = 0;
        // The own row alone may be missing: it comes with the own announcement, and that may be lost.
        EXPECT_TRUE(world.runUntil(600, [&] {
            for (std::size_t i = 0; i < world.size(); ++i) {
                for (std::size_t j = 0; j < world.size(); ++j) {
                    if (i != j && !world[i]->endpoints.Endpoint_VerifyOnline(world[j]->own.SID)) {
                        return false;
                    }
                }
            }
            return true;
        })) << "on a good network all find each other again";
    }
}
